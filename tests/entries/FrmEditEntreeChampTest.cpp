// The editor's field: what is typed in it, and its keys.
#include "EditeurDeTest.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

class ChampDeLEditeur : public EditeurDeTest
{
protected:
    void SetUp() override
    {
        EditeurDeTest::SetUp();
        doc.table.ColumnHeaders(2).SetTag(u"a|b"_s);
    }
    void Composer(const QString& enCours, const QString& fini = QString())
    {
        QInputMethodEvent event(enCours, {});
        event.setCommitString(fini);
        QApplication::sendEvent(qApp->focusWidget(), &event);
    }
};

} // namespace

// ---- Typing ----

TEST_F(ChampDeLEditeur, EachKeyReachesTheRowAtOnce)
{
    Editer(1);
    Taper(u"!"_s);
    EXPECT_EQ(form.Valeur(1), "Dummy!");
    Touche(Qt::Key_Backspace);
    Touche(Qt::Key_Home);
    Taper(u"La "_s);
    EXPECT_EQ(form.Valeur(1), "La Dummy");
}

TEST_F(ChampDeLEditeur, AMacroIsReplacedAsSoonAsItStandsThere)
{
    AjouterUne();
    Taper(u"le %"_s);
    EXPECT_EQ(form.Valeur(1), "le %");
    Taper(u"D, soir"_s);
    EXPECT_EQ(Combo1().Texte(), "le 05 mars 2026, soir");
    EXPECT_EQ(form.Valeur(1), "le 05 mars 2026, soir");
}

TEST_F(ChampDeLEditeur, EveryMacroWorksInTheField)
{
    const QList<QPair<QString, QString>> macros = {{"%d", "05/03/2026"}, {"%t", "2026-03-05"},  {"%D", "05 mars 2026"},
                                                   {"%j", "5"},          {"%m", "3"},           {"%a", "2026"},
                                                   {"%h", "9:7"},        {"%%d", "%05/03/2026"}};
    AjouterUne();
    for (const auto& [signe, valeur] : macros) {
        Combo1().lineEdit()->selectAll();
        Taper(signe);
        EXPECT_EQ(form.Valeur(1), valeur);
        EXPECT_EQ(Caret(), valeur.size());
    }
}

TEST_F(ChampDeLEditeur, InTheMiddleOfATextTheCaretStandsRightBehindTheDate)
{
    AjouterUne();
    Taper(u"ab"_s);
    Touche(Qt::Key_Left);
    Taper(u"%D"_s);
    EXPECT_EQ(Combo1().Texte(), "a05 mars 2026b");
    EXPECT_EQ(Caret(), 13);
    Taper(u"-"_s);
    EXPECT_EQ(form.Valeur(1), "a05 mars 2026-b");
}

TEST_F(ChampDeLEditeur, AMacroInAStoredValueIsReplacedInTheRowToo)
{
    doc.table.ListItems(1).SetText(u"vu le %d"_s);
    doc.table.ListItems(1).SetSubItems(1, u"%a"_s);
    Editer(1);
    EXPECT_EQ(Combo1().Texte(), "vu le 05/03/2026");
    EXPECT_EQ(form.Valeur(1), "vu le 05/03/2026");
    EXPECT_EQ(form.Valeur(2), "%a") << "not before it comes into the field";
    Touche(Qt::Key_Return);
    EXPECT_EQ(form.Valeur(2), "2026");
    Cliquer("Annuler");
    EXPECT_EQ(Entree(1).at(0), "vu le %d");
}

