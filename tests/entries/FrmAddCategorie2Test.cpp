// What a user sees and does in the dialog of a new category.
#include "entries/frmAddCategorie2.h"

#include "base/AfficherMsg.h"
#include "entries/DialogueDeCategorie.h"
#include "extensions/langue/modLang.h"
#include "support/Accessibilite.h"
#include "support/FileDeReponses.h"
#include "support/PlateformeDeTest.h"

#include <QLabel>
#include <QPushButton>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

class FrmAddCategorie2Test : public testing::Test
{
protected:
    void SetUp() override
    {
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    FileDeReponses reponses;
    frmAddCategorie2 form;
    Dialogue d{form};
};

} // namespace

TEST_F(FrmAddCategorie2Test, OpensWithOneEmptyTitleReadyToBeTyped)
{
    EXPECT_EQ(form.windowTitle(), "Creer une categorie");
    EXPECT_EQ(d.Titres(), QStringList({""}));
    EXPECT_EQ(d.Choisie(), 1);
    EXPECT_TRUE(d.Text1().isEnabled());
    EXPECT_EQ(form.focusWidget(), &d.Text1());
    EXPECT_FALSE(d.cbDependant().isChecked());
    EXPECT_FALSE(d.dependantcol().isEnabled());
    EXPECT_EQ(d.DependanteChoisie(), 0);
}

TEST_F(FrmAddCategorie2Test, EveryControlHasItsCaptionAndTip)
{
    EXPECT_EQ(NomAccessible(d.List1()), "Colonnes :");
    EXPECT_EQ(d.Text1().toolTip(), "Modifier le nom d'une colonne existante");
    EXPECT_EQ(d.Text1().placeholderText(), d.Text1().toolTip());
    EXPECT_EQ(d.Bouton("btAddCol").toolTip(), "Ajouter une colonne");
    EXPECT_EQ(d.Bouton("btSupprCol").toolTip(), "Supprimer la colonne sélectionnée");
    EXPECT_EQ(d.Bouton("btUp").toolTip(), "Monter la colonne sélectionnée d'un cran");
    EXPECT_EQ(d.Bouton("btDown").toolTip(), "Descandre la colonne selectionnée d'un cran");
    EXPECT_EQ(NomAccessible(d.cbDependant()), "Dependant de");
    EXPECT_EQ(NomAccessible(d.Bouton("btAjouter")), "Creer");
    EXPECT_EQ(d.Bouton("btAjouter").toolTip(), "Creer la nouvelle Categorie");
    EXPECT_EQ(NomAccessible(d.Bouton("Annuler")), "Annuler");
    EXPECT_EQ(d.Bouton("Annuler").toolTip(), "Annuler");
    for (const char* nom : {"btAddCol", "btSupprCol", "btUp", "btDown", "btAjouter", "Annuler"})
        EXPECT_FALSE(d.Bouton(nom).icon().isNull()) << nom;
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

TEST_F(FrmAddCategorie2Test, TheFormIsTranslated)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        u"lang/english.ini"_s,
        "[frmAddCategorie2]\r\nCaption=New category\r\nLabel1_C=Columns:\r\nbtAjouter_C=Create\r\n"
        "btAddCol_TT=Add a column\r\ncbDependant_C=Dependent on\r\n");
    frmAddCategorie2 anglais;
    const Dialogue e(anglais);
    EXPECT_EQ(anglais.windowTitle(), "New category");
    EXPECT_EQ(e.Trouver<QLabel>("Label1").text(), "Columns:");
    EXPECT_EQ(e.Bouton("btAjouter").text(), "Create");
    EXPECT_EQ(e.Bouton("btAddCol").toolTip(), "Add a column");
    EXPECT_EQ(NomAccessible(e.Bouton("btAddCol")), "Add a column");
    EXPECT_EQ(e.cbDependant().text(), "Dependent on");
    EXPECT_EQ(e.Titres(), QStringList({""}));
}

// ---- titles

