#include "platform/Presence.h"

#include "support/ArchiveDeTest.h"
#include "support/DossierDeTest.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST(PeutExister, WhatIsThere)
{
    const DossierDeTest dossier;
    const QString fichier = dossier.Ecrire("livres.qrt", "x");
    ASSERT_TRUE(QFile::link(fichier, dossier.Fichier("lien.qrt")));

    EXPECT_TRUE(PeutExister(fichier));
    EXPECT_TRUE(PeutExister(dossier.Chemin()));
    EXPECT_TRUE(PeutExister(dossier.Fichier("lien.qrt")));
}

TEST(PeutExister, NotWhatTheFileSystemSaysIsNotThere)
{
    const DossierDeTest dossier;
    dossier.Ecrire("livres.qrt", "x");
    ASSERT_TRUE(QFile::link(dossier.Fichier("rien.qrt"), dossier.Fichier("vide.qrt")));
    ASSERT_TRUE(QFile::link(dossier.Fichier("rond.qrt"), dossier.Fichier("rond.qrt")));

    EXPECT_FALSE(PeutExister(dossier.Fichier("rien.qrt")));
    EXPECT_FALSE(PeutExister(dossier.Fichier("rien/livres.qrt")));
    EXPECT_FALSE(PeutExister(dossier.Fichier("livres.qrt/livres.qrt"))) << "a file is no folder";
    EXPECT_FALSE(PeutExister(dossier.Fichier(QString(300, u'n')))) << "no file has so long a name";
    EXPECT_FALSE(PeutExister(dossier.Fichier("vide.qrt"))) << "a link to nothing";
    EXPECT_FALSE(PeutExister(dossier.Fichier("rond.qrt"))) << "a link to itself";
    EXPECT_FALSE(PeutExister({}));
}

TEST(PeutExister, WhatCannotBeLookedAt)
{
    const DossierDeTest dossier;
    const QString fichier = dossier.Fichier("ferme/livres.qrt");
    dossier.Ecrire("ferme/autre.qrt", "x");
    const int resultat = DansUnEnfant([&] {
        const QByteArray parent = dossier.Chemin().toLocal8Bit(), ferme = dossier.Fichier("ferme").toLocal8Bit();
        if (chmod(parent.constData(), 0711) != 0 || chmod(ferme.constData(), 0) != 0)
            return 2;
        if (geteuid() == 0 && setuid(65534) != 0) // root may look everywhere
            return 3;
        return PeutExister(fichier) ? 0 : 1;
    });
    EXPECT_EQ(resultat, 0);
    EXPECT_EQ(chmod(dossier.Fichier("ferme").toLocal8Bit().constData(), 0700), 0);
    EXPECT_FALSE(PeutExister(fichier)) << "it was not there";
}

} // namespace
