// Names that an image can have: as a file of a document's folder, and in the catalogue's text, which has no escape.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

/// The name with "_" in place of "|" and control characters, which would end it in the catalogue's text.
QString RendreTenable(QString nom);

/// Gives names for files of one folder, no two alike in whatever case.
class NomsDistincts
{
public:
    /// `octetsAuPlus`: of a name that is given.
    explicit NomsDistincts(qsizetype octetsAuPlus) : m_octets(octetsAuPlus) {}

    void Prendre(const QString& nom) { m_pris.insert(nom.toCaseFolded()); }
    /// A name like `nom` that can stand in the folder and is not taken yet; it is from here on. It is none of the names
    /// that the program uses itself.
    QString Donner(const QString& nom);

private:
    qsizetype m_octets;
    QSet<QString> m_pris;
    QHash<QString, int> m_numeros; ///< the last one given, by the beginning of the name
};
