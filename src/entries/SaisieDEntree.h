// The rules of typing an entry: which values can be kept, and the pre-recorded texts of a column.
//
// The texts of a column are one text, joined with "|"; the empty text is the empty list. There is no escape.
#pragma once

#include <QString>
#include <QStringList>

/// The elements of a list of pre-recorded texts; none for the empty text.
QStringList TextesDe(const QString& liste);

/// True when the list holds `texte`, case counting. The empty text counts as held by the empty list.
bool TexteConnu(const QString& liste, const QString& texte);

/// The list with `texte` behind its last element. A "|" in it is not refused and makes two elements.
QString AvecTexte(const QString& liste, const QString& texte);

/// 0-based position of the first value that holds "|", which separates values in files; -1 when none does.
int ValeurInterdite(const QStringList& valeurs);

/// True when all values are empty: that is no entry.
bool ToutEstVide(const QStringList& valeurs);
