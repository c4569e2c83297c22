#include "extensions/langue/TextesDeForme.h"

#include "extensions/langue/modLang.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

namespace {

class TextesDeFormeTest : public testing::Test
{
protected:
    static void Langue(const QByteArray& section)
    {
        FichierLangue =
            PlateformeDeTest::Courante().dossier.Ecrire("lang/english.ini", "[frmEditerColonnes]\r\n" + section);
    }

    const TextesDeForme m_textes{"frmEditerColonnes"};
};

TEST_F(TextesDeFormeTest, TheFormsTitleHasAKeyOfItsOwn)
{
    Langue("Caption=Edit columns\r\n");
    EXPECT_EQ(m_textes.Titre(), "Edit columns");
}

TEST_F(TextesDeFormeTest, EachTextOfAControlHasItsKey)
{
    Langue("btAjouter_C=Add\r\nbtAjouter_T=Text\r\nbtAjouter_TT=Adds a column\r\nToolbar1_TT_1=Open\r\n");
    EXPECT_EQ(m_textes.Caption("btAjouter", "Ajouter"), "Add");
    EXPECT_EQ(m_textes.Texte("btAjouter", "x"), "Text");
    EXPECT_EQ(m_textes.InfoBulle("btAjouter", "x"), "Adds a column");
    EXPECT_EQ(m_textes.InfoBulleBouton("Toolbar1", 1, "Ouvrir"), "Open");
}

TEST_F(TextesDeFormeTest, AMemberOfAControlArrayHasItsIndexInTheKeyAlsoTheFirst)
{
    Langue("mPlugins_0_C=First\r\nmPlugins_2_C=Third\r\nmPlugins_C=No member\r\n");
    EXPECT_EQ(m_textes.Caption("mPlugins_0", "x"), "First");
    EXPECT_EQ(m_textes.Caption("mPlugins_2", "x"), "Third");
}

TEST_F(TextesDeFormeTest, AnEmptyTextStaysEvenWhereTheFileHasAKey)
{
    Langue("Text1_C=a\r\nText1_T=b\r\nText1_TT=c\r\nText1_TT_1=d\r\n");
    EXPECT_FALSE(m_textes.Caption("Text1", ""));
    EXPECT_FALSE(m_textes.Texte("Text1", ""));
    EXPECT_FALSE(m_textes.InfoBulle("Text1", ""));
    EXPECT_FALSE(m_textes.InfoBulleBouton("Text1", 1, ""));
}

TEST_F(TextesDeFormeTest, AKeyThatIsMissingOrEmptyLeavesTheText)
{
    Langue("Caption=\r\nbtAjouter_C=\r\n[other]\r\nbtFermer_C=Close\r\n");
    EXPECT_FALSE(m_textes.Titre());
    EXPECT_FALSE(m_textes.Caption("btAjouter", "Ajouter"));
    EXPECT_FALSE(m_textes.Caption("btFermer", "Fermer"));
}

TEST_F(TextesDeFormeTest, EscapesAreTakenOut)
{
    Langue("Caption=a\\r\\fb\r\nLabel1_C=c:\\\\x\r\n");
    EXPECT_EQ(m_textes.Titre(), "a\r\nb");
    EXPECT_EQ(m_textes.Caption("Label1", "x"), "c:\\x");
}

TEST_F(TextesDeFormeTest, AFileThatCannotBeReadIsToldAndLeavesTheText)
{
    FileDeReponses reponses;
    PlateformeDeTest::Courante().iniEnMemoire.casses.insert("broken.ini");
    plateforme().ini = &PlateformeDeTest::Courante().iniEnMemoire;
    FichierLangue = "broken.ini";
    EXPECT_FALSE(m_textes.Caption("btAjouter", "Ajouter"));
    ASSERT_EQ(reponses.Affiches().size(), 1);
    EXPECT_TRUE(reponses.Affiches().front().message.texte.startsWith("ERREUR INIProfileRead "));
}

} // namespace
