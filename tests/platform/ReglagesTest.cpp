#include "platform/Reglages.h"

#include "platform/NomsSysteme.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

class ReglagesFichierTest : public testing::Test
{
protected:
    DossierDeTest m_dossier;
    QString m_fichier = m_dossier.Fichier("config/zelvane.ini");
};

TEST_F(ReglagesFichierTest, HasNothingThatWasNeverWritten)
{
    const ReglagesFichier reglages(m_fichier);

    EXPECT_EQ(reglages.Lire("Options", "TempFolder"), std::nullopt);
    EXPECT_FALSE(m_dossier.Existe("config/zelvane.ini"));
}

TEST_F(ReglagesFichierTest, KeepsTextsFromRunToRun)
{
    const QStringList textes = {"",     "1",  "8,25", "/home/é/a b;c", "@Invalid()", "\"x\"",
                                "a\\b", "%1", " a ",  "1, 2",          "Ω"};
    for (const QString& texte : textes) {
        ReglagesFichier(m_fichier).Ecrire("Options", "k", texte);
        EXPECT_EQ(ReglagesFichier(m_fichier).Lire("Options", "k"), texte);
    }
}

TEST_F(ReglagesFichierTest, KeepsAPathOfAnyBytes)
{
    const QString chemin = CheminDesOctets("/home/\xE9t\xE9, \"1\"/\xC3.qrt");
    ReglagesFichier(m_fichier).Ecrire("Options", "k", chemin);
    EXPECT_EQ(ReglagesFichier(m_fichier).Lire("Options", "k"), chemin);
}

TEST_F(ReglagesFichierTest, TakesAKeyInAnyCase)
{
    ReglagesFichier reglages(m_fichier);

    reglages.Ecrire("Options", "OpenlastFile", "1");

    EXPECT_EQ(reglages.Lire("Options", "OpenLastFile"), "1");
    EXPECT_EQ(reglages.Lire("Options", "OPENLASTFILE"), "1");
}

TEST_F(ReglagesFichierTest, KeepsSectionsApart)
{
    ReglagesFichier reglages(m_fichier);

    reglages.Ecrire("HwndInstance", "Hwnd", "12");

    EXPECT_EQ(reglages.Lire("HwndInstance", "hwnd"), "12");
    EXPECT_EQ(reglages.Lire("Options", "Hwnd"), std::nullopt);
}

TEST_F(ReglagesFichierTest, StoresAtOnceWhenAsked)
{
    ReglagesFichier reglages(m_fichier);
    reglages.Ecrire("HwndInstance", "Hwnd", "12");

    reglages.Deposer();

    EXPECT_EQ(m_dossier.Lire("config/zelvane.ini"), "[hwndinstance]\nhwnd=12\n");
}

TEST_F(ReglagesFichierTest, ReadsWhatOthersHaveStoredWhateverItsOwnReadingFound)
{
    m_dossier.Ecrire("config/zelvane.ini", "[HwndInstance]\nhwnd=12\n");
    const QDateTime heure = QFileInfo(m_fichier).lastModified();
    const ReglagesFichier reglages(m_fichier);
    EXPECT_EQ(reglages.Lire("HwndInstance", "Hwnd"), "12");

    // Neither its size nor its time tells that the file is another one.
    m_dossier.Ecrire("config/zelvane.ini", "[HwndInstance]\nhwnd=34\n");
    QFile fichier(m_fichier);
    ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
    ASSERT_TRUE(fichier.setFileTime(heure, QFileDevice::FileModificationTime));
    fichier.close();

    EXPECT_EQ(reglages.LireDepose("HwndInstance", "HWND"), "34");
    EXPECT_EQ(reglages.LireDepose("Options", "Hwnd"), std::nullopt);
}

TEST_F(ReglagesFichierTest, FindsNothingStoredWhereThereIsNoFile)
{
    ReglagesFichier reglages(m_fichier);
    reglages.Ecrire("HwndInstance", "Hwnd", "12");

    EXPECT_EQ(reglages.LireDepose("HwndInstance", "Hwnd"), std::nullopt);
}

TEST_F(ReglagesFichierTest, StoresUnderTheSectionAndTheKeyInLowerCase)
{
    ReglagesFichier(m_fichier).Ecrire("Options", "FRecent1", "x");

    EXPECT_EQ(m_dossier.Lire("config/zelvane.ini"), "[options]\nfrecent1=x\n");
}

TEST_F(ReglagesFichierTest, FindsWhatWasWrittenByHandInAnyCase)
{
    m_dossier.Ecrire("config/zelvane.ini", "[Options]\nFRecent1=/a.qrt\nOPENLASTFILE=1\n[hwndINSTANCE]\nHwnd=12\n");
    const ReglagesFichier reglages(m_fichier);

    EXPECT_EQ(reglages.Lire("Options", "FRecent1"), "/a.qrt");
    EXPECT_EQ(reglages.Lire("Options", "OpenLastFile"), "1");
    EXPECT_EQ(reglages.LireDepose("HwndInstance", "Hwnd"), "12");
}

TEST_F(ReglagesFichierTest, AWriteTakesThePlaceOfEverySpelling)
{
    m_dossier.Ecrire("config/zelvane.ini", "[Options]\nFRecent1=a\nfrecent1=b\nAffImg=1\n[OPTIONS]\nFRECENT1=c\n");

    ReglagesFichier(m_fichier).Ecrire("Options", "FRecent1", "d");

    EXPECT_EQ(ReglagesFichier(m_fichier).Lire("Options", "FRecent1"), "d");
    EXPECT_EQ(m_dossier.Lire("config/zelvane.ini"), "[Options]\nAffImg=1\n\n[options]\nfrecent1=d\n");
}

TEST_F(ReglagesFichierTest, OfTwoSpellingsTheProgramsOwnIsRead)
{
    m_dossier.Ecrire("config/zelvane.ini", "[options]\nFRecent1=a\nfrecent1=b\n");

    EXPECT_EQ(ReglagesFichier(m_fichier).Lire("Options", "FRecent1"), "b");
}

TEST_F(ReglagesFichierTest, WhatIsReadInAnotherSpellingAndStaysTheSameCostsNoWrite)
{
    m_dossier.Ecrire("config/zelvane.ini", "[Options]\nFRecent1=a\n");

    ReglagesFichier(m_fichier).Ecrire("Options", "FRecent1", "a");

    EXPECT_EQ(m_dossier.Lire("config/zelvane.ini"), "[Options]\nFRecent1=a\n");
}

TEST_F(ReglagesFichierTest, ReadsAHandWrittenListAsText)
{
    m_dossier.Ecrire("config/zelvane.ini", "[Options]\nfusionnercol=a, b\n");

    EXPECT_EQ(ReglagesFichier(m_fichier).Lire("Options", "FusionnerCol"), "a, b");
}

TEST_F(ReglagesFichierTest, GoesOnWithoutAFileItCanWrite)
{
    m_dossier.Ecrire("config", "a file where the folder should be");

    ReglagesFichier reglages(m_fichier);
    reglages.Ecrire("Options", "k", "1");

    EXPECT_EQ(reglages.Lire("Options", "k"), "1");
}

TEST_F(ReglagesFichierTest, LiesInTheUsersFolderForSettings)
{
    const QByteArray avant = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", m_dossier.Fichier("xdg").toUtf8());

    EXPECT_EQ(ReglagesFichier::FichierParDefaut(), m_dossier.Fichier("xdg/zelvane/zelvane.ini"));

    avant.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", avant);
}

} // namespace
