#include "base/DossiersTemp.h"
#include "base/ActesDuDossier.h"
#include "base/Const_Vrac.h"
#include "base/LieuxTemporaires.h"
#include "platform/VerrouDossier.h"
#include "support/ArchiveDeTest.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

class DossiersTempTest : public testing::Test
{
protected:
    /// Makes the next draws give these numbers.
    void Tirer(std::initializer_list<int> numeros)
    {
        for (const int numero : numeros)
            m_hasard.tirages.append((numero - 0.5) / 500);
    }

    QString Temp(const QString& suite) const { return TempFolder + u'/' + suite; }

    const DossierDeTest& m_dossier = PlateformeDeTest::Courante().dossier;
    HasardPrepare& m_hasard = PlateformeDeTest::Courante().hasard;
};

using ActesDuDossierTest = DossiersTempTest;
using CreerDossierTempTest = DossiersTempTest;
using RetablirDossierTempTest = DossiersTempTest;
using SupprimerDossierTest = DossiersTempTest;
using InitialiserTempFolderTest = DossiersTempTest;

TEST_F(CreerDossierTempTest, CreatesTheFolderOfTheNumberDrawn)
{
    Tirer({37});

    EXPECT_EQ(CreerDossierTemp(), Temp("cat37/"));

    EXPECT_TRUE(QFileInfo(Temp("cat37")).isDir());
}

TEST_F(CreerDossierTempTest, AFolderThatCannotBeLookedIntoIsDrawnAgain)
{
    ASSERT_TRUE(QDir().mkpath(Temp("cat37")));
    Tirer({37, 38});
    const int resultat = DansUnEnfant([&] {
        const bool root = geteuid() == 0; // who may look into everything
        for (const QString& chemin : {m_dossier.Chemin(), TempFolder, Temp("cat37")}) {
            const QByteArray nom = chemin.toLocal8Bit();
            if (chmod(nom.constData(), 0300) != 0 || (root && chown(nom.constData(), 65534, 65534) != 0))
                return 2;
        }
        if (root && setuid(65534) != 0)
            return 3;
        return CreerDossierTemp() == Temp("cat38/") ? 0 : 1;
    });
    EXPECT_EQ(resultat, 0);
    for (const QString& chemin : {m_dossier.Chemin(), TempFolder, Temp("cat37")})
        EXPECT_EQ(chmod(chemin.toLocal8Bit().constData(), 0700), 0);
}

TEST_F(CreerDossierTempTest, DrawsFromOneTo500)
{
    m_hasard.tirages = {0.0, 0.9999999998};

    EXPECT_EQ(CreerDossierTemp(), Temp("cat1/"));
    EXPECT_EQ(CreerDossierTemp(), Temp("cat500/"));
}

TEST_F(CreerDossierTempTest, SeedsFromTheClock)
{
    HorlogeArretee& horloge = PlateformeDeTest::Courante().horloge;

    CreerDossierTemp();
    CreerDossierTemp();
    horloge.heure = horloge.heure.addMSecs(1);
    CreerDossierTemp();

    ASSERT_EQ(m_hasard.graines.size(), 3);
    EXPECT_EQ(m_hasard.graines[0], m_hasard.graines[1]);
    EXPECT_NE(m_hasard.graines[1], m_hasard.graines[2]);
}

TEST_F(CreerDossierTempTest, IsTheUsersAlone)
{
    Tirer({37});
    CreerDossierTemp();

    struct stat etat
    {
    };
    ASSERT_EQ(stat(QFile::encodeName(Temp("cat37")).constData(), &etat), 0);
    EXPECT_EQ(etat.st_mode & 0777, 0700u);
}

TEST_F(CreerDossierTempTest, TestsANameWithoutASeparator)
{
    // Beside TempFolder, not in it: this name is taken ...
    QDir().mkpath(TempFolder + "cat37");
    Tirer({37, 38});

    EXPECT_EQ(CreerDossierTemp(), Temp("cat38/"));
}

