#include "platform/Presence.h"

#include "support/ArchiveDeTest.h"
#include "support/DossierDeTest.h"

#include <QFile>

#include <gtest/gtest.h>

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
    const auto regarder = [&] { return PeutExister(fichier) ? 0 : 1; };
    EXPECT_EQ(SansAcces(dossier.Chemin(), dossier.Fichier("ferme"), regarder), 0);
    EXPECT_FALSE(PeutExister(fichier)) << "it was not there";
}

} // namespace
