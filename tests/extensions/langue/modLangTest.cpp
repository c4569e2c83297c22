#include "extensions/langue/modLang.h"

#include "base/Const_Vrac.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

class ModLangTest : public testing::Test
{
protected:
    QByteArray ParDefaut() const { return m_dossier.Lire("lang/default.ini"); }

    const DossierDeTest& m_dossier = PlateformeDeTest::Courante().dossier;
};

using LangMsgTest = ModLangTest;
using EnregistrerDefautTest = ModLangTest;
using ChargerLangueTest = ModLangTest;
using ListeLanguesTest = ModLangTest;
using ProfilTest = ModLangTest;

TEST_F(LangMsgTest, GivesTheTextOfTheLanguageInForce)
{
    FichierLangue = m_dossier.Ecrire("lang/english.ini", "[other]\r\nmsg1=Done!\r\n");

    const Message message = LangMsg("msg1", "C'est fait !");

    EXPECT_EQ(message.texte, "Done!");
    EXPECT_EQ(message.cle, "msg1");
    EXPECT_FALSE(m_dossier.Existe("lang/default.ini")) << "a message that was found is not recorded";
}

TEST_F(LangMsgTest, GivesTheFrenchTextAndRecordsItWhenThereIsNoOther)
{
    FichierLangue = m_dossier.Ecrire("lang/english.ini", "[other]\r\nmsg1=Done!\r\n");

    const Message message = LangMsg("msg4", "Veuillez entrer un nom");

    EXPECT_EQ(message.texte, "Veuillez entrer un nom");
    EXPECT_EQ(message.cle, "msg4");
    EXPECT_EQ(ParDefaut(), "[other]\r\nmsg4=Veuillez entrer un nom\r\n");
}

TEST_F(LangMsgTest, TakesAnEmptyValueForNone)
{
    FichierLangue = m_dossier.Ecrire("lang/english.ini", "[other]\r\nmsg1=\r\nmsg2=\"\"\r\n");

    EXPECT_EQ(LangMsg("msg1", "un").texte, "un");
    EXPECT_EQ(LangMsg("msg2", "deux").texte, "deux");

    EXPECT_EQ(ParDefaut(), "[other]\r\nmsg1=un\r\nmsg2=deux\r\n");
}

TEST_F(LangMsgTest, TakesTheEscapesOut)
{
    FichierLangue = m_dossier.Ecrire("lang/english.ini", "[other]\r\nmsg29=Resize.\\r\\fOr \\\\ not.\r\n");

    EXPECT_EQ(LangMsg("msg29", "x").texte, "Resize.\r\nOr \\ not.");
}

TEST_F(LangMsgTest, RecordsALineBreakOnOneLine)
{
    QDir().mkpath(m_dossier.Fichier("lang"));

    LangMsg("msg30", "la personne à\r\nqui");

    EXPECT_EQ(ParDefaut(), "[other]\r\nmsg30=la personne \xE0\\r\\fqui\r\n");
}

TEST_F(LangMsgTest, SpeaksFrenchAndWritesNothingWithoutAFolder)
{
    EXPECT_EQ(LangMsg("msg1", "C'est fait !").texte, "C'est fait !");

    EXPECT_FALSE(m_dossier.Existe("lang"));
}

TEST_F(LangMsgTest, ReadsTheFileNamedAsTheProgramWithoutALanguage)
{
    m_dossier.Ecrire("zelvane.ini", "[other]\r\nmsg1=from the program's own file\r\n");

    EXPECT_EQ(LangMsg("msg1", "C'est fait !").texte, "from the program's own file");
}

TEST_F(LangMsgTest, KeepsTheTextOfThePlaceUsedLast)
{
    QDir().mkpath(m_dossier.Fichier("lang"));

    EXPECT_EQ(LangMsg("msg98", "Fichier non trouvé").texte, "Fichier non trouvé");
    EXPECT_EQ(LangMsg("msg98", "Veuillez selectionner au moins une entree").texte,
              "Veuillez selectionner au moins une entree");

    EXPECT_EQ(ParDefaut(), "[other]\r\nmsg98=Veuillez selectionner au moins une entree\r\n");
}

