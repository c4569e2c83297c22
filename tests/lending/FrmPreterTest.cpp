#include "lending/frmPreter.h"

#include "extensions/langue/modLang.h"
#include "lending/FormesDePret.h"
#include "support/Accessibilite.h"

#include <QAbstractItemView>

using namespace Qt::StringLiterals;

namespace {

class FrmPreterTest : public FormeDePret
{
protected:
    /// Opens the dialog and hands it over.
    static std::unique_ptr<frmPreter> Ouvrir()
    {
        auto form = std::make_unique<frmPreter>(FichierZelvaneIni());
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
        return form;
    }
    static QComboBox& Noms(const QWidget& form) { return *form.findChild<QComboBox*>(u"noms"_s); }
    static QStringList Lignes(const QWidget& form)
    {
        QStringList lignes;
        for (int i = 0; i < Noms(form).count(); ++i)
            lignes.append(Noms(form).itemText(i));
        return lignes;
    }
    static QString Email(const QWidget& form) { return Champ(form, "Text1").text(); }
    /// Chooses a line of the list with the mouse.
    static void Choisir(const QWidget& form, int ligne)
    {
        QComboBox& noms = Noms(form);
        noms.showPopup();
        QAbstractItemView& liste = *noms.view();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(liste.window()));
        const QPoint place = liste.visualRect(liste.model()->index(ligne, 0)).center();
        QTest::mouseMove(liste.viewport(), place);
        // The list takes no click that comes with its opening.
        QTest::keyClick(&liste, Qt::Key_Home);
        for (int i = 0; i < ligne; ++i)
            QTest::keyClick(&liste, Qt::Key_Down);
        QTest::keyClick(&liste, Qt::Key_Return);
    }
};

} // namespace

TEST_F(FrmPreterTest, ShowsItsWords)
{
    Liste("count=0\r\n");
    const auto form = Ouvrir();
    EXPECT_EQ(form->windowTitle(), u"Prêt de cd"_s);
    EXPECT_EQ(Libelle(*form, "Label1"),
              u"Tape le nom de la personne à qui tu as prété les cd ou selectionne un nom dans la liste"_s);
    EXPECT_EQ(Libelle(*form, "Label2"), u"Quel est son e-mail (facultatif)"_s);
    EXPECT_EQ(Caption(*form, "btMettreAJour"), u"Mettre à jour"_s);
    EXPECT_EQ(Caption(*form, "btAnnuler"), "Annuler");
    EXPECT_EQ(form->findChild<QLabel*>(u"Label1"_s)->buddy(), &Noms(*form));
    EXPECT_EQ(form->findChild<QLabel*>(u"Label2"_s)->buddy(), &Champ(*form, "Text1"));
    EXPECT_TRUE(Bouton(*form, "btMettreAJour").isDefault());
    EXPECT_FALSE(form->accepted);
    EXPECT_EQ(ControlesSansNom(*form), QStringList());
}

TEST_F(FrmPreterTest, ListsTheContactsInTheOrderOfTheFile)
{
    Liste("Count=3\r\nNom2=Ida|i@x.fr\r\nNom1=Paul|\r\nNom3=Abel|\r\nNom4=Zoe|\r\n");
    const auto form = Ouvrir();
    EXPECT_EQ(Lignes(*form), QStringList({"Paul", "Ida", "Abel"}));
    EXPECT_EQ(Noms(*form).currentText(), "");
    EXPECT_EQ(Email(*form), "");
    EXPECT_TRUE(reponses.Cles().isEmpty());
}

TEST_F(FrmPreterTest, MakesTheFileThatIsMissing)
{
    const auto form = Ouvrir();
    EXPECT_EQ(Ini(), "[FileInfo]\r\nType=QRT INI FILE\r\nVersion=2\r\n\r\n[Preter]\r\ncount=0\r\n");
    EXPECT_EQ(Lignes(*form), QStringList());
}

