// What a user sees and does in the dialog of the columns.
#include "columns/frmEditerColonnes.h"

#include "DialogueDeColonnes.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "support/PlateformeDeTest.h"

#include <QGroupBox>
#include <QListView>
#include <QSignalSpy>
#include <QToolButton>

namespace {

class FrmEditerColonnes : public DialogueDeColonnes<frmEditerColonnes>
{
protected:
    QListView& Liste3() const { return Trouver<QListView>("lstColonne3"); }
    int Choisie() const { return Liste3().currentIndex().row(); }
    void CliquerLigne(int position) const
    {
        const QModelIndex ligne = Liste3().model()->index(position, 0);
        QTest::mouseClick(Liste3().viewport(), Qt::LeftButton, {}, Liste3().visualRect(ligne).center());
    }
    QStringList Lignes3() const
    {
        QStringList lignes;
        for (int i = 0; i < Liste3().model()->rowCount(); ++i)
            lignes.append(Liste3().model()->index(i, 0).data().toString());
        return lignes;
    }
};

} // namespace

TEST_F(FrmEditerColonnes, ShowsTheColumnsInFourLists)
{
    doc.dependantcol = 2;
    doc.IndexColPrete = 77;
    Ouvrir();
    const QStringList titres{"Titre", "Artiste", "Prêté"};
    EXPECT_EQ(Lignes("lstColonne1"), titres);
    EXPECT_EQ(Lignes("lstColonne2"), titres);
    EXPECT_EQ(Lignes3(), titres);
    EXPECT_EQ(Lignes("lstColonne4"), QStringList({"- pas dependant -", "Titre", "Artiste", "Prêté"}));
    EXPECT_EQ(Liste("lstColonne1").currentText(), "");
    EXPECT_EQ(Liste("lstColonne2").currentText(), "");
    EXPECT_EQ(Liste("lstColonne4").currentText(), "Artiste");
    EXPECT_EQ(Choisie(), -1);
    EXPECT_EQ(doc.IndexColPrete, 3);
    EXPECT_FALSE(PB().isVisible());
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(FrmEditerColonnes, ADependantNumberThatNamesNoColumnReadsEmpty)
{
    doc.dependantcol = 4;
    Ouvrir();
    EXPECT_EQ(Liste("lstColonne4").currentText(), "");
    doc.dependantcol = -1;
    form->lstRefresh();
    EXPECT_EQ(Liste("lstColonne4").currentText(), "");
    doc.dependantcol = 0;
    form->lstRefresh();
    EXPECT_EQ(Liste("lstColonne4").currentText(), "- pas dependant -");
}

TEST_F(FrmEditerColonnes, EveryControlHasItsCaptionHintAndPicture)
{
    Ouvrir();
    EXPECT_EQ(form->windowTitle(), "Editer une Catégorie");
    const QList<std::pair<const char*, QString>> groupes{
        {"newColonne", "Ajouter une colonne"},   {"lstColonne1", "Supprimer une colonne"},
        {"lstColonne2", "Renommer une colonne"}, {"newName", "Renommer une colonne"},
        {"lstColonne3", "Déplacer une colone"},  {"lstColonne4", "Colonne dépendante"}};
    for (const auto& [nom, titre] : groupes) {
        const auto* groupe = qobject_cast<QGroupBox*>(Trouver<QWidget>(nom).parentWidget());
        ASSERT_TRUE(groupe) << nom;
        EXPECT_EQ(groupe->title().remove('&'), titre) << nom;
    }
    EXPECT_EQ(Etiquette("newColonne"), "Nouveau nom");
    EXPECT_EQ(Etiquette("lstColonne1"), "Colonne");
    EXPECT_EQ(Etiquette("lstColonne2"), "Colonne");
    EXPECT_EQ(Etiquette("newName"), "Nouveau nom");
    EXPECT_EQ(Etiquette("lstColonne4"), "Colonne");
    const auto texte = [this](const char* nom) { return Bouton(nom).text().remove('&'); };
    EXPECT_EQ(texte("btAjouter"), "Ajouter");
    EXPECT_EQ(texte("btSupprimer"), "Supprimer");
    EXPECT_EQ(texte("ChangerNom"), "Changer");
    EXPECT_EQ(texte("Command1"), "Changer");
    EXPECT_EQ(texte("Command4"), "Fermer cette fenetre");
    EXPECT_EQ(Bouton("btAjouter").toolTip(), "Ajouter une nouvelle colonne");
    EXPECT_EQ(Bouton("btSupprimer").toolTip(), "Supprimer la colonne sélectionnée");
    EXPECT_EQ(Bouton("ChangerNom").toolTip(), "Renommer la colonne sélectionnée");
    EXPECT_EQ(Bouton("Command1").toolTip(), "Spécifier la colonne dépendante");
    EXPECT_EQ(Bouton("btMonter").toolTip(), "Décaler la colonne selectionnée vers la gauche");
    EXPECT_EQ(Bouton("btDescendre").toolTip(), "Décaler la colonne selectionnée vers la droite");
    EXPECT_TRUE(MemeImage(Bouton("btMonter"), Icone("up")));
    EXPECT_TRUE(MemeImage(Bouton("btDescendre"), Icone("down")));
    EXPECT_TRUE(MemeImage(Bouton("Command4"), Icone("ok")));
    EXPECT_EQ(ControlesSansNom(*form), QStringList());
    EXPECT_EQ(NomAccessible(Bouton("btMonter")), Bouton("btMonter").toolTip());
}

TEST_F(FrmEditerColonnes, TheFormIsTranslated)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini",
        "[frmEditerColonnes]\r\nCaption=Columns\r\nbtAjouter_C=Add\r\nbtAjouter_TT=Adds\r\nLabel2_C=C&olumn\r\n");
    Ouvrir();
    EXPECT_EQ(form->windowTitle(), "Columns");
    EXPECT_EQ(Bouton("btAjouter").text(), "Add");
    EXPECT_EQ(Bouton("btAjouter").toolTip(), "Adds");
    EXPECT_EQ(NomAccessible(*Liste("lstColonne1").lineEdit()), "Column");
}

