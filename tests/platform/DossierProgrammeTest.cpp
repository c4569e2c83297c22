#include "platform/DossierProgramme.h"

#include "platform/Attributs.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

class DossierProgrammeTest : public testing::Test
{
protected:
    LieuxProgramme Lieux() const
    {
        LieuxProgramme lieux;
        lieux.executable = m_dossier.Fichier("prefix/bin");
        lieux.utilisateur = m_dossier.Fichier("home/share/zelvane");
        lieux.installation = m_dossier.Fichier("prefix/share/zelvane");
        return lieux;
    }

    QString Cible(const QString& lien) const { return QFileInfo(m_dossier.Fichier(lien)).symLinkTarget(); }

    DossierDeTest m_dossier;
};

TEST_F(DossierProgrammeTest, IsTheOneAskedFor)
{
    m_dossier.Ecrire("prefix/bin/lang/fr.ini", "");
    LieuxProgramme lieux = Lieux();
    lieux.demande = m_dossier.Fichier("asked/for/../here");

    EXPECT_EQ(ChoisirDossierProgramme(lieux), m_dossier.Fichier("asked/here/"));

    EXPECT_TRUE(m_dossier.Existe("asked/here"));
    EXPECT_FALSE(m_dossier.Existe("home"));
}

TEST_F(DossierProgrammeTest, IsThatOfAPortableCopy)
{
    m_dossier.Ecrire("prefix/bin/lang/fr.ini", "");

    EXPECT_EQ(ChoisirDossierProgramme(Lieux()), m_dossier.Fichier("prefix/bin/"));

    EXPECT_FALSE(m_dossier.Existe("home"));
}

TEST_F(DossierProgrammeTest, IsTheUsersOwnWithoutLanguagesBesideTheExecutable)
{
    m_dossier.Ecrire("prefix/bin/lang", "a file, no folder");

    EXPECT_EQ(ChoisirDossierProgramme(Lieux()), m_dossier.Fichier("home/share/zelvane/"));

    EXPECT_TRUE(m_dossier.Existe("home/share/zelvane/lang"));
}

TEST_F(DossierProgrammeTest, LinksTheInstalledFiles)
{
    for (const char* nom : {"astuces.txt", "IcoFile.ico", "AideQrt/index.html", "plugins/a.dll", "plugins/a.txt",
                            "lang/english.ini", "lang/readme.txt", "other.txt"})
        m_dossier.Ecrire(QString("prefix/share/zelvane/") + nom, "x");

    ChoisirDossierProgramme(Lieux());

    for (const char* nom : {"astuces.txt", "IcoFile.ico", "AideQrt", "plugins/a.dll", "lang/english.ini"}) {
        EXPECT_EQ(Cible(QString("home/share/zelvane/") + nom),
                  m_dossier.Fichier(QString("prefix/share/zelvane/") + nom));
    }
    EXPECT_FALSE(QFileInfo(m_dossier.Fichier("home/share/zelvane/lang")).isSymLink());
    EXPECT_FALSE(m_dossier.Existe("home/share/zelvane/lang/readme.txt"));
    EXPECT_FALSE(m_dossier.Existe("home/share/zelvane/plugins/a.txt"));
    EXPECT_FALSE(m_dossier.Existe("home/share/zelvane/other.txt"));
}

TEST_F(DossierProgrammeTest, PluginsOfTheUserLieBesideTheInstalledOnes)
{
    m_dossier.Ecrire("prefix/share/zelvane/plugins/a.dll", "installed");
    m_dossier.Ecrire("prefix/share/zelvane/plugins/b.dll", "installed");
    m_dossier.Ecrire("home/share/zelvane/plugins/b.dll", "mine");

    ChoisirDossierProgramme(Lieux());

    EXPECT_EQ(m_dossier.Lire("home/share/zelvane/plugins/a.dll"), "installed");
    EXPECT_EQ(m_dossier.Lire("home/share/zelvane/plugins/b.dll"), "mine");
}

TEST_F(DossierProgrammeTest, TheFolderOfPluginsIsTheUsersAlone)
{
    m_dossier.Ecrire("prefix/share/zelvane/plugins/a.dll", "installed");
    const mode_t avant = umask(0);
    ChoisirDossierProgramme(Lieux());
    umask(avant);

    const QFile::Permissions droits = QFile::permissions(m_dossier.Fichier("home/share/zelvane/plugins"));
    EXPECT_EQ(droits & (QFile::WriteGroup | QFile::WriteOther), QFile::Permissions());
}