TEST_F(LangMsgTest, OneTranslationStandsForBothFrenchTexts)
{
    FichierLangue = m_dossier.Ecrire("lang/english.ini", "[other]\r\nmsg59=Go on?\r\n");

    EXPECT_EQ(LangMsg("msg59", "Le fichier est en lecture seule. Continuer l'enregistrement?").texte, "Go on?");
    EXPECT_EQ(LangMsg("msg59", "Le fichier existe deja, voulez-vous le remplacer?").texte, "Go on?");
}

TEST_F(LangMsgTest, ATextRecordedByAnotherPlaceWithTheKeyIsNoTranslation)
{
    m_dossier.Ecrire("lang/default.ini", "");
    ASSERT_TRUE(ChargerLangue("default"));
    for (const char* cle : {"msg50", "msg59", "msg98"}) {
        const QStringList textes = TextesDuProgramme(cle);
        ASSERT_EQ(textes.size(), 2) << cle;
        for (const QString& texte : textes + textes)
            EXPECT_EQ(LangMsg(cle, texte).texte, texte) << cle;
    }
}

TEST_F(LangMsgTest, TheTemplateInForceKeepsTheTextOfThePlaceUsedLast)
{
    m_dossier.Ecrire("lang/default.ini", "[other]\r\nmsg98=Fichier non trouv\xE9\r\n");
    ASSERT_TRUE(ChargerLangue("default"));

    LangMsg("msg98", "Veuillez selectionner au moins une entree");

    EXPECT_EQ(ParDefaut(), "[other]\r\nmsg98=Veuillez selectionner au moins une entree\r\n");
}

TEST_F(LangMsgTest, WhatATranslatorWroteIntoTheTemplateStandsForAllTextsOfTheKey)
{
    m_dossier.Ecrire("lang/default.ini", "[other]\r\nmsg59=Go on?\r\nmsg1=Fichier non trouv\xE9\r\n");
    ASSERT_TRUE(ChargerLangue("default"));

    for (const QString& texte : TextesDuProgramme("msg59"))
        EXPECT_EQ(LangMsg("msg59", texte).texte, "Go on?");
    EXPECT_EQ(LangMsg("msg1", "C'est fait !").texte, "Fichier non trouvé") << "a text of another key is a translation";
}

TEST_F(LangMsgTest, AnotherLanguageMayGiveTheKeyAnyTextOfTheProgram)
{
    const char* remplacer = "Le fichier existe deja, voulez-vous le remplacer?";
    FichierLangue = m_dossier.Ecrire("lang/court.ini", QByteArray("[other]\r\nmsg59=") + remplacer + "\r\n");

    EXPECT_EQ(LangMsg("msg59", "Le fichier est en lecture seule. Continuer l'enregistrement?").texte, remplacer);
}

TEST_F(LangMsgTest, SeesAChangeOfTheFileAtOnce)
{
    FichierLangue = m_dossier.Ecrire("lang/english.ini", "[other]\r\nmsg1=Done!\r\n");
    LangMsg("msg1", "x");
    m_dossier.Ecrire("lang/english.ini", "[other]\r\nmsg1=Ready!\r\n");

    EXPECT_EQ(LangMsg("msg1", "x").texte, "Ready!");
}

TEST_F(LangMsgTest, ReadsTheLanguageAndTheTemplateOnceWhileTheyStayAsTheyAre)
{
    FichiersIniEnMemoire& ini = PlateformeDeTest::Courante().iniEnMemoire;
    plateforme().ini = &ini;
    QDir().mkpath(m_dossier.Fichier("lang"));
    FichierLangue = m_dossier.Fichier("lang/english.ini");
    ini.fichiers[FichierLangue] = "[other]\r\nmsg1=Done!\r\n";
    ini.fichiers[m_dossier.Fichier("lang/default.ini")] = "[other]\r\nmsg4=quatre\r\n";

    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(LangMsg("msg1", "un").texte, "Done!");
        EXPECT_EQ(LangMsg("msg4", "quatre").texte, "quatre");
    }
    EXPECT_EQ(ini.lectures, 2);
    EXPECT_EQ(ini.ecritures, 0);
}