TEST_F(CreerDossierTempTest, UsesAnEmptyFolderAgainThatAnEarlierRunLeft)
{
    // ... and this one is not.
    QDir().mkpath(Temp("cat37"));
    Tirer({37});

    EXPECT_EQ(CreerDossierTemp(), Temp("cat37/"));

    EXPECT_EQ(m_hasard.tires, 1);
}

TEST_F(CreerDossierTempTest, NeverMixesWithWhatAnEarlierRunLeft)
{
    m_dossier.Ecrire("temp/cat37/left.txt", "x");
    m_dossier.Ecrire("temp/cat38/.hidden", "x");
    m_dossier.Ecrire("temp/cat39.secours", "x");
    Tirer({37, 38, 39, 40});

    EXPECT_EQ(CreerDossierTemp(), Temp("cat40/"));

    EXPECT_EQ(m_dossier.Lire("temp/cat37/left.txt"), "x");
    EXPECT_EQ(m_dossier.Lire("temp/cat39.secours"), "x");
    EXPECT_TRUE(VerrouDossier::Prendre(Temp("cat37"))) << "it is not held either";
}

TEST_F(CreerDossierTempTest, TestsTheFolderItselfWhenTempFolderEndsInASeparator)
{
    TempFolder += u'/';
    QDir().mkpath(TempFolder + "cat37");
    Tirer({37, 38});

    EXPECT_EQ(CreerDossierTemp(), TempFolder + "cat38/");
}

TEST_F(CreerDossierTempTest, TestsForFoldersOnly)
{
    m_dossier.Ecrire("tempcat37", "a file");
    Tirer({37});

    EXPECT_EQ(CreerDossierTemp(), Temp("cat37/"));
}

TEST_F(CreerDossierTempTest, NeverGivesAFolderTwiceWhileItIsHeld)
{
    Tirer({37, 37, 37, 38});

    EXPECT_EQ(CreerDossierTemp(), Temp("cat37/"));
    EXPECT_EQ(CreerDossierTemp(), Temp("cat38/"));
    EXPECT_EQ(DossiersTempTenus(), (QStringList{Temp("cat37/"), Temp("cat38/")}));
}

TEST_F(CreerDossierTempTest, KnowsAHeldFolderUnderAnotherSpelling)
{
    Tirer({37});
    CreerDossierTemp();
    TempFolder = m_dossier.Fichier("./temp");
    Tirer({37, 38});

    EXPECT_EQ(CreerDossierTemp(), m_dossier.Fichier("./temp/cat38/"));
}

TEST_F(CreerDossierTempTest, GivesADeletedFolderAgain)
{
    Tirer({37, 37});
    SupprimerDossier(CreerDossierTemp(), true);

    EXPECT_EQ(CreerDossierTemp(), Temp("cat37/"));
    EXPECT_TRUE(m_dossier.Existe("temp/cat37"));
}

TEST_F(CreerDossierTempTest, LeavesAnotherProcessItsFolder)
{
    QDir().mkpath(Temp("cat37"));
    const std::optional<VerrouDossier> autreProcessus = VerrouDossier::Prendre(Temp("cat37"));
    ASSERT_TRUE(autreProcessus);
    Tirer({37, 38});

    EXPECT_EQ(CreerDossierTemp(), Temp("cat38/"));
}

TEST_F(CreerDossierTempTest, HoldsItsFolderAgainstOtherProcesses)
{
    const QString dossier = CreerDossierTemp();

    EXPECT_FALSE(VerrouDossier::Prendre(dossier));
    SupprimerDossier(dossier, false);
    EXPECT_FALSE(VerrouDossier::Prendre(dossier)) << "also after it was emptied";
}

TEST_F(CreerDossierTempTest, NeverTakesALink)
{
    m_dossier.Ecrire("precious/file.txt", "x");
    ASSERT_TRUE(QFile::link(m_dossier.Fichier("precious"), Temp("cat37")));
    Tirer({37, 38});

    EXPECT_EQ(CreerDossierTemp(), Temp("cat38/"));
}