TEST_F(DossierProgrammeTest, ALinkToTheWholeFolderOfPluginsBecomesAFolder)
{
    m_dossier.Ecrire("prefix/share/zelvane/plugins/a.dll", "installed");
    QDir().mkpath(m_dossier.Fichier("home/share/zelvane"));
    const QString lien = m_dossier.Fichier("home/share/zelvane/plugins");
    ASSERT_TRUE(QFile::link(m_dossier.Fichier("prefix/share/zelvane/plugins"), lien));

    ChoisirDossierProgramme(Lieux());

    EXPECT_FALSE(QFileInfo(lien).isSymLink());
    EXPECT_EQ(Cible("home/share/zelvane/plugins/a.dll"), m_dossier.Fichier("prefix/share/zelvane/plugins/a.dll"));
}

TEST_F(DossierProgrammeTest, WithoutInstalledPluginsThereIsNoFolderOfThem)
{
    ChoisirDossierProgramme(Lieux());

    EXPECT_FALSE(m_dossier.Existe("home/share/zelvane/plugins"));
}

TEST_F(DossierProgrammeTest, LeavesWhatIsThere)
{
    m_dossier.Ecrire("prefix/share/zelvane/astuces.txt", "installed");
    m_dossier.Ecrire("home/share/zelvane/astuces.txt", "mine");

    ChoisirDossierProgramme(Lieux());

    EXPECT_EQ(m_dossier.Lire("home/share/zelvane/astuces.txt"), "mine");
}

TEST_F(DossierProgrammeTest, RenewsALinkToNothing)
{
    m_dossier.Ecrire("prefix/share/zelvane/astuces.txt", "installed");
    QDir().mkpath(m_dossier.Fichier("home/share/zelvane"));
    ASSERT_TRUE(QFile::link(m_dossier.Fichier("gone"), m_dossier.Fichier("home/share/zelvane/astuces.txt")));

    ChoisirDossierProgramme(Lieux());

    EXPECT_EQ(m_dossier.Lire("home/share/zelvane/astuces.txt"), "installed");
}

TEST_F(DossierProgrammeTest, CopiesTheLanguageThatTheProgramWritesInto)
{
    const QString installe = m_dossier.Ecrire("prefix/share/zelvane/lang/default.ini", "[other]\n");
    ASSERT_TRUE(AttributsDisque().MettreLectureSeule(installe, true));

    ChoisirDossierProgramme(Lieux());

    const QString copie = m_dossier.Fichier("home/share/zelvane/lang/default.ini");
    EXPECT_FALSE(QFileInfo(copie).isSymLink());
    EXPECT_FALSE(AttributsDisque().EstLectureSeule(copie));
    EXPECT_EQ(m_dossier.Lire("home/share/zelvane/lang/default.ini"), "[other]\n");
}

TEST_F(DossierProgrammeTest, KeepsTheUsersTemplateAtTheNextStart)
{
    m_dossier.Ecrire("prefix/share/zelvane/lang/default.ini", "[other]\n");
    ChoisirDossierProgramme(Lieux());
    m_dossier.Ecrire("home/share/zelvane/lang/default.ini", "[other]\nmsg1=x\n");

    ChoisirDossierProgramme(Lieux());

    EXPECT_EQ(m_dossier.Lire("home/share/zelvane/lang/default.ini"), "[other]\nmsg1=x\n");
}

TEST_F(DossierProgrammeTest, ComesFromTheEnvironment)
{
    const QByteArray demande = qgetenv("ZELVANE_DOSSIER");
    const QByteArray donnees = qgetenv("XDG_DATA_HOME");
    qputenv("ZELVANE_DOSSIER", "/asked/for");
    qputenv("XDG_DATA_HOME", m_dossier.Fichier("data").toUtf8());

    const LieuxProgramme lieux = LieuxProgramme::DuSysteme();

    EXPECT_EQ(lieux.demande, "/asked/for");
    EXPECT_EQ(lieux.utilisateur, m_dossier.Fichier("data/zelvane"));
    EXPECT_EQ(lieux.executable, QCoreApplication::applicationDirPath());
    EXPECT_EQ(lieux.installation, QFileInfo(lieux.executable).path() + "/share/zelvane");

    demande.isNull() ? qunsetenv("ZELVANE_DOSSIER") : qputenv("ZELVANE_DOSSIER", demande);
    donnees.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", donnees);
}

} // namespace
