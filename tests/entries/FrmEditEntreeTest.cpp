// The editor as its callers see it: its texts, the rows, what validating writes, and how it closes.
#include "extensions/langue/modLang.h"
#include "support/Accessibilite.h"
#include "support/GardeModale.h"

#include "EditeurDeTest.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

class FrmEditEntreeTest : public EditeurDeTest
{
};

const QString s_msg65 = u"Tous les champs sont vides. Veuillez rentrer au moins une information"_s;
const QString s_msg68 = u"Le caractere  | est interdit, veuillez l'enlever"_s;

} // namespace

// ---- Load ----

TEST_F(FrmEditEntreeTest, ComesWithItsTextsAndNothingSet)
{
    const auto sansMarque = [](QString texte) { return texte.remove(u'&'); };
    EXPECT_EQ(form.windowTitle(), u"Ajouter une Entrée"_s);
    EXPECT_EQ(Le<QToolButton>("btplus").toolTip(), "Memorise la selection");
    EXPECT_EQ(Le<QToolButton>("btmoins").toolTip(), "Enleve la selection");
    EXPECT_EQ(sansMarque(Le<QPushButton>("btPrecedent").text()), "Precedent");
    EXPECT_EQ(sansMarque(Le<QPushButton>("btSuivant").text()), "Suivant");
    EXPECT_EQ(sansMarque(Le<QPushButton>("btAjouter").text()), "Ajouter");
    EXPECT_EQ(sansMarque(Le<QPushButton>("Annuler").text()), "Annuler");
    EXPECT_EQ(Le<QGroupBox>("Frame1").title(), "Image");
    EXPECT_EQ(Le<QLabel>("Label2").text(), "Cliquez sur l'image pour en changer.");
    EXPECT_EQ(Le<QLabel>("Label1").text(),
              "Cliquez sur un element de la liste et modifier le texte dans le champ ci contre.");
    EXPECT_EQ(Combo1().Texte(), "");
    EXPECT_EQ(form.ImgTag(), "");
    EXPECT_FALSE(form.Charge || form.Valide || form.Referme || form.Modifie);
    EXPECT_EQ(form.NombreDeLignes(), 0);
}

TEST_F(FrmEditEntreeTest, TheListHasTwoColumnsAndSelectsWholeRows)
{
    Editer(1);
    EXPECT_EQ(LV().headerItem()->text(0), "Colonne");
    EXPECT_EQ(LV().headerItem()->text(1), u"Nouvelle Entrée"_s);
    EXPECT_EQ(LV().columnWidth(0), qRound(1500 * form.logicalDpiX() / 1440.0));
    EXPECT_EQ(LV().columnWidth(1), qRound(4500 * form.logicalDpiX() / 1440.0));
    EXPECT_EQ(LV().selectionBehavior(), QAbstractItemView::SelectRows);
}

TEST_F(FrmEditEntreeTest, IsInTheLanguageInForce)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini", "[frmEditEntree]\r\nCaption=Add an entry\r\nAnnuler_C=Cancel\r\nbtplus_TT=Keep\r\n");
    frmEditEntree anglais;
    EXPECT_EQ(anglais.windowTitle(), "Add an entry");
    EXPECT_EQ(anglais.findChild<QPushButton*>("Annuler")->text(), "Cancel");
    EXPECT_EQ(anglais.findChild<QToolButton*>("btplus")->toolTip(), "Keep");
    EXPECT_EQ(NomAccessible(*anglais.findChild<QToolButton*>("btplus")), "Keep");
}

TEST_F(FrmEditEntreeTest, EveryControlHasANameAndEnterHasItsButton)
{
    Editer(1);
    EXPECT_EQ(ControlesSansNom(form), QStringList());
    EXPECT_TRUE(Le<QPushButton>("btAjouter").isDefault());
}

TEST_F(FrmEditEntreeTest, TheCallersCaptionGetsALetterForAlt)
{
    Editer(1);
    form.MettreCaptionAjouter(u"Mettre à jour"_s);
    EXPECT_EQ(NomAccessible(Le<QPushButton>("btAjouter")), u"Mettre à jour"_s);
    QTest::keyClick(&form, Qt::Key_M, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return form.Valide; })) << "a button pressed by its letter takes a moment";
}

// ---- An entry in the rows and back ----

