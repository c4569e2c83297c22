#include "extensions/langue/LangForm.h"

#include "extensions/langue/modLang.h"
#include "kit/frmMsg.h"
#include "support/Accessibilite.h"
#include "support/PlateformeDeTest.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTextEdit>
#include <QToolBar>

#include <gtest/gtest.h>

namespace {

class LangFormTest : public testing::Test
{
protected:
    LangFormTest() { m_form.setObjectName("frmTest"); }

    /// Puts a language in force whose file has `cles` for the form, and translates it.
    void Traduire(const QByteArray& cles)
    {
        FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire("lang/english.ini", "[frmTest]\r\n" + cles);
        LangForm(m_form);
    }

    template<class Controle> Controle& Ajouter(const char* nom, Controle* controle)
    {
        controle->setObjectName(nom);
        return *controle;
    }

    QMainWindow m_form;
};

TEST_F(LangFormTest, DoesNothingWithoutALanguage)
{
    PlateformeDeTest::Courante().dossier.Ecrire("zelvane.ini", "[frmTest]\r\nCaption=Wrong\r\nLabel1_C=Wrong\r\n");
    m_form.setWindowTitle("Essai");
    const QLabel& label = Ajouter("Label1", new QLabel("Nom", &m_form));
    LangForm(m_form);
    EXPECT_EQ(m_form.windowTitle(), "Essai");
    EXPECT_EQ(label.text(), "Nom");
}

TEST_F(LangFormTest, TheTitleIsTranslatedEvenWhenItIsEmpty)
{
    Traduire("Caption=Test\r\n");
    EXPECT_EQ(m_form.windowTitle(), "Test");
}

TEST_F(LangFormTest, CaptionsOfEveryKindOfControl)
{
    const QPushButton& bouton = Ajouter("btAjouter", new QPushButton("Ajouter", &m_form));
    const QCheckBox& boite = Ajouter("Check1", new QCheckBox("Cocher", &m_form));
    const QLabel& label = Ajouter("Label1", new QLabel("Nom", &m_form));
    QGroupBox& cadre = Ajouter("Frame1", new QGroupBox("Cadre", &m_form));
    const QLabel& dedans = Ajouter("Label2", new QLabel("Dedans", &cadre));
    QMenu& menu = Ajouter("mFichier", m_form.menuBar()->addMenu("&Fichier"));
    const QAction& action = Ajouter("mOuvrir", menu.addAction("&Ouvrir"));
    Traduire("btAjouter_C=Add\r\nCheck1_C=Tick\r\nLabel1_C=Name\r\nFrame1_C=Frame\r\nLabel2_C=Inside\r\n"
             "mFichier_C=F&ile\r\nmOuvrir_C=O&pen\r\n");
    EXPECT_EQ(bouton.text(), "Add");
    EXPECT_EQ(boite.text(), "Tick");
    EXPECT_EQ(label.text(), "Name");
    EXPECT_EQ(cadre.title(), "Frame");
    EXPECT_EQ(dedans.text(), "Inside");
    EXPECT_EQ(menu.title(), "F&ile");
    EXPECT_EQ(menu.menuAction()->text(), "F&ile");
    EXPECT_EQ(action.text(), "O&pen");
}

TEST_F(LangFormTest, TextsThatAreTyped)
{
    const QLineEdit& ligne = Ajouter("Text1", new QLineEdit("un", &m_form));
    const QPlainTextEdit& texte = Ajouter("Text2", new QPlainTextEdit("deux", &m_form));
    const QTextEdit& riche = Ajouter("Text3", new QTextEdit("trois", &m_form));
    QComboBox& combo = Ajouter("Combo1", new QComboBox(&m_form));
    combo.setEditable(true);
    combo.setEditText("quatre");
    Traduire("Text1_T=one\r\nText2_T=two\\r\\fthree\r\nText3_T=three\r\nCombo1_T=four\r\n");
    EXPECT_EQ(ligne.text(), "one");
    EXPECT_EQ(texte.toPlainText(), "two\nthree");
    EXPECT_EQ(riche.toPlainText(), "three");
    EXPECT_EQ(combo.currentText(), "four");
}

TEST_F(LangFormTest, ALineChosenFromAListStays)
{
    QComboBox& combo = Ajouter("Combo1", new QComboBox(&m_form));
    combo.addItems({"un", "deux"});
    Traduire("Combo1_T=one\r\n");
    EXPECT_EQ(combo.currentText(), "un");
}

TEST_F(LangFormTest, WhatIsEmptyAtLoadStaysEmpty)
{
    const QLineEdit& ligne = Ajouter("Text1", new QLineEdit(&m_form));
    const QLabel& label = Ajouter("Label1", new QLabel(&m_form));
    Traduire("Text1_T=a\r\nText1_TT=b\r\nLabel1_C=c\r\n");
    EXPECT_EQ(ligne.text(), "");
    EXPECT_EQ(ligne.toolTip(), "");
    EXPECT_EQ(label.text(), "");
}

TEST_F(LangFormTest, ToolTipsOfControls)
{
    QPushButton& bouton = Ajouter("btAjouter", new QPushButton(&m_form));
    bouton.setToolTip("Ajouter une colonne");
    Traduire("btAjouter_TT=Adds a column\r\n");
    EXPECT_EQ(bouton.toolTip(), "Adds a column");
}

TEST_F(LangFormTest, ToolTipsOfButtonsCountFromOneAndSeparatorsCount)
{
    QToolBar& barre = Ajouter("Toolbar1", m_form.addToolBar("Barre"));
    const QAction* nouveau = barre.addAction("Nouveau");
    barre.addSeparator();
    QAction* ouvrir = barre.addAction(QString());
    ouvrir->setToolTip("Ouvrir");
    const QAction* sansTexte = barre.addAction(QString());
    Traduire("Toolbar1_TT_0=zero\r\nToolbar1_TT_1=New\r\nToolbar1_TT_2=two\r\nToolbar1_TT_3=Open\r\n"
             "Toolbar1_TT_4=four\r\n");
    EXPECT_EQ(nouveau->toolTip(), "New");
    EXPECT_EQ(ouvrir->toolTip(), "Open");
    EXPECT_EQ(sansTexte->toolTip(), "") << "a button without a hint gets none";
}

TEST_F(LangFormTest, TheNameOfAButtonFollowsTheToolTipThatItRepeats)
{
    QToolBar& barre = Ajouter("Toolbar1", m_form.addToolBar("Barre"));
    const QAction* repete = barre.addAction("Ouvrir");
    QAction* autre = barre.addAction("Un nom à lui");
    autre->setToolTip("Imprimer");
    Traduire("Toolbar1_TT_1=Open\r\nToolbar1_TT_2=Print\r\n");
    EXPECT_EQ(repete->text(), "Open");
    EXPECT_EQ(autre->text(), "Un nom à lui");
}

TEST_F(LangFormTest, MembersOfAControlArrayHaveTheirIndexInTheName)
{
    QMenu& menu = Ajouter("mOutils", m_form.menuBar()->addMenu("Outils"));
    const QAction& premier = Ajouter("mPlugins_0", menu.addAction("a"));
    const QAction& troisieme = Ajouter("mPlugins_2", menu.addAction("c"));
    Traduire("mPlugins_0_C=first\r\nmPlugins_2_C=third\r\n");
    EXPECT_EQ(premier.text(), "first");
    EXPECT_EQ(troisieme.text(), "third");
}

TEST_F(LangFormTest, ASeparatorWithACaptionIsAnItemLikeAnyOther)
{
    QMenu& menu = Ajouter("mFichier", m_form.menuBar()->addMenu("Fichier"));
    const QAction& separateur = Ajouter("mSep1", menu.addSection("-"));
    Traduire("mSep1_C=Recent\r\n");
    EXPECT_EQ(separateur.text(), "Recent");
}

TEST_F(LangFormTest, FormsInsideTheFormAreLeftAlone)
{
    auto* zone = new QMdiArea(&m_form);
    m_form.setCentralWidget(zone);
    auto* document = new QMainWindow;
    const QLabel& duDocument = Ajouter("Label1", new QLabel("Document", document));
    const QMdiSubWindow* cadre = zone->addSubWindow(document);
    QDialog dialogue(&m_form);
    const QLabel& duDialogue = Ajouter("Label1", new QLabel("Dialogue", &dialogue));
    Traduire("Label1_C=Wrong\r\n");
    EXPECT_EQ(duDocument.text(), "Document");
    EXPECT_EQ(duDialogue.text(), "Dialogue");
    EXPECT_NE(cadre, nullptr);
}

TEST_F(LangFormTest, PartsThatTheToolkitMadeAreNoControls)
{
    QSpinBox nombre(&m_form);
    nombre.setValue(12);
    Traduire("_T=Wrong\r\nqt_spinbox_lineedit_T=99\r\n");
    EXPECT_EQ(nombre.value(), 12);
}

TEST_F(LangFormTest, AMnemonicIsTheTranslatedOne)
{
    const QPushButton& bouton = Ajouter("btFermer", new QPushButton("&Fermer", &m_form));
    Traduire("btFermer_C=&Close\r\n");
    EXPECT_EQ(bouton.shortcut(), QKeySequence("Alt+C"));
}

TEST_F(LangFormTest, AnAccessibleNameFollowsTheTextThatItRepeats)
{
    QPushButton& image = Ajouter("btSuivant", new QPushButton(&m_form));
    image.setToolTip("Suivant");
    image.setAccessibleName("Suivant");
    QPushButton& autre = Ajouter("btAutre", new QPushButton("Autre", &m_form));
    autre.setAccessibleName("Un nom à elle");
    Traduire("btSuivant_TT=Next\r\nbtAutre_C=Other\r\n");
    EXPECT_EQ(NomAccessible(image), "Next");
    EXPECT_EQ(NomAccessible(autre), "Un nom à elle");
}

TEST_F(LangFormTest, TheMessageBoxTranslatesItsButtonsAndKeepsItsText)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini", "[frmMsg]\r\nCaption=Wrong\r\nLabel1_C=Wrong\r\nbtYes_C=Yes\r\nbtNo_C=&No\r\n");
    const frmMsg boite("Continuer ?", 3, "Zelvane");
    EXPECT_EQ(boite.windowTitle(), "Zelvane");
    EXPECT_EQ(boite.findChild<QLabel*>("Label1")->text(), "Continuer ?");
    EXPECT_EQ(boite.findChild<QPushButton*>("btYes")->text(), "&Yes");
    EXPECT_EQ(boite.findChild<QPushButton*>("btYes")->shortcut(), QKeySequence("Alt+Y"));
    EXPECT_EQ(boite.findChild<QPushButton*>("btNo")->text(), "&No");
    EXPECT_EQ(boite.findChild<QPushButton*>("btCancel")->text(), "&Annuler");
}

