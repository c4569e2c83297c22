#include "extensions/dialogues/Aide.h"

#include "base/Const_Vrac.h"
#include "extensions/langue/modLang.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

namespace {

class AideTest : public testing::Test
{
protected:
    PlateformeDeTest& m_plateforme = PlateformeDeTest::Courante();
    FileDeReponses m_reponses;
};

TEST_F(AideTest, TheHelpOfTheProgramsFolderIsShown)
{
    const QString aide = m_plateforme.dossier.Ecrire("AideQrt/aideZelvane.html", "<p>Aide");
    ASSERT_EQ(aide, DossierProgramme() + "AideQrt/aideZelvane.html");
    AfficherAide(true);
    EXPECT_EQ(m_plateforme.programmes.fichiers, QStringList{aide});
    EXPECT_TRUE(m_reponses.Affiches().isEmpty());
}

TEST_F(AideTest, AHelpThatIsNotThereIsToldToWhoWantsToKnow)
{
    AfficherAide(false);
    EXPECT_TRUE(m_reponses.Affiches().isEmpty());
    AfficherAide(true);
    ASSERT_EQ(m_reponses.Cles(), QStringList{"msg98"});
    EXPECT_EQ(m_reponses.Affiches().front().message.texte, "Fichier non trouvé");
    EXPECT_EQ(m_plateforme.programmes.fichiers, QStringList());
}

TEST_F(AideTest, WhereNothingCanShowItTheUserLearnsWhereItLies)
{
    const QString aide = m_plateforme.dossier.Ecrire("AideQrt/aideZelvane.html", "<p>Aide");
    m_plateforme.programmes.reponse = false;
    AfficherAide(false);
    ASSERT_EQ(m_reponses.Cles(), QStringList{"msgAide"});
    EXPECT_TRUE(m_reponses.Affiches().front().message.texte.endsWith(aide));
}

TEST_F(AideTest, ALanguageNamesTheFolderOfItsPages)
{
    const QString francais = m_plateforme.dossier.Ecrire("AideQrt/aideZelvane.html", "<p>Aide");
    const QString anglais = m_plateforme.dossier.Ecrire("AideQrt/en/aideZelvane.html", "<p>Help");
    FichierLangue = m_plateforme.dossier.Ecrire("lang/deutsch.ini", "[Traducteur]\r\nAide=en\r\n");
    AfficherAide(true);
    FichierLangue = m_plateforme.dossier.Ecrire("lang/autre.ini", "[Traducteur]\r\nAide=xx\r\n");
    AfficherAide(true);
    m_plateforme.dossier.Ecrire("aideZelvane.html", "no help");
    FichierLangue = m_plateforme.dossier.Ecrire("lang/hors.ini", "[Traducteur]\r\nAide=../..\r\n");
    AfficherAide(true);
    EXPECT_EQ(m_plateforme.programmes.fichiers, QStringList({anglais, francais, francais}));
}

TEST_F(AideTest, APageIsShownByItsNameAndTheFirstOneForWantOfIt)
{
    const QString premiere = m_plateforme.dossier.Ecrire("AideQrt/aideZelvane.html", "<p>Aide");
    const QString autre = m_plateforme.dossier.Ecrire("AideQrt/images.html", "<p>Images");
    AfficherPageDAide("images.html");
    AfficherPageDAide("rien.html");
    EXPECT_EQ(m_plateforme.programmes.fichiers, QStringList({autre, premiere}));
    EXPECT_TRUE(m_reponses.Affiches().isEmpty());
}

TEST_F(AideTest, WithoutAnyPageItIsTold)
{
    AfficherPageDAide("images.html");
    EXPECT_EQ(m_reponses.Cles(), QStringList{"msg98"});
}

TEST_F(AideTest, TheHomePageIsShownOrAtLeastTold)
{
    AfficherPageDAccueil();
    EXPECT_EQ(m_plateforme.programmes.adresses, QStringList{PageDAccueil});
    m_plateforme.programmes.reponse = false;
    AfficherPageDAccueil();
    EXPECT_EQ(m_reponses.Cles(), QStringList{PageDAccueil});
}

} // namespace
