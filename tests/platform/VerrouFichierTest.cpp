#include "platform/VerrouFichier.h"
#include "support/DossierDeTest.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

TEST(VerrouFichier, IsHeldByOneAtATime)
{
    const DossierDeTest dossier;
    const QString fichier = dossier.Ecrire("a.ini", "x");
    {
        const VerrouFichier un(fichier);
        EXPECT_TRUE(un.Tient());
        EXPECT_FALSE(VerrouFichier(fichier).Tient());
    }
    EXPECT_TRUE(VerrouFichier(fichier).Tient());
}

TEST(VerrouFichier, IsNoneOnAFileThatWasReplacedOrRemoved)
{
    const DossierDeTest dossier;
    const QString fichier = dossier.Ecrire("a.ini", "x");
    const VerrouFichier ancien(fichier);
    ASSERT_TRUE(QFile::remove(fichier));
    EXPECT_FALSE(ancien.Tient());
    dossier.Ecrire("a.ini", "y");
    EXPECT_FALSE(ancien.Tient());
    EXPECT_TRUE(VerrouFichier(fichier).Tient());
}

TEST(VerrouFichier, NobodyHoldsWhatIsNotThere)
{
    const DossierDeTest dossier;
    EXPECT_TRUE(VerrouFichier(dossier.Fichier("none.ini")).Tient());
    EXPECT_TRUE(VerrouFichier(dossier.Chemin()).Tient());
}

} // namespace
