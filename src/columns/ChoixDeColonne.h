// A column as it is chosen in a drop-down list with a text part, and how choices are refused.
#pragma once

#include <QString>
#include <QStringList>

struct Message;
class QrtClass;

struct ChoixDeColonne
{
    QString texte;     ///< what the text part reads
    int position = -1; ///< of the line chosen, from 0; -1 when the text was only typed, whatever it reads

    /// Column `numero`, chosen in a list of all columns.
    static ChoixDeColonne Numero(const QrtClass& doc, int numero);

    /// Whether the text is a column's title, letter case included.
    bool NommeUneColonne(const QrtClass& doc) const;
};

/// The titles of all columns.
QStringList TitresDesColonnes(const QrtClass& doc);

/// Shows the message; false, for who ends with that.
bool Refuser(const Message& message);