TEST_F(CreerDossierTempTest, GoesBeyond500WhenAllAreHeld)
{
    for (int numero = 1; numero <= 500; ++numero)
        CreerDossierTemp();
    ASSERT_EQ(DossiersTempTenus().size(), 500);

    EXPECT_EQ(CreerDossierTemp(), Temp("cat501/"));
    EXPECT_EQ(CreerDossierTemp(), Temp("cat502/"));

    // A number that comes free is drawn again.
    SupprimerDossier(Temp("cat12/"), true);
    EXPECT_EQ(CreerDossierTemp(), Temp("cat12/"));
}

TEST_F(CreerDossierTempTest, EndsWhenAllNamesAreTakenOnTheDisk)
{
    TempFolder += u'/';
    for (int numero = 1; numero <= 501; ++numero)
        QDir().mkpath(TempFolder + "cat" + QString::number(numero));

    EXPECT_EQ(CreerDossierTemp(), TempFolder + "cat502/");
}

TEST_F(CreerDossierTempTest, ReturnsThePathAlsoWhenTheFolderCannotBeCreated)
{
    m_dossier.Ecrire("temp/cat37", "a file");
    Tirer({37});

    EXPECT_EQ(CreerDossierTemp(), Temp("cat37/"));
}

TEST_F(CreerDossierTempTest, HoldsAlsoANameWhoseFolderCannotBeCreated)
{
    m_dossier.Ecrire("temp/cat37", "a file");
    Tirer({37, 37, 38});
    CreerDossierTemp();

    EXPECT_EQ(CreerDossierTemp(), Temp("cat38/"));
}

TEST_F(CreerDossierTempTest, FindsItsBaseWhenNobodyHasSetIt)
{
    TempFolder.clear();
    Tirer({37});

    EXPECT_EQ(CreerDossierTemp(), DossierProgramme() + "temp/cat37/");
}

// ---- Folders taken away from outside

TEST_F(RetablirDossierTempTest, LeavesAFolderThatStands)
{
    const QString dossier = CreerDossierTemp();
    QFile fichier(dossier + "a.jpg");
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    EXPECT_EQ(RetablirDossierTemp(dossier), dossier);
    EXPECT_TRUE(fichier.exists());
}

TEST_F(RetablirDossierTempTest, MakesItAnewForItsUserAloneAndHoldsIt)
{
    const QString dossier = CreerDossierTemp();
    ASSERT_TRUE(QDir().rmdir(dossier));
    EXPECT_EQ(RetablirDossierTemp(dossier), dossier);
    struct stat etat = {};
    ASSERT_EQ(stat(QFile::encodeName(dossier).constData(), &etat), 0);
    EXPECT_EQ(etat.st_mode & 0777, 0700U);
    EXPECT_FALSE(VerrouDossier::Prendre(dossier).has_value()) << "it is held";
    EXPECT_EQ(DossiersTempTenus().size(), 1);
}

TEST_F(RetablirDossierTempTest, NeverSharesAFolderThatIsSomebodyElsesByNow)
{
    Tirer({37, 38});
    const QString dossier = CreerDossierTemp();
    QFile copie(FichierDeSecours(dossier));
    ASSERT_TRUE(copie.open(QIODevice::WriteOnly));
    ASSERT_TRUE(QDir().rmdir(dossier) && QDir().mkdir(dossier));
    const auto autre = VerrouDossier::Prendre(dossier);
    ASSERT_TRUE(autre && autre->Tient());
    EXPECT_EQ(RetablirDossierTemp(dossier), Temp("cat38/"));
    EXPECT_EQ(DossiersTempTenus(), QStringList(Temp("cat38/")));
    EXPECT_FALSE(QFileInfo::exists(FichierDeSecours(dossier)));
    EXPECT_TRUE(QFileInfo::exists(FichierDeSecours(Temp("cat38/")))) << "it goes along";
}