// ---- the groups

TEST_F(FrmEditerColonnes, AColumnIsAdded)
{
    Ouvrir();
    Taper("newColonne", "Année");
    Cliquer("btAjouter");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté", "Année"}));
    EXPECT_EQ(Lignes("lstColonne1"), Titres());
    EXPECT_EQ(Lignes("lstColonne2"), Titres());
    EXPECT_EQ(Lignes3(), Titres());
    EXPECT_EQ(Lignes("lstColonne4").mid(1), Titres());
    EXPECT_EQ(Champ("newColonne").text(), "");
    EXPECT_TRUE(doc.IlFautSauver);
    Taper("newColonne", "ANNÉE");
    Cliquer("btAjouter");
    EXPECT_EQ(reponses.Cles(), QStringList("msg5"));
    EXPECT_EQ(Champ("newColonne").text(), "ANNÉE") << "to be changed";
}

TEST_F(FrmEditerColonnes, TitlesHoldNoBar)
{
    Ouvrir();
    for (const char* champ : {"newColonne", "newName"}) {
        Taper(champ, "a|b");
        QCoreApplication::processEvents();
        EXPECT_EQ(Champ(champ).text(), "ab");
    }
    EXPECT_EQ(Dits(), QStringList(2, "msg68: Le caractere  | est interdit, veuillez l'enlever"));
}

