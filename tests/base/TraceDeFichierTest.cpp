#include "base/TraceDeFichier.h"

#include "support/DossierDeTest.h"

#include <gtest/gtest.h>

TEST(TraceDeFichierTest, IsThatOfARegularFileAlone)
{
    const DossierDeTest dossier;
    const TraceDeFichier trace = TraceDe(dossier.Ecrire("a.qrt", "abc"));
    EXPECT_TRUE(trace);
    EXPECT_EQ(trace.taille, 3);
    EXPECT_FALSE(TraceDe(dossier.Fichier("b.qrt")));
    EXPECT_FALSE(TraceDe(dossier.Chemin()));
    EXPECT_FALSE(TraceDe("/dev/null"));
}

TEST(TraceDeFichierTest, ComesBackFromAWordWithoutItsDevice)
{
    const TraceDeFichier trace{7, ~uint64_t(0), uint64_t(5) << 40, -1};
    TraceDeFichier relue = trace;
    relue.peripherique = 0;
    EXPECT_EQ(DepuisMot(VersMot(trace)), relue);
}

TEST(TraceDeFichierTest, OtherWordsAreNone)
{
    for (const char* mot : {"", "1:2", "1:2:3:4", "a:2:3", "1:b:3", "1:2:c", "-1:2:3"})
        EXPECT_FALSE(DepuisMot(mot)) << mot;
}
