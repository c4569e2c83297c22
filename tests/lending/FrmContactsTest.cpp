#include "lending/frmContacts.h"

#include "extensions/langue/modLang.h"
#include "lending/FormesDePret.h"
#include "lending/frmContacts2.h"
#include "support/Accessibilite.h"
#include "support/SuiteDeModales.h"
#include "vue/VueDesLignes.h"

#include <QFile>
#include <QHeaderView>

#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace {

class FrmContactsTest : public FormeDePret
{
protected:
    std::unique_ptr<frmContacts> Ouvrir()
    {
        auto form = std::make_unique<frmContacts>();
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
        return form;
    }
    static VueDesLignes& Vue(const QWidget& form) { return *form.findChild<VueDesLignes*>(u"ListView1"_s); }
    /// The rows as "name/e-mail".
    static QStringList Lignes(const QWidget& form)
    {
        QCoreApplication::processEvents();
        const QAbstractItemModel& modele = *Vue(form).model();
        QStringList lignes;
        for (int i = 0; i < modele.rowCount(); ++i)
            lignes.append(modele.index(i, 0).data().toString() + u'/' + modele.index(i, 1).data().toString());
        return lignes;
    }
    static QPoint Milieu(const QWidget& form, int ligne)
    {
        return Vue(form).visualRect(Vue(form).model()->index(ligne - 1, 0)).center();
    }
    static void Choisir(const QWidget& form, int ligne, Qt::KeyboardModifiers avec = Qt::NoModifier)
    {
        QTest::mouseClick(Vue(form).viewport(), Qt::LeftButton, avec, Milieu(form, ligne));
    }
    static void DoubleCliquer(const QWidget& form, int ligne)
    {
        Choisir(form, ligne);
        QTest::mouseDClick(Vue(form).viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(form, ligne));
    }
    /// What is done in the dialog of one contact.
    static SuiteDeModales::Etape Fiche(const std::function<void(QWidget&)>& geste)
    {
        return {u"frmContacts2"_s, geste};
    }
    static void Remplir(const QWidget& fiche, const QString& nom, const QString& email)
    {
        Taper(Champ(fiche, "Text2"), nom);
        Taper(Champ(fiche, "Text1"), email);
        Cliquer(fiche, "btAjouter");
    }
    void Trois() { Liste("count=3\r\nNom1=Paul|p@x.fr\r\nNom2=Ida|\r\nNom3=paul|q\r\n"); }
    QStringList TroisLignes() const { return {"Paul/p@x.fr", "Ida/", "paul/q"}; }
};

} // namespace

// ---- what it shows

TEST_F(FrmContactsTest, ShowsTheListInTwoColumns)
{
    Trois();
    const auto form = Ouvrir();
    EXPECT_EQ(form->windowTitle(), "Organiser vos Contacts");
    EXPECT_EQ(Lignes(*form), TroisLignes());
    EXPECT_EQ(Vue(*form).Colonnes()(1).Text(), "Nom");
    EXPECT_EQ(Vue(*form).Colonnes()(1).Width(), 2000);
    EXPECT_EQ(Vue(*form).Colonnes()(2).Text(), "Email");
    EXPECT_EQ(Vue(*form).Colonnes()(2).Width(), 3000);
    EXPECT_FALSE(Vue(*form).horizontalHeader()->sectionsClickable()) << "the order is that of the file";
    EXPECT_TRUE(reponses.Cles().isEmpty());
    EXPECT_EQ(ControlesSansNom(*form), QStringList());
}

TEST_F(FrmContactsTest, TheButtonsHaveTheirHintsAndPictures)
{
    const auto form = Ouvrir();
    const std::pair<const char*, QString> astuces[] = {{"btAddContact", u"Ajouter un contact"_s},
                                                       {"btEditContact", u"Editer le contact sélectionné"_s},
                                                       {"btSupprContact", u"Supprimer le contact sélectionné"_s},
                                                       {"btOK", u"Valider les changements"_s},
                                                       {"btAnnuler", u"Ne pas tenir compte des changements"_s}};
    for (const auto& [nom, astuce] : astuces) {
        EXPECT_EQ(Bouton(*form, nom).toolTip(), astuce);
        EXPECT_FALSE(Bouton(*form, nom).icon().isNull()) << nom;
    }
    EXPECT_TRUE(Bouton(*form, "btOK").isDefault());
}

