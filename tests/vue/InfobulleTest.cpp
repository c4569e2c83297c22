#include "vue/Infobulle.h"

#include "base/Const_Vrac.h"
#include "catalogue/table/RefonteDeTable.h"
#include "kit/Couleurs.h"
#include "support/PlateformeDeTest.h"
#include "vue/TexteDeBulle.h"
#include "vue/VueDeTest.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int Battement = 500; // milliseconds

class InfobulleTest : public VueDeTest
{
protected:
    /// A table whose second entry has a first cell that is cut off, and a second one that is not.
    void Montrer()
    {
        VueDeTest::Montrer(5);
        table.ListItems(2).SetText(Long);
        QCoreApplication::processEvents();
    }
    void VoirLesInfobulles()
    {
        EcrireOption(u"showInfobulles"_s, 1);
        vue.clearFocus();
        vue.setFocus();
    }
    void Bouger(const QPoint& place)
    {
        QMouseEvent mouvement(QEvent::MouseMove, place, vue.viewport()->mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(vue.viewport(), &mouvement);
    }
    void Pointer(int ligne, int colonne) { Bouger(Milieu(ligne, colonne)); }
    /// What the timer does every half second.
    void Battre() { emit bulle.ToolTipTimer().timeout({}); }

    const QString Long = u"Un titre beaucoup trop long pour une colonne d'un pouce"_s;
    TexteDeBulle texte{&vue};
    Infobulle bulle{vue, texte};
};

} // namespace

TEST_F(InfobulleTest, ACellThatIsCutOffShowsItsTextAtTheNextTick)
{
    Montrer();
    Pointer(2, 1);
    EXPECT_FALSE(texte.isVisible());
    Battre();
    EXPECT_TRUE(texte.isVisible());
    EXPECT_EQ(texte.text(), Long);
    EXPECT_EQ(texte.width(), vue.columnWidth(0));
    const QPoint cellule = vue.visualRect(vue.model()->index(1, 0)).topLeft();
    const QPoint coin = cellule + QPoint(vue.PixelsDe(50), vue.PixelsDe(60));
    EXPECT_EQ(texte.pos(), vue.viewport()->mapTo(&vue, coin));
}

TEST_F(InfobulleTest, TheTipHasTheColoursThatTipsHaveByThen)
{
    Montrer();
    Pointer(2, 1);
    MettreCouleurs(true);
    Battre();
    const QPalette couleurs = texte.palette();
    MettreCouleurs(false);
    for (const QPalette::ColorRole role : {QPalette::ToolTipBase, QPalette::ToolTipText})
        EXPECT_EQ(couleurs.color(role), PaletteSombre().color(role));
}

TEST_F(InfobulleTest, AWordThatIsWiderThanTheColumnIsBroken)
{
    Montrer();
    table.ListItems(2).SetText(u"Anticonstitutionnellement"_s);
    table.ColumnHeaders(1).SetWidth(900);
    QCoreApplication::processEvents();
    Pointer(2, 1);
    Battre();
    ASSERT_TRUE(texte.isVisible());
    EXPECT_EQ(texte.width(), vue.columnWidth(0));
    EXPECT_GT(texte.height(), 2 * texte.fontMetrics().height());
    const QImage entier = texte.grab().toImage();
    texte.setText(u"Anticonstitutionnellemenx"_s);
    EXPECT_NE(texte.grab().toImage(), entier) << "its last letter is seen";
}

TEST_F(InfobulleTest, NearTheEdgesOfTheTableTheTipIsStillSeenWhole)
{
    VueDeTest::Montrer(200);
    table.ColumnHeaders(2).SetWidth(14400);
    for (int i = 1; i <= 200; ++i)
        table.ListItems(i).SetSubItems(1, QString(3000, u'x'));
    QCoreApplication::processEvents();
    Bouger(QPoint(vue.viewport()->width() - 5, vue.viewport()->height() - 5));
    Battre();
    ASSERT_TRUE(texte.isVisible());
    const QRect zone(vue.viewport()->mapTo(&vue, QPoint(0, 0)), vue.viewport()->size());
    EXPECT_EQ(texte.geometry().bottom(), zone.bottom());
    EXPECT_EQ(texte.geometry().left(), zone.left()) << "wider than the table: its beginning is seen";
}

TEST_F(InfobulleTest, WhenColumnsMoveTheTipTellsOfTheOneUnderThePointerNow)
{
    Montrer();
    Pointer(2, 1);
    Battre();
    ASSERT_EQ(texte.text(), Long);
    const QString autre = u"Une autre valeur beaucoup trop longue pour une colonne d'un pouce"_s;
    RefonteDeTable refonte(table, stockage::Codage::Utf8, [octets = autre.toUtf8()](auto& cellules) {
        cellules[0] = {octets.constData(), static_cast<uint32_t>(octets.size()), stockage::Codage::Utf8, true};
    });
    while (refonte.Avancer(99)) {
    }
    ASSERT_TRUE(refonte.Poser());
    table.ColumnHeaders.Remove(1);
    QCoreApplication::processEvents();
    EXPECT_FALSE(texte.isVisible());
    Battre();
    EXPECT_TRUE(texte.isVisible());
    EXPECT_EQ(texte.text(), autre);
}