TEST_F(FrmEditEntreeTest, AnEntryFillsOneRowAColumn)
{
    Editer(2);
    ASSERT_EQ(form.NombreDeLignes(), 3);
    EXPECT_EQ(form.Titre(1), "Titre");
    EXPECT_EQ(form.Titre(3), "Genre");
    EXPECT_EQ(form.Valeurs(), QStringList({"Blue", "Joni Mitchell", "folk"}));
    EXPECT_EQ(form.Textes(1), "");
    EXPECT_EQ(form.Textes(3), "rock|jazz|blues");
    EXPECT_EQ(Ligne(), 1);
    EXPECT_EQ(Combo1().Texte(), "Blue");
    EXPECT_EQ(Caret(), 4);
    EXPECT_EQ(FocusSur(), "Combo1") << "typing can begin at once";
}

TEST_F(FrmEditEntreeTest, LoadingAnEntryLeavesTheListOfTheField)
{
    Editer(1);
    CliquerLigne(3);
    form.IndexEntree = 2;
    form.ChargerEntree();
    EXPECT_EQ(Combo1().Texte(), "Blue");
    EXPECT_EQ(Combo1().Liste(), QStringList({"rock", "jazz", "blues"}));
}

TEST_F(FrmEditEntreeTest, AnIndexBeyondTheTableLoadsAndWritesNothing)
{
    Editer(1);
    Taper(u"!"_s);
    form.IndexEntree = 4;
    form.ChargerEntree();
    form.EnregistrerEntree();
    EXPECT_EQ(form.Valeurs(), QStringList({"Dummy!", "Portishead", "trip-hop"}));
    EXPECT_FALSE(form.Modifie);
    EXPECT_EQ(Entree(1), QStringList({"Dummy", "Portishead", "trip-hop"}));
}

TEST_F(FrmEditEntreeTest, ValidatingWritesTheEntryAndTheTextsOfTheColumns)
{
    Editer(1);
    Taper(u" (live)"_s);
    CliquerLigne(2);
    Cliquer("btplus");
    Cliquer("btAjouter");
    EXPECT_TRUE(form.Valide);
    EXPECT_TRUE(form.Modifie);
    EXPECT_EQ(Entree(1), QStringList({"Dummy (live)", "Portishead", "trip-hop"}));
    EXPECT_EQ(doc.table.ColumnHeaders(2).Tag(), "Portishead");
    EXPECT_EQ(doc.table.ColumnHeaders(3).Tag(), "rock|jazz|blues");
}

TEST_F(FrmEditEntreeTest, AddingGathersAndWritesNothing)
{
    AjouterUne();
    EXPECT_EQ(form.Titre(2), "Artiste");
    EXPECT_EQ(form.Textes(3), "rock|jazz|blues");
    Taper(u"Nevermind"_s);
    Cliquer("btplus");
    Cliquer("btAjouter");
    EXPECT_TRUE(form.Valide);
    EXPECT_FALSE(form.Modifie);
    EXPECT_EQ(form.Valeurs(), QStringList({"Nevermind", "", ""}));
    EXPECT_EQ(form.Textes(1), "Nevermind");
    EXPECT_EQ(doc.table.ListItems.Count(), 3);
    EXPECT_EQ(doc.table.ColumnHeaders(1).Tag(), "");
    form.EcrireTextes();
    EXPECT_EQ(doc.table.ColumnHeaders(1).Tag(), "Nevermind");
}

TEST_F(FrmEditEntreeTest, AnEntryWithoutAnyValueIsRefusedAndStaysAsItWas)
{
    Editer(1);
    for (int ligne = 1; ligne <= 3; ++ligne) {
        CliquerLigne(ligne);
        Combo1().lineEdit()->selectAll();
        Touche(Qt::Key_Delete);
    }
    EXPECT_EQ(form.Valeurs(), QStringList({"", "", ""}));
    Cliquer("btAjouter");
    ASSERT_EQ(messages.Cles(), QStringList{"msg65"});
    EXPECT_EQ(messages.Affiches().at(0).message.texte, s_msg65);
    EXPECT_EQ(messages.Affiches().at(0).genre, MsgOk);
    EXPECT_EQ(messages.Affiches().at(0).titre, "");
    EXPECT_EQ(Entree(1), QStringList({"Dummy", "Portishead", "trip-hop"}));
    EXPECT_FALSE(form.Modifie);
    EXPECT_TRUE(form.Valide) << "the editor closes all the same: meant";
}

TEST_F(FrmEditEntreeTest, ModifieStaysSetWhenItCameSet)
{
    form.Modifie = true;
    Editer(1);
    Cliquer("Annuler");
    EXPECT_TRUE(form.Modifie);
}

// ---- The bar ----