TEST_F(FrmContactsTest, TellsWhatCouldNotBeRead)
{
    Liste("count=9\r\nNom1=Paul|\r\nNom2=Ida\r\n");
    const auto form = Ouvrir();
    EXPECT_EQ(Lignes(*form), QStringList({"Paul/"}));
    ASSERT_EQ(reponses.Cles(), QStringList({"msgContactsManquants"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Contacts de la liste qui n'ont pas pu être lus : 8"_s);
}

TEST_F(FrmContactsTest, TellsAFileThatCannotBeReadAndLeavesIt)
{
    PlateformeDeTest& p = PlateformeDeTest::Courante();
    plateforme().ini = &p.iniEnMemoire;
    p.iniEnMemoire.fichiers.insert(FichierZelvaneIni(), "[Preter]\r\ncount=1\r\nNom1=Paul|\r\n");
    p.iniEnMemoire.casses.insert(FichierZelvaneIni());
    const auto form = Ouvrir();
    EXPECT_EQ(reponses.Cles(), QStringList({"msgContactsIllisibles"}));
    reponses.Preparer(RepOui);
    Cliquer(*form, "btOK");
    EXPECT_EQ(reponses.Cles().mid(1), QStringList({"msgContactsAPerdre", "msgContactsNonEcrits"}));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(p.iniEnMemoire.ecritures, 0);
}

// ---- the dialog of one contact

TEST_F(FrmContactsTest, AddsAContactBehindTheOthers)
{
    Trois();
    const auto form = Ouvrir();
    {
        const SuiteDeModales suite({Fiche([](QWidget& fiche) {
            EXPECT_EQ(fiche.windowTitle(), "Ajouter un Contact");
            EXPECT_EQ(dynamic_cast<frmContacts2&>(fiche).Tag, "0");
            EXPECT_EQ(Libelle(fiche, "Label1"), "Tapez le nom du contact que vous souhaitez ajouter");
            EXPECT_EQ(Libelle(fiche, "Label2"), "Quel est son e-mail");
            EXPECT_EQ(Caption(fiche, "btAjouter"), u"Mettre à jour"_s);
            for (const char* bouton : {"btAjouter", "Annuler"})
                EXPECT_FALSE(Bouton(fiche, bouton).icon().isNull()) << bouton;
            EXPECT_EQ(Champ(fiche, "Text2").text() + Champ(fiche, "Text1").text(), "");
            EXPECT_EQ(fiche.focusWidget(), &Champ(fiche, "Text2"));
            EXPECT_EQ(ControlesSansNom(fiche), QStringList());
            Remplir(fiche, u"Zoe"_s, u"z@x.fr"_s);
        })});
        Cliquer(*form, "btAddContact");
    }
    EXPECT_EQ(Lignes(*form), TroisLignes() + QStringList({"Zoe/z@x.fr"}));
}

TEST_F(FrmContactsTest, EditsTheSelectedContact)
{
    Trois();
    const auto form = Ouvrir();
    Choisir(*form, 2);
    {
        const SuiteDeModales suite({Fiche([](QWidget& fiche) {
            EXPECT_EQ(fiche.windowTitle(), "Editer un Contact");
            EXPECT_EQ(dynamic_cast<frmContacts2&>(fiche).Tag, "2");
            EXPECT_EQ(Libelle(fiche, "Label1"), "Tapez le nom de votre contact");
            EXPECT_EQ(Champ(fiche, "Text2").text(), "Ida");
            EXPECT_EQ(Champ(fiche, "Text1").text(), "");
            Remplir(fiche, u"Idaline"_s, u"i@x.fr"_s);
        })});
        Cliquer(*form, "btEditContact");
    }
    EXPECT_EQ(Lignes(*form), QStringList({"Paul/p@x.fr", "Idaline/i@x.fr", "paul/q"}));
}

TEST_F(FrmContactsTest, OfSeveralSelectedTheLastOneIsEditedAndADoubleClickEditsToo)
{
    Trois();
    const auto form = Ouvrir();
    Choisir(*form, 3);
    Choisir(*form, 1, Qt::ControlModifier);
    {
        const SuiteDeModales suite({Fiche([](QWidget& fiche) {
            EXPECT_EQ(Champ(fiche, "Text2").text(), "paul");
            EXPECT_EQ(Champ(fiche, "Text1").text(), "q");
            Cliquer(fiche, "Annuler");
        })});
        Cliquer(*form, "btEditContact");
    }
    const SuiteDeModales suite({Fiche([](QWidget& fiche) {
        EXPECT_EQ(Champ(fiche, "Text2").text(), "Paul");
        Cliquer(fiche, "Annuler");
    })});
    DoubleCliquer(*form, 1);
}

TEST_F(FrmContactsTest, WithoutASelectionNothingIsEditedOrRemoved)
{
    Trois();
    const auto form = Ouvrir();
    Cliquer(*form, "btEditContact");
    Cliquer(*form, "btSupprContact");
    EXPECT_EQ(Lignes(*form), TroisLignes());
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(FrmContactsTest, AnEmptyNameAndOneThatAnotherHasAreRefused)
{
    Trois();
    const auto form = Ouvrir();
    Choisir(*form, 2);
    const SuiteDeModales suite({Fiche([this](QWidget& fiche) {
        Remplir(fiche, QString(), u"x"_s);
        EXPECT_TRUE(fiche.isVisible());
        Remplir(fiche, u"Paul"_s, u"x"_s);
        EXPECT_TRUE(fiche.isVisible());
        EXPECT_EQ(fiche.focusWidget(), &Champ(fiche, "Text2"));
        EXPECT_EQ(reponses.Cles(), QStringList({"Veuillez taper un nom",
                                                u"Le nom existe déjà dans la liste, veuillez taper un autre nom"_s}));
        Remplir(fiche, u"PAUL"_s, u"x"_s);
    })});
    Cliquer(*form, "btEditContact");
    EXPECT_EQ(Lignes(*form), QStringList({"Paul/p@x.fr", "PAUL/x", "paul/q"})) << "names differ by case";
}

TEST_F(FrmContactsTest, ANameThatIsThereIsNotAddedAgain)
{
    Trois();
    const auto form = Ouvrir();
    const SuiteDeModales suite({Fiche([this](QWidget& fiche) {
        Remplir(fiche, u"Paul"_s, u"x"_s);
        EXPECT_TRUE(fiche.isVisible());
        EXPECT_EQ(reponses.Cles(), QStringList(u"Le nom existe déjà dans la liste, veuillez taper un autre nom"_s));
        QTest::keyClick(&fiche, Qt::Key_Escape);
    })});
    Cliquer(*form, "btAddContact");
    EXPECT_EQ(Lignes(*form), TroisLignes());
}

TEST_F(FrmContactsTest, AContactKeepsItsNameUnlessALaterOneHasIt)
{
    Liste("count=3\r\nNom1=Paul|un\r\nNom2=Ida|\r\nNom3=Paul|trois\r\n");
    const auto form = Ouvrir();
    Choisir(*form, 3);
    {
        const SuiteDeModales suite({Fiche([](QWidget& fiche) { Remplir(fiche, u"Paul"_s, u"neuf"_s); })});
        Cliquer(*form, "btEditContact");
    }
    EXPECT_EQ(Lignes(*form), QStringList({"Paul/un", "Ida/", "Paul/neuf"})) << "it is the last of that name";
    Choisir(*form, 1);
    const SuiteDeModales suite({Fiche([](QWidget& fiche) {
        Remplir(fiche, u"Paul"_s, u"x"_s);
        EXPECT_TRUE(fiche.isVisible());
        fiche.close();
    })});
    Cliquer(*form, "btEditContact");
    EXPECT_EQ(Lignes(*form), QStringList({"Paul/un", "Ida/", "Paul/neuf"}));
    EXPECT_EQ(reponses.Cles().size(), 1);
}

TEST_F(FrmContactsTest, TheFieldsHaveOneLineAndTheKeysValidate)
{
    const auto form = Ouvrir();
    const SuiteDeModales suite({Fiche([](QWidget& fiche) {
        Champ(fiche, "Text2").insert(u"Paul\nLouis"_s);
        QTest::keyClick(&Champ(fiche, "Text2"), Qt::Key_Tab);
        EXPECT_EQ(fiche.focusWidget(), &Champ(fiche, "Text1"));
        QTest::keyClicks(&Champ(fiche, "Text1"), u"p"_s);
        QTest::keyClick(&Champ(fiche, "Text1"), Qt::Key_Return);
    })});
    Cliquer(*form, "btAddContact");
    EXPECT_EQ(Lignes(*form), QStringList({"Paul Louis/p"}));
}

// ---- removing

TEST_F(FrmContactsTest, RemovesTheSelectedContactAfterAQuestion)
{
    Trois();
    const auto form = Ouvrir();
    Choisir(*form, 2);
    for (const int non : {RepNon, RepAnnuler}) {
        reponses.Preparer(non);
        Cliquer(*form, "btSupprContact");
        EXPECT_EQ(Lignes(*form), TroisLignes());
    }
    reponses.Preparer(RepOui);
    Cliquer(*form, "btSupprContact");
    EXPECT_EQ(Lignes(*form), QStringList({"Paul/p@x.fr", "paul/q"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Voulez-vous supprimer le contact selectionné?"_s);
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOuiNonAnnuler);
    EXPECT_EQ(reponses.Affiches()[0].titre, "");
}

// ---- the file

TEST_F(FrmContactsTest, OkWritesTheListAndLeavesWhatIsBehindIt)
{
    Trois();
    const auto form = Ouvrir();
    Choisir(*form, 1);
    reponses.Preparer(RepOui);
    Cliquer(*form, "btSupprContact");
    Cliquer(*form, "btOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=2\r\nNom1=Ida|\r\nNom2=paul|q\r\nNom3=paul|q\r\n");
}

TEST_F(FrmContactsTest, AnnulerAndEscapeLeaveTheFileAsItWas)
{
    Trois();
    const QByteArray avant = Ini();
    for (const bool parEchap : {false, true}) {
        const auto form = Ouvrir();
        {
            const SuiteDeModales suite({Fiche([](QWidget& fiche) { Remplir(fiche, u"Zoe"_s, u"z"_s); }),
                                        Fiche([](QWidget& fiche) { Remplir(fiche, u"Max"_s, u"m"_s); })});
            Cliquer(*form, "btAddContact");
            Choisir(*form, 1);
            Cliquer(*form, "btEditContact");
        }
        reponses.Preparer(RepOui);
        Cliquer(*form, "btSupprContact");
        EXPECT_EQ(Lignes(*form), QStringList({"Ida/", "paul/q", "Zoe/z"}));
        if (parEchap)
            QTest::keyClick(form.get(), Qt::Key_Escape);
        else
            Cliquer(*form, "btAnnuler");
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(Ini(), avant);
    }
}

TEST_F(FrmContactsTest, OkMakesAReadOnlyFileWritable)
{
    Trois();
    ASSERT_TRUE(plateforme().attributs->MettreLectureSeule(FichierZelvaneIni(), true));
    const auto form = Ouvrir();
    Cliquer(*form, "btOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(plateforme().attributs->EstLectureSeule(FichierZelvaneIni()));
}

TEST_F(FrmContactsTest, OkAsksBeforeItOverwritesWhatWasNotRead)
{
    Liste("count=2\r\nNom1=Paul\r\nNom2=Ida|\r\n");
    const auto form = Ouvrir();
    const QByteArray avant = Ini();
    reponses.Preparer(RepNon);
    Cliquer(*form, "btOK");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Ini(), avant);
    ASSERT_EQ(reponses.Cles().last(), "msgContactsAPerdre");
    EXPECT_EQ(reponses.Affiches().last().genre, MsgOuiNon);
    EXPECT_EQ(reponses.Affiches().last().message.defaut, RepNon);
    reponses.Preparer(RepOui);
    Cliquer(*form, "btOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=1\r\nNom1=Ida|\r\nNom2=Ida|\r\n");
}

TEST_F(FrmContactsTest, OkAsksWhenSomebodyWasAddedMeanwhile)
{
    Trois();
    const auto form = Ouvrir();
    Liste("count=1\r\nNom1=Autre|\r\n");
    reponses.Preparer(RepNon);
    Cliquer(*form, "btOK");
    EXPECT_EQ(reponses.Cles(), QStringList({"msgContactsAPerdre"}));
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=1\r\nNom1=Autre|\r\n");
}

TEST_F(FrmContactsTest, OkTellsAFileThatIsHeldAndTheListStays)
{
    Trois();
    const auto form = Ouvrir();
    QFile autre(FichierZelvaneIni());
    ASSERT_TRUE(autre.open(QIODevice::ReadOnly));
    ASSERT_EQ(flock(autre.handle(), LOCK_EX), 0);
    Cliquer(*form, "btOK");
    ASSERT_EQ(reponses.Cles(), QStringList({"msgContactsNonEcrits"}));
    EXPECT_TRUE(reponses.Affiches()[0].message.texte.contains(FichierZelvaneIni()));
    EXPECT_TRUE(form->isVisible());
    autre.close();
    Cliquer(*form, "btOK");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmContactsTest, ANameWithABarLosesWhatStandsBehindItAtTheNextLoad)
{
    {
        const auto form = Ouvrir();
        const SuiteDeModales suite({Fiche([](QWidget& fiche) { Remplir(fiche, u"a|b"_s, u"mail"_s); })});
        Cliquer(*form, "btAddContact");
        Cliquer(*form, "btOK");
        EXPECT_FALSE(form->isVisible());
    }
    EXPECT_EQ(Lignes(*Ouvrir()), QStringList({"a/b"}));
}

// ---- choosing whom to write to

TEST_F(FrmContactsTest, ToSendNeedsASelectedContactWithAnEMail)
{
    Trois();
    const auto form = Ouvrir();
    form->Tag = u"send"_s;
    Cliquer(*form, "btOK");
    EXPECT_EQ(reponses.Cles(), QStringList({u"msgContactAChoisir"_s}));
    EXPECT_TRUE(form->isVisible());
    Choisir(*form, 1);
    Cliquer(*form, "btOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(reponses.Cles().size(), 1);
}

TEST_F(FrmContactsTest, ToSendAsksForTheEMailThatIsMissing)
{
    Trois();
    const auto form = Ouvrir();
    form->Tag = u"send"_s;
    Choisir(*form, 2);
    for (const int non : {RepNon, RepAnnuler}) {
        reponses.Preparer(non);
        Cliquer(*form, "btOK");
        EXPECT_TRUE(form->isVisible());
    }
    EXPECT_EQ(reponses.Affiches()[0].message.texte,
              u"L'e-mail de votre contact n'a pas été defini,\nVoulez vous le definir maintenant ?"_s);
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOuiNonAnnuler);
    {
        const SuiteDeModales suite({Fiche([](QWidget& fiche) { Cliquer(fiche, "Annuler"); })});
        reponses.Preparer(RepOui);
        Cliquer(*form, "btOK");
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(reponses.Affiches().last().message.texte,
                  u"Vous n'avez toujours pas defini l'email de votre contact."_s);
        EXPECT_EQ(reponses.Affiches().last().titre, "Action en attente !");
    }
    const SuiteDeModales suite({Fiche([](QWidget& fiche) { Remplir(fiche, u"Ida"_s, u"i@x.fr"_s); })});
    reponses.Preparer(RepOui);
    Cliquer(*form, "btOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(Ini().contains("Nom2=Ida|i@x.fr"));
}

TEST_F(FrmContactsTest, ToSendADoubleClickValidates)
{
    Trois();
    const auto form = Ouvrir();
    form->Tag = u"send"_s;
    DoubleCliquer(*form, 1);
    EXPECT_FALSE(form->isVisible());
}

// ---- languages

TEST_F(FrmContactsTest, SpeaksTheLanguageInForceButForTheTitlesOfOneContact)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini",
        "[frmContacts]\r\nCaption=Contacts\r\n[frmContacts2]\r\nCaption=Add\r\nLabel2_C=E-mail\r\n");
    const auto form = Ouvrir();
    EXPECT_EQ(form->windowTitle(), "Contacts");
    const SuiteDeModales suite({Fiche([](QWidget& fiche) {
        EXPECT_EQ(fiche.windowTitle(), "Ajouter un Contact");
        EXPECT_EQ(Libelle(fiche, "Label2"), "E-mail");
        fiche.close();
    })});
    Cliquer(*form, "btAddContact");
}