TEST_F(InfobulleTest, ATipGoesWhenTheEntriesScrollOrChange)
{
    VueDeTest::Montrer(200);
    table.ListItems(2).SetText(Long);
    table.ListItems(3).SetText(Long);
    QCoreApplication::processEvents();
    Pointer(3, 1);
    Battre();
    ASSERT_TRUE(texte.isVisible());
    vue.verticalScrollBar()->setValue(vue.rowHeight(0));
    EXPECT_FALSE(texte.isVisible());
    Battre();
    EXPECT_FALSE(texte.isVisible()) << "the pointer has not moved to what lies under it";

    Pointer(2, 1);
    Battre();
    ASSERT_TRUE(texte.isVisible());
    table.ListItems(2).SetText(u"Court"_s);
    QCoreApplication::processEvents();
    EXPECT_FALSE(texte.isVisible());
}

TEST_F(InfobulleTest, ACellThatFitsNeverShowsATip)
{
    Montrer();
    Pointer(2, 2);
    Battre();
    EXPECT_FALSE(texte.isVisible());
    Pointer(1, 1);
    Battre();
    EXPECT_FALSE(texte.isVisible());
}

TEST_F(InfobulleTest, AWiderColumnNeedsNoTip)
{
    Montrer();
    table.ColumnHeaders(1).SetWidth(14400);
    QCoreApplication::processEvents();
    Pointer(2, 1);
    Battre();
    EXPECT_FALSE(texte.isVisible());
}

TEST_F(InfobulleTest, AnEmptyCellHasNoTip)
{
    Montrer();
    table.ListItems(2).SetText(QString());
    table.ColumnHeaders(1).SetWidth(10);
    QCoreApplication::processEvents();
    Pointer(2, 1);
    Battre();
    EXPECT_FALSE(texte.isVisible());
}

TEST_F(InfobulleTest, SignsOfAMarkUpLanguageAreShownAsTheyStand)
{
    Montrer();
    table.ListItems(2).SetText(u"<b>Gras</b> et beaucoup trop long pour sa colonne"_s);
    Pointer(2, 1);
    Battre();
    ASSERT_TRUE(texte.isVisible());
    EXPECT_EQ(texte.textFormat(), Qt::PlainText);
}

TEST_F(InfobulleTest, ATextWithoutEndIsShownAtItsBeginning)
{
    Montrer();
    table.ListItems(2).SetText(QString(1'000'000, u'x'));
    Pointer(2, 1);
    Battre();
    ASSERT_TRUE(texte.isVisible());
    EXPECT_LT(texte.text().size(), 10'000);
}

TEST_F(InfobulleTest, BelowTheEntriesThereIsNoTip)
{
    Montrer();
    Bouger(QPoint(10, vue.viewport()->height() - 5));
    Battre();
    EXPECT_FALSE(texte.isVisible());
}

TEST_F(InfobulleTest, TheNextMovementHidesTheTip)
{
    Montrer();
    Pointer(2, 1);
    Battre();
    ASSERT_TRUE(texte.isVisible());
    Bouger(Milieu(2, 1) + QPoint(2, 0));
    EXPECT_FALSE(texte.isVisible());
}

TEST_F(InfobulleTest, ATipOnShowIsLeftAlone)
{
    Montrer();
    Pointer(2, 1);
    Battre();
    ASSERT_TRUE(texte.isVisible());
    table.ListItems(2).SetText(Long + Long);
    Battre();
    EXPECT_EQ(texte.text(), Long);
}

TEST_F(InfobulleTest, WithoutTheSettingTheTimerDoesNotRun)
{
    Montrer();
    EXPECT_FALSE(bulle.ToolTipTimer().isActive());
    EcrireOption(u"showInfobulles"_s, 0);
    vue.clearFocus();
    vue.setFocus();
    EXPECT_FALSE(bulle.ToolTipTimer().isActive());
}

TEST_F(InfobulleTest, TheFocusStartsAndStopsTheTimer)
{
    Montrer();
    VoirLesInfobulles();
    EXPECT_TRUE(bulle.ToolTipTimer().isActive());
    EXPECT_EQ(bulle.ToolTipTimer().interval(), Battement);
    EcrireOption(u"showInfobulles"_s, 0);
    vue.clearFocus();
    EXPECT_TRUE(bulle.ToolTipTimer().isActive());
    vue.setFocus();
    EXPECT_FALSE(bulle.ToolTipTimer().isActive());
}
