#include "catalogue/archive/PlaceDuFichier.h"

#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

using zipinterne::Descripteur;

namespace {

class PlaceTest : public testing::Test
{
protected:
    QString Chemin() const { return dossier.Fichier("mes.qrt"); }
    struct stat Etat(const QString& nom) const
    {
        struct stat etat = {};
        EXPECT_EQ(stat(QFile::encodeName(dossier.Fichier(nom)).constData(), &etat), 0);
        return etat;
    }

    DossierDeTest dossier;
};

using LiensTest = PlaceTest;

TEST_F(LiensTest, APathWithoutALinkIsItself)
{
    dossier.Ecrire("mes.qrt", "x");
    EXPECT_EQ(CibleDesLiens(Chemin()), Chemin());
    EXPECT_EQ(CibleDesLiens(dossier.Fichier("rien.qrt")), dossier.Fichier("rien.qrt"));
}

TEST_F(LiensTest, AreFollowedToTheFileWhetherItIsThereOrNot)
{
    dossier.Ecrire("loin/mes.qrt", "x");
    ASSERT_TRUE(QFile::link("loin/mes.qrt", dossier.Fichier("un")));
    ASSERT_TRUE(QFile::link(dossier.Fichier("un"), dossier.Fichier("deux")));
    ASSERT_TRUE(QFile::link("loin/rien.qrt", dossier.Fichier("vide")));
    EXPECT_EQ(QDir::cleanPath(CibleDesLiens(dossier.Fichier("deux"))), dossier.Fichier("loin/mes.qrt"));
    EXPECT_EQ(QDir::cleanPath(CibleDesLiens(dossier.Fichier("vide"))), dossier.Fichier("loin/rien.qrt"));
}

TEST_F(LiensTest, OnesThatGoRoundStandForThemselves)
{
    ASSERT_TRUE(QFile::link(dossier.Fichier("b"), dossier.Fichier("a")));
    ASSERT_TRUE(QFile::link(dossier.Fichier("a"), dossier.Fichier("b")));
    EXPECT_EQ(CibleDesLiens(dossier.Fichier("a")), dossier.Fichier("a"));
}

TEST_F(PlaceTest, OneTakesItAtATime)
{
    dossier.Ecrire("mes.qrt", "x");
    {
        PlaceDuFichier premiere(Chemin()), seconde(Chemin());
        EXPECT_TRUE(premiere.Prendre());
        EXPECT_FALSE(seconde.Prendre());
        EXPECT_TRUE(seconde.EstPerdue());
        EXPECT_FALSE(premiere.EstPerdue());
    }
    PlaceDuFichier troisieme(Chemin());
    EXPECT_TRUE(troisieme.Prendre());
}

TEST_F(PlaceTest, AProcessThatDiesLetsGo)
{
    dossier.Ecrire("mes.qrt", "x");
    const pid_t enfant = fork();
    if (enfant == 0) {
        PlaceDuFichier place(Chemin());
        if (place.Prendre())
            std::raise(SIGKILL);
        _exit(1);
    }
    int etat = 0;
    ASSERT_EQ(waitpid(enfant, &etat, 0), enfant);
    ASSERT_TRUE(WIFSIGNALED(etat));
    PlaceDuFichier place(Chemin());
    EXPECT_TRUE(place.Prendre());
}

TEST_F(PlaceTest, TheNewFileIsHeldLikeTheOldOne)
{
    dossier.Ecrire("mes.qrt", "x");
    PlaceDuFichier place(Chemin());
    ASSERT_TRUE(place.Prendre() && place.SupprimerAncien());
    std::optional<Descripteur> neuf = place.Creer();
    ASSERT_TRUE(neuf);
    neuf->Fermer(); // written; it is still looked at
    PlaceDuFichier autre(Chemin());
    EXPECT_FALSE(autre.Prendre());
    EXPECT_TRUE(place.EstEnPlace());
    EXPECT_FALSE(place.EstPerdue());
}

TEST_F(PlaceTest, AFileThatWasReplacedSinceItWasTakenStays)
{
    dossier.Ecrire("mes.qrt", "x");
    PlaceDuFichier place(Chemin());
    ASSERT_TRUE(place.Prendre());
    // By a program that knows no locks.
    dossier.Ecrire("neuf", "autre");
    ASSERT_TRUE(QFile::remove(Chemin()) && QFile::rename(dossier.Fichier("neuf"), Chemin()));
    EXPECT_FALSE(place.SupprimerAncien());
    EXPECT_TRUE(place.EstPerdue());
    EXPECT_EQ(dossier.Lire("mes.qrt"), "autre");
}

TEST_F(PlaceTest, AFileThatComesWhereNoneWasStays)
{
    PlaceDuFichier place(Chemin()), autre(Chemin());
    ASSERT_TRUE(place.Prendre() && autre.Prendre());
    dossier.Ecrire("mes.qrt", "autre");
    EXPECT_FALSE(autre.SupprimerAncien());
    EXPECT_TRUE(autre.EstPerdue());
    EXPECT_FALSE(place.Creer());
    EXPECT_EQ(errno, EEXIST);
    EXPECT_TRUE(place.EstPerdue());
    place.Retirer();
    EXPECT_EQ(dossier.Lire("mes.qrt"), "autre");
}

TEST_F(PlaceTest, OfTwoThatMakeTheFileOneHasIt)
{
    PlaceDuFichier place(Chemin()), autre(Chemin());
    ASSERT_TRUE(place.Prendre() && autre.Prendre());
    ASSERT_TRUE(place.SupprimerAncien() && autre.SupprimerAncien());
    EXPECT_TRUE(place.Creer());
    EXPECT_FALSE(autre.Creer());
    EXPECT_FALSE(place.EstPerdue());
    EXPECT_TRUE(autre.EstPerdue());
    autre.Retirer();
    EXPECT_TRUE(place.EstEnPlace());
}

TEST_F(PlaceTest, AReservedFileIsTheOneThatIsMade)
{
    PlaceDuFichier place(Chemin()), autre(Chemin());
    ASSERT_TRUE(place.Prendre() && place.Reserver());
    EXPECT_TRUE(dossier.Existe("mes.qrt"));
    EXPECT_FALSE(autre.Prendre());
    EXPECT_TRUE(place.Creer());
    EXPECT_TRUE(place.EstEnPlace());
    place.Retirer();
    EXPECT_FALSE(dossier.Existe("mes.qrt"));

    ASSERT_TRUE(place.Reserver());
    place.Retirer();
    EXPECT_TRUE(place.Creer()) << "anew";
    EXPECT_TRUE(place.EstEnPlace());
}

TEST_F(PlaceTest, AReservedFileThatNobodyAskedForGoesAgain)
{
    {
        PlaceDuFichier place(Chemin());
        ASSERT_TRUE(place.Reserver());
    }
    EXPECT_FALSE(dossier.Existe("mes.qrt"));
    {
        PlaceDuFichier place(Chemin());
        ASSERT_TRUE(place.Reserver() && place.Creer());
    }
    EXPECT_TRUE(dossier.Existe("mes.qrt"));
}

TEST_F(PlaceTest, OnlyItsOwnFileIsTakenAway)
{
    PlaceDuFichier place(Chemin());
    ASSERT_TRUE(place.Prendre() && place.Creer());
    place.Retirer();
    EXPECT_FALSE(dossier.Existe("mes.qrt"));

    ASSERT_TRUE(place.Creer());
    ASSERT_TRUE(QFile::rename(Chemin(), dossier.Fichier("ailleurs")));
    dossier.Ecrire("mes.qrt", "autre");
    EXPECT_FALSE(place.EstEnPlace());
    EXPECT_TRUE(place.EstPerdue());
    place.Retirer();
    EXPECT_EQ(dossier.Lire("mes.qrt"), "autre");
    EXPECT_TRUE(dossier.Existe("ailleurs"));
}

TEST_F(PlaceTest, OneThatIsGoneIsNotLostToAnybody)
{
    PlaceDuFichier place(Chemin());
    ASSERT_TRUE(place.Prendre() && place.Creer());
    ASSERT_TRUE(QFile::remove(Chemin()));
    EXPECT_FALSE(place.EstEnPlace());
    EXPECT_FALSE(place.EstPerdue());
}

TEST_F(PlaceTest, WhatIsNoFileIsNeverDeleted)
{
    ASSERT_TRUE(QDir().mkpath(dossier.Fichier("vide")));
    ASSERT_EQ(mkfifo(QFile::encodeName(dossier.Fichier("tube")).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link("vide", dossier.Fichier("lien")));
    for (const char* nom : {"vide", "tube", "lien"}) {
        PlaceDuFichier place(dossier.Fichier(nom));
        EXPECT_TRUE(place.Prendre()) << nom;
        EXPECT_FALSE(place.SupprimerAncien()) << nom;
        EXPECT_FALSE(place.EstPerdue()) << nom << ": nobody has written here";
        EXPECT_TRUE(QFileInfo(dossier.Fichier(nom)).exists()) << nom;
    }
}

TEST_F(PlaceTest, TheNewFileHasTheRightsOfTheOldOne)
{
    for (const mode_t droits : {0640U, 0600U, 0666U, 0444U}) {
        dossier.Ecrire("mes.qrt", "x");
        ASSERT_EQ(chmod(QFile::encodeName(Chemin()).constData(), droits), 0);
        PlaceDuFichier place(Chemin());
        ASSERT_TRUE(place.Prendre() && place.SupprimerAncien() && place.Creer());
        EXPECT_EQ(Etat("mes.qrt").st_mode & 07777U, droits | 0200U) << "its owner may always write";
        place.Retirer();
    }
}

TEST_F(PlaceTest, TheNewFileHasTheOwnerOfTheOldOneWhereThatMayBe)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser gives files away";
    dossier.Ecrire("mes.qrt", "x");
    constexpr uid_t quelquun = 12345;
    constexpr gid_t groupe = 12346;
    ASSERT_EQ(chown(QFile::encodeName(Chemin()).constData(), quelquun, groupe), 0);
    PlaceDuFichier place(Chemin());
    ASSERT_TRUE(place.Prendre() && place.SupprimerAncien() && place.Creer());
    EXPECT_EQ(Etat("mes.qrt").st_uid, quelquun);
    EXPECT_EQ(Etat("mes.qrt").st_gid, groupe);
}

} // namespace
