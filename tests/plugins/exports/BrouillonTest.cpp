#include "Brouillon.h"

#include "support/DossierDeTest.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class BrouillonTest : public testing::Test
{
protected:
    QStringList Fichiers() const
    {
        return QDir(dossier.Chemin()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
    static mode_t DroitsDe(const QString& chemin)
    {
        struct stat etat = {};
        stat(QFile::encodeName(chemin).constData(), &etat);
        return etat.st_mode & 07777U;
    }

    DossierDeTest dossier;
};

} // namespace

TEST_F(BrouillonTest, TakesItsPlaceOnlyWhenItIsWhole)
{
    const QString chemin = dossier.Ecrire(u"a.json"_s, "avant");
    Brouillon brouillon(chemin);
    EXPECT_EQ(Fichiers(), QStringList("a.json"));
    ASSERT_EQ(brouillon.Ouvrir(), Fin::Faite);
    EXPECT_EQ(brouillon.Ecrire("ap"), Fin::Faite);
    EXPECT_EQ(brouillon.Ecrire("rès"), Fin::Faite);
    EXPECT_EQ(dossier.Lire(u"a.json"_s), "avant");
    EXPECT_EQ(brouillon.Deposer(), Fin::Faite);
    EXPECT_EQ(dossier.Lire(u"a.json"_s), "après");
    EXPECT_EQ(Fichiers(), QStringList("a.json"));
}

TEST_F(BrouillonTest, LeavesNothingWhereItIsGivenUp)
{
    const QString chemin = dossier.Ecrire(u"a.json"_s, "avant");
    {
        Brouillon brouillon(chemin);
        ASSERT_EQ(brouillon.Ouvrir(), Fin::Faite);
        brouillon.Ecrire("après");
        EXPECT_EQ(Fichiers().size(), 2);
    }
    EXPECT_EQ(Fichiers(), QStringList("a.json"));
    EXPECT_EQ(dossier.Lire(u"a.json"_s), "avant");
}

TEST_F(BrouillonTest, KeepsTheRightsOfTheEarlierFile)
{
    const QString chemin = dossier.Ecrire(u"a.json"_s, "avant");
    QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    Brouillon brouillon(chemin);
    ASSERT_EQ(brouillon.Ouvrir(), Fin::Faite);
    ASSERT_EQ(brouillon.Deposer(), Fin::Faite);
    EXPECT_EQ(DroitsDe(chemin), 0640U);
}

TEST_F(BrouillonTest, WritesWhereALinkLeads)
{
    QDir(dossier.Chemin()).mkdir(u"ailleurs"_s);
    const QString vrai = dossier.Ecrire(u"ailleurs/vrai.json"_s, "avant");
    const QString lien = dossier.Fichier(u"lien.json"_s);
    QFile::link(vrai, lien);
    Brouillon brouillon(lien);
    ASSERT_EQ(brouillon.Ouvrir(), Fin::Faite);
    brouillon.Ecrire("après");
    ASSERT_EQ(brouillon.Deposer(), Fin::Faite);
    EXPECT_TRUE(QFileInfo(lien).isSymLink());
    EXPECT_EQ(dossier.Lire(u"ailleurs/vrai.json"_s), "après");
}

TEST_F(BrouillonTest, WritesWhereALinkLeadsThoughNoFileIsThereYet)
{
    QDir(dossier.Chemin()).mkdir(u"ailleurs"_s);
    const QString lien = dossier.Fichier(u"lien.json"_s);
    ASSERT_EQ(symlink("ailleurs/suite.json", lien.toUtf8().constData()), 0);
    ASSERT_EQ(symlink("neuf.json", dossier.Fichier(u"ailleurs/suite.json"_s).toUtf8().constData()), 0);
    Brouillon brouillon(lien);
    ASSERT_EQ(brouillon.Ouvrir(), Fin::Faite);
    brouillon.Ecrire("neuf");
    ASSERT_EQ(brouillon.Deposer(), Fin::Faite);
    EXPECT_TRUE(QFileInfo(lien).isSymLink());
    EXPECT_EQ(dossier.Lire(u"ailleurs/neuf.json"_s), "neuf");
}

TEST_F(BrouillonTest, ARingOfLinksIsRefused)
{
    const QString lien = dossier.Fichier(u"lien.json"_s);
    ASSERT_EQ(symlink("lien.json", lien.toUtf8().constData()), 0);
    Brouillon brouillon(lien);
    EXPECT_EQ(brouillon.Ouvrir(), Fin::EcritureRefusee);
    EXPECT_TRUE(QFileInfo(lien).isSymLink());
}

TEST_F(BrouillonTest, NamesThatAreNoUtf8AreWritten)
{
    EXPECT_EQ(OctetsDuNom(u"/é/"_s + QChar(0xDCE9) + u"t💀"_s), QByteArray("/\xC3\xA9/\xE9t\xF0\x9F\x92\x80"));
    const QString chemin = dossier.Chemin() + u'b' + QChar(0xDCE9) + u".json"_s;
    Brouillon brouillon(chemin);
    ASSERT_EQ(brouillon.Ouvrir(), Fin::Faite);
    ASSERT_EQ(brouillon.Deposer(), Fin::Faite);
    EXPECT_EQ(access((dossier.Chemin().toUtf8() + "b\xE9.json").constData(), F_OK), 0);
}

TEST_F(BrouillonTest, WhatIsNoFileIsNotReplaced)
{
    QDir(dossier.Chemin()).mkdir(u"dossier.json"_s);
    EXPECT_EQ(Brouillon(dossier.Fichier(u"dossier.json"_s)).Ouvrir(), Fin::EcritureRefusee);
    EXPECT_EQ(Brouillon(dossier.Fichier(u"absent/a.json"_s)).Ouvrir(), Fin::DossierAbsent);
    dossier.Ecrire(u"fichier"_s, "");
    EXPECT_EQ(Brouillon(dossier.Fichier(u"fichier/a.json"_s)).Ouvrir(), Fin::DossierAbsent);
}

TEST_F(BrouillonTest, AFileThatIsReadOnlyStays)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "nothing is read-only to root";
    const QString chemin = dossier.Ecrire(u"a.json"_s, "avant");
    QFile::setPermissions(chemin, QFile::ReadOwner);
    EXPECT_EQ(Brouillon(chemin).Ouvrir(), Fin::Interdit);
}