TEST_F(LangMsgTest, DoesNotMindATemplateThatCannotBeWritten)
{
    const QString fichier = m_dossier.Ecrire("lang/default.ini", "[other]\r\n");
    ASSERT_TRUE(plateforme().attributs->MettreLectureSeule(fichier, true));

    EXPECT_EQ(LangMsg("msg1", "C'est fait !").texte, "C'est fait !");

    EXPECT_EQ(ParDefaut(), "[other]\r\n");
}

TEST_F(EnregistrerDefautTest, KeepsTheRestOfTheTemplate)
{
    m_dossier.Ecrire("lang/default.ini", "; template\r\n[frmLang]\r\nCaption=x\r\n[other]\r\nmsg1=un\r\n");

    EnregistrerDefaut("msg2", "deux");

    EXPECT_EQ(ParDefaut(), "; template\r\n[frmLang]\r\nCaption=x\r\n[other]\r\nmsg1=un\r\nmsg2=deux\r\n");
}

TEST_F(EnregistrerDefautTest, TouchesNothingWithoutAFolder)
{
    FichiersIniEnMemoire& ini = PlateformeDeTest::Courante().iniEnMemoire;
    plateforme().ini = &ini;

    EnregistrerDefaut("msg1", "un");
    EXPECT_EQ(ini.ecritures, 0);

    QDir().mkpath(m_dossier.Fichier("lang"));
    EnregistrerDefaut("msg1", "un");
    EXPECT_EQ(ini.ecritures, 1);
}

TEST_F(ChargerLangueTest, PutsALanguageInForce)
{
    m_dossier.Ecrire("lang/english.ini", "");

    EXPECT_TRUE(ChargerLangue("english"));

    EXPECT_EQ(FichierLangue, m_dossier.Fichier("lang/english.ini"));
}

TEST_F(ChargerLangueTest, LeavesTheLanguageWhenThereIsNoSuchFile)
{
    m_dossier.Ecrire("lang/english.ini", "");
    QDir().mkpath(m_dossier.Fichier("lang/folder.ini"));
    ChargerLangue("english");

    EXPECT_FALSE(ChargerLangue("klingon"));
    EXPECT_FALSE(ChargerLangue("folder"));

    EXPECT_EQ(FichierLangue, m_dossier.Fichier("lang/english.ini"));
}

TEST_F(ChargerLangueTest, GoesBackToFrenchForTheEmptyName)
{
    m_dossier.Ecrire("lang/english.ini", "");
    ChargerLangue("english");

    EXPECT_FALSE(ChargerLangue(""));

    EXPECT_EQ(FichierLangue, "");
}

TEST_F(ChargerLangueTest, StaysFrenchWhenTheFirstLanguageIsMissing)
{
    EXPECT_FALSE(ChargerLangue("default"));

    EXPECT_EQ(FichierLangue, "");
}

TEST_F(ListeLanguesTest, ListsTheIniFilesByTheirNames)
{
    for (const char* nom : {"default.ini", "english.ini", "español.ini", "a.b.ini", "readme.txt", "ini"})
        m_dossier.Ecrire(QString("lang/") + nom, "");
    QDir().mkpath(m_dossier.Fichier("lang/folder.ini"));

    EXPECT_THAT(ListeLangues(), testing::UnorderedElementsAre("default", "english", "español", "a.b"));
}

TEST_F(ListeLanguesTest, IsEmptyWithoutAFolder)
{
    EXPECT_TRUE(ListeLangues().isEmpty());
}

TEST_F(ListeLanguesTest, NamesWhatCanBeLoaded)
{
    m_dossier.Ecrire("lang/english.ini", "");

    for (const QString& langue : ListeLangues())
        EXPECT_TRUE(ChargerLangue(langue)) << langue.toStdString();
}

TEST_F(ProfilTest, GivesTheDefaultForAKeyThatIsMissingOrEmpty)
{
    const QString fichier = m_dossier.Ecrire("a.ini", "[s]\nk=1\nempty=\n");

    EXPECT_EQ(LireProfil("k", "x", "s", fichier), "1");
    EXPECT_EQ(LireProfil("empty", "x", "s", fichier), "x");
    EXPECT_EQ(LireProfil("none", "x", "s", fichier), "x");
    EXPECT_EQ(LireProfil("k", "x", "none", fichier), "x");
    EXPECT_EQ(LireProfil("k", "x", "s", m_dossier.Fichier("none.ini")), "x");
}

