#include "support/DossierDeTest.h"

#include "platform/NomsSysteme.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <filesystem>
#include <system_error>

DossierDeTest::~DossierDeTest()
{
    std::error_code erreur;
    std::filesystem::remove_all(m_dossier.path().toStdString(), erreur);
}

QString DossierDeTest::Ecrire(const QString& nom, const QByteArray& contenu) const
{
    const QString chemin = Fichier(nom);
    QDir().mkpath(QFileInfo(chemin).path());
    QFile fichier;
    EXPECT_TRUE(OuvrirParChemin(fichier, chemin, QIODevice::WriteOnly)) << chemin.toStdString();
    EXPECT_EQ(fichier.write(contenu), contenu.size());
    return chemin;
}

QByteArray DossierDeTest::Lire(const QString& nom) const
{
    QFile fichier;
    EXPECT_TRUE(OuvrirParChemin(fichier, Fichier(nom), QIODevice::ReadOnly)) << nom.toStdString();
    return fichier.readAll();
}

bool DossierDeTest::Existe(const QString& nom) const
{
    return EtatDuChemin(Fichier(nom)).has_value();
}

QByteArray Lignes(std::initializer_list<QByteArray> lignes)
{
    QByteArray texte;
    for (const QByteArray& ligne : lignes)
        texte += ligne + "\r\n";
    return texte;
}