TEST_F(FrmEditerColonnes, AColumnIsDeletedOnceTheUserAgrees)
{
    Ouvrir();
    Choisir("lstColonne1", 1);
    reponses.Preparer(RepNon);
    Cliquer("btSupprimer");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_FALSE(doc.IlFautSauver);
    reponses.Preparer(RepOui);
    Cliquer("btSupprimer");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Prêté"}));
    EXPECT_EQ(Lignes("lstColonne1"), Titres());
    EXPECT_EQ(Liste("lstColonne1").currentText(), "");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg8", "msg8"}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(FrmEditerColonnes, ATitleThatWasOnlyTypedChoosesNothing)
{
    Ouvrir();
    for (const char* titre : {"", "artiste", "Artiste"}) {
        TaperEnListe("lstColonne1", titre);
        Cliquer("btSupprimer");
    }
    EXPECT_EQ(reponses.Cles(), QStringList({"msg6", "msg6", "msg6"}));
    TaperEnListe("lstColonne2", "Artiste");
    Taper("newName", "Groupe");
    Cliquer("ChangerNom");
    EXPECT_EQ(reponses.Cles().mid(3), QStringList("msg19"));
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_EQ(doc.dependantcol, 0);
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(FrmEditerColonnes, ADependantColumnThatWasOnlyTypedIsNone)
{
    Ouvrir();
    TaperEnListe("lstColonne4", "Artiste");
    Cliquer("Command1");
    EXPECT_EQ(reponses.Cles(), QStringList("msg12"));
    EXPECT_EQ(doc.dependantcol, -1);
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(FrmEditerColonnes, ALineThatIsChosenAfterTypingCounts)
{
    Ouvrir();
    TaperEnListe("lstColonne2", "x");
    Choisir("lstColonne2", 0);
    Taper("newName", "Album");
    Cliquer("ChangerNom");
    EXPECT_EQ(Titres(), QStringList({"Album", "Artiste", "Prêté"}));
}

TEST_F(FrmEditerColonnes, AColumnIsRenamed)
{
    Ouvrir();
    Choisir("lstColonne2", 1);
    Taper("newName", "Titre");
    Taper("newColonne", "TITRE");
    Cliquer("ChangerNom");
    EXPECT_EQ(reponses.Cles(), QStringList("msg11")) << "the field of another group is looked at";
    EXPECT_EQ(Champ("newName").text(), "Titre");
    Taper("newColonne", "");
    Cliquer("ChangerNom");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Titre", "Prêté"}));
    EXPECT_EQ(Lignes("lstColonne2"), Titres());
    EXPECT_EQ(Champ("newName").text(), "");
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(FrmEditerColonnes, AColumnMovesAndStaysSelected)
{
    Ouvrir();
    CliquerLigne(2);
    Cliquer("btMonter");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Prêté", "Artiste"}));
    EXPECT_EQ(Choisie(), 1);
    EXPECT_EQ(form->focusWidget(), &Liste3());
    EXPECT_EQ(Lignes3(), Titres());
    EXPECT_EQ(Lignes("lstColonne1"), Titres());
    Champ("newName").setFocus();
    Cliquer("btMonter");
    EXPECT_EQ(form->focusWidget(), &Liste3());
    EXPECT_EQ(Choisie(), 0);
    EXPECT_EQ(doc.IndexColPrete, 1);
    doc.IlFautSauver = false;
    Cliquer("btMonter");
    EXPECT_FALSE(doc.IlFautSauver) << "there is no place to go to";
    Cliquer("btDescendre");
    Cliquer("btDescendre");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_EQ(Choisie(), 2);
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(FrmEditerColonnes, WithNothingSelectedNothingMoves)
{
    Ouvrir();
    Cliquer("btMonter");
    Cliquer("btDescendre");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(FrmEditerColonnes, KeysMoveAColumn)
{
    Ouvrir();
    Liste3().setFocus();
    CliquerLigne(0);
    QTest::keyClick(&Liste3(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Titres(), QStringList({"Artiste", "Titre", "Prêté"}));
    QTest::keyClick(&Liste3(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_EQ(Choisie(), 0);
}

TEST_F(FrmEditerColonnes, TheDependantColumnIsChosenAndCarriedAlong)
{
    Ouvrir();
    Choisir("lstColonne4", 2);
    EXPECT_EQ(doc.dependantcol, 0) << "only once the button is pressed";
    Cliquer("Command1");
    EXPECT_EQ(doc.dependantcol, 2);
    EXPECT_EQ(Dits(), QStringList("msg12: ok changement effectué"));
    EXPECT_TRUE(doc.IlFautSauver);
    CliquerLigne(1);
    Cliquer("btMonter");
    EXPECT_EQ(doc.dependantcol, 1);
    EXPECT_EQ(Liste("lstColonne4").currentText(), "Artiste");
    Choisir("lstColonne4", 0);
    Cliquer("Command1");
    EXPECT_EQ(doc.dependantcol, 0);
}

TEST_F(FrmEditerColonnes, AMoveGoesByWhatTheListOfTheDependantColumnReads)
{
    doc.dependantcol = 1;
    Ouvrir();
    TaperEnListe("lstColonne4", "Prêté");
    CliquerLigne(0);
    Cliquer("btDescendre");
    EXPECT_EQ(doc.dependantcol, 3);
    TaperEnListe("lstColonne4", "autre");
    Cliquer("btDescendre");
    EXPECT_EQ(doc.dependantcol, -1);
    EXPECT_EQ(Liste("lstColonne4").currentText(), "autre");
}

// ---- Enter and Escape

TEST_F(FrmEditerColonnes, TheGroupInWhichTheUserIsAtWorkHasTheDefaultButton)
{
    Ouvrir();
    EXPECT_EQ(ParDefaut(), "btAjouter");
    const QList<std::pair<QWidget*, QString>> champs{{Liste("lstColonne1").lineEdit(), "btSupprimer"},
                                                     {Liste("lstColonne2").lineEdit(), "ChangerNom"},
                                                     {&Champ("newColonne"), "btAjouter"},
                                                     {&Champ("newName"), "ChangerNom"},
                                                     {Liste3().viewport(), "Command4"},
                                                     {Liste("lstColonne4").lineEdit(), "Command1"}};
    for (const auto& [champ, bouton] : champs) {
        QTest::mouseClick(champ, Qt::LeftButton);
        EXPECT_EQ(ParDefaut(), bouton);
    }
    // Typing alone, as after the default went elsewhere.
    const QList<std::pair<QLineEdit*, QString>> tapes{{Liste("lstColonne1").lineEdit(), "btSupprimer"},
                                                      {Liste("lstColonne2").lineEdit(), "ChangerNom"},
                                                      {&Champ("newColonne"), "btAjouter"},
                                                      {&Champ("newName"), "ChangerNom"},
                                                      {Liste("lstColonne4").lineEdit(), "Command1"}};
    for (const auto& [champ, bouton] : tapes) {
        champ->setFocus();
        Trouver<QPushButton>("Command4").setDefault(true);
        QTest::keyClick(champ, Qt::Key_X);
        EXPECT_EQ(ParDefaut(), bouton);
    }
}

TEST_F(FrmEditerColonnes, EnterPressesTheDefaultButton)
{
    Ouvrir();
    Taper("newColonne", "Genre");
    QTest::keyClick(&Champ("newColonne"), Qt::Key_Return);
    EXPECT_EQ(Titres().last(), "Genre");
    EXPECT_TRUE(form->isVisible());
    Choisir("lstColonne1", 3);
    reponses.Preparer(RepOui);
    QTest::keyClick(Liste("lstColonne1").lineEdit(), Qt::Key_Return);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté"}));
    Liste3().setFocus();
    QTest::keyClick(&Liste3(), Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmEditerColonnes, EscapeAndTheCloseButtonLeaveAsTheButtonDoes)
{
    for (const auto& quitter : {std::function<void()>([this] { Cliquer("Command4"); }),
                                std::function<void()>([this] { QTest::keyClick(form.get(), Qt::Key_Escape); }),
                                std::function<void()>([this] { form->close(); })}) {
        Ouvrir();
        QSignalSpy presse(&Bouton("Command4"), &QAbstractButton::clicked);
        quitter();
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(presse.count(), 1);
    }
}

TEST_F(FrmEditerColonnes, KeysReachEveryGroupInOrder)
{
    Ouvrir();
    Champ("newColonne").setFocus();
    QStringList vus;
    for (int i = 0; i < 13; ++i) {
        vus.append(form->focusWidget()->objectName());
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(vus, QStringList({"newColonne", "btAjouter", "lstColonne1", "btSupprimer", "lstColonne2", "newName",
                                "ChangerNom", "lstColonne4", "Command1", "lstColonne3", "btMonter", "btDescendre",
                                "Command4"}));
}

// ---- long work

TEST_F(FrmEditerColonnes, TheBarMovesWhileAColumnIsDeletedAndTheDialogStays)
{
    AjouterDesMilliers();
    Ouvrir();
    AChaquePas([this] {
        form->close();
        QTest::keyClick(form.get(), Qt::Key_Escape);
        Cliquer("Command4");
        Cliquer("btSupprimer");
        Cliquer("btMonter");
        Cliquer("btDescendre");
        Cliquer("btAjouter");
        Cliquer("ChangerNom");
        Cliquer("Command1");
        EXPECT_EQ(doc.ColCount(), 3) << "not before the end";
    });
    CliquerLigne(1);
    Choisir("lstColonne1", 0);
    reponses.Preparer(RepOui);
    Cliquer("btSupprimer");
    EXPECT_EQ(pas, QList<int>({1024, 2048}));
    EXPECT_EQ(minimum, 0);
    EXPECT_EQ(maximum, 3000);
    EXPECT_TRUE(barre->montre);
    EXPECT_FALSE(PB().isVisible());
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Titres(), QStringList({"Artiste", "Prêté"}));
    EXPECT_EQ(reponses.Cles(), QStringList("msg8"));
}

TEST_F(FrmEditerColonnes, AnEmptyTableAndAMoveShowNoBar)
{
    AjouterDesMilliers();
    Ouvrir();
    CliquerLigne(0);
    Cliquer("btDescendre");
    doc.Table.ListItems.Clear();
    Choisir("lstColonne1", 0);
    reponses.Preparer(RepOui);
    Cliquer("btSupprimer");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Prêté"}));
    EXPECT_FALSE(barre->montre);
}