TEST_F(RetablirDossierTempTest, NorOneInWhichSomethingLies)
{
    Tirer({37, 38});
    const QString dossier = CreerDossierTemp();
    ASSERT_TRUE(QDir().rmdir(dossier) && QDir().mkdir(dossier));
    QFile fichier(dossier + "a.jpg");
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    EXPECT_EQ(RetablirDossierTemp(dossier), Temp("cat38/"));
}

// ---- What the program did to files

TEST_F(ActesDuDossierTest, TheLastActOnEachFileIsKnownUntilTheFolderIsDrawnAgain)
{
    Tirer({37});
    const QString dossier = CreerDossierTemp();
    QFile fichier(dossier + "a.jpg");
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly) && fichier.write("12345") == 5);
    fichier.close();
    NoterSuppression(dossier + "a.jpg");
    NoterSuppression(dossier + "b.jpg");
    NoterEcriture(dossier + "a.jpg");
    NoterEcriture(dossier + "absent.jpg");
    const auto actes = ActesDuDossier(dossier.chopped(1));
    ASSERT_EQ(actes.size(), 2);
    EXPECT_FALSE(actes["a.jpg"].supprime);
    EXPECT_EQ(actes["a.jpg"].ecrit.taille, 5U);
    EXPECT_TRUE(actes["b.jpg"].supprime);
    OublierActe(dossier, "b.jpg");
    EXPECT_EQ(ActesDuDossier(dossier).keys(), QList<QByteArray>{"a.jpg"});

    SupprimerDossier(dossier, true);
    EXPECT_TRUE(ActesDuDossier(dossier).isEmpty());
    NoterSuppression(dossier + "tard.jpg");
    Tirer({37});
    ASSERT_EQ(CreerDossierTemp(), dossier);
    EXPECT_TRUE(ActesDuDossier(dossier).isEmpty());
}

TEST_F(InitialiserTempFolderTest, AFolderThatNothingCanBeMadeInGivesWayToTheDefault)
{
    EcrireOption("TempFolder", "/proc"); // not even root makes folders there

    InitialiserTempFolder();

    EXPECT_EQ(TempFolder, m_dossier.Fichier("temp"));
    EXPECT_EQ(LireOption("TempFolder", {}), "/proc");
}

TEST_F(InitialiserTempFolderTest, LookingWhetherAFolderServesLeavesNothingInIt)
{
    const QString ailleurs = m_dossier.Fichier("ailleurs");
    ASSERT_TRUE(QDir().mkpath(ailleurs));
    EcrireOption("TempFolder", ailleurs);

    InitialiserTempFolder();

    EXPECT_EQ(TempFolder, ailleurs);
    EXPECT_TRUE(QDir(ailleurs).isEmpty());
}

TEST_F(InitialiserTempFolderTest, PlacesOfEarlierRunsAreRemembered)
{
    QList<QDir> lieux{QDir(m_dossier.Fichier("temp"))};
    for (const char* nom : {"un disque", "été%20", "a\nb"}) {
        const QString lieu = m_dossier.Fichier(nom);
        ASSERT_TRUE(QDir().mkpath(lieu));
        lieux.prepend(QDir(lieu));
        EcrireOption("TempFolder", lieu);
        InitialiserTempFolder();
    }
    EcrireOption("TempFolder", m_dossier.Fichier("temp"));
    InitialiserTempFolder();

    QList<QDir> connus = LieuxTemporaires();
    for (const QDir& lieu : lieux)
        EXPECT_TRUE(connus.removeAll(lieu)) << lieu.path().toStdString();
    EXPECT_EQ(connus, QList<QDir>());
}

TEST_F(InitialiserTempFolderTest, ThePlaceOfARelativeFolderIsRememberedWhole)
{
    const QString ici = QDir::currentPath();
    ASSERT_TRUE(QDir().mkpath(m_dossier.Fichier("ailleurs")));
    QDir::setCurrent(m_dossier.Chemin());
    EcrireOption("TempFolder", "ailleurs");
    InitialiserTempFolder();
    QDir::setCurrent("/");
    TempFolder = m_dossier.Fichier("temp");

    EXPECT_TRUE(LieuxTemporaires().contains(QDir(m_dossier.Fichier("ailleurs"))));
    QDir::setCurrent(ici);
}

