#include "base/NomsDuDossier.h"

#include "support/ArchiveDeTest.h"
#include "support/DossierDeTest.h"

#include <gtest/gtest.h>

TEST(NomsDuDossier, AreThoseOfFilesAndFoldersHiddenOrNot)
{
    const DossierDeTest dossier;
    dossier.Ecrire("a.png", "a");
    dossier.Ecrire(".cache", "b");
    dossier.Ecrire("sous/c", "c");
    std::optional<QStringList> noms = NomsDuDossier(dossier.Chemin());
    ASSERT_TRUE(noms);
    noms->sort();
    EXPECT_EQ(*noms, QStringList({".cache", "a.png", "sous"}));
    std::optional<QStringList> fichiers = FichiersDuDossier(dossier.Chemin());
    ASSERT_TRUE(fichiers);
    fichiers->sort();
    EXPECT_EQ(*fichiers, QStringList({".cache", "a.png"}));
}

TEST(NomsDuDossier, AByteOrderMarkIsPartOfAName)
{
    const DossierDeTest dossier;
    dossier.Ecrire(QStringLiteral("\uFEFFa.png"), "a");
    EXPECT_EQ(NomsDuDossier(dossier.Chemin()), QStringList(QStringLiteral("\uFEFFa.png")));
}

TEST(NomsDuDossier, AnEmptyFolderHasNone)
{
    const DossierDeTest dossier;
    EXPECT_EQ(NomsDuDossier(dossier.Chemin()), QStringList());
}

TEST(NomsDuDossier, AFolderThatCannotBeReadIsNotAnEmptyOne)
{
    const DossierDeTest dossier;
    dossier.Ecrire("ferme/a.png", "a");
    const QString ferme = dossier.Fichier("ferme");
    EXPECT_EQ(SansAcces(dossier.Chemin(), ferme, [&] { return NomsDuDossier(ferme) ? 1 : 0; }), 0);
    EXPECT_FALSE(NomsDuDossier(dossier.Fichier("rien")));
    EXPECT_FALSE(NomsDuDossier(dossier.Fichier("ferme/a.png")));
}