TEST_F(ProfilTest, IsNamedAsTheProgramByDefault)
{
    plateforme().nomProgramme = "catalogue";

    EXPECT_TRUE(EcrireProfil("k", "1", "", ""));

    EXPECT_EQ(m_dossier.Lire("catalogue.ini"), "[catalogue]\r\nk=1\r\n");
    EXPECT_EQ(LireProfil("k", "x", "", ""), "1");
}

TEST_F(ProfilTest, WritesASectionOfAFile)
{
    EXPECT_TRUE(EcrireProfil("k", "1", "s", m_dossier.Fichier("a.ini")));
    EXPECT_FALSE(EcrireProfil("k", "1", "s", m_dossier.Fichier("none/a.ini")));

    EXPECT_EQ(LireProfil("k", "x", "s", m_dossier.Fichier("a.ini")), "1");
}

/// An ini file whose reading fails.
class LectureRompueTest : public ModLangTest
{
protected:
    LectureRompueTest()
    {
        plateforme().ini = &PlateformeDeTest::Courante().iniEnMemoire;
        PlateformeDeTest::Courante().iniEnMemoire.casses = {"broken.ini"};
    }
};

TEST_F(LectureRompueTest, IsShownAndGivesTheDefault)
{
    FileDeReponses reponses;

    EXPECT_EQ(LireProfil("k", "x", "s", "broken.ini"), "x");

    ASSERT_EQ(reponses.Affiches().size(), 1);
    EXPECT_EQ(reponses.Affiches()[0].message.texte, "ERREUR INIProfileRead Input/output error");
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOk);
}

TEST_F(LectureRompueTest, IsNotShownAgainByTheWindowThatShowsIt)
{
    struct Presentateur : FileDeReponses
    {
        int Afficher(const Message& message, int genre, const QString& titre) override
        {
            LireProfil("Caption", "", "frmMsg", "broken.ini");
            return FileDeReponses::Afficher(message, genre, titre);
        }
    } presentateur;

    LireProfil("k", "x", "s", "broken.ini");
    EXPECT_EQ(presentateur.Affiches().size(), 1);

    LireProfil("k", "x", "s", "broken.ini");
    EXPECT_EQ(presentateur.Affiches().size(), 2) << "the next failure is shown";
}

TEST_F(LectureRompueTest, LeavesMessagesFrench)
{
    FileDeReponses reponses;
    FichierLangue = "broken.ini";

    EXPECT_EQ(LangMsg("msg1", "C'est fait !").texte, "C'est fait !");

    EXPECT_EQ(reponses.Affiches().size(), 1);
}

struct CasEchappement
{
    const char* programme;
    const char* fichier;
};

TEST(EncoderTexte, PutsTheEscapesIn)
{
    for (const CasEchappement& cas : {CasEchappement{"a\r\nb", "a\\r\\fb"},
                                      {"\r", "\\r"},
                                      {"\n", "\\f"},
                                      {"a\\b", "a\\\\b"},
                                      {"\\r", "\\\\r"},
                                      {"é\t", "é\t"},
                                      {"", ""}}) {
        EXPECT_EQ(EncoderTexte(cas.programme), cas.fichier);
    }
}

TEST(DecoderTexte, TakesTheEscapesOut)
{
    for (const CasEchappement& cas : {CasEchappement{"a\r\nb", "a\\r\\fb"},
                                      {"a\\b", "a\\\\b"},
                                      {"a\\nb", "a\\nb"},
                                      {"a\\", "a\\"},
                                      {"\\\\", "\\\\\\\\"},
                                      {"", ""}}) {
        EXPECT_EQ(DecoderTexte(cas.fichier), cas.programme);
    }
}

TEST(DecoderTexte, TakesABackslashBeforeAnRForACarriageReturn)
{
    // The pair of routines is no perfect round trip. It is meant.
    EXPECT_EQ(DecoderTexte(EncoderTexte("C:\\rock")), "C:\\\rock");
    EXPECT_EQ(DecoderTexte(EncoderTexte("C:\\folk")), "C:\\\nolk");
    EXPECT_EQ(DecoderTexte(EncoderTexte("C:\\jazz")), "C:\\jazz");
}

} // namespace
