// The two lists of the editor: the rows, and the pre-recorded texts of the field.
#include "EditeurDeTest.h"

#include <QAbstractItemView>

using namespace Qt::StringLiterals;

namespace {

class ListesDeLEditeur : public EditeurDeTest
{
protected:
    void SetUp() override
    {
        EditeurDeTest::SetUp();
        doc.table.ColumnHeaders(2).SetTag(u"a|b"_s);
    }
    /// The width of Combo1 in units of 1/1440 inch, as exactly as pixels tell it.
    bool LargeurEst(int unites)
    {
        return Combo1().width() == qRound(static_cast<double>(unites) * form.logicalDpiX() / 1440);
    }
    void ChoisirDansLaListe(int element)
    {
        Combo1().showPopup();
        QAbstractItemView& vue = *Combo1().view();
        QTest::mouseMove(vue.viewport(), vue.visualRect(vue.model()->index(element, 0)).center());
        QTest::mouseClick(vue.viewport(), Qt::LeftButton, Qt::NoModifier,
                          vue.visualRect(vue.model()->index(element, 0)).center());
        ASSERT_FALSE(vue.isVisible());
    }
};

} // namespace

// ---- Rows ----

TEST_F(ListesDeLEditeur, AClickOnARowLeadsToTheField)
{
    Editer(1);
    CliquerLigne(3);
    EXPECT_EQ(Ligne(), 3);
    EXPECT_EQ(FocusSur(), "Combo1");
    EXPECT_EQ(Combo1().Texte(), "trip-hop");
    EXPECT_EQ(Combo1().Liste(), QStringList({"rock", "jazz", "blues"}));
    EXPECT_EQ(Caret(), 8);
    EXPECT_EQ(form.Valeurs(), QStringList({"Dummy", "Portishead", "trip-hop"})) << "no value changed on the way";
}

TEST_F(ListesDeLEditeur, AClickBesideTheRowsKeepsTheRow)
{
    Editer(1);
    CliquerLigne(2);
    QTest::mouseClick(LV().viewport(), Qt::LeftButton, Qt::NoModifier, LV().viewport()->rect().bottomRight());
    EXPECT_EQ(Ligne(), 2);
    EXPECT_EQ(FocusSur(), "Combo1");
    Taper(u"!"_s);
    EXPECT_EQ(form.Valeur(2), "Portishead!");
}

TEST_F(ListesDeLEditeur, AClickWithCtrlKeepsTheRowToo)
{
    Editer(1);
    CliquerLigne(2);
    const QPoint place = LV().visualItemRect(LV().topLevelItem(1)).center();
    QTest::mouseClick(LV().viewport(), Qt::LeftButton, Qt::ControlModifier, place);
    EXPECT_EQ(Ligne(), 2);
}

TEST_F(ListesDeLEditeur, TheArrowsInTheListBringTheRowIntoTheField)
{
    Editer(1);
    LV().setFocus();
    Touche(Qt::Key_Down);
    EXPECT_EQ(Ligne(), 2);
    EXPECT_EQ(Combo1().Texte(), "Portishead");
    EXPECT_TRUE(LargeurEst(3590));
    Touche(Qt::Key_Return);
    EXPECT_EQ(FocusSur(), "Combo1");
    Cliquer("btAjouter");
    EXPECT_EQ(Entree(1), QStringList({"Dummy", "Portishead", "trip-hop"}));
}

TEST_F(ListesDeLEditeur, DeleteInTheListEmptiesTheRow)
{
    Editer(1);
    CliquerLigne(2);
    LV().setFocus();
    QTest::keyPress(&LV(), Qt::Key_Delete);
    EXPECT_EQ(form.Valeur(2), "Portishead") << "the release counts";
    QTest::keyRelease(&LV(), Qt::Key_Delete);
    EXPECT_EQ(form.Valeur(2), "");
    EXPECT_EQ(Combo1().Texte(), "");
    EXPECT_EQ(form.Valeur(1), "Dummy");
}