TEST_F(ChampDeLEditeur, UndoLeadsBackBeforeTheMacroAndNotToIt)
{
    AjouterUne();
    Taper(u"%d"_s);
    Touche(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Combo1().Texte(), "");
    EXPECT_EQ(form.Valeur(1), "");
    Touche(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(form.Valeur(1), "05/03/2026");
}

TEST_F(ChampDeLEditeur, TypingIsUndoneBackToTheStoredValue)
{
    Editer(1);
    Touche(Qt::Key_Home, Qt::ShiftModifier);
    Taper(u"du %d"_s);
    EXPECT_EQ(form.Valeur(1), "du 05/03/2026");
    for (int fois = 0; fois < 5; ++fois)
        Touche(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(form.Valeur(1), "Dummy");
}

TEST_F(ChampDeLEditeur, AChoiceAndADeletionAreUndoneLikeTyping)
{
    Editer(1);
    CliquerLigne(3);
    Touche(Qt::Key_2, Qt::ControlModifier);
    Touche(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(form.Valeur(3), "trip-hop");
    Touche(Qt::Key_Down);
    EXPECT_EQ(form.Valeur(3), "rock");
    Touche(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(form.Valeur(3), "trip-hop");
    LV().setFocus();
    Touche(Qt::Key_Delete);
    EXPECT_EQ(form.Valeur(3), "");
    Combo1().setFocus();
    Touche(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(form.Valeur(3), "trip-hop");
}

TEST_F(ChampDeLEditeur, ACompositionIsNotBrokenByAMacro)
{
    AjouterUne();
    Taper(u"%"_s);
    Composer(u"ん"_s, u"d"_s);
    EXPECT_EQ(Combo1().Texte(), "%d") << "still composing";
    Composer(QString(), u"か"_s);
    EXPECT_EQ(form.Valeur(1), u"05/03/2026か"_s);
}

TEST_F(ChampDeLEditeur, AComposedLetterReachesTheRow)
{
    AjouterUne();
    Composer(u"^"_s);
    EXPECT_EQ(form.Valeur(1), "");
    Composer(QString(), u"ê"_s);
    EXPECT_EQ(form.Valeur(1), u"ê"_s);
}

TEST_F(ChampDeLEditeur, PastedLinesBecomeOneAndTabsStay)
{
    AjouterUne();
    QApplication::clipboard()->setText(u"un\ndeux\ttrois\r\nquatre"_s);
    Touche(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.Valeur(1), "un deux\ttrois quatre");
    EXPECT_EQ(Caret(), 20);
}

TEST_F(ChampDeLEditeur, ALongValueStaysWhole)
{
    const QString longue = QString(40000, u'x') + u'\t' + QString(5000, u'é');
    doc.table.ListItems(1).SetText(longue);
    Editer(1);
    Taper(u"!"_s);
    Cliquer("btAjouter");
    EXPECT_EQ(Entree(1).at(0), longue + u'!');
}

TEST_F(ChampDeLEditeur, NothingIsCompletedThatWasNotTyped)
{
    AjouterUne();
    CliquerLigne(3);
    Taper(u"ro"_s);
    EXPECT_EQ(form.Valeur(3), "ro");
    Touche(Qt::Key_Tab);
    EXPECT_EQ(form.Valeur(3), "ro");
}

TEST_F(ChampDeLEditeur, TheWheelOverTheFieldChangesNothing)
{
    Editer(1);
    CliquerLigne(3);
    const QPointF milieu = Combo1().rect().center();
    QWheelEvent roule(milieu, Combo1().mapToGlobal(milieu), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Combo1(), &roule);
    EXPECT_EQ(form.Valeur(3), "trip-hop");
}

// ---- Keys ----

TEST_F(ChampDeLEditeur, EnterGoesDownTheRowsAndToTheButtonAtTheirEnd)
{
    Editer(1);
    Touche(Qt::Key_Return);
    EXPECT_EQ(Ligne(), 2);
    EXPECT_EQ(Combo1().Texte(), "Portishead");
    EXPECT_EQ(Combo1().Liste(), QStringList({"a", "b"}));
    Touche(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Ligne(), 3);
    EXPECT_EQ(Combo1().Liste(), QStringList({"rock", "jazz", "blues"}));
    Touche(Qt::Key_Return);
    EXPECT_EQ(Ligne(), 0);
    EXPECT_EQ(FocusSur(), "btAjouter");
    EXPECT_TRUE(form.isVisible());
    Touche(Qt::Key_Return);
    EXPECT_TRUE(form.Valide);
}

TEST_F(ChampDeLEditeur, ShiftEnterGoesUpTheRows)
{
    Editer(1);
    CliquerLigne(2);
    Touche(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Ligne(), 1);
    EXPECT_EQ(Combo1().Texte(), "Dummy");
    EXPECT_EQ(Combo1().Liste(), QStringList());
    Touche(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Ligne(), 1);
    EXPECT_EQ(FocusSur(), "Combo1");
}

TEST_F(ChampDeLEditeur, CtrlEnterValidates)
{
    Editer(1);
    Taper(u"!"_s);
    Touche(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(form.Valide);
    EXPECT_EQ(Entree(1).at(0), "Dummy!");
}

TEST_F(ChampDeLEditeur, CtrlEnterLooksForTheBarToo)
{
    AjouterUne();
    Taper(u"a"_s);
    Touche(Qt::Key_Return);
    Taper(u"|"_s);
    Touche(Qt::Key_Return, Qt::ShiftModifier);
    Touche(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(messages.Cles(), QStringList{"msg68"});
    EXPECT_EQ(Ligne(), 2);
    EXPECT_FALSE(form.Valide);
    Taper(u"x"_s);
    EXPECT_EQ(form.Valeurs(), QStringList({"a", "|x", ""})) << "what is typed next goes where the bar is";
}

TEST_F(ChampDeLEditeur, EnterWithOtherModifiersDoesNothing)
{
    Editer(1);
    const Qt::KeyboardModifiers autres[] = {Qt::AltModifier, Qt::MetaModifier, Qt::ControlModifier | Qt::ShiftModifier,
                                            Qt::ControlModifier | Qt::AltModifier};
    for (const Qt::KeyboardModifiers avec : autres)
        Touche(Qt::Key_Return, avec);
    EXPECT_EQ(Ligne(), 1);
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.Valide);
    EXPECT_EQ(Combo1().Texte(), "Dummy");
}

TEST_F(ChampDeLEditeur, AnEnterHeldDownDoesNotValidate)
{
    Editer(1);
    for (int fois = 0; fois < 10; ++fois) {
        ASSERT_EQ(FocusSur(), "Combo1");
        QKeyEvent repetee(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QApplication::sendEvent(qApp->focusWidget(), &repetee);
    }
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(FocusSur(), "Combo1");
}

TEST_F(ChampDeLEditeur, CtrlNAndCtrlBGoToTheNeighbours)
{
    Editer(1);
    Taper(u"!"_s);
    Touche(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(form.IndexEntree, 2);
    EXPECT_EQ(Entree(1).at(0), "Dummy!");
    EXPECT_EQ(Combo1().Texte(), "Blue");
    Touche(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(form.IndexEntree, 1);
    EXPECT_EQ(Combo1().Texte(), "Dummy!");
}

TEST_F(ChampDeLEditeur, CtrlAndADigitTakeThatTextOfTheList)
{
    Editer(1);
    CliquerLigne(2);
    Touche(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(Combo1().Texte(), "b");
    EXPECT_EQ(form.Valeur(2), "b");
    Touche(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(form.Valeur(2), "a");
    Touche(Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(form.Valeur(2), "a") << "there are two texts";
    EXPECT_EQ(Combo1().Texte(), "a");
}

TEST_F(ChampDeLEditeur, AllNineDigitsWork)
{
    doc.table.ColumnHeaders(1).SetTag(u"t1|t2|t3|t4|t5|t6|t7|t8|t9|t10"_s);
    AjouterUne();
    for (int chiffre = 1; chiffre <= 9; ++chiffre) {
        Touche(static_cast<Qt::Key>(Qt::Key_0 + chiffre), Qt::ControlModifier);
        EXPECT_EQ(form.Valeur(1), u"t%1"_s.arg(chiffre));
    }
    Touche(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(form.Valeur(1), "t9");
}

TEST_F(ChampDeLEditeur, OnAFrenchKeyboardTheDigitIsKnownByItsPlace)
{
    Editer(1);
    CliquerLigne(2);
    QKeyEvent eAigu(QEvent::KeyPress, Qt::Key_Eacute, Qt::ControlModifier, 11, 0, 0, QString());
    QApplication::sendEvent(qApp->focusWidget(), &eAigu);
    EXPECT_EQ(form.Valeur(2), "b");
}

TEST_F(ChampDeLEditeur, WithoutASelectedRowAnyKeyClearsTheField)
{
    Editer(1);
    for (int fois = 0; fois < 3; ++fois)
        Touche(Qt::Key_Return);
    Combo1().setFocus();
    EXPECT_EQ(Combo1().Texte(), "trip-hop");
    EXPECT_EQ(Combo1().Liste(), QStringList());
    Taper(u"x"_s);
    EXPECT_EQ(Combo1().Texte(), "");
    EXPECT_EQ(form.Valeurs(), QStringList({"Dummy", "Portishead", "trip-hop"}));
    Touche(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(form.Valide);
    Touche(Qt::Key_Tab);
    EXPECT_EQ(FocusSur(), "btplus") << "the keys that leave the field still do";
}

TEST_F(ChampDeLEditeur, TabComesToTheFieldWithTheCaretAtTheEnd)
{
    Editer(1);
    LV().setFocus();
    Touche(Qt::Key_Tab);
    EXPECT_EQ(FocusSur(), "Combo1");
    EXPECT_FALSE(Combo1().lineEdit()->hasSelectedText()) << "one key would replace the value";
    Taper(u"!"_s);
    EXPECT_EQ(form.Valeur(1), "Dummy!");
}

TEST_F(ChampDeLEditeur, BackFromAnotherWindowTheFieldIsAsItWasLeft)
{
    Editer(1);
    Touche(Qt::Key_Home);
    const QSignalSpy entrees(&Combo1(), &ChampDEntree::Entree);
    QWidget autre;
    autre.show();
    autre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&autre));
    ASSERT_FALSE(Combo1().hasFocus());
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    ASSERT_TRUE(Combo1().hasFocus());
    EXPECT_EQ(Caret(), 0);
    EXPECT_EQ(entrees.count(), 0);
}

TEST_F(ChampDeLEditeur, BackFromItsOwnListTheFieldIsAsItWasLeft)
{
    Editer(1);
    CliquerLigne(3);
    Touche(Qt::Key_Home);
    const QSignalSpy entrees(&Combo1(), &ChampDEntree::Entree);
    Touche(Qt::Key_F4);
    ASSERT_TRUE(Combo1().view()->isVisible());
    QTest::keyClick(Combo1().view(), Qt::Key_Escape);
    ASSERT_TRUE(Combo1().hasFocus());
    EXPECT_EQ(Caret(), 0);
    EXPECT_EQ(entrees.count(), 0);
}
