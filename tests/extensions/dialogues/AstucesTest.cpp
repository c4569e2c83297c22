#include "extensions/dialogues/Astuces.h"

#include "platform/Temps.h"
#include "support/DossierDeTest.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

namespace {

class AstucesTest : public testing::Test
{
protected:
    QStringList Lire(const QByteArray& contenu) const
    {
        return LireAstuces(m_dossier.Ecrire("astuces.txt", contenu)).value_or(QStringList{"no file"});
    }

    int Tirer(double nombre)
    {
        m_hasard.tirages = {nombre};
        return TirerAstuce(4, m_hasard);
    }

    DossierDeTest m_dossier;
    HasardPrepare m_hasard;
};

TEST_F(AstucesTest, ATipIsALine)
{
    EXPECT_EQ(Lire("Un\r\nDeux\r\nTrois"), QStringList({"Un", "Deux", "Trois"}));
    EXPECT_EQ(Lire("Un\nDeux\n"), QStringList({"Un", "Deux"}));
}

TEST_F(AstucesTest, AnEmptyLineIsATipToo)
{
    EXPECT_EQ(Lire("Un\r\n\r\nDeux\r\n"), QStringList({"Un", "", "Deux"}));
}

TEST_F(AstucesTest, TheFileIsInTheCodePage)
{
    EXPECT_EQ(Lire("Cat\xE9gorie \x9Cuvre \x80"), QStringList({"Catégorie œuvre €"}));
}

TEST_F(AstucesTest, AnEmptyFileHasNoTip)
{
    EXPECT_EQ(Lire(""), QStringList());
}

TEST_F(AstucesTest, NoPathNoFileAndAFolderAreNoTips)
{
    EXPECT_FALSE(LireAstuces(""));
    EXPECT_FALSE(LireAstuces(m_dossier.Fichier("astuces.txt")));
    EXPECT_FALSE(LireAstuces(m_dossier.Chemin()));
}

TEST_F(AstucesTest, EveryTipHasTheSamePartOfTheNumbers)
{
    EXPECT_EQ(Tirer(0.0), 1);
    EXPECT_EQ(Tirer(0.2499), 1);
    EXPECT_EQ(Tirer(0.25), 2);
    EXPECT_EQ(Tirer(0.5), 3);
    EXPECT_EQ(Tirer(0.9999), 4);
}

TEST_F(AstucesTest, ANumberBeyondTheLastTipIsTheFirst)
{
    EXPECT_EQ(Tirer(1.0), 1);
    EXPECT_EQ(TirerAstuce(0, m_hasard), 1);
}

} // namespace