TEST_F(FrmAddCategorie2Test, WhatIsTypedStandsInBothListsAtOnce)
{
    d.Taper(u"Ti"_s);
    EXPECT_EQ(d.Titres(), QStringList({"Ti"}));
    d.Taper(u"tre"_s);
    EXPECT_EQ(d.Titres(), QStringList({"Titre"}));
}

TEST_F(FrmAddCategorie2Test, AClickShowsTheTitleToEdit)
{
    d.TaperTitres({"Titre", "Artiste"});
    d.CliquerLigne(1);
    EXPECT_EQ(d.Text1().text(), "Titre");
    d.Taper(u"s"_s);
    EXPECT_EQ(d.Titres(), QStringList({"Titres", "Artiste"}));
}

TEST_F(FrmAddCategorie2Test, TheButtonAddsAColumnOrTakesTheEmptyOne)
{
    d.Cliquer("btAddCol");
    EXPECT_EQ(d.Titres(), QStringList({""})) << "the empty one is taken";
    d.Taper(u"Titre"_s);
    d.Cliquer("btAddCol");
    EXPECT_EQ(d.Titres(), QStringList({"Titre", ""}));
    EXPECT_EQ(d.Choisie(), 2);
    EXPECT_EQ(d.Text1().text(), "");
    EXPECT_EQ(form.focusWidget(), &d.Text1());
    d.CliquerLigne(1);
    d.Cliquer("btAddCol");
    EXPECT_EQ(d.Titres(), QStringList({"Titre", ""}));
    EXPECT_EQ(d.Choisie(), 2);
}

TEST_F(FrmAddCategorie2Test, WithNothingSelectedTheFirstLetterClosesTheField)
{
    d.Taper(u"Titre"_s);
    d.CliquerLigne(1, Qt::ControlModifier);
    ASSERT_EQ(d.Choisie(), 0);
    EXPECT_FALSE(d.Text1().isEnabled());
    EXPECT_FALSE(d.Bouton("btSupprCol").isEnabled());
    EXPECT_EQ(d.Titres(), QStringList({"Titre"}));
    d.CliquerLigne(1);
    EXPECT_TRUE(d.Text1().isEnabled());
    EXPECT_EQ(d.Text1().text(), "Titre");
}

TEST_F(FrmAddCategorie2Test, ATitleHasNoLimit)
{
    const QString titre(50000, u'x');
    d.Coller(titre);
    EXPECT_EQ(d.Titres(), QStringList({titre}));
    EXPECT_LT(form.sizeHint().width(), 800) << "the form does not grow with it";
}

TEST_F(FrmAddCategorie2Test, TheLoanColumnsTitleFreezesOnceItIsTyped)
{
    d.Taper(u"Prêtées"_s);
    EXPECT_EQ(d.Titres(), QStringList({"Prêté"}));
    EXPECT_EQ(d.Text1().text(), "Prêté");
    EXPECT_TRUE(d.Text1().isEnabled());
    d.Touche(Qt::Key_Backspace);
    EXPECT_EQ(d.Titres(), QStringList({"Prêté"}));
    d.Cliquer("btSupprCol");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg56"}));
    EXPECT_EQ(d.Titres(), QStringList({"Prêté"}));
    d.Cliquer("btAddCol");
    d.Taper(u"Titre"_s);
    EXPECT_EQ(d.Titres(), QStringList({"Prêté", "Titre"})) << "the others can still be typed";
}

