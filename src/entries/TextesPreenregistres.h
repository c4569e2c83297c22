// The lists of pre-recorded texts of all columns, as they are edited together, and the text by which they go from one
// category to another: a line that says what it is, then a line for each column with its title, a tab character and its
// list (see SaisieDEntree.h). Lines end in CR LF, the last one too.
#pragma once

#include "entries/Correspondance.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

struct TextesDeColonne
{
    QString titre;
    QString liste;
};
using ListesDeColonnes = std::vector<TextesDeColonne>;

/// The first line of such a text, with its end.
QString EntetePreenregistres();
/// A column's line, with its end.
QString LignePreenregistree(const TextesDeColonne& colonne);

/// No column has a text.
bool SontVides(const ListesDeColonnes& colonnes);
QStringList TitresDe(const ListesDeColonnes& colonnes);

/// The columns of a text that begins with the line that says what it is; nothing for any other. What stands behind the
/// last line end is none, and lists have one line.
std::optional<ListesDeColonnes> LirePreenregistres(const QString& texte);

/// Puts the list of each source behind those that the target in its row has; nothing is merged. Sources in rows beyond
/// `colonnes` are left out. It is meant that none is taken when the first row stands for no source.
void CollerPreenregistres(ListesDeColonnes& colonnes, const ListesDeColonnes& sources, const Correspondance& rangs);

/// The texts without those at `positions` (from 0, ascending).
QStringList SansTextes(const QStringList& textes, const std::vector<int>& positions);