TEST_F(FrmEditEntreeTest, ABarInARowKeepsTheEditorOpen)
{
    Editer(1);
    CliquerLigne(3);
    Taper(u"|"_s);
    CliquerLigne(1);
    Le<QPushButton>("btAjouter").setFocus();
    Cliquer("btAjouter");
    EXPECT_EQ(Ligne(), 3);
    ASSERT_EQ(messages.Cles(), QStringList{"msg68"});
    EXPECT_EQ(messages.Affiches().at(0).message.texte, s_msg68);
    EXPECT_EQ(messages.Affiches().at(0).genre, MsgOk);
    EXPECT_EQ(messages.Affiches().at(0).titre, "");
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.Valide);
    EXPECT_EQ(FocusSur(), "btAjouter") << "only the two other buttons give the focus back";
    EXPECT_EQ(Entree(1).at(2), "trip-hop");
    EXPECT_EQ(Combo1().Texte(), "trip-hop|") << "what is typed next goes to the row that is selected";
}

TEST_F(FrmEditEntreeTest, ABarStopsTheWayToTheNeighboursAndLeadsBackToTheField)
{
    for (const char* bouton : {"btSuivant", "btPrecedent"}) {
        Editer(2);
        Taper(u"|"_s);
        CliquerLigne(2);
        Cliquer(bouton);
        EXPECT_EQ(form.IndexEntree, 2);
        EXPECT_EQ(Ligne(), 1);
        EXPECT_EQ(FocusSur(), "Combo1");
        EXPECT_EQ(Combo1().Texte(), "Blue|");
    }
    EXPECT_EQ(messages.Cles(), QStringList({"msg68", "msg68"}));
    EXPECT_FALSE(form.Modifie);
}

TEST_F(FrmEditEntreeTest, TheFirstRowWithABarIsTheOneSelected)
{
    AjouterUne();
    CliquerLigne(2);
    Taper(u"a|b"_s);
    CliquerLigne(3);
    Taper(u"|"_s);
    Cliquer("btAjouter");
    EXPECT_EQ(Ligne(), 2);
    EXPECT_EQ(messages.Cles(), QStringList{"msg68"});
    EXPECT_FALSE(form.Valide);
}

TEST_F(FrmEditEntreeTest, CancellingLooksForNoBar)
{
    Editer(1);
    Taper(u"|"_s);
    Cliquer("Annuler");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Entree(1).at(0), "Dummy");
}

// ---- Closing ----

TEST_F(FrmEditEntreeTest, EveryWayToCloseEndsTheDisplayAndLeavesTheFormReadable)
{
    const std::function<void(QWidget&)> fermetures[] = {
        [this](QWidget&) { Cliquer("Annuler"); },
        [](QWidget& fenetre) { fenetre.close(); },
        [this](QWidget&) { QTest::keyClick(&Combo1(), Qt::Key_Escape); },
        [this](QWidget&) { QTest::keyClick(&form, Qt::Key_N, Qt::AltModifier); },
    };
    form.Charge = true;
    form.RemplirColonnes();
    for (const auto& fermer : fermetures) {
        form.Referme = false;
        {
            const GardeModale garde([&](QWidget& fenetre) {
                QTest::keyClicks(&Combo1(), u"a"_s);
                fermer(fenetre);
            });
            form.exec();
        }
        EXPECT_TRUE(form.Referme);
        EXPECT_FALSE(form.Valide);
        EXPECT_FALSE(form.isVisible());
    }
    EXPECT_EQ(form.Valeur(1), "aaaa") << "the fields stay as the user left them";
}

TEST_F(FrmEditEntreeTest, ShownAgainItIsNotValidatedAnyMore)
{
    AjouterUne();
    Taper(u"a"_s);
    Cliquer("btAjouter");
    EXPECT_TRUE(form.Valide);
    EXPECT_TRUE(form.Referme);
    form.Referme = false;
    Montrer();
    EXPECT_FALSE(form.Valide);
    EXPECT_EQ(form.Valeur(1), "a");
    EXPECT_EQ(FocusSur(), "Combo1");
    EXPECT_EQ(Combo1().Texte(), "a");
}

TEST_F(FrmEditEntreeTest, AfterTheLastRowTheFormComesBackWithItsFirstOne)
{
    AjouterUne();
    for (int ligne = 1; ligne <= 3; ++ligne)
        Touche(Qt::Key_Return);
    Touche(Qt::Key_Return);
    EXPECT_TRUE(form.Valide);
    form.Referme = false;
    Montrer();
    EXPECT_EQ(Ligne(), 1);
}

TEST_F(FrmEditEntreeTest, TheEditorComesBackWhereItWas)
{
    Editer(1);
    form.setGeometry(10, 50, 780, 520);
    form.reject();
    QApplication::processEvents();
    frmEditEntree autre;
    autre.show();
    EXPECT_EQ(autre.geometry(), QRect(10, 50, 780, 520));
}
