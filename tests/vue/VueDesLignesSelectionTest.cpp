// Selecting entries with mouse and keyboard.
#include "VueDeTest.h"

#include "support/Impression.h"
#include "vue/SelectionDesLignes.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

class VueDesLignesSelection : public LignesDeTest
{
protected:
    /// Moves the pointer with the left button held.
    void Tirer(int ligne)
    {
        const QPoint point = Milieu(ligne);
        QMouseEvent mouvement(QEvent::MouseMove, point, vue.viewport()->mapToGlobal(point), Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(vue.viewport(), &mouvement);
    }
};

using Positions = std::vector<int>;

} // namespace

TEST_F(VueDesLignesSelection, AClickSelectsOneEntryAndGivesItTheFocus)
{
    Montrer(5);
    Cliquer(2);
    EXPECT_EQ(Choisies(), Positions({2}));
    EXPECT_EQ(Focus(), 2);
    Cliquer(4);
    EXPECT_EQ(Choisies(), Positions({4}));
    EXPECT_EQ(Focus(), 4);
}

TEST_F(VueDesLignesSelection, AClickInAnyColumnSelectsTheEntry)
{
    Montrer(5);
    QTest::mouseClick(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(3, 2));
    EXPECT_EQ(Choisies(), Positions({3}));
}

TEST_F(VueDesLignesSelection, CtrlAndAClickTurnOneEntryOnAndOff)
{
    Montrer(5);
    Cliquer(1);
    Cliquer(4, Qt::ControlModifier);
    EXPECT_EQ(Choisies(), Positions({1, 4}));
    Cliquer(1, Qt::ControlModifier);
    EXPECT_EQ(Choisies(), Positions({4}));
    EXPECT_EQ(Focus(), 1);
}

TEST_F(VueDesLignesSelection, ShiftAndAClickSelectFromTheAnchor)
{
    Montrer(8);
    Cliquer(3);
    Cliquer(6, Qt::ShiftModifier);
    EXPECT_EQ(Choisies(), Positions({3, 4, 5, 6}));
    Cliquer(1, Qt::ShiftModifier);
    EXPECT_EQ(Choisies(), Positions({1, 2, 3}));
}

TEST_F(VueDesLignesSelection, CtrlAndShiftAddARun)
{
    Montrer(8);
    Cliquer(1);
    Cliquer(4, Qt::ControlModifier);
    Cliquer(6, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Choisies(), Positions({1, 4, 5, 6}));
}

TEST_F(VueDesLignesSelection, AClickBelowTheEntriesSelectsNone)
{
    Montrer(3);
    Cliquer(2);
    QTest::mouseClick(vue.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(50, vue.viewport()->height() - 5));
    EXPECT_EQ(Choisies(), Positions());
    EXPECT_EQ(Focus(), 2);
}

TEST_F(VueDesLignesSelection, AClickBelowTheEntriesWithCtrlOrShiftChangesNothing)
{
    Montrer(3);
    Cliquer(2);
    const QPoint dessous(50, vue.viewport()->height() - 5);
    QTest::mouseClick(vue.viewport(), Qt::LeftButton, Qt::ControlModifier, dessous);
    QTest::mouseClick(vue.viewport(), Qt::LeftButton, Qt::ShiftModifier, dessous);
    EXPECT_EQ(Choisies(), Positions({2}));
}

TEST_F(VueDesLignesSelection, AClickOnOneOfSeveralLetsTheOthersGoOnlyAtRelease)
{
    Montrer(5);
    Cliquer(1);
    Cliquer(3, Qt::ShiftModifier);
    QTest::mousePress(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(2));
    EXPECT_EQ(Choisies(), Positions({1, 2, 3}));
    QTest::mouseRelease(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(2));
    EXPECT_EQ(Choisies(), Positions({2}));
}

TEST_F(VueDesLignesSelection, TheRightButtonKeepsASelectionItPointsInto)
{
    Montrer(5);
    Cliquer(1);
    Cliquer(3, Qt::ShiftModifier);
    Cliquer(2, Qt::NoModifier, Qt::RightButton);
    EXPECT_EQ(Choisies(), Positions({1, 2, 3}));
    Cliquer(5, Qt::NoModifier, Qt::RightButton);
    EXPECT_EQ(Choisies(), Positions({5}));
}

TEST_F(VueDesLignesSelection, DraggingSelectsTheEntriesPassed)
{
    Montrer(8);
    QTest::mousePress(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(2));
    for (const int ligne : {3, 4, 5, 6, 5})
        Tirer(ligne);
    QTest::mouseRelease(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(5));
    EXPECT_EQ(Choisies(), Positions({2, 3, 4, 5}));
}

TEST_F(VueDesLignesSelection, DraggingFromOneOfSeveralSelectsTheEntriesPassed)
{
    Montrer(8);
    Cliquer(2);
    Cliquer(4, Qt::ShiftModifier);
    QTest::mousePress(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(3));
    for (const int ligne : {4, 5})
        Tirer(ligne);
    QTest::mouseRelease(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(5));
    EXPECT_EQ(Choisies(), Positions({3, 4, 5}));
}

