#include "platform/FichiersIni.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <thread>

namespace {

/// Files cannot grow beyond so many bytes while it lives, as on a full disk.
class LimiteTaille
{
public:
    explicit LimiteTaille(rlim_t octets) : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_avant);
        const rlimit limite{octets, m_avant.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limite);
    }
    ~LimiteTaille()
    {
        setrlimit(RLIMIT_FSIZE, &m_avant);
        std::signal(SIGXFSZ, m_signal);
    }
    LimiteTaille(const LimiteTaille&) = delete;
    LimiteTaille& operator=(const LimiteTaille&) = delete;

private:
    rlimit m_avant{};
    void (*m_signal)(int);
};

class FichiersIniDisqueTest : public testing::Test
{
protected:
    DossierDeTest m_dossier;
    FichiersIniDisque m_ini;
};

TEST_F(FichiersIniDisqueTest, ReadsWhatItWrote)
{
    const QString fichier = m_dossier.Fichier("a.ini");

    EXPECT_TRUE(m_ini.Ecrire(fichier, "Preter", "Nom1", "Élodie|"));

    EXPECT_EQ(m_dossier.Lire("a.ini"), "[Preter]\r\nNom1=\xC9lodie|\r\n");
    EXPECT_EQ(m_ini.Lire(fichier, "preter", "NOM1").valeur, "Élodie|");
}

TEST_F(FichiersIniDisqueTest, ReadsNothingFromAMissingFile)
{
    const FichiersIni::Lecture lecture = m_ini.Lire(m_dossier.Fichier("none.ini"), "s", "k");

    EXPECT_EQ(lecture.valeur, std::nullopt);
    EXPECT_EQ(lecture.erreur, "");
}

TEST_F(FichiersIniDisqueTest, TakesAFolderForAFileThatCannotBeOpened)
{
    EXPECT_EQ(m_ini.Lire(m_dossier.Chemin(), "s", "k").valeur, std::nullopt);
    EXPECT_FALSE(m_ini.Ecrire(m_dossier.Chemin(), "s", "k", "1"));
}

TEST_F(FichiersIniDisqueTest, LeavesAReadOnlyFileAlone)
{
    const QString fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\n");
    ASSERT_TRUE(AttributsDisque().MettreLectureSeule(fichier, true));

    EXPECT_FALSE(m_ini.Ecrire(fichier, "s", "k", "2"));
    EXPECT_FALSE(m_ini.SupprimerCle(fichier, "s", "k"));
    EXPECT_FALSE(m_ini.SupprimerSection(fichier, "s"));

    EXPECT_EQ(m_dossier.Lire("a.ini"), "[s]\nk=1\n");
    EXPECT_TRUE(AttributsDisque().EstLectureSeule(fichier));
}

TEST_F(FichiersIniDisqueTest, FailsVisiblyWithoutAFolder)
{
    EXPECT_FALSE(m_ini.Ecrire(m_dossier.Fichier("none/a.ini"), "s", "k", "1"));
    EXPECT_FALSE(m_dossier.Existe("none"));
}

TEST_F(FichiersIniDisqueTest, RefusesATextThatAnIniFileCannotHold)
{
    const QString fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\n");

    EXPECT_FALSE(m_ini.Ecrire(fichier, "s", "k", "a\nb"));

    EXPECT_EQ(m_dossier.Lire("a.ini"), "[s]\nk=1\n");
}