TEST_F(InitialiserTempFolderTest, SixteenPlacesAreRememberedAtMost)
{
    for (int i = 1; i <= 20; ++i) {
        const QString lieu = m_dossier.Fichier(QString("lieu%1").arg(i));
        ASSERT_TRUE(QDir().mkpath(lieu));
        EcrireOption("TempFolder", lieu);
        InitialiserTempFolder();
    }

    // To and fro between two of them, the others stay.
    for (const char* nom : {"lieu19", "lieu20", "lieu19", "lieu20"}) {
        EcrireOption("TempFolder", m_dossier.Fichier(nom));
        InitialiserTempFolder();
    }

    EXPECT_EQ(LieuxTemporaires().size(), 2 + 16);
    EXPECT_TRUE(LieuxTemporaires().contains(QDir(m_dossier.Fichier("lieu5"))));
}

TEST_F(InitialiserTempFolderTest, IsTempInTheProgramsFolderByDefault)
{
    QDir(TempFolder).removeRecursively();
    TempFolder.clear();

    InitialiserTempFolder();

    EXPECT_EQ(TempFolder, DossierProgramme() + "temp");
    EXPECT_TRUE(m_dossier.Existe("temp"));
}

TEST_F(InitialiserTempFolderTest, IsTheFolderOfTheSettings)
{
    QDir().mkpath(m_dossier.Fichier("ailleurs"));
    EcrireOption("TempFolder", m_dossier.Fichier("ailleurs"));

    InitialiserTempFolder();

    EXPECT_EQ(TempFolder, m_dossier.Fichier("ailleurs"));
}

TEST_F(InitialiserTempFolderTest, RevertsToTheDefaultForThisRunWhenTheFolderIsGone)
{
    for (const QString& perdu : {m_dossier.Fichier("gone"), QString(), m_dossier.Ecrire("file", "x")}) {
        EcrireOption("TempFolder", perdu);

        InitialiserTempFolder();

        EXPECT_EQ(TempFolder, DossierProgramme() + "temp");
        EXPECT_EQ(LireOption("TempFolder", "x"), QVariant(perdu)) << "the setting stays";
    }
}

TEST_F(SupprimerDossierTest, DeletesAFolderWithAllItHolds)
{
    m_dossier.Ecrire("a/b/c/file.txt", "x");
    m_dossier.Ecrire("a/.hidden", "x");
    QDir().mkpath(m_dossier.Fichier("a/empty"));

    SupprimerDossier(m_dossier.Fichier("a/"), true);

    EXPECT_FALSE(m_dossier.Existe("a"));
}

TEST_F(SupprimerDossierTest, TakesTheRescueCopyOfADocumentsFolderAlong)
{
    Tirer({37});
    const QString dossier = CreerDossierTemp();
    m_dossier.Ecrire("temp/cat37.secours", "x");
    EXPECT_EQ(FichierDeSecours(dossier), Temp("cat37.secours"));

    SupprimerDossier(dossier, false);
    EXPECT_TRUE(m_dossier.Existe("temp/cat37.secours")) << "the document lives on";

    SupprimerDossier(dossier, true);
    EXPECT_FALSE(m_dossier.Existe("temp/cat37.secours"));
}

TEST_F(SupprimerDossierTest, LeavesTheFileBesideAnyOtherFolder)
{
    m_dossier.Ecrire("a/file.txt", "x");
    m_dossier.Ecrire("a.secours", "mine");

    SupprimerDossier(m_dossier.Fichier("a"), true);

    EXPECT_EQ(m_dossier.Lire("a.secours"), "mine");
}

