#include "platform/VerrouDossier.h"
#include "support/DossierDeTest.h"

#include <QDir>

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(VerrouDossier, HoldsAFolderForAsLongAsItLives)
{
    const DossierDeTest dossier;
    {
        const std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier.Chemin());
        ASSERT_TRUE(verrou);
        EXPECT_TRUE(verrou->Tient());
        EXPECT_FALSE(VerrouDossier::Prendre(dossier.Chemin()));
    }
    EXPECT_TRUE(VerrouDossier::Prendre(dossier.Chemin()));
}

TEST(VerrouDossier, HandsItsHoldOver)
{
    const DossierDeTest dossier;
    VerrouDossier autre;
    {
        std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier.Chemin());
        autre = std::move(*verrou);
        EXPECT_FALSE(verrou->Tient());
    }
    EXPECT_TRUE(autre.Tient());
    EXPECT_FALSE(VerrouDossier::Prendre(dossier.Chemin()));
    autre = VerrouDossier();
    EXPECT_TRUE(VerrouDossier::Prendre(dossier.Chemin()));
}

TEST(VerrouDossier, HoldsNothingWhereThereIsNoFolder)
{
    const DossierDeTest dossier;

    const std::optional<VerrouDossier> premier = VerrouDossier::Prendre(dossier.Fichier("none"));
    const std::optional<VerrouDossier> second = VerrouDossier::Prendre(dossier.Fichier("none"));

    EXPECT_TRUE(premier);
    EXPECT_TRUE(second);
    EXPECT_FALSE(premier->Tient());
}

TEST(VerrouDossier, LeavesNoTraceInTheFolder)
{
    const DossierDeTest dossier;

    const std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier.Chemin());

    EXPECT_TRUE(QDir(dossier.Chemin()).isEmpty());
}

} // namespace