TEST_F(FrmPreterTest, TellsWhatOfTheListCouldNotBeRead)
{
    Liste("count=4\r\nNom1=Paul|\r\nNom2=Ida\r\nNom3=Jo|\r\n");
    const auto form = Ouvrir();
    EXPECT_EQ(Lignes(*form), QStringList({"Paul", "Jo"}));
    ASSERT_EQ(reponses.Cles(), QStringList({"msgContactsManquants"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Contacts de la liste qui n'ont pas pu être lus : 2"_s);
}

TEST_F(FrmPreterTest, ANameThatIsTypedBringsItsEMail)
{
    Liste("count=2\r\nNom1=Paul|p@x.fr\r\nNom2=Ida|i@x.fr\r\n");
    const auto form = Ouvrir();
    EXPECT_EQ(form->focusWidget(), &Noms(*form));
    QTest::keyClicks(&Noms(*form), u"Pau"_s);
    EXPECT_EQ(Noms(*form).currentText(), "Pau") << "what is typed stays so";
    EXPECT_EQ(Email(*form), "");
    QTest::keyClicks(&Noms(*form), u"l"_s);
    EXPECT_EQ(Email(*form), "p@x.fr");
    QTest::keyClicks(&Noms(*form), u"a"_s);
    EXPECT_EQ(Email(*form), "");
}

TEST_F(FrmPreterTest, NamesAreComparedExactlyAndTheLaterOfTwoCounts)
{
    Liste("count=3\r\nNom1=Paul|un\r\nNom2=Paul|deux\r\nNom3=paul|trois\r\n");
    const auto form = Ouvrir();
    QTest::keyClicks(&Noms(*form), u"Paul"_s);
    EXPECT_EQ(Email(*form), "deux");
    Choisir(*form, 0);
    EXPECT_EQ(Email(*form), "deux");
}

TEST_F(FrmPreterTest, AChoiceInTheListBringsTheEMailAlsoTheSecondTime)
{
    Liste("count=2\r\nNom1=Paul|p@x.fr\r\nNom2=Ida|i@x.fr\r\n");
    const auto form = Ouvrir();
    Choisir(*form, 1);
    EXPECT_EQ(Noms(*form).currentText(), "Ida");
    EXPECT_EQ(Email(*form), "i@x.fr");
    Taper(Champ(*form, "Text1"), u"autre"_s);
    Choisir(*form, 1);
    EXPECT_EQ(Email(*form), "i@x.fr");
}

TEST_F(FrmPreterTest, AnEMailThatIsTypedBehindTheNameStays)
{
    Liste("count=1\r\nNom1=Paul|p@x.fr\r\n");
    const auto form = Ouvrir();
    QTest::keyClicks(&Noms(*form), u"Paul"_s);
    QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(form->focusWidget(), &Champ(*form, "Text1"));
    Taper(Champ(*form, "Text1"), u"q@x.fr"_s);
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(form->accepted);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Emprunteur(), (Contact{"Paul", "q@x.fr"}));
}

TEST_F(FrmPreterTest, AnEmptyNameIsRefusedAndTheDialogStays)
{
    Liste("count=0\r\n");
    const auto form = Ouvrir();
    Taper(Champ(*form, "Text1"), u"p@x.fr"_s);
    Cliquer(*form, "btMettreAJour");
    ASSERT_EQ(reponses.Cles(), QStringList({"msg30"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte,
              u"Veuillez entrer le nom de la personne à\nqui vous avez prêté les entrées selectionnées"_s);
    EXPECT_FALSE(form->accepted);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->focusWidget(), &Noms(*form));
    EXPECT_EQ(Email(*form), "p@x.fr");
}

TEST_F(FrmPreterTest, AnnulerEscapeAndTheCloseBoxAcceptNothing)
{
    Liste("count=0\r\n");
    for (int fois = 0; fois < 3; ++fois) {
        const auto form = Ouvrir();
        QTest::keyClicks(&Noms(*form), u"Paul"_s);
        if (fois == 0)
            Cliquer(*form, "btAnnuler");
        else if (fois == 1)
            QTest::keyClick(form.get(), Qt::Key_Escape);
        else
            form->close();
        EXPECT_FALSE(form->isVisible());
        EXPECT_FALSE(form->accepted);
        EXPECT_EQ(form->Emprunteur().nom, "Paul") << "can be read after the dialog closed";
    }
}

TEST_F(FrmPreterTest, FieldsHaveOneLine)
{
    Liste("count=0\r\n");
    const auto form = Ouvrir();
    Noms(*form).lineEdit()->insert(u"Paul\nLouis"_s);
    Champ(*form, "Text1").insert(u"a\r\nb\n"_s);
    EXPECT_EQ(form->Emprunteur().nom, "Paul Louis");
    EXPECT_FALSE(form->Emprunteur().email.contains(u'\n'));
}

TEST_F(FrmPreterTest, SpeaksTheLanguageInForce)
{
    Liste("count=0\r\n");
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire("lang/english.ini",
                                                                "[frmPreter]\r\nCaption=Lend\r\nLabel2_C=E-mail\r\n");
    const frmPreter form(FichierZelvaneIni());
    EXPECT_EQ(form.windowTitle(), "Lend");
    EXPECT_EQ(Libelle(form, "Label2"), "E-mail");
}
