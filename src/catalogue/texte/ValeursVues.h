// The values of the dependant column that a command has come across.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

/// Values seen so far, as one text "|value|value|" in which a value is looked for between its bars. A value with a bar
/// in it is therefore found also across two others, and its parts are found alone.
class ValeursVues
{
public:
    /// False when the value is found already.
    bool Ajouter(const QString& valeur);
    bool Contient(const QString& valeur);

private:
    bool ContientParties(const QString& valeur);

    QString m_texte{u'|'};
    QSet<QString> m_parties;
    QHash<QString, qsizetype> m_cherchees; // where to go on looking
};
