#include "vue/TableDeLignes.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QProxyStyle>
#include <QStyleOption>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace {

/// Notes the columns whose titles are drawn: each is asked for its font.
class ModeleNote : public QAbstractTableModel
{
public:
    explicit ModeleNote(int colonnes) : m_colonnes(colonnes) {}
    int rowCount(const QModelIndex&) const override { return 3; }
    int columnCount(const QModelIndex&) const override { return m_colonnes; }
    QVariant data(const QModelIndex&, int) const override { return {}; }
    QVariant headerData(int section, Qt::Orientation sens, int role) const override
    {
        if (sens == Qt::Horizontal && role == Qt::FontRole)
            dessinees.insert(section + 1);
        return {};
    }

    mutable std::set<int> dessinees;

private:
    int m_colonnes;
};

/// Notes where a bar of titles has none.
class StyleNote : public QProxyStyle
{
public:
    void drawControl(ControlElement quoi, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        if (quoi == CE_HeaderEmptyArea)
            restes.push_back(option->rect);
        QProxyStyle::drawControl(quoi, option, painter, widget);
    }
    mutable std::vector<QRect> restes;
};

class TableDeLignesTest : public testing::Test
{
protected:
    TableDeLignesTest()
    {
        FaireTableDeLignes(table);
        table.horizontalHeader()->setStyle(&style);
        table.setModel(&modele);
        DetacherTitres(table);
        table.resize(500, 200);
    }
    void Montrer()
    {
        table.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&table));
        QCoreApplication::processEvents();
        modele.dessinees.clear();
        style.restes.clear();
    }
    QHeaderView& Titres() { return *table.horizontalHeader(); }

    static constexpr int Colonnes = 30'000;
    ModeleNote modele{Colonnes};
    StyleNote style;
    QTableView table;
};

} // namespace

TEST_F(TableDeLignesTest, EachColumnGetsItsWidth)
{
    MettreLargeurs(table, 3, [](int colonne) { return 10 * colonne; });
    EXPECT_EQ(table.columnWidth(0), 10);
    EXPECT_EQ(table.columnWidth(2), 30);
    EXPECT_EQ(table.columnWidth(3), Titres().defaultSectionSize());
}

TEST_F(TableDeLignesTest, WidthsAreGivenWhileTitlesAreNotDrawn)
{
    // Qt counts the places of all columns anew for each width that is seen to change: the square of their number.
    int donnees = 0;
    int vues = 0;
    QObject::connect(&Titres(), &QHeaderView::sectionResized, [&] {
        ++donnees;
        vues += Titres().updatesEnabled();
    });
    Montrer();
    MettreLargeurs(table, Colonnes, [](int) { return 12; });
    EXPECT_EQ(donnees, Colonnes);
    EXPECT_EQ(vues, 0);
    EXPECT_TRUE(Titres().updatesEnabled());
}

TEST_F(TableDeLignesTest, ManyWideColumnsFitTogether)
{
    MettreLargeurs(table, Colonnes, [](int colonne) { return colonne == 2 ? 20 : 100'000; });
    EXPECT_GT(Titres().length(), 0);
    EXPECT_EQ(table.columnWidth(1), 20);
    EXPECT_GT(Titres().sectionPosition(Colonnes - 1), Titres().sectionPosition(Colonnes - 2));

    MettreLargeurs(table, 3, [](int) { return 100'000; });
    EXPECT_EQ(table.columnWidth(0), 100'000) << "a few may be as wide as they like";
}

TEST_F(TableDeLignesTest, ColumnsWithoutWidthAreNeitherSeenNorDrawn)
{
    MettreLargeurs(table, Colonnes,
                   [](int colonne) { return colonne == 10 || colonne == 11 || colonne == 500 ? 40 : 0; });
    Montrer();
    Titres().viewport()->repaint();
    EXPECT_THAT(modele.dessinees, testing::ElementsAre(10, 11, 500));

    const auto plages = ColonnesVues(Titres(), 5, 90);
    ASSERT_EQ(plages.size(), 2U);
    EXPECT_EQ(plages[0].premiere, 10);
    EXPECT_EQ(plages[0].derniere, 11);
    EXPECT_EQ(plages[0].gauche, 5);
    EXPECT_EQ(plages[0].droite, 79);
    EXPECT_EQ(plages[1].premiere, 500);
    EXPECT_EQ(plages[1].derniere, 500);
    EXPECT_EQ(plages[1].gauche, 80);
    EXPECT_EQ(plages[1].droite, 90);
    EXPECT_TRUE(ColonnesVues(Titres(), 120, 400).empty());
}

TEST_F(TableDeLignesTest, OnlyTitlesOnTheScreenAreDrawnWhereverItIsScrolledTo)
{
    MettreLargeurs(table, Colonnes, [](int) { return 100; });
    Montrer();
    Titres().setOffset(1'000'050);
    Titres().viewport()->repaint();
    EXPECT_EQ(*modele.dessinees.begin(), 10'001);
    EXPECT_LE(modele.dessinees.size(), 7U);
}

TEST_F(TableDeLignesTest, TheBarOfTitlesIsDrawnToItsEnd)
{
    MettreLargeurs(table, Colonnes, [](int colonne) { return colonne <= 2 ? 60 : 0; });
    Montrer();
    Titres().viewport()->repaint();
    ASSERT_EQ(style.restes.size(), 1U);
    EXPECT_EQ(style.restes[0], QRect(QPoint(120, 0), Titres().viewport()->rect().bottomRight()));

    MettreLargeurs(table, Colonnes, [](int) { return 60; });
    QCoreApplication::processEvents();
    style.restes.clear();
    Titres().viewport()->repaint();
    EXPECT_TRUE(style.restes.empty());
}

TEST_F(TableDeLignesTest, NoColumnHasAWidth)
{
    MettreLargeurs(table, Colonnes, [](int) { return 0; });
    Montrer();
    Titres().viewport()->repaint();
    EXPECT_TRUE(modele.dessinees.empty());
    EXPECT_TRUE(ColonnesVues(Titres(), 0, 500).empty());
}