TEST_F(VueDesLignesSelection, DraggingBelowOrAboveTheViewScrollsForAsLongAsThePointerStays)
{
    Montrer(300);
    const QRect vu = vue.viewport()->rect();
    const auto tirerA = [this](const QPoint& point) {
        QMouseEvent mouvement(QEvent::MouseMove, point, vue.viewport()->mapToGlobal(point), Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(vue.viewport(), &mouvement);
    };
    QTest::mousePress(vue.viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(2));
    tirerA(QPoint(50, vu.bottom() + 30));
    const size_t avant = Choisies().size();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Choisies().size() > avant + 20; }));
    EXPECT_EQ(Choisies().front(), 2);
    EXPECT_EQ(Choisies().back(), Focus());
    EXPECT_TRUE(vu.intersects(vue.visualRect(vue.model()->index(Focus() - 1, 0))));

    tirerA(QPoint(50, -30));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Choisies() == Positions({1, 2}); }));
    tirerA(QPoint(50, vu.bottom() + 30));
    QTest::mouseRelease(vue.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(50, vu.bottom() + 30));
    const int place = vue.verticalScrollBar()->value();
    QTest::qWait(200);
    EXPECT_EQ(vue.verticalScrollBar()->value(), place) << "the release ends it";
}

TEST_F(VueDesLignesSelection, ShiftAndAClickSelectFromTheFocusWhenTheEntriesWereSorted)
{
    Montrer(8);
    Cliquer(2);
    table.SetSortOrder(1);
    table.SetSorted(true);
    QCoreApplication::processEvents();
    ASSERT_EQ(Focus(), 7);
    Cliquer(5, Qt::ShiftModifier);
    EXPECT_EQ(Choisies(), Positions({5, 6, 7}));
}

TEST_F(VueDesLignesSelection, TheMiddleButtonMovesNeitherSelectionNorFocus)
{
    Montrer(5);
    Cliquer(2);
    Cliquer(4, Qt::NoModifier, Qt::MiddleButton);
    EXPECT_EQ(Choisies(), Positions({2}));
    EXPECT_EQ(Focus(), 2);
}

TEST_F(VueDesLignesSelection, ArrowKeysMoveTheSelection)
{
    Montrer(5);
    Cliquer(2);
    Taper(Qt::Key_Down);
    EXPECT_EQ(Choisies(), Positions({3}));
    Taper(Qt::Key_Up);
    Taper(Qt::Key_Up);
    EXPECT_EQ(Choisies(), Positions({1}));
    Taper(Qt::Key_Up);
    EXPECT_EQ(Choisies(), Positions({1}));
    Taper(Qt::Key_End);
    EXPECT_EQ(Choisies(), Positions({5}));
    Taper(Qt::Key_Down);
    EXPECT_EQ(Choisies(), Positions({5}));
    Taper(Qt::Key_Home);
    EXPECT_EQ(Choisies(), Positions({1}));
    EXPECT_EQ(Focus(), 1);
}

TEST_F(VueDesLignesSelection, TheFirstArrowKeySelectsTheEntryWithTheFocus)
{
    Montrer(5);
    ASSERT_EQ(Focus(), 1);
    Taper(Qt::Key_Down);
    EXPECT_EQ(Choisies(), Positions({1}));
    Taper(Qt::Key_Down);
    EXPECT_EQ(Choisies(), Positions({2}));
}

