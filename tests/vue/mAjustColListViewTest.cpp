#include "vue/mAjustColListView.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A character is 100 units wide; contents as prepared.
class MesuresPreparees : public MesuresDeColonnes
{
public:
    explicit MesuresPreparees(std::vector<float> contenus) : m_contenus(std::move(contenus)) {}

    std::vector<float> LargeursDuContenu() const override
    {
        ++passages;
        return m_contenus;
    }
    float LargeurDuTitre(const QString& titre) const override { return 100 * static_cast<float>(titre.size()); }

    mutable int passages = 0;

private:
    std::vector<float> m_contenus;
};

class Colonnes : public testing::Test
{
protected:
    void SetUp() override
    {
        MettreColonnes(table, {u"Titre"_s, u"Artiste"_s});
        AjouterEntrees(table, {{u"Dummy"_s, u"Portishead"_s}});
    }
    void MettreLargeurs(float premiere, float seconde)
    {
        table.ColumnHeaders(1).SetWidth(premiere);
        table.ColumnHeaders(2).SetWidth(seconde);
    }
    float Largeur(int colonne) const { return table.ColumnHeaders(colonne).Width(); }

    MyLV table;
};

} // namespace

TEST_F(Colonnes, ATitleLongerThanItsCellsGetsRoomAroundIt)
{
    AjusterColonnes(table.ColumnHeaders, MesuresPreparees({520, 300}));
    EXPECT_EQ(Largeur(1), 500 + 550);
    EXPECT_EQ(Largeur(2), 700 + 550);
}

TEST_F(Colonnes, LongCellsGetTheirWidthAndNoRoomMore)
{
    AjusterColonnes(table.ColumnHeaders, MesuresPreparees({4000, 1251}));
    EXPECT_EQ(Largeur(1), 4000);
    EXPECT_EQ(Largeur(2), 1251);
}

TEST_F(Colonnes, AContentAsWideAsTheTitleWithItsRoomStays)
{
    AjusterColonnes(table.ColumnHeaders, MesuresPreparees({1050, 1250}));
    EXPECT_EQ(Largeur(1), 1050);
    EXPECT_EQ(Largeur(2), 1250);
}

TEST_F(Colonnes, TheEntriesAreGoneThroughOnceForAllColumns)
{
    const MesuresPreparees mesures({1050, 1250});
    AjusterColonnes(table.ColumnHeaders, mesures);
    EXPECT_EQ(mesures.passages, 1);
}

TEST_F(Colonnes, ATableWithoutEntriesIsFittedToItsTitles)
{
    table.ListItems.Clear();
    AjusterColonnes(table.ColumnHeaders, MesuresPreparees({0, 0}));
    EXPECT_EQ(Largeur(1), 1050);
    EXPECT_EQ(Largeur(2), 1250);
}

TEST_F(Colonnes, ScaledColumnsFillTheControlAndKeepTheirProportions)
{
    MettreLargeurs(1000, 3000);
    RedimensionnerColonnes(table.ColumnHeaders, table.ListItems.Count(), 8340);
    EXPECT_FLOAT_EQ(Largeur(1), 2000);
    EXPECT_FLOAT_EQ(Largeur(2), 6000);
}

TEST_F(Colonnes, WideColumnsAreScaledDown)
{
    MettreLargeurs(6000, 2000);
    RedimensionnerColonnes(table.ColumnHeaders, table.ListItems.Count(), 4340);
    EXPECT_FLOAT_EQ(Largeur(1), 3000);
    EXPECT_FLOAT_EQ(Largeur(2), 1000);
}

TEST_F(Colonnes, ScalingTwiceChangesNothingMore)
{
    MettreLargeurs(777, 1234.5F);
    RedimensionnerColonnes(table.ColumnHeaders, table.ListItems.Count(), 10000);
    const float premiere = Largeur(1);
    const float seconde = Largeur(2);
    RedimensionnerColonnes(table.ColumnHeaders, table.ListItems.Count(), 10000);
    EXPECT_FLOAT_EQ(Largeur(1), premiere);
    EXPECT_FLOAT_EQ(Largeur(2), seconde);
    EXPECT_FLOAT_EQ(premiere + seconde, 9660);
}

TEST_F(Colonnes, ATableWithoutEntriesIsNotScaled)
{
    table.ListItems.Clear();
    MettreLargeurs(1000, 3000);
    RedimensionnerColonnes(table.ColumnHeaders, table.ListItems.Count(), 8340);
    EXPECT_EQ(Largeur(1), 1000);
    EXPECT_EQ(Largeur(2), 3000);
}

TEST_F(Colonnes, ColumnsWithoutWidthAreNotScaled)
{
    MettreLargeurs(0, 0);
    RedimensionnerColonnes(table.ColumnHeaders, table.ListItems.Count(), 8340);
    EXPECT_EQ(Largeur(1), 0);
    EXPECT_EQ(Largeur(2), 0);
}

TEST_F(Colonnes, AControlWithoutRoomScalesNothing)
{
    MettreLargeurs(1000, 3000);
    RedimensionnerColonnes(table.ColumnHeaders, table.ListItems.Count(), 340);
    RedimensionnerColonnes(table.ColumnHeaders, table.ListItems.Count(), 0);
    EXPECT_EQ(Largeur(1), 1000);
    EXPECT_EQ(Largeur(2), 3000);
}