TEST_F(ListesDeLEditeur, TwoHundredColumnsScrollWithTheRow)
{
    for (int colonne = 4; colonne <= 200; ++colonne)
        doc.table.ColumnHeaders.Add(0, u"Colonne %1"_s.arg(colonne));
    Editer(1);
    for (int fois = 1; fois < 200; ++fois)
        Touche(Qt::Key_Return);
    EXPECT_EQ(Ligne(), 200);
    EXPECT_TRUE(LV().viewport()->rect().contains(LV().visualItemRect(LV().topLevelItem(199)).center()));
    Taper(u"fin"_s);
    Touche(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Entree(1).at(199), "fin");
}

// ---- The list ----

TEST_F(ListesDeLEditeur, TheWidthOfTheFieldTellsWhetherTheRowHasAList)
{
    Editer(1);
    EXPECT_TRUE(LargeurEst(3872));
    CliquerLigne(3);
    EXPECT_TRUE(LargeurEst(3590));
    Touche(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(LargeurEst(3590));
    Touche(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(LargeurEst(3872));
    Cliquer("btplus");
    EXPECT_TRUE(LargeurEst(3590));
    Cliquer("btmoins");
    EXPECT_TRUE(LargeurEst(3872));
}

TEST_F(ListesDeLEditeur, InALargerFormTheFieldGrowsAndKeepsTheDifference)
{
    Editer(1);
    form.resize(form.width() + 400, form.height());
    QTest::qWait(0);
    const int sansListe = Combo1().width();
    EXPECT_GT(sansListe, 300);
    CliquerLigne(3);
    EXPECT_EQ(sansListe - Combo1().width(),
              qRound(3872 * form.logicalDpiX() / 1440.0) - qRound(3590 * form.logicalDpiX() / 1440.0));
}

TEST_F(ListesDeLEditeur, AChoiceFromTheListReachesTheRow)
{
    Editer(1);
    CliquerLigne(3);
    ChoisirDansLaListe(1);
    EXPECT_EQ(Combo1().Texte(), "jazz");
    EXPECT_EQ(form.Valeur(3), "jazz");
    EXPECT_EQ(FocusSur(), "Combo1");
}

TEST_F(ListesDeLEditeur, AMacroInTheListIsReplacedWhenItIsChosen)
{
    doc.table.ColumnHeaders(1).SetTag(u"%a|%d"_s);
    AjouterUne();
    ChoisirDansLaListe(1);
    EXPECT_EQ(form.Valeur(1), "05/03/2026");
    Cliquer("btmoins");
    EXPECT_EQ(form.Textes(1), "%a");
}

TEST_F(ListesDeLEditeur, PlusAddsTheTextOnceAndLeadsBackToTheField)
{
    Editer(1);
    CliquerLigne(3);
    Cliquer("btplus");
    EXPECT_EQ(form.Textes(3), "rock|jazz|blues|trip-hop");
    EXPECT_EQ(FocusSur(), "Combo1");
    EXPECT_EQ(Caret(), 8);
    EXPECT_EQ(Combo1().Liste(), QStringList({"rock", "jazz", "blues", "trip-hop"}));
    Cliquer("btplus");
    EXPECT_EQ(form.Textes(3), "rock|jazz|blues|trip-hop") << "known already";
    Taper(u"!"_s);
    Combo1().lineEdit()->selectAll();
    Taper(u"Rock"_s);
    Cliquer("btplus");
    EXPECT_EQ(form.Textes(3), "rock|jazz|blues|trip-hop|Rock") << "case counts";
}

TEST_F(ListesDeLEditeur, PlusStartsAListAndTakesAnEmptyTextOnlyIntoOneThatIs)
{
    AjouterUne();
    Cliquer("btplus");
    EXPECT_EQ(form.Textes(1), "") << "nothing to add to nothing";
    CliquerLigne(2);
    Cliquer("btplus");
    EXPECT_EQ(form.Textes(2), "a|b|");
    Cliquer("btplus");
    EXPECT_EQ(form.Textes(2), "a|b|");
    CliquerLigne(1);
    Taper(u"x|y"_s);
    Cliquer("btplus");
    EXPECT_EQ(form.Textes(1), "x|y") << "not refused here";
    EXPECT_EQ(Combo1().Liste(), QStringList({"x", "y"}));
}

TEST_F(ListesDeLEditeur, MinusRemovesTheElementThatWasChosen)
{
    doc.table.ColumnHeaders(1).SetTag(u"x|y|x|z"_s);
    AjouterUne();
    ChoisirDansLaListe(0);
    Cliquer("btmoins");
    EXPECT_EQ(form.Textes(1), "y|x|z");
    EXPECT_EQ(form.Valeur(1), "x") << "the value stays";
    EXPECT_EQ(FocusSur(), "Combo1");
    EXPECT_EQ(Caret(), 1);
}

TEST_F(ListesDeLEditeur, MinusRemovesTheLastElementEqualToATypedText)
{
    doc.table.ColumnHeaders(1).SetTag(u"x|y|x|z"_s);
    AjouterUne();
    Taper(u"x"_s);
    Cliquer("btmoins");
    EXPECT_EQ(form.Textes(1), "x|y|z");
}

TEST_F(ListesDeLEditeur, ATextTypedOverAChoiceIsLookedForItself)
{
    doc.table.ColumnHeaders(1).SetTag(u"x|y|xy"_s);
    AjouterUne();
    ChoisirDansLaListe(0);
    Taper(u"y"_s);
    Cliquer("btmoins");
    EXPECT_EQ(form.Textes(1), "x|y");
}

TEST_F(ListesDeLEditeur, MinusOfAnUnknownTextDoesNothing)
{
    AjouterUne();
    CliquerLigne(3);
    Taper(u"Rock"_s);
    Cliquer("btmoins");
    EXPECT_EQ(form.Textes(3), "rock|jazz|blues");
    EXPECT_EQ(form.Valeur(3), "Rock");
    EXPECT_EQ(FocusSur(), "Combo1");
    EXPECT_EQ(Caret(), 4);
}

TEST_F(ListesDeLEditeur, MinusEmptiesAList)
{
    AjouterUne();
    CliquerLigne(2);
    for (const QString& texte : {u"a"_s, u"b"_s}) {
        Combo1().lineEdit()->selectAll();
        Taper(texte);
        Cliquer("btmoins");
    }
    EXPECT_EQ(form.Textes(2), "");
    EXPECT_EQ(Combo1().Liste(), QStringList());
    EXPECT_EQ(form.Valeur(2), "b");
}

TEST_F(ListesDeLEditeur, TheListsReachTheColumnsWhenAnEntryIsWritten)
{
    Editer(1);
    Cliquer("btplus");
    EXPECT_EQ(doc.table.ColumnHeaders(1).Tag(), "");
    Cliquer("btSuivant");
    EXPECT_EQ(doc.table.ColumnHeaders(1).Tag(), "Dummy");
    EXPECT_EQ(form.Textes(1), "Dummy");
}

TEST_F(ListesDeLEditeur, EscapeClosesTheOpenListAlone)
{
    Editer(1);
    CliquerLigne(3);
    Touche(Qt::Key_F4);
    ASSERT_TRUE(Combo1().view()->isVisible());
    QTest::keyClick(Combo1().view(), Qt::Key_Escape);
    EXPECT_FALSE(Combo1().view()->isVisible());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.Valeur(3), "trip-hop");
}

TEST_F(ListesDeLEditeur, TheListIsWalkedByKeysFromTheTextThatStandsThere)
{
    Editer(3);
    CliquerLigne(3);
    EXPECT_EQ(form.Valeur(3), "jazz");
    Touche(Qt::Key_F4);
    QTest::keyClick(Combo1().view(), Qt::Key_Down);
    QTest::keyClick(Combo1().view(), Qt::Key_Return);
    EXPECT_EQ(form.Valeur(3), "blues");
    Touche(Qt::Key_Up);
    EXPECT_EQ(form.Valeur(3), "jazz");
    EXPECT_EQ(Ligne(), 3);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(ListesDeLEditeur, EnterOnTheTwoSmallButtonsPressesThemAndClosesNothing)
{
    Editer(1);
    Le<QToolButton>("btplus").setFocus();
    Touche(Qt::Key_Return);
    EXPECT_EQ(form.Textes(1), "Dummy");
    Le<QToolButton>("btmoins").setFocus();
    Touche(Qt::Key_Enter);
    EXPECT_EQ(form.Textes(1), "");
    EXPECT_TRUE(form.isVisible());
}
