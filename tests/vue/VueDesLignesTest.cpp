// What the list view shows.
#include "VueDeTest.h"

#include "kit/Icones.h"
#include "support/Impression.h"

#include <QAccessible>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyledItemDelegate>

#include <set>

using namespace Qt::StringLiterals;

namespace {

class VueDesLignesTest : public LignesDeTest
{
protected:
    QImage Image() { return vue.viewport()->grab().toImage(); }
    int Largeur(int colonne) const { return vue.columnWidth(colonne - 1); }
};

} // namespace

TEST_F(VueDesLignesTest, WidthsAreInUnitsOfTheScreen)
{
    Montrer(3);
    table.ColumnHeaders(1).SetWidth(2880);
    table.ColumnHeaders(2).SetWidth(720);
    QCoreApplication::processEvents();
    EXPECT_EQ(Largeur(1), 2 * vue.logicalDpiX());
    EXPECT_EQ(Largeur(2), vue.logicalDpiX() / 2);
}

TEST_F(VueDesLignesTest, ShowingAWidthDoesNotRoundIt)
{
    Montrer(3);
    table.ColumnHeaders(1).SetWidth(1000.25F);
    QCoreApplication::processEvents();
    table.ColumnHeaders.Add(0, u"Prêté"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(table.ColumnHeaders(1).Width(), 1000.25F);
}

TEST_F(VueDesLignesTest, DraggingATitlesEdgeWritesTheWidth)
{
    Montrer(3);
    QWidget* titres = vue.horizontalHeader()->viewport();
    const QPoint bord(Largeur(1) - 1, titres->height() / 2);
    QTest::mousePress(titres, Qt::LeftButton, Qt::NoModifier, bord);
    QTest::mouseMove(titres, bord + QPoint(20, 0));
    QTest::mouseMove(titres, bord + QPoint(48, 0));
    QTest::mouseRelease(titres, Qt::LeftButton, Qt::NoModifier, bord + QPoint(48, 0));
    EXPECT_FLOAT_EQ(table.ColumnHeaders(1).Width(), static_cast<float>(1440 + vue.UnitesDe(48)));
    EXPECT_EQ(table.ColumnHeaders(2).Width(), 1440);
    QCoreApplication::processEvents();
    EXPECT_EQ(Largeur(1), vue.logicalDpiX() + 48);
}

TEST_F(VueDesLignesTest, ATitleThatIsTooLongEndsInAnEllipsis)
{
    Montrer(1);
    table.ColumnHeaders(1).SetText(u"|"_s.repeated(200));
    QCoreApplication::processEvents();
    const QImage titre = vue.horizontalHeader()->viewport()->grab().toImage();
    // The points of the ellipsis stand at the foot of the line: above them the column's end is empty.
    QSet<QRgb> couleurs;
    for (int x = Largeur(1) - 10; x < Largeur(1) - 3; ++x)
        couleurs.insert(titre.pixel(x, titre.height() / 2));
    EXPECT_EQ(couleurs.size(), 1);
    couleurs.clear();
    for (int x = 10; x < 40; ++x)
        couleurs.insert(titre.pixel(x, titre.height() / 2));
    EXPECT_GT(couleurs.size(), 1) << "the title is drawn";
}

TEST_F(VueDesLignesTest, AWidthWithoutMeasureIsShownWithinBounds)
{
    Montrer(1);
    table.ColumnHeaders(1).SetWidth(3e38F);
    table.ColumnHeaders(2).SetWidth(0);
    QCoreApplication::processEvents();
    EXPECT_GT(Largeur(1), 1000);
    EXPECT_EQ(Largeur(2), 0);
    EXPECT_EQ(table.ColumnHeaders(1).Width(), 3e38F);
}

TEST_F(VueDesLignesTest, ColumnsCannotBeDraggedToAnotherPlace)
{
    Montrer(1);
    EXPECT_FALSE(vue.horizontalHeader()->sectionsMovable());
}

TEST_F(VueDesLignesTest, AddedColumnsHaveTheirWidth)
{
    Montrer(2);
    table.ColumnHeaders.Add(0, u"Prêté"_s).SetWidth(600);
    QCoreApplication::processEvents();
    EXPECT_EQ(Largeur(3), vue.PixelsDe(600));
    EXPECT_EQ(Largeur(1), vue.PixelsDe(1440));
}

TEST_F(VueDesLignesTest, GridLinesAreDrawnWhenTheTableHasThem)
{
    Montrer(3);
    const QPoint entreDeuxLignes(Largeur(1) / 2, 3 * vue.rowHeight(0) - 1);
    const QRgb fond = vue.palette().color(QPalette::Base).rgb();
    EXPECT_EQ(Image().pixel(entreDeuxLignes), fond);
    table.SetGridLines(true);
    QCoreApplication::processEvents();
    EXPECT_NE(Image().pixel(entreDeuxLignes), fond);
    EXPECT_NE(Image().pixel(Largeur(1) - 1, Milieu(3).y()), fond);
}

TEST_F(VueDesLignesTest, CellsOfColumnsWithoutWidthAreNotDrawn)
{
    struct DelegueNote : QStyledItemDelegate
    {
        void paint(QPainter*, const QStyleOptionViewItem&, const QModelIndex& index) const override
        {
            dessinees.insert(index.column() + 1);
        }
        mutable std::set<int> dessinees;
    } delegue;
    MettreColonnes(table, {u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s});
    for (const int colonne : {1, 3, 5})
        table.ColumnHeaders(colonne).SetWidth(0);
    AjouterEntrees(table, {{u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s}});
    vue.Afficher(table);
    vue.setItemDelegate(&delegue);
    vue.resize(600, 400);
    vue.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&vue));
    vue.viewport()->repaint();
    EXPECT_EQ(delegue.dessinees, (std::set<int>{2, 4}));
}