TEST_F(SupprimerDossierTest, CreatesItAgainEmpty)
{
    m_dossier.Ecrire("a/file.txt", "x");

    SupprimerDossier(m_dossier.Fichier("a"), false);

    EXPECT_TRUE(m_dossier.Existe("a"));
    EXPECT_TRUE(QDir(m_dossier.Fichier("a")).isEmpty());
}

TEST_F(SupprimerDossierTest, CreatesAFolderThatWasNotThere)
{
    SupprimerDossier(m_dossier.Fichier("a"), true);
    EXPECT_FALSE(m_dossier.Existe("a"));

    SupprimerDossier(m_dossier.Fichier("a"), false);
    EXPECT_TRUE(m_dossier.Existe("a"));
}

TEST_F(SupprimerDossierTest, TakesOneSeparatorOff)
{
    for (const char* chemin : {"a", "a/", "a\\"}) {
        m_dossier.Ecrire("a/file.txt", "x");
        SupprimerDossier(m_dossier.Fichier(chemin), true);
        EXPECT_FALSE(m_dossier.Existe("a")) << chemin;
    }
}

TEST_F(SupprimerDossierTest, DoesNothingForAnEmptyPath)
{
    const QString ici = QDir::currentPath();
    Tirer({37});
    QDir::setCurrent(CreerDossierTemp());
    m_dossier.Ecrire("temp/cat37/file.txt", "x");

    SupprimerDossier("", true);
    SupprimerDossier("", false);

    EXPECT_TRUE(m_dossier.Existe("temp/cat37/file.txt"));
    EXPECT_EQ(DossiersTempTenus(), QStringList{Temp("cat37/")});
    QDir::setCurrent(ici);
}

TEST_F(SupprimerDossierTest, NeverFollowsALink)
{
    m_dossier.Ecrire("precious/file.txt", "x");
    QDir().mkpath(m_dossier.Fichier("a"));
    ASSERT_TRUE(QFile::link(m_dossier.Fichier("precious"), m_dossier.Fichier("a/link")));
    ASSERT_TRUE(QFile::link(m_dossier.Fichier("precious/file.txt"), m_dossier.Fichier("a/linkToFile")));
    ASSERT_TRUE(QFile::link(m_dossier.Fichier("precious"), m_dossier.Fichier("b")));

    SupprimerDossier(m_dossier.Fichier("a"), true);
    SupprimerDossier(m_dossier.Fichier("b/"), true);

    EXPECT_EQ(m_dossier.Lire("precious/file.txt"), "x");
    EXPECT_FALSE(m_dossier.Existe("a"));
    EXPECT_FALSE(QFileInfo(m_dossier.Fichier("b")).isSymLink());
}

TEST_F(SupprimerDossierTest, LeavesAFileAlone)
{
    m_dossier.Ecrire("a", "x");

    SupprimerDossier(m_dossier.Fichier("a"), true);

    EXPECT_EQ(m_dossier.Lire("a"), "x");
}

TEST_F(SupprimerDossierTest, DeletesNamesThatAreNoUtf8)
{
    const QByteArray chemin = QFile::encodeName(m_dossier.Fichier("a/")) + "\xE9t\xE9";
    ASSERT_TRUE(QDir().mkpath(m_dossier.Fichier("a")));
    FILE* fichier = std::fopen(chemin.constData(), "w");
    ASSERT_NE(fichier, nullptr);
    std::fclose(fichier);

    SupprimerDossier(m_dossier.Fichier("a"), true);

    EXPECT_FALSE(m_dossier.Existe("a"));
}

TEST_F(SupprimerDossierTest, KeepsAHeldFolderHeldUntilItIsGoneForGood)
{
    Tirer({37, 37, 38});
    const QString dossier = CreerDossierTemp();

    SupprimerDossier(dossier, false);
    EXPECT_EQ(CreerDossierTemp(), Temp("cat38/"));

    SupprimerDossier(dossier, true);
    EXPECT_EQ(DossiersTempTenus(), QStringList{Temp("cat38/")});
}

} // namespace