TEST_F(FichiersIniDisqueTest, KeepsPermissionsAndLeavesNoOtherFile)
{
    const QString fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\n");
    constexpr auto permissions = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup;
    ASSERT_TRUE(QFile::setPermissions(fichier, permissions));

    EXPECT_TRUE(m_ini.Ecrire(fichier, "s", "k", "2"));

    constexpr auto utilisateur = QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser;
    EXPECT_EQ(QFileInfo(fichier).permissions() & ~utilisateur, permissions);
    EXPECT_EQ(QDir(m_dossier.Chemin()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.ini"});
}

TEST_F(FichiersIniDisqueTest, PutsANewFileInTheOldOnesPlace)
{
    // Whoever has the old file open goes on reading it whole.
    const QString fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\n");
    QFile ancien(fichier);
    ASSERT_TRUE(ancien.open(QIODevice::ReadOnly));

    EXPECT_TRUE(m_ini.Ecrire(fichier, "s", "k", "much longer than before"));

    EXPECT_EQ(ancien.readAll(), "[s]\nk=1\n");
    EXPECT_EQ(m_dossier.Lire("a.ini"), "[s]\nk=much longer than before\n");
}

TEST_F(FichiersIniDisqueTest, KeepsTheOldFileWhenTheDiskTakesNoMore)
{
    const QString fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\n");

    {
        const LimiteTaille limite(16);
        EXPECT_FALSE(m_ini.Ecrire(fichier, "s", "k", QString(100000, u'x')));
    }

    EXPECT_EQ(m_dossier.Lire("a.ini"), "[s]\nk=1\n");
    EXPECT_EQ(QDir(m_dossier.Chemin()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.ini"});
}

TEST_F(FichiersIniDisqueTest, WritesThroughALink)
{
    const QString fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\n");
    const QString lien = m_dossier.Fichier("b.ini");
    ASSERT_TRUE(QFile::link(fichier, lien));

    EXPECT_TRUE(m_ini.Ecrire(lien, "s", "k", "2"));

    EXPECT_EQ(m_dossier.Lire("a.ini"), "[s]\nk=2\n");
    EXPECT_TRUE(QFileInfo(lien).isSymLink());
}

TEST_F(FichiersIniDisqueTest, RemovesKeysAndSections)
{
    const QString fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\nl=2\n[t]\nk=3\n");

    EXPECT_TRUE(m_ini.SupprimerCle(fichier, "s", "k"));
    EXPECT_EQ(m_dossier.Lire("a.ini"), "[s]\nl=2\n[t]\nk=3\n");
    EXPECT_TRUE(m_ini.SupprimerSection(fichier, "t"));
    EXPECT_EQ(m_dossier.Lire("a.ini"), "[s]\nl=2\n");
}

TEST_F(FichiersIniDisqueTest, RemovesWhatIsNotThereWithoutMakingAFile)
{
    EXPECT_TRUE(m_ini.SupprimerCle(m_dossier.Fichier("none.ini"), "s", "k"));
    EXPECT_TRUE(m_ini.SupprimerSection(m_dossier.Fichier("none.ini"), "s"));
    EXPECT_FALSE(m_dossier.Existe("none.ini"));
}

/// The files of the disk, counted. Its clock goes by the files.
class DisqueCompte : public FichiersIniDisque
{
public:
    mutable int lectures = 0;

protected:
    Contenu Charger(const QString& fichier) const override
    {
        ++lectures;
        return FichiersIniDisque::Charger(fichier);
    }
};

class FichiersIniRetenusTest : public testing::Test
{
protected:
    /// Sets the clock so long after the file was changed last.
    void Apres(const QString& fichier, int secondes)
    {
        const QDateTime change = QFileInfo(fichier).fileTime(QFileDevice::FileMetadataChangeTime);
        PlateformeDeTest::Courante().horloge.heure = change.addSecs(secondes);
    }
    std::optional<QString> Lire() const { return m_ini.Lire(m_fichier, "s", "k").valeur; }

    DossierDeTest m_dossier;
    QString m_fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\n");
    DisqueCompte m_ini;
};

TEST_F(FichiersIniRetenusTest, AFileThatStaysAsItIsIsReadOnce)
{
    Apres(m_fichier, 3600);

    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Lire(), "1");
    EXPECT_TRUE(m_ini.Ecrire(m_fichier, "s", "k", "1"));

    EXPECT_EQ(m_ini.lectures, 1);
}

TEST_F(FichiersIniRetenusTest, OneThatWasChangedThisMomentIsReadEachTime)
{
    Apres(m_fichier, 1);

    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Lire(), "1");

    EXPECT_EQ(m_ini.lectures, 3) << "its time would stay the same if it were changed again";
}

TEST_F(FichiersIniRetenusTest, AChangeOfAnySortIsSeenAtTheNextLook)
{
    Apres(m_fichier, 3600);
    ASSERT_EQ(Lire(), "1");

    m_dossier.Ecrire("a.ini", "[s]\nk=12\n");
    EXPECT_EQ(Lire(), "12") << "another size";

    const QDateTime avant = QFileInfo(m_fichier).lastModified();
    QFile autre(m_dossier.Ecrire("b.ini", "[s]\nk=34\n"));
    ASSERT_TRUE(autre.open(QIODevice::ReadWrite));
    ASSERT_TRUE(autre.setFileTime(avant, QFileDevice::FileModificationTime));
    autre.close();
    ASSERT_EQ(std::rename(autre.fileName().toLocal8Bit(), m_fichier.toLocal8Bit()), 0);
    EXPECT_EQ(Lire(), "34") << "another file of the same size and time";

    QFile::remove(m_fichier);
    EXPECT_EQ(Lire(), std::nullopt);
    m_dossier.Ecrire("a.ini", "[s]\nk=56\n");
    EXPECT_EQ(Lire(), "56");
    EXPECT_TRUE(m_ini.Ecrire(m_fichier, "s", "k", "78"));
    EXPECT_EQ(Lire(), "78");
}

TEST(FichiersIniTest, AFileThatStaysAsItIsIsReadOnce)
{
    FichiersIniEnMemoire ini;
    ini.fichiers = {{"a", "[s]\nk=1\n"}, {"b", "[s]\nk=2\n"}};

    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(ini.Lire("a", "s", "k").valeur, "1");
        EXPECT_EQ(ini.Lire("b", "s", "k").valeur, "2");
    }
    EXPECT_EQ(ini.lectures, 2);

    ++ini.heure;
    ini.fichiers["a"] = "[s]\nk=3\n";
    EXPECT_EQ(ini.Lire("a", "s", "k").valeur, "3");
    EXPECT_EQ(ini.lectures, 3);
}

TEST(FichiersIniTest, OfManyFilesAFewAreKept)
{
    FichiersIniEnMemoire ini;
    for (int i = 0; i < 20; ++i)
        ini.fichiers[QString::number(i)] = "[s]\nk=" + QByteArray::number(i) + '\n';

    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(ini.Lire(QString::number(i % 20), "s", "k").valeur, QString::number(i % 20));

    EXPECT_EQ(ini.lectures, 40);
}

TEST(FichiersIniTest, WritesNothingWhenTheFileHoldsItAlready)
{
    FichiersIniEnMemoire ini;
    ini.fichiers["a"] = "[s]\nk=1\n";

    EXPECT_TRUE(ini.Ecrire("a", "s", "k", "1"));
    EXPECT_EQ(ini.ecritures, 0);
    EXPECT_TRUE(ini.Ecrire("a", "s", "k", "2"));
    EXPECT_EQ(ini.ecritures, 1);
}

TEST(FichiersIniTest, NeverReplacesAFileThatItCouldNotRead)
{
    FichiersIniEnMemoire ini;
    ini.fichiers = {{"ferme", "[s]\nk=1\n"}, {"casse", "[s]\nk=1\n"}};
    ini.fermes = {"ferme"};
    ini.casses = {"casse"};

    for (const char* fichier : {"ferme", "casse"}) {
        EXPECT_FALSE(ini.Ecrire(fichier, "s", "k", "2"));
        EXPECT_FALSE(ini.SupprimerCle(fichier, "s", "k"));
        EXPECT_FALSE(ini.SupprimerSection(fichier, "s"));
    }
    EXPECT_EQ(ini.ecritures, 0);
}

TEST(FichiersIniTest, TellsAReadThatFailedFromAFileThatIsClosed)
{
    FichiersIniEnMemoire ini;
    ini.fermes = {"ferme"};
    ini.casses = {"casse"};

    EXPECT_EQ(ini.Lire("ferme", "s", "k").erreur, "");
    EXPECT_EQ(ini.Lire("casse", "s", "k").erreur, "Input/output error");
    EXPECT_EQ(ini.Lire("casse", "s", "k").valeur, std::nullopt);
}

TEST(FichiersIniTest, WritesSeveralKeysInOneGo)
{
    FichiersIniEnMemoire ini;
    EXPECT_TRUE(ini.EcrireCles("a", "s", {{"k", "1"}, {"l", "2"}}));
    EXPECT_EQ(ini.fichiers["a"], "[s]\r\nk=1\r\nl=2\r\n");
    EXPECT_EQ(ini.ecritures, 1);
}

TEST(FichiersIniTest, WritesNothingThatAnotherProgramHolds)
{
    FichiersIniEnMemoire ini;
    ini.fichiers["a"] = "[s]\nk=1\n";
    ini.tenus = {"a"};
    EXPECT_FALSE(ini.Ecrire("a", "s", "k", "2"));
    EXPECT_FALSE(ini.EcrireCles("a", "s", {{"k", "2"}}));
    EXPECT_FALSE(ini.SupprimerCle("a", "s", "k"));
    EXPECT_EQ(ini.Lire("a", "s", "k").valeur, "1");
}

TEST(FichiersIniTest, TellsASectionThatCannotBeReadFromOneThatIsNotThere)
{
    FichiersIniEnMemoire ini;
    ini.fichiers["a"] = "[s]\nk=1\n";
    const auto rien = [](QByteArrayView, QByteArrayView) {};
    EXPECT_TRUE(ini.ParcourirSection("a", "s", rien));
    EXPECT_TRUE(ini.ParcourirSection("a", "t", rien));
    EXPECT_TRUE(ini.ParcourirSection("b", "s", rien));
    ini.fermes = {"a"};
    EXPECT_FALSE(ini.ParcourirSection("a", "s", rien));
}

TEST_F(FichiersIniDisqueTest, WaitsForLocksOfBothKindsAndGivesUp)
{
    const QString fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\n");
    for (const bool parPlage : {false, true}) {
        QFile autre(fichier);
        ASSERT_TRUE(autre.open(QIODevice::ReadWrite));
        struct flock verrou
        {
        };
        verrou.l_type = F_WRLCK;
        ASSERT_EQ(parPlage ? fcntl(autre.handle(), F_OFD_SETLK, &verrou) : flock(autre.handle(), LOCK_EX), 0);
        EXPECT_FALSE(m_ini.Ecrire(fichier, "s", "k", "2")) << parPlage;
        EXPECT_EQ(m_dossier.Lire("a.ini"), "[s]\nk=1\n");
    }
    EXPECT_TRUE(m_ini.Ecrire(fichier, "s", "k", "2")) << "nobody holds it any more";
}

TEST_F(FichiersIniDisqueTest, TwoThatWriteInTurnLoseNothing)
{
    const QString fichier = m_dossier.Fichier("a.ini");
    ASSERT_TRUE(m_ini.Ecrire(fichier, "s", "k", "1"));
    const auto ecrire = [&fichier](const QString& debut) {
        FichiersIniDisque ini;
        for (int i = 0; i < 20; ++i) {
            while (!ini.Ecrire(fichier, "s", debut + QString::number(i), "1")) {
            }
        }
    };
    std::thread autre(ecrire, QStringLiteral("a"));
    ecrire(QStringLiteral("b"));
    autre.join();
    EXPECT_EQ(m_dossier.Lire("a.ini").count("=1"), 41);
}

} // namespace