TEST_F(VueDesLignesTest, TheSortMarkerIsDrawnInItsTitle)
{
    Montrer(1);
    const auto titre = [this](int colonne) {
        const QHeaderView* titres = vue.horizontalHeader();
        return const_cast<QHeaderView*>(titres)->grab().toImage().copy(
            titres->sectionViewportPosition(colonne - 1), 0, titres->sectionSize(colonne - 1), titres->height());
    };
    const QImage premier = titre(1);
    const QImage second = titre(2);
    table.ColumnHeaders(2).SetIcon(u"up"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(titre(1), premier);
    const QImage montant = titre(2);
    EXPECT_NE(montant, second);
    table.ColumnHeaders(2).SetIcon(u"down"_s);
    QCoreApplication::processEvents();
    EXPECT_NE(titre(2), montant);
}

TEST_F(VueDesLignesTest, TheThreeRowMarkersLookDifferent)
{
    Montrer(3);
    table.ListItems(1).SetSmallIcon(u"noico"_s);
    table.ListItems(2).SetSmallIcon(u"ico"_s);
    table.ListItems(3).SetSmallIcon(u"icoerror"_s);
    vue.clearFocus();
    QCoreApplication::processEvents();
    const QImage image = Image();
    const auto marque = [&](int ligne) {
        return image.copy(0, vue.rowViewportPosition(ligne - 1), 20, vue.rowHeight(0));
    };
    EXPECT_NE(marque(1), marque(2));
    EXPECT_NE(marque(2), marque(3));
    EXPECT_NE(marque(1), marque(3));
}

TEST_F(VueDesLignesTest, TheMarkersOfSelectedEntriesHaveTheColourOfTheirTexts)
{
    const QString marques[] = {u"noico"_s, u"ico"_s, u"icoerror"_s};
    Montrer(3);
    for (int ligne = 1; ligne <= 3; ++ligne)
        table.ListItems(ligne).SetSmallIcon(marques[ligne - 1]);
    table.Selectionner(1, 3, true);
    vue.clearFocus();
    QCoreApplication::processEvents();
    const QImage image = Image();
    for (int ligne = 1; ligne <= 3; ++ligne) {
        QImage attendu(16, 16, image.format());
        attendu.fill(vue.palette().color(QPalette::Highlight));
        QPainter painter(&attendu);
        Icone(marques[ligne - 1]).paint(&painter, attendu.rect(), Qt::AlignCenter, QIcon::Selected);
        painter.end();
        const QPoint coin(3, vue.rowViewportPosition(ligne - 1) + (vue.rowHeight(0) - 16) / 2);
        EXPECT_EQ(image.copy(QRect(coin, attendu.size())), attendu) << ligne;
        EXPECT_NE(Icone(marques[ligne - 1]).pixmap(16).toImage(),
                  Icone(marques[ligne - 1]).pixmap(16, QIcon::Selected).toImage())
            << ligne;
    }
}

TEST_F(VueDesLignesTest, AnEntryWithoutAnImageIsMarkedByNoMoreThanAPoint)
{
    Montrer(1);
    table.ListItems(1).SetSmallIcon(u"noico"_s);
    vue.clearFocus();
    QCoreApplication::processEvents();
    const QImage marque = Image().copy(3, (vue.rowHeight(0) - 16) / 2, 16, 16);
    int dessines = 0;
    for (int i = 0; i < 16 * 16; ++i)
        dessines += marque.pixel(i % 16, i / 16) != vue.palette().color(QPalette::Base).rgb();
    EXPECT_LE(dessines, 16) << "a frame would look like a box to tick";
}

TEST_F(VueDesLignesTest, ASelectedEntryIsDrawnSelectedAcrossItsColumns)
{
    Montrer(3);
    table.ListItems(2).SetSelected(true);
    QCoreApplication::processEvents();
    const QImage image = Image();
    const int y = Milieu(2).y();
    const QRgb fond = vue.palette().color(QPalette::Base).rgb();
    EXPECT_NE(image.pixel(Largeur(1) - 3, y), fond);
    EXPECT_NE(image.pixel(Largeur(1) + Largeur(2) - 3, y), fond);
    EXPECT_EQ(image.pixel(Largeur(1) - 3, Milieu(3).y()), fond);
}

TEST_F(VueDesLignesTest, TheFocusIsALineAroundTheEntryAndNoSelection)
{
    Montrer(5);
    Cliquer(2);
    QCoreApplication::processEvents();
    const QRect rangee(0, vue.rowViewportPosition(3), Largeur(1) + Largeur(2), vue.rowHeight(3));
    const QRect dedans = rangee.adjusted(1, 1, -1, -1);
    const QImage avant = Image();
    const QRgb surChoisie = vue.palette().color(QPalette::HighlightedText).rgb();
    for (const int x : {rangee.left(), rangee.center().x(), rangee.right()})
        EXPECT_EQ(avant.pixel(x, vue.rowViewportPosition(1)), surChoisie) << "the selected one has the focus, at " << x;

    Taper(Qt::Key_Down, Qt::ControlModifier);
    Taper(Qt::Key_Down, Qt::ControlModifier);
    QCoreApplication::processEvents();
    ASSERT_EQ(Focus(), 4);
    ASSERT_EQ(Choisies(), std::vector<int>({2}));
    const QImage apres = Image();
    EXPECT_EQ(apres.copy(dedans), avant.copy(dedans)) << "nothing is laid over it";
    const QRgb trait = vue.palette().color(QPalette::Highlight).rgb();
    for (const QPoint& point : {rangee.topLeft(), rangee.topRight(), QPoint(rangee.center().x(), rangee.bottom()),
                                QPoint(rangee.left(), rangee.center().y())})
        EXPECT_EQ(apres.pixel(point), trait) << point.x() << ' ' << point.y();
    EXPECT_NE(apres.pixel(rangee.center().x(), vue.rowViewportPosition(1)), surChoisie) << "and the line went along";
}

TEST_F(VueDesLignesTest, TheCellUnderAPointIsFound)
{
    Montrer(3);
    EXPECT_EQ(vue.LigneSous(Milieu(2, 2)), 2);
    EXPECT_EQ(vue.ColonneSous(Milieu(2, 2)), 2);
    const QPoint dehors(vue.viewport()->width() - 2, vue.viewport()->height() - 2);
    EXPECT_EQ(vue.LigneSous(dehors), 0);
    EXPECT_EQ(vue.ColonneSous(dehors), 0);
}

TEST_F(VueDesLignesTest, AnEntryIsScrolledToWithoutMovingSideways)
{
    Montrer(300);
    table.ColumnHeaders(2).SetWidth(20000);
    QCoreApplication::processEvents();
    vue.horizontalScrollBar()->setValue(77);
    vue.RendreVisible(250);
    EXPECT_TRUE(vue.viewport()->rect().contains(QPoint(5, Milieu(250).y())));
    EXPECT_EQ(vue.horizontalScrollBar()->value(), 77);
    vue.RendreVisible(0);
    vue.RendreVisible(301);
    EXPECT_TRUE(vue.viewport()->rect().contains(QPoint(5, Milieu(250).y())));
}

TEST_F(VueDesLignesTest, AnEntryAddedAMomentAgoCanBeScrolledTo)
{
    Montrer(100);
    AjouterEntrees(table, {{u"Nouvelle"_s, u"Artiste"_s}});
    vue.RendreVisible(101);
    EXPECT_TRUE(vue.viewport()->rect().contains(Milieu(101)));
}

TEST_F(VueDesLignesTest, ALargerFontMakesHigherRows)
{
    Montrer(3);
    const int avant = vue.rowHeight(0);
    QFont grande = vue.font();
    grande.setPointSize(24);
    vue.setFont(grande);
    EXPECT_GT(vue.rowHeight(0), avant);
    EXPECT_GE(vue.rowHeight(0), QFontMetrics(grande).height());
}

TEST_F(VueDesLignesTest, DoubleClickOnAnEdgeFitsTheColumn)
{
    Montrer(3);
    table.ListItems(2).SetText(u"Un titre qui demande bien plus de place que la colonne n'en a pour le moment"_s);
    QCoreApplication::processEvents();
    const QPoint bord(Largeur(1) - 1, 8);
    QTest::mouseDClick(vue.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, bord);
    EXPECT_GE(Largeur(1), vue.fontMetrics().horizontalAdvance(table.ListItems(2).Text()));
    EXPECT_FLOAT_EQ(table.ColumnHeaders(1).Width(), static_cast<float>(vue.UnitesDe(Largeur(1))));
}

TEST_F(VueDesLignesTest, ScreenReadersReadTheCells)
{
    Montrer(3);
    vue.setAccessibleName(u"Entrées"_s);
    QAccessibleInterface* acces = QAccessible::queryAccessibleInterface(&vue);
    ASSERT_TRUE(acces && acces->tableInterface());
    EXPECT_EQ(acces->text(QAccessible::Name), u"Entrées"_s);
    EXPECT_EQ(acces->tableInterface()->columnCount(), 2);
    EXPECT_EQ(acces->tableInterface()->columnDescription(1), "Artiste");
    EXPECT_EQ(acces->tableInterface()->cellAt(2, 0)->text(QAccessible::Name), "Titre 003");

    const auto description = [&](int ligne, int colonne) {
        return acces->tableInterface()->cellAt(ligne - 1, colonne - 1)->text(QAccessible::Description);
    };
    table.ListItems(2).SetSmallIcon(u"ico"_s);
    table.ListItems(3).SetSmallIcon(u"icoerror"_s);
    EXPECT_EQ(description(1, 1), "sans image");
    EXPECT_EQ(description(2, 1), "avec image");
    EXPECT_EQ(description(3, 1), "image introuvable");
    EXPECT_EQ(description(2, 2), "") << "once an entry";
}

TEST_F(VueDesLignesTest, TabLeavesTheTable)
{
    Montrer(3);
    EXPECT_FALSE(vue.tabKeyNavigation());
}