TEST_F(LangFormTest, AnotherLanguageLeavesWhatItHasNoTextFor)
{
    const QLabel& label = Ajouter("Label1", new QLabel("Nom", &m_form));
    Traduire("Label1_C=Name\r\n");
    Traduire("");
    EXPECT_EQ(label.text(), "Name");
}

TEST_F(LangFormTest, AFormThatChangesItsLanguageIsFrenchWhereTheNewOneHasNothing)
{
    m_form.setWindowTitle("Essai");
    QLabel& label = Ajouter("Label1", new QLabel("Nom", &m_form));
    label.setToolTip("Le nom");
    label.setAccessibleName("Nom");
    const QLineEdit& champ = Ajouter("Text1", new QLineEdit("un", &m_form));
    QMenu& menu = Ajouter("mFichier", m_form.menuBar()->addMenu("&Fichier"));
    const QAction& action = Ajouter("mOuvrir", menu.addAction("&Ouvrir"));
    QToolBar& barre = Ajouter("Toolbar1", m_form.addToolBar("Barre"));
    const QAction* bouton = barre.addAction("Copier");
    Traduire("Caption=Test\r\nLabel1_C=Name\r\nLabel1_TT=The name\r\nText1_T=one\r\nmFichier_C=&File\r\n"
             "mOuvrir_C=&Open\r\nToolbar1_TT_1=Copy\r\n");
    ASSERT_EQ(bouton->text(), "Copy");
    Traduire("Label1_C=Name2\r\n");
    for (const char* cles : {"Label1_C=Nome\r\n", "Label1_C=Namn\r\n", ""}) {
        FichierLangue =
            PlateformeDeTest::Courante().dossier.Ecrire("lang/autre.ini", QByteArray("[frmTest]\r\n") + cles);
        ChangerLangueDe(m_form);
        EXPECT_EQ(label.text(), *cles ? QString(cles).section('=', 1).trimmed() : QString("Nom"));
        EXPECT_EQ(label.accessibleName(), label.text());
        EXPECT_EQ(label.toolTip(), "Le nom");
        EXPECT_EQ(champ.text(), "un");
        EXPECT_EQ(menu.title(), "&Fichier");
        EXPECT_EQ(action.text(), "&Ouvrir");
        EXPECT_EQ(bouton->text(), "Copier");
        EXPECT_EQ(bouton->toolTip(), "Copier");
        EXPECT_EQ(m_form.windowTitle(), "Essai");
    }
}

