#include "support/CadreDeTest.h"
#include "support/Impression.h"

#include <gtest/gtest.h>

namespace {

/// An installed frame with the windows a1, a2 and a3.
class ToutFermerTest : public testing::Test
{
protected:
    ToutFermerTest() : m_avant(InstallerCadre(&cadre))
    {
        for (int i = 0; i < 3; ++i)
            cadre.NouvelleFenetre();
    }
    ~ToutFermerTest() override { InstallerCadre(m_avant); }

    CadreDeTest cadre;

private:
    Cadre* m_avant;
};

} // namespace

TEST(FenetreActive, IsTheOneOfTheInstalledFrame)
{
    CadreDeTest cadre;
    cadre.NouvelleFenetre();
    FenetreDocument& seconde = cadre.NouvelleFenetre();
    Cadre* avant = InstallerCadre(&cadre);
    EXPECT_EQ(FenetreActive(), &seconde);
    cadre.active = nullptr;
    EXPECT_EQ(FenetreActive(), nullptr);
    InstallerCadre(avant);
}

TEST(FenetreActive, IsNoneWithoutAFrame)
{
    EXPECT_EQ(FenetreActive(), nullptr);
}

TEST_F(ToutFermerTest, UnloadsEveryWindowInTheOrderOfTheList)
{
    ToutFermer();
    EXPECT_EQ(cadre.decharges, QStringList({"a1", "a2", "a3"}));
    EXPECT_TRUE(cadre.Documents().empty());
}

TEST_F(ToutFermerTest, GoesOnAfterAWindowThatStays)
{
    cadre.fenetres[1]->auDecharger = [] {};
    ToutFermer();
    EXPECT_EQ(cadre.decharges, QStringList({"a1", "a2", "a3"}));
    ASSERT_EQ(cadre.Documents().size(), 1);
    EXPECT_EQ(cadre.Documents().front()->Tag, "a2");
}

TEST_F(ToutFermerTest, PassesAWindowOverThatWentMeanwhile)
{
    cadre.fenetres[0]->auDecharger = [this] { cadre.fenetres.erase(cadre.fenetres.begin() + 1); };
    ToutFermer();
    EXPECT_EQ(cadre.decharges, QStringList({"a1", "a3"}));
}

TEST_F(ToutFermerTest, LeavesAWindowThatCameMeanwhile)
{
    cadre.fenetres[0]->auDecharger = [this] { cadre.NouvelleFenetre(); };
    ToutFermer();
    EXPECT_EQ(cadre.decharges, QStringList({"a1", "a2", "a3"}));
    EXPECT_EQ(cadre.Documents().size(), 2);
}

TEST(ToutFermer, DoesNothingWithoutAFrame)
{
    Cadre* const avant = InstallerCadre(nullptr);
    ToutFermer();
    EXPECT_EQ(InstallerCadre(avant), nullptr);
}