TEST_F(VueDesLignesSelection, ShiftAndArrowKeysExtendAndTakeBack)
{
    Montrer(8);
    Cliquer(4);
    Taper(Qt::Key_Down, Qt::ShiftModifier);
    Taper(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Choisies(), Positions({4, 5, 6}));
    Taper(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Choisies(), Positions({4, 5}));
    Taper(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(Choisies(), Positions({1, 2, 3, 4}));
    Taper(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(Choisies(), Positions({4, 5, 6, 7, 8}));
}

TEST_F(VueDesLignesSelection, CtrlMovesTheFocusAloneAndTheBlankTurnsAnEntryOn)
{
    Montrer(5);
    Cliquer(1);
    Taper(Qt::Key_Down, Qt::ControlModifier);
    Taper(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Choisies(), Positions({1}));
    EXPECT_EQ(Focus(), 3);
    Taper(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Choisies(), Positions({1, 3}));
    Taper(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Choisies(), Positions({1}));
    Taper(Qt::Key_Space);
    EXPECT_EQ(Choisies(), Positions({3}));
}

TEST_F(VueDesLignesSelection, PageKeysMoveByAScreenfulAndShowWhereTheyLead)
{
    Montrer(200);
    Cliquer(1);
    Taper(Qt::Key_PageDown);
    const int apres = Focus();
    EXPECT_GT(apres, 10);
    EXPECT_LT(apres, 30);
    EXPECT_TRUE(vue.viewport()->rect().contains(Milieu(apres)));
    Taper(Qt::Key_PageUp);
    EXPECT_EQ(Choisies(), Positions({1}));
    EXPECT_EQ(vue.verticalScrollBar()->value(), 0);
}

TEST_F(VueDesLignesSelection, CtrlASelectsEveryEntry)
{
    Montrer(40);
    Taper(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(table.NombreDeSelectionnees(), 40);
}

TEST_F(VueDesLignesSelection, TypingLettersJumpsToAnEntry)
{
    Montrer(200);
    table.ListItems(150).SetText(u"Zénith"_s);
    for (const QString& lettre : {u"z"_s, u"é"_s, u"n"_s})
        QTest::sendKeyEvent(QTest::Click, &vue, Qt::Key_unknown, lettre, Qt::NoModifier);
    EXPECT_EQ(Choisies(), Positions({150}));
    EXPECT_EQ(Focus(), 150);
    EXPECT_TRUE(vue.viewport()->rect().contains(Milieu(150)));
}

TEST_F(VueDesLignesSelection, ABlankInATypedTextBelongsToIt)
{
    Montrer(200);
    Cliquer(1);
    QTest::keyClicks(&vue, u"titre 123"_s);
    EXPECT_EQ(Choisies(), Positions({123}));
}

TEST_F(VueDesLignesSelection, SelectedOfTheEntriesIsTheTruth)
{
    Montrer(5);
    table.ListItems(2).SetSelected(true);
    table.ListItems(3).SetSelected(true);
    QCoreApplication::processEvents();
    const auto choisie = [this](int ligne) { return vue.selectionModel()->isRowSelected(ligne - 1, QModelIndex()); };
    EXPECT_FALSE(choisie(1));
    EXPECT_TRUE(choisie(2));
    EXPECT_TRUE(choisie(3));
    EXPECT_FALSE(choisie(4));
    table.ListItems(2).SetSelected(false);
    QCoreApplication::processEvents();
    EXPECT_FALSE(choisie(2));
}

TEST_F(VueDesLignesSelection, ASelectionInPiecesIsNotCopiedWhole)
{
    Montrer(2000);
    for (int i = 1; i <= 2000; i += 2)
        table.ListItems(i).SetSelected(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(vue.selectionModel()->selection().size(), SelectionDesLignes::PlagesAuPlus);
    EXPECT_EQ(table.NombreDeSelectionnees(), 1000);
}

TEST_F(VueDesLignesSelection, AnAssistiveTechnologySelectsEntriesOfTheTable)
{
    Montrer(5);
    QAccessibleInterface* acces = QAccessible::queryAccessibleInterface(&vue);
    ASSERT_TRUE(acces && acces->tableInterface());
    EXPECT_EQ(acces->tableInterface()->rowCount(), 5);
    EXPECT_TRUE(acces->tableInterface()->selectRow(2));
    EXPECT_EQ(Choisies(), Positions({3}));
    QCoreApplication::processEvents();
    EXPECT_TRUE(acces->tableInterface()->cellAt(2, 0)->state().selected);
    EXPECT_FALSE(acces->tableInterface()->cellAt(1, 0)->state().selected);
}

TEST_F(VueDesLignesSelection, TheFocusGoesWhereTheProgramPutsIt)
{
    Montrer(5);
    Cliquer(1);
    table.SetSelectedItem(table.ListItems(4));
    QCoreApplication::processEvents();
    EXPECT_EQ(vue.currentIndex().row(), 3);
    EXPECT_EQ(Choisies(), Positions({1}));
}

TEST_F(VueDesLignesSelection, TheFocusStaysOnItsEntryWhenOthersGo)
{
    Montrer(6);
    Cliquer(5);
    table.ListItems.Retirer({1, 2});
    QCoreApplication::processEvents();
    EXPECT_EQ(table.SelectedItem().Text(), "Titre 005");
    EXPECT_EQ(vue.currentIndex().row(), 2);
    EXPECT_EQ(Choisies(), Positions({3}));
}

TEST_F(VueDesLignesSelection, SortingKeepsSelectionAndFocusOnTheirEntries)
{
    Montrer(6);
    Cliquer(2);
    table.SetSortOrder(1);
    table.SetSorted(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(Choisies(), Positions({5}));
    EXPECT_EQ(Focus(), 5);
    EXPECT_EQ(vue.currentIndex().row(), 4);
}

TEST_F(VueDesLignesSelection, AnEmptyTableTakesEveryKey)
{
    Montrer(0);
    for (const Qt::Key touche : {Qt::Key_Down, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Space, Qt::Key_X})
        Taper(touche);
    Taper(Qt::Key_A, Qt::ControlModifier);
    QTest::mouseClick(vue.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    EXPECT_EQ(Focus(), 0);
}

TEST_F(VueDesLignesSelection, EntriesAddedAMomentAgoCanBeReached)
{
    Montrer(3);
    AjouterEntrees(table, {{u"Dernier"_s, u"Artiste"_s}});
    Taper(Qt::Key_End);
    EXPECT_EQ(Choisies(), Positions({4}));
}

TEST_F(VueDesLignesSelection, AClickOnTheFirstEntryGivesItTheFocusForGood)
{
    Montrer(3);
    Cliquer(1);
    AjouterEntrees(table, {{u"Derniere"_s, u"Artiste"_s}});
    table.SetSortOrder(1);
    table.SetSorted(true);
    EXPECT_EQ(table.SelectedItem().Text(), "Titre 001");
}