TEST_F(LangFormTest, AccessibleTextsOfTheirOwnAreTranslatedAndFrenchAgain)
{
    QLineEdit& champ = Ajouter("Text1", new QLineEdit(&m_form));
    champ.setToolTip("Aide");
    champ.setAccessibleName("Le champ");
    champ.setAccessibleDescription("Pour écrire");
    Traduire("Text1_TT=Help\r\nText1_A=The field\r\nText1_AD=To write\r\n");
    EXPECT_EQ(champ.accessibleName(), "The field");
    EXPECT_EQ(champ.accessibleDescription(), "To write");
    FichierLangue.clear();
    ChangerLangueDe(m_form);
    EXPECT_EQ(champ.accessibleName(), "Le champ");
    EXPECT_EQ(champ.accessibleDescription(), QStringLiteral("Pour écrire"));
}

TEST_F(LangFormTest, AnAccessibleNameThatRepeatsACaptionHasNoTextOfItsOwn)
{
    QLabel& label = Ajouter("Label1", new QLabel("Nom", &m_form));
    label.setAccessibleName("Nom");
    Traduire("Label1_C=Name\r\nLabel1_A=Wrong\r\n");
    EXPECT_EQ(label.accessibleName(), "Name");
}

TEST_F(LangFormTest, WithNoLanguageAtAllItIsFrenchAgain)
{
    m_form.setWindowTitle("Essai");
    const QLabel& label = Ajouter("Label1", new QLabel("Nom", &m_form));
    Traduire("Caption=Test\r\nLabel1_C=Name\r\n");
    m_form.setWindowTitle("Test - [a.qrt]"); // as a document that fills the frame does
    FichierLangue.clear();
    ChangerLangueDe(m_form);
    EXPECT_EQ(label.text(), "Nom");
    EXPECT_EQ(m_form.windowTitle(), "Essai");
}

TEST_F(LangFormTest, WhatTheProgramHasSetSinceIsNotMadeFrench)
{
    m_form.setWindowTitle("Essai");
    QLabel& label = Ajouter("Label1", new QLabel("Nom", &m_form));
    Traduire("Caption=Test\r\nLabel1_C=Name\r\n");
    label.setText("3 / 7");
    m_form.setWindowTitle("a.qrt");
    FichierLangue.clear();
    ChangerLangueDe(m_form);
    EXPECT_EQ(label.text(), "3 / 7");
    EXPECT_EQ(m_form.windowTitle(), "a.qrt");
}

} // namespace