TEST_F(FrmAddCategorie2Test, ABarIsTakenBackAndTold)
{
    d.Taper(u"A|"_s);
    QCoreApplication::processEvents();
    ASSERT_EQ(reponses.Cles(), QStringList({"msg68"}));
    EXPECT_EQ(reponses.Affiches().first().message.texte, "Le caractere  | est interdit, veuillez l'enlever");
    EXPECT_EQ(d.Titres(), QStringList({"A"}));
    d.Coller(u"Titre|Artiste"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(reponses.Cles(), QStringList({"msg68", "msg68"}));
    EXPECT_EQ(d.Titres(), QStringList({"A"})) << "all or nothing of what was pasted";
    EXPECT_EQ(d.Text1().text(), "A");
    d.Taper(u"B"_s);
    EXPECT_EQ(d.Titres(), QStringList({"AB"}));
}

TEST_F(FrmAddCategorie2Test, PastedLinesBecomeOneTitle)
{
    d.Coller(u"Titre de\r\nl'album\r\n"_s);
    EXPECT_EQ(d.Titres(), QStringList({"Titre de l'album"}));
}

// ---- deleting and moving

TEST_F(FrmAddCategorie2Test, DeletingAsksAndSelectsTheOneBefore)
{
    d.TaperTitres({"Titre", "Artiste", "Piste"});
    reponses.Preparer(RepNon);
    d.Cliquer("btSupprCol");
    EXPECT_EQ(d.Titres().size(), 3);
    reponses.Preparer(RepOui);
    d.Cliquer("btSupprCol");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg57", "msg57"}));
    EXPECT_EQ(d.Titres(), QStringList({"Titre", "Artiste"}));
    EXPECT_EQ(d.Choisie(), 2);
    EXPECT_EQ(d.Text1().text(), "Artiste");
}

TEST_F(FrmAddCategorie2Test, AfterTheFirstWasDeletedNothingIsSelected)
{
    d.TaperTitres({"Titre", "Artiste"});
    d.CliquerLigne(1);
    reponses.Preparer(RepOui);
    d.Cliquer("btSupprCol");
    EXPECT_EQ(d.Titres(), QStringList({"Artiste"}));
    EXPECT_EQ(d.Choisie(), 0);
    EXPECT_EQ(d.Text1().text(), "") << "what could be typed belongs to no column";
    EXPECT_FALSE(d.Text1().isEnabled());
}

TEST_F(FrmAddCategorie2Test, WithAllDeletedTheFieldIsOpenUntilSomethingIsTyped)
{
    d.Taper(u"Titre"_s);
    reponses.Preparer(RepOui);
    d.Cliquer("btSupprCol");
    EXPECT_EQ(d.Titres(), QStringList());
    EXPECT_TRUE(d.Text1().isEnabled());
    d.Taper(u"A"_s);
    EXPECT_FALSE(d.Text1().isEnabled());
    EXPECT_EQ(d.Titres(), QStringList());
    d.Cliquer("btAddCol");
    EXPECT_TRUE(d.Text1().isEnabled());
    EXPECT_EQ(d.Text1().text(), "");
    d.Taper(u"Titre"_s);
    EXPECT_EQ(d.Titres(), QStringList({"Titre"}));
}

TEST_F(FrmAddCategorie2Test, TheArrowsMoveTheColumnWhereItCanGo)
{
    d.TaperTitres({"a", "b", "c"});
    EXPECT_FALSE(d.Bouton("btDown").isEnabled());
    d.Cliquer("btUp");
    EXPECT_EQ(d.Titres(), QStringList({"a", "c", "b"}));
    EXPECT_EQ(d.Choisie(), 2);
    d.Cliquer("btUp");
    EXPECT_EQ(d.Titres(), QStringList({"c", "a", "b"}));
    EXPECT_FALSE(d.Bouton("btUp").isEnabled());
    d.Cliquer("btDown");
    EXPECT_EQ(d.Titres(), QStringList({"a", "c", "b"}));
    EXPECT_EQ(d.Choisie(), 2);
    EXPECT_EQ(d.Text1().text(), "c");
}

// ---- the dependant column

TEST_F(FrmAddCategorie2Test, TheBoxOpensTheListOfTheDependantColumn)
{
    QTest::mouseClick(&d.cbDependant(), Qt::LeftButton, {}, QPoint(8, d.cbDependant().height() / 2));
    EXPECT_TRUE(d.dependantcol().isEnabled());
    QTest::keyClick(&d.cbDependant(), Qt::Key_Space);
    EXPECT_FALSE(d.dependantcol().isEnabled());
}

TEST_F(FrmAddCategorie2Test, TheDependantChoiceIsTakenOver)
{
    d.TaperTitres({"a", "b", "c"});
    d.ChoisirDependante(2);
    EXPECT_EQ(d.dependantcol().currentText(), "b");
    EXPECT_EQ(form.Colonnes.Dependante(), 2);
    d.cbDependant().setChecked(false);
    EXPECT_EQ(form.Colonnes.Dependante(), 0);
    d.cbDependant().setChecked(true);
    EXPECT_EQ(form.Colonnes.Dependante(), 2) << "the choice was kept";
}

TEST_F(FrmAddCategorie2Test, AddingColumnsChoosesNoDependantOne)
{
    d.cbDependant().setChecked(true);
    d.TaperTitres({"a", "b"});
    EXPECT_EQ(d.DependanteChoisie(), 0);
    reponses.Preparer(RepOui);
    d.Cliquer("btSupprCol");
    reponses.Preparer(RepOui);
    d.Cliquer("btSupprCol");
    d.Cliquer("btAddCol");
    EXPECT_EQ(d.DependanteChoisie(), 0) << "the first line of an empty list chooses itself no more";
}

TEST_F(FrmAddCategorie2Test, RenamingKeepsTheDependantChoiceAtItsPlace)
{
    d.TaperTitres({"a", "b"});
    d.ChoisirDependante(1);
    d.CliquerLigne(1);
    d.Taper(u"lbum"_s);
    EXPECT_EQ(d.DependanteChoisie(), 1);
    EXPECT_EQ(d.dependantcol().currentText(), "album");
}

TEST_F(FrmAddCategorie2Test, MovingTakesTheDependantChoiceAlong)
{
    d.TaperTitres({"a", "b", "c"});
    d.ChoisirDependante(1);
    d.Cliquer("btUp");
    EXPECT_EQ(d.DependanteChoisie(), 2) << "it was on a, and c moved";
    EXPECT_EQ(d.dependantcol().currentText(), "c");
    d.Cliquer("btDown");
    EXPECT_EQ(d.DependanteChoisie(), 3);
}

TEST_F(FrmAddCategorie2Test, DeletingTheDependantColumnTakesTheChoiceAway)
{
    d.TaperTitres({"a", "b"});
    d.ChoisirDependante(2);
    reponses.Preparer(RepOui);
    d.Cliquer("btSupprCol");
    EXPECT_EQ(d.DependanteChoisie(), 0);
    d.Cliquer("btAjouter");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg57", "msg55"}));
}

// ---- validation

TEST_F(FrmAddCategorie2Test, ATitleThatIsMissingIsToldAndTakenInHand)
{
    d.Cliquer("btAjouter");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg53"}));
    EXPECT_TRUE(form.isVisible());
    d.TaperTitres({"a", "b"});
    d.CliquerLigne(1);
    d.Touche(Qt::Key_Tab);
    d.Text1().setFocus();
    d.Touche(Qt::Key_Backspace);
    d.CliquerLigne(2);
    d.Cliquer("btAjouter");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg53", "msg53"}));
    EXPECT_EQ(d.Choisie(), 1);
    EXPECT_EQ(form.focusWidget(), &d.Text1());
    EXPECT_EQ(d.Titres(), QStringList({"", "b"})) << "nothing is lost";
}

TEST_F(FrmAddCategorie2Test, NoColumnAtAllIsTold)
{
    reponses.Preparer(RepOui);
    d.Cliquer("btSupprCol");
    d.Cliquer("btAjouter");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg57", "msg54"}));
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FrmAddCategorie2Test, ADependantColumnThatIsNotChosenIsTold)
{
    d.Taper(u"a"_s);
    d.cbDependant().setChecked(true);
    d.Cliquer("btAjouter");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg55"}));
    EXPECT_TRUE(form.isVisible());
    d.ChoisirDependante(1);
    d.Cliquer("btAjouter");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

// ---- keys

TEST_F(FrmAddCategorie2Test, TitlesAreTypedOneAfterTheOtherWithEnter)
{
    for (const char* titre : {"Titre", "Artiste", "Année", "Label", "Pistes"}) {
        d.Taper(QString::fromUtf8(titre));
        d.Touche(Qt::Key_Return);
    }
    EXPECT_EQ(d.Titres(), QStringList({"Titre", "Artiste", "Année", "Label", "Pistes", ""}));
    d.Touche(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(d.Titres().size(), 6) << "an empty title is to be typed first";
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(FrmAddCategorie2Test, TheRowThatEnterAddedAndNobodyTouchedIsNoColumn)
{
    for (const QString& titre : {u"a"_s, u"b"_s}) {
        d.Taper(titre);
        d.Touche(Qt::Key_Return);
    }
    EXPECT_EQ(d.Titres(), QStringList({"a", "b", ""}));
    d.Cliquer("btAjouter");
    EXPECT_EQ(reponses.Cles(), QStringList());
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(form.Colonnes.Titres(), QStringList({"a", "b"}));
}

TEST_F(FrmAddCategorie2Test, TheRowThatEnterAddedGoesWhenItIsLeft)
{
    const std::function<void()> gestes[] = {
        [this] { d.Touche(Qt::Key_Up); }, [this] { d.CliquerLigne(2); },
        [this] { d.CliquerLigne(3, Qt::ControlModifier); }, // takes it out of the selection
    };
    d.TaperTitres({"a", "b"});
    for (const auto& quitter : gestes) {
        d.CliquerLigne(2);
        d.Text1().setFocus();
        d.Touche(Qt::Key_Return);
        ASSERT_EQ(d.Titres(), QStringList({"a", "b", ""}));
        ASSERT_EQ(d.Choisie(), 3);
        quitter();
        EXPECT_EQ(d.Titres(), QStringList({"a", "b"}));
    }
}

TEST_F(FrmAddCategorie2Test, OfTheRowThatEnterAddedNothingIsLeftWhenSomethingElseIsMissing)
{
    d.cbDependant().setChecked(true);
    d.Taper(u"a"_s);
    d.Touche(Qt::Key_Return);
    d.Cliquer("btAjouter");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg55"}));
    EXPECT_EQ(d.Titres(), QStringList({"a"}));
    EXPECT_EQ(d.Choisie(), 1);
    EXPECT_EQ(d.Text1().text(), "a");
}

TEST_F(FrmAddCategorie2Test, ARowThatTheUserTouchedStaysAndMustHaveAName)
{
    const std::function<void()> gestes[] = {
        [this] {
            d.Taper(u"x"_s);
            d.Touche(Qt::Key_Backspace);
        },
        [this] { d.Cliquer("btAddCol"); },
        [this] { d.Cliquer("btUp"); },
        [this] { d.ChoisirDependante(form.Colonnes.Nombre()); },
    };
    d.Taper(u"a"_s);
    for (const auto& toucher : gestes) {
        d.CliquerLigne(1);
        d.Text1().setFocus();
        d.Touche(Qt::Key_Return);
        ASSERT_EQ(d.Titres(), QStringList({"a", ""}));
        toucher();
        const int vide = static_cast<int>(d.Titres().indexOf(QString())) + 1;
        d.CliquerLigne(vide == 1 ? 2 : 1);
        EXPECT_EQ(d.Titres().size(), 2);
        d.Cliquer("btAjouter");
        EXPECT_EQ(reponses.Cles().last(), "msg53");
        reponses.Preparer(RepOui);
        d.CliquerLigne(vide);
        d.Cliquer("btSupprCol");
    }
    EXPECT_EQ(reponses.Cles().count("msg53"), 4);
}

TEST_F(FrmAddCategorie2Test, TheDefaultButtonIsDrawnWhereEnterActs)
{
    const auto* creer = form.findChild<QPushButton*>("btAjouter");
    ASSERT_EQ(form.focusWidget(), &d.Text1());
    EXPECT_FALSE(creer->isDefault()) << "Enter goes on to the next title";
    for (const char* suivant : {"cbDependant", "btAjouter", "Annuler", "List1"}) {
        d.Touche(Qt::Key_Tab);
        ASSERT_EQ(form.focusWidget()->objectName(), suivant);
        EXPECT_TRUE(creer->isDefault()) << suivant;
    }
    d.Text1().setFocus();
    EXPECT_FALSE(creer->isDefault());
}

TEST_F(FrmAddCategorie2Test, EnterGoesOnToTheNextColumnThereIs)
{
    d.TaperTitres({"a", "b"});
    d.CliquerLigne(1);
    d.Text1().setFocus();
    d.Touche(Qt::Key_Return);
    EXPECT_EQ(d.Choisie(), 2);
    EXPECT_EQ(d.Text1().selectedText(), "b");
    EXPECT_EQ(d.Titres(), QStringList({"a", "b"}));
}

TEST_F(FrmAddCategorie2Test, EnterElsewhereAndCtrlEnterValidate)
{
    d.Taper(u"a"_s);
    d.Touche(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    form.setResult(QDialog::Rejected);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    d.List1().setFocus();
    d.Touche(Qt::Key_Return);
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST_F(FrmAddCategorie2Test, UpAndDownInTheFieldGoToTheNeighbours)
{
    d.TaperTitres({"a", "b"});
    d.Touche(Qt::Key_Up);
    EXPECT_EQ(d.Choisie(), 1);
    d.Touche(Qt::Key_Up);
    EXPECT_EQ(d.Choisie(), 1);
    EXPECT_EQ(form.focusWidget(), &d.Text1());
    d.Touche(Qt::Key_Down);
    EXPECT_EQ(d.Choisie(), 2);
}

TEST_F(FrmAddCategorie2Test, AltAndTheArrowsMoveFromTheListAndTheField)
{
    d.TaperTitres({"a", "b", "c"});
    d.Touche(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(d.Titres(), QStringList({"a", "c", "b"}));
    d.List1().setFocus();
    d.Touche(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(d.Titres(), QStringList({"a", "b", "c"}));
    EXPECT_EQ(form.focusWidget(), &d.List1());
}

TEST_F(FrmAddCategorie2Test, DeleteInTheListDeletesAColumnAndInTheFieldALetter)
{
    d.TaperTitres({"a", "bc"});
    d.Touche(Qt::Key_Home);
    d.Touche(Qt::Key_Delete);
    EXPECT_EQ(d.Titres(), QStringList({"a", "c"}));
    d.List1().setFocus();
    reponses.Preparer(RepOui);
    d.Touche(Qt::Key_Delete);
    EXPECT_EQ(d.Titres(), QStringList({"a"}));
    EXPECT_EQ(form.focusWidget(), &d.List1());
}

TEST_F(FrmAddCategorie2Test, ADoubleClickLeadsToTheTitle)
{
    d.TaperTitres({"a", "b"});
    d.List1().setFocus();
    const QPoint ligne = d.List1().visualItemRect(d.List1().item(0)).center();
    QTest::mouseClick(d.List1().viewport(), Qt::LeftButton, {}, ligne);
    QTest::mouseDClick(d.List1().viewport(), Qt::LeftButton, {}, ligne);
    EXPECT_EQ(form.focusWidget(), &d.Text1());
    EXPECT_EQ(d.Text1().selectedText(), "a");
}

TEST_F(FrmAddCategorie2Test, TabFollowsTheEye)
{
    d.TaperTitres({"a", "b", "c"});
    d.cbDependant().setChecked(true);
    d.CliquerLigne(2);
    d.List1().setFocus();
    for (const char* suivant : {"btAddCol", "btSupprCol", "btUp", "btDown", "Text1", "cbDependant", "dependantcol",
                                "btAjouter", "Annuler", "List1"}) {
        d.Touche(Qt::Key_Tab);
        EXPECT_EQ(form.focusWidget()->objectName(), suivant);
    }
}

TEST_F(FrmAddCategorie2Test, CancelEscapeAndClosingMakeNothing)
{
    const std::function<void()> fermetures[] = {
        [this] { d.Cliquer("Annuler"); },
        [this] { d.Touche(Qt::Key_Escape); },
        [this] { form.close(); },
    };
    for (const auto& fermer : fermetures) {
        form.setResult(QDialog::Accepted);
        form.show();
        fermer();
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(form.result(), QDialog::Rejected);
    }
    EXPECT_EQ(reponses.Cles(), QStringList());
}
