#include "extensions/dialogues/Aide.h"

#include "base/Const_Vrac.h"
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
    AfficherAide();
    EXPECT_EQ(m_plateforme.programmes.fichiers, QStringList{DossierProgramme() + "AideQrt/aideZelvane.html"});
    EXPECT_TRUE(m_reponses.Affiches().isEmpty());
}

TEST_F(AideTest, AHelpThatIsNotThereIsTold)
{
    m_plateforme.programmes.reponse = false;
    AfficherAide();
    ASSERT_EQ(m_reponses.Cles(), QStringList{"msg98"});
    EXPECT_EQ(m_reponses.Affiches().front().message.texte, "Fichier non trouvé");
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
