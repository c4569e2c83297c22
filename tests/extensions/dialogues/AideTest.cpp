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

TEST_F(AideTest, TheHomePageIsShownOrAtLeastTold)
{
    AfficherPageDAccueil();
    EXPECT_EQ(m_plateforme.programmes.adresses, QStringList{PageDAccueil});
    m_plateforme.programmes.reponse = false;
    AfficherPageDAccueil();
    EXPECT_EQ(m_reponses.Cles(), QStringList{PageDAccueil});
}

} // namespace
