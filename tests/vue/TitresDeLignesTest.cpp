// The titles of a list, by keyboard and for assistive technologies.
#include "VueDeTest.h"

#include "catalogue/texte/TriDeTable.h"
#include "support/Impression.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

class TitresDeLignesTest : public LignesDeTest
{
protected:
    /// Three columns, the second one without a width, and the list has the keys.
    void MontrerTrois()
    {
        Montrer(3);
        table.ColumnHeaders.Add(0, u"Genre"_s).SetWidth(1440);
        table.ColumnHeaders(2).SetWidth(0);
        QCoreApplication::processEvents();
        Ecouter(vue, cliquees);
    }
    static void Ecouter(const VueDesLignes& liste, QList<int>& colonnes)
    {
        QObject::connect(&liste, &VueDesLignes::EnteteCliquee, &liste,
                         [&colonnes](int colonne) { colonnes.append(colonne); });
    }
    /// To the widget with the keys.
    static void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier)
    {
        QTest::keyClick(qApp->focusWidget(), touche, avec);
    }
    QImage Titre(int colonne) const
    {
        QWidget& titres = *vue.horizontalHeader()->viewport();
        return titres.grab().toImage().copy(vue.columnViewportPosition(colonne - 1), 0, vue.columnWidth(colonne - 1),
                                            titres.height());
    }
    QAccessibleInterface& CelluleDuTitre(int colonne)
    {
        return *QAccessible::queryAccessibleInterface(&vue)->child(colonne);
    }

    QList<int> cliquees;
};

} // namespace

TEST_F(TitresDeLignesTest, ShiftTabLeadsToThemAndEnterOrTheBlankChoosesOne)
{
    MontrerTrois();
    Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(qApp->focusWidget(), vue.horizontalHeader());
    Touche(Qt::Key_Return);
    EXPECT_EQ(cliquees, QList<int>({1}));
    Touche(Qt::Key_Right);
    Touche(Qt::Key_Space);
    EXPECT_EQ(cliquees, QList<int>({1, 3})) << "a column without a width is passed over";
    Touche(Qt::Key_Right);
    Touche(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(cliquees, QList<int>({1, 3, 3})) << "it is the last one";
    Touche(Qt::Key_Left);
    Touche(Qt::Key_Left);
    Touche(Qt::Key_Space);
    Touche(Qt::Key_End);
    Touche(Qt::Key_Space);
    Touche(Qt::Key_Home);
    Touche(Qt::Key_Space);
    EXPECT_EQ(cliquees, QList<int>({1, 3, 3, 1, 3, 1}));
    EXPECT_EQ(table.NombreDeSelectionnees(), 0);
}

TEST_F(TitresDeLignesTest, AKeyThatIsHeldDownChoosesOnce)
{
    MontrerTrois();
    Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    for (const bool repetee : {false, true, true}) {
        QKeyEvent appui(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), repetee);
        QCoreApplication::sendEvent(qApp->focusWidget(), &appui);
    }
    EXPECT_EQ(cliquees, QList<int>({1}));
}

TEST_F(TitresDeLignesTest, TabDownAndEscapeGoBackToTheList)
{
    MontrerTrois();
    for (const Qt::Key touche : {Qt::Key_Tab, Qt::Key_Down, Qt::Key_Escape}) {
        Touche(Qt::Key_Backtab, Qt::ShiftModifier);
        ASSERT_EQ(qApp->focusWidget(), vue.horizontalHeader());
        Touche(touche);
        EXPECT_EQ(qApp->focusWidget(), &vue) << touche;
    }
}

TEST_F(TitresDeLignesTest, OtherKeysAreNotTakenForTheRows)
{
    MontrerTrois();
    Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    Touche(Qt::Key_A, Qt::ControlModifier);
    Touche(Qt::Key_PageDown);
    QTest::keyClicks(qApp->focusWidget(), "t");
    EXPECT_EQ(table.NombreDeSelectionnees(), 0);
}

TEST_F(TitresDeLignesTest, ShiftTabGoesOnToWhatComesBeforeTheList)
{
    QWidget fenetre;
    auto* disposition = new QVBoxLayout(&fenetre);
    auto* champ = new QLineEdit;
    auto* liste = new VueDesLignes;
    disposition->addWidget(champ);
    disposition->addWidget(liste);
    MettreColonnes(table, {u"Titre"_s});
    AjouterEntrees(table, {{u"a"_s}});
    liste->Afficher(table);
    fenetre.show();
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    champ->setFocus();
    Touche(Qt::Key_Tab);
    EXPECT_EQ(qApp->focusWidget(), liste);
    Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(qApp->focusWidget(), liste->horizontalHeader());
    Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(qApp->focusWidget(), champ);
    delete liste;
}

TEST_F(TitresDeLignesTest, TitlesThatDoNothingAreNoStop)
{
    MontrerTrois();
    vue.horizontalHeader()->setSectionsClickable(false);
    Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_NE(qApp->focusWidget(), vue.horizontalHeader());
    vue.horizontalHeader()->setSectionsClickable(true);
    for (int i = 1; i <= 3; ++i)
        table.ColumnHeaders(i).SetWidth(0);
    QCoreApplication::processEvents();
    vue.setFocus();
    Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_NE(qApp->focusWidget(), vue.horizontalHeader());
}

TEST_F(TitresDeLignesTest, TheTitleWithTheKeysIsSeen)
{
    MontrerTrois();
    table.ColumnHeaders(1).SetWidth(14400);
    QCoreApplication::processEvents();
    vue.horizontalScrollBar()->setValue(0);
    Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    const QImage premier = Titre(1);
    Touche(Qt::Key_Right);
    const QRect troisieme(vue.columnViewportPosition(2), 0, vue.columnWidth(2), 1);
    EXPECT_TRUE(vue.viewport()->rect().contains(troisieme)) << troisieme.left();
    const QImage avec = Titre(3);
    EXPECT_EQ(avec.pixel(0, avec.height() / 2), vue.palette().color(QPalette::Highlight).rgb());
    Touche(Qt::Key_Escape);
    EXPECT_NE(Titre(3), avec);
}

TEST_F(TitresDeLignesTest, AssistiveTechnologiesAreToldTheColumnSortedByAndItsOrder)
{
    MontrerTrois();
    QObject::connect(&vue, &VueDesLignes::EnteteCliquee, &vue, [this](int colonne) {
        QrtClass doc;
        doc.MyLV = &table;
        TrierParColonne(doc, colonne);
    });
    const auto ordre = [this](int colonne) { return CelluleDuTitre(colonne).text(QAccessible::Description); };
    EXPECT_EQ(CelluleDuTitre(3).role(), QAccessible::ColumnHeader);
    EXPECT_EQ(CelluleDuTitre(3).text(QAccessible::Name), "Genre");
    EXPECT_EQ(ordre(3), "");
    Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    Touche(Qt::Key_Right);
    Touche(Qt::Key_Return);
    EXPECT_EQ(ordre(3), u"tri croissant"_s);
    Touche(Qt::Key_Return);
    EXPECT_EQ(ordre(3), u"tri décroissant"_s);
    EXPECT_EQ(ordre(1), "") << "the one sorted by alone";
}
