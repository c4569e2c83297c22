// Order and widths of the columns in the list of what is to be deleted.
#include "entries/DialogueDeSuppression.h"

using namespace Qt::StringLiterals;

namespace {

TEST_F(FrmSupprTest, AClickOnATitleSortsTheRowsOfTheDialogOnly)
{
    Entrees({"b", "a", "c"}, {"1", "3", "2"});
    Lancer([](QWidget& form) {
        CliquerSurTitre(form, 1);
        EXPECT_EQ(Colonne(form, 1), QStringList({"a", "b", "c"}));
        CliquerSurTitre(form, 1);
        EXPECT_EQ(Colonne(form, 1), QStringList({"c", "b", "a"}));
        CliquerSurTitre(form, 2);
        EXPECT_EQ(Colonne(form, 1), QStringList({"b", "c", "a"}));
    });
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"b", "a", "c"}));
    EXPECT_FALSE(table.Sorted());
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(FrmSupprTest, TheTitleSortedByHasAMarker)
{
    Entrees({"b", "a"});
    Lancer([](QWidget& form) {
        const auto marque = [&](int colonne) {
            return Liste(form).model()->headerData(colonne - 1, Qt::Horizontal, Qt::DecorationRole).isValid();
        };
        const auto ordre = [&](int colonne) {
            return Liste(form).model()->headerData(colonne - 1, Qt::Horizontal, Qt::AccessibleDescriptionRole);
        };
        EXPECT_FALSE(marque(1));
        CliquerSurTitre(form, 2);
        EXPECT_FALSE(marque(1));
        EXPECT_TRUE(marque(2));
        EXPECT_EQ(ordre(1).toString(), "");
        EXPECT_EQ(ordre(2).toString(), "tri croissant");
        CliquerSurTitre(form, 2);
        EXPECT_EQ(ordre(2).toString(), u"tri décroissant"_s);
    });
}

TEST_F(FrmSupprTest, HighlightAndFocusGoWithTheirRowsWhenSorted)
{
    Entrees({"d", "a", "c", "b"});
    Lancer([](QWidget& form) {
        CliquerSurLigne(form, 1);
        CliquerSurLigne(form, 4, Qt::ControlModifier);
        CliquerSurTitre(form, 1);
        const std::vector<std::pair<int, int>> attendues{{2, 2}, {4, 4}};
        EXPECT_EQ(Liste(form).PlagesChoisies(), attendues);
        EXPECT_EQ(Liste(form).currentIndex().row(), 1);
    });
}

TEST_F(FrmSupprTest, CtrlDScalesTheColumnsOfTheDialogToItsWidth)
{
    Entrees({"a", "b"});
    Lancer([](QWidget& form) {
        VueDesLignes& liste = Liste(form);
        QTest::keyClick(&liste, Qt::Key_D, Qt::ControlModifier);
        const int somme = liste.columnWidth(0) + liste.columnWidth(1) + liste.columnWidth(2);
        const int place = liste.width() - qRound(340.0 * liste.logicalDpiX() / 1440);
        EXPECT_NEAR(somme, place, 3);
        EXPECT_NEAR(liste.columnWidth(0), 2 * liste.columnWidth(1), 2) << "the proportions stay";
    });
    EXPECT_EQ(table.ColumnHeaders(1).Width(), 3000) << "the document keeps its widths";
}

TEST_F(FrmSupprTest, CtrlRFitsTheColumnsToTheirContents)
{
    Entrees({QString(60, u'm'), "b"});
    Lancer([](QWidget& form) {
        VueDesLignes& liste = Liste(form);
        const QFontMetrics mesures = liste.fontMetrics();
        QTest::keyClick(&liste, Qt::Key_R, Qt::ControlModifier);
        EXPECT_GT(liste.columnWidth(0), mesures.horizontalAdvance(QString(60, u'm')));
        EXPECT_LT(liste.columnWidth(0), mesures.horizontalAdvance(QString(66, u'm')));
        const int titre = mesures.horizontalAdvance(u"Coffret"_s) + qRound(550.0 * liste.logicalDpiX() / 1440);
        EXPECT_NEAR(liste.columnWidth(1), titre, 2);
    });
    EXPECT_EQ(table.ColumnHeaders(1).Width(), 3000);
}

TEST_F(FrmSupprTest, WithoutCtrlOrWithMoreThanThatTheKeysChangeNoWidth)
{
    Entrees({QString(60, u'm'), "b"});
    Lancer([](QWidget& form) {
        VueDesLignes& liste = Liste(form);
        const int avant = liste.columnWidth(0);
        for (const Qt::Key touche : {Qt::Key_R, Qt::Key_D}) {
            for (const Qt::KeyboardModifiers avec :
                 {Qt::KeyboardModifiers(Qt::NoModifier), Qt::ControlModifier | Qt::ShiftModifier,
                  Qt::ControlModifier | Qt::AltModifier}) {
                QTest::keyClick(&liste, touche, avec);
                EXPECT_EQ(liste.columnWidth(0), avant) << int(touche) << ' ' << int(avec);
            }
            QTest::keyClick(&liste, touche, Qt::ControlModifier);
            EXPECT_NE(liste.columnWidth(0), avant) << int(touche);
            liste.horizontalHeader()->resizeSection(0, avant);
        }
    });
}

TEST_F(FrmSupprTest, AnEmptyListIsNotScaled)
{
    Lancer([](QWidget& form) {
        const int avant = Liste(form).columnWidth(0);
        QTest::keyClick(&Liste(form), Qt::Key_D, Qt::ControlModifier);
        EXPECT_EQ(Liste(form).columnWidth(0), avant);
    });
}

TEST_F(FrmSupprTest, AColumnThatTheUserDragsIsScaledFromThere)
{
    Entrees({"a", "b"});
    Lancer([](QWidget& form) {
        VueDesLignes& liste = Liste(form);
        liste.horizontalHeader()->resizeSection(0, 50);
        liste.horizontalHeader()->resizeSection(1, 50);
        QTest::keyClick(&liste, Qt::Key_D, Qt::ControlModifier);
        EXPECT_NEAR(liste.columnWidth(0), liste.columnWidth(1), 2);
    });
}

} // namespace