// A limit of the process stands in for the end of a disk.
TEST_F(BrouillonTest, AFullDiskIsToldAndLeavesTheEarlierFile)
{
    const QString chemin = dossier.Ecrire(u"a.json"_s, "avant");
    struct rlimit avant = {};
    getrlimit(RLIMIT_FSIZE, &avant);
    auto* const signal = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit petite = {4096, avant.rlim_max};
    setrlimit(RLIMIT_FSIZE, &petite);
    {
        Brouillon brouillon(chemin);
        EXPECT_EQ(brouillon.Ouvrir(), Fin::Faite);
        EXPECT_EQ(brouillon.Ecrire(QByteArray(10'000, 'x')), Fin::DisquePlein);
    }
    setrlimit(RLIMIT_FSIZE, &avant);
    std::signal(SIGXFSZ, signal);
    EXPECT_EQ(dossier.Lire(u"a.json"_s), "avant");
    EXPECT_EQ(Fichiers(), QStringList("a.json"));
}

TEST(FinDeLErreur, TellsWhatTheUserCanDoAbout)
{
    EXPECT_EQ(FinDeLErreur(ENOSPC), Fin::DisquePlein);
    EXPECT_EQ(FinDeLErreur(EDQUOT), Fin::DisquePlein);
    EXPECT_EQ(FinDeLErreur(EROFS), Fin::Interdit);
    EXPECT_EQ(FinDeLErreur(EACCES), Fin::Interdit);
    EXPECT_EQ(FinDeLErreur(ENOENT), Fin::DossierAbsent);
    EXPECT_EQ(FinDeLErreur(EIO), Fin::EcritureRefusee);
}
