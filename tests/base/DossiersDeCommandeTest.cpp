#include "base/DossiersDeCommande.h"

#include "base/DossiersTemp.h"
#include "platform/VerrouDossier.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class DossiersDeCommande : public testing::Test
{
protected:
    QString Temp(const QString& suite) const { return TempFolder + u'/' + suite; }

    /// "temp/cli-12-abcdef" with the folder of one document, as a killed run leaves it.
    void Laisser(const QString& nom = u"cli-12-abcdef"_s)
    {
        dossier.Ecrire(u"temp/%1/cat7/Zelvane.qrt"_s.arg(nom), "copy");
        dossier.Ecrire(u"temp/%1/cat7/abbey.png"_s.arg(nom), "image");
        Fermer(nom + u"/cat7"_s);
    }
    void Fermer(const QString& nom) const { ASSERT_EQ(chmod(QFile::encodeName(Temp(nom)).constData(), 0700), 0); }
    /// Whether the folder is as it was after a start.
    bool Reste(const QString& nom = u"cli-12-abcdef"_s) const
    {
        SupprimerDossiersDeCommande();
        return QFileInfo::exists(Temp(nom + u"/cat7/Zelvane.qrt"_s)) &&
               QFileInfo::exists(Temp(nom + u"/cat7/abbey.png"_s));
    }

    const DossierDeTest& dossier = PlateformeDeTest::Courante().dossier;
};

} // namespace

TEST_F(DossiersDeCommande, EachIsMadeAnewAndItsUsersAlone)
{
    const QString un = CreerDossierDeCommande(), deux = CreerDossierDeCommande();
    EXPECT_NE(un, deux);
    EXPECT_TRUE(un.startsWith(Temp(u"cli-%1-"_s.arg(QCoreApplication::applicationPid()))));
    EXPECT_TRUE(un.endsWith(u'/'));
    struct stat etat
    {
    };
    ASSERT_EQ(stat(QFile::encodeName(un).constData(), &etat), 0);
    EXPECT_EQ(etat.st_mode & 0777, 0700u);
}

TEST_F(DossiersDeCommande, WhereNoneCanBeMadeThereIsNone)
{
    TempFolder = dossier.Ecrire("pas-un-dossier", "x");
    EXPECT_FALSE(QFileInfo::exists(CreerDossierDeCommande()));
}

TEST_F(DossiersDeCommande, OneOfALivingRunStaysAlsoWhileItIsDeleted)
{
    const QString base = CreerDossierDeCommande();
    SupprimerDossiersDeCommande();
    EXPECT_TRUE(QFileInfo::exists(base));
    const QString ecarte = base.chopped(1) + u".fin"_s;
    ASSERT_TRUE(QDir().rename(base, ecarte));
    SupprimerDossiersDeCommande();
    EXPECT_TRUE(QFileInfo::exists(ecarte));
}

TEST_F(DossiersDeCommande, WhatAKilledRunLeftGoes)
{
    for (const QString& nom : {u"cli-12-abcdef"_s, u"cli-12"_s, u"cli-12-abcdef.fin"_s, u"cli-12.fin"_s})
        Laisser(nom);
    QDir().mkpath(Temp("cli-13-abcdef"));
    QDir().mkpath(Temp("cli-14-abcdef/cat1"));
    Fermer("cli-14-abcdef/cat1");
    SupprimerDossiersDeCommande();
    EXPECT_EQ(QDir(TempFolder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

TEST_F(DossiersDeCommande, SoDoesWhatWasLeftInTheDefaultPlace)
{
    Laisser();
    QDir().mkpath(dossier.Fichier("ailleurs"));
    TempFolder = dossier.Fichier("ailleurs");
    SupprimerDossiersDeCommande();
    EXPECT_FALSE(dossier.Existe("temp/cli-12-abcdef"));
}

TEST_F(DossiersDeCommande, ADocumentsFolderThatIsHeldKeepsAll)
{
    Laisser();
    const std::optional<VerrouDossier> autreProcessus = VerrouDossier::Prendre(Temp("cli-12-abcdef/cat7"));
    EXPECT_TRUE(Reste());
}

TEST_F(DossiersDeCommande, OneThatHoldsSomethingElseStays)
{
    for (const char* intrus : {"mine.txt", ".mine", "cat7.secours", "cat7/mine/file", "mine/file", "cat8x/file"}) {
        Laisser();
        dossier.Ecrire(u"temp/cli-12-abcdef/"_s + QString::fromLatin1(intrus), "x");
        EXPECT_TRUE(Reste()) << intrus;
        QDir(Temp("cli-12-abcdef")).removeRecursively();
    }
    Laisser();
    ASSERT_TRUE(QFile::link(dossier.Ecrire("precious", "x"), Temp("cli-12-abcdef/cat7/link")));
    EXPECT_TRUE(Reste()) << "a run makes no links";
}

TEST_F(DossiersDeCommande, OneThatOthersMayLookIntoIsNoRuns)
{
    Laisser();
    ASSERT_EQ(chmod(QFile::encodeName(Temp("cli-12-abcdef/cat7")).constData(), 0755), 0);
    EXPECT_TRUE(Reste());
}

TEST_F(DossiersDeCommande, AnotherUsersStays)
{
    Laisser();
    if (chown(QFile::encodeName(Temp("cli-12-abcdef")).constData(), 65534, 65534) != 0)
        GTEST_SKIP() << "only the superuser can give a folder away";
    EXPECT_TRUE(Reste());
}

TEST_F(DossiersDeCommande, OtherNamesAndLinksStay)
{
    for (const QString& nom : {u"cli-"_s, u"cli-x"_s, u"cli-12-abc"_s, u"mycli-12"_s, u"cli-12-abcdef.old"_s}) {
        Laisser(nom);
        EXPECT_TRUE(Reste(nom)) << nom.toStdString();
    }
    dossier.Ecrire("precious/cat7/Zelvane.qrt", "x");
    ASSERT_EQ(chmod(QFile::encodeName(dossier.Fichier("precious/cat7")).constData(), 0700), 0);
    ASSERT_TRUE(QFile::link(dossier.Fichier("precious"), Temp("cli-15-abcdef")));
    SupprimerDossiersDeCommande();
    EXPECT_TRUE(dossier.Existe("precious/cat7/Zelvane.qrt"));
}

TEST_F(DossiersDeCommande, TheCurrentFolderIsNeverLookedAt)
{
    Laisser();
    const QString avant = QDir::currentPath();
    ASSERT_TRUE(QDir().rename(TempFolder, dossier.Fichier("ici")));
    ASSERT_TRUE(QDir::setCurrent(dossier.Fichier("ici")));
    SupprimerDossiersDeCommande();
    EXPECT_TRUE(dossier.Existe("ici/cli-12-abcdef/cat7/Zelvane.qrt"));
    QDir::setCurrent(avant);
}
