#include "support/DossierDeTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

QString DossierDeTest::Ecrire(const QString& nom, const QByteArray& contenu) const
{
    const QString chemin = Fichier(nom);
    QDir().mkpath(QFileInfo(chemin).path());
    QFile fichier(chemin);
    EXPECT_TRUE(fichier.open(QIODevice::WriteOnly)) << chemin.toStdString();
    EXPECT_EQ(fichier.write(contenu), contenu.size());
    return chemin;
}

QByteArray DossierDeTest::Lire(const QString& nom) const
{
    QFile fichier(Fichier(nom));
    EXPECT_TRUE(fichier.open(QIODevice::ReadOnly)) << nom.toStdString();
    return fichier.readAll();
}

bool DossierDeTest::Existe(const QString& nom) const
{
    return QFileInfo::exists(Fichier(nom));
}

QByteArray Lignes(std::initializer_list<QByteArray> lignes)
{
    QByteArray texte;
    for (const QByteArray& ligne : lignes)
        texte += ligne + "\r\n";
    return texte;
}
