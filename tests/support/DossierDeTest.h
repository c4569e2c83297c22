// A folder of a test's own, gone when it ends.
#pragma once

#include "support/Impression.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

class DossierDeTest
{
public:
    DossierDeTest() = default;
    /// Also what has a name that Qt cannot spell goes.
    ~DossierDeTest();
    DossierDeTest(const DossierDeTest&) = delete;
    DossierDeTest& operator=(const DossierDeTest&) = delete;

    /// The folder with a trailing separator.
    QString Chemin() const { return m_dossier.path() + u'/'; }
    QString Fichier(const QString& nom) const { return m_dossier.filePath(nom); }
    /// Writes a file below the folder (missing folders are made) and returns its path.
    QString Ecrire(const QString& nom, const QByteArray& contenu) const;
    QByteArray Lire(const QString& nom) const;
    bool Existe(const QString& nom) const;

private:
    QTemporaryDir m_dossier;
};

/// Puts lines together with CR LF behind each.
QByteArray Lignes(std::initializer_list<QByteArray> lignes);
