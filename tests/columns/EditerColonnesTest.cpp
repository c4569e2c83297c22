#include "columns/EditerColonnes.h"

#include "DocumentAColonnes.h"
#include "base/Avancement.h"

#include "catalogue/texte/TriDeTable.h"

#include <gtest/gtest.h>

namespace {

class EditerColonnes : public DocumentAColonnes
{
protected:
    bool Deplacer(int numero, Sens sens)
    {
        return DeplacerColonne(doc, numero - 1, sens, LigneDependante(doc), avancement);
    }
    void Supprimer(int numero) { SupprimerColonne(doc, numero - 1, avancement); }
    ChoixDeColonne Choix(int numero) const { return ChoixDeColonne::Numero(doc, numero); }
};

} // namespace

TEST_F(EditerColonnes, ANewColumnStandsAtTheEndAndReadsEmpty)
{
    ASSERT_TRUE(AjouterColonne(doc, "Année"));
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté", "Année"}));
    EXPECT_EQ(doc.Table.ColumnHeaders(4).Width(), 800);
    EXPECT_EQ(doc.Table.ListItems(2).Valeurs(), QStringList({"Abbey Road", "Beatles", "Paul", ""}));
    EXPECT_FALSE(doc.Table.ListItems(2).ListSubItems(3)) << "no entry is touched";
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(doc.IndexColPrete, 3);
    EXPECT_EQ(Dits(), QStringList());
}

TEST_F(EditerColonnes, AnEmptyTitleIsRefused)
{
    EXPECT_FALSE(AjouterColonne(doc, ""));
    EXPECT_EQ(Dits(), QStringList("msg4: Veuillez entrer un nom"));
    EXPECT_EQ(doc.ColCount(), 3);
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(EditerColonnes, ATitleThatThereIsIsRefusedWhateverItsCase)
{
    for (const char* titre : {"Artiste", "ARTISTE", "prÊTÉ"})
        EXPECT_FALSE(AjouterColonne(doc, titre)) << titre;
    EXPECT_EQ(Dits(), QStringList(3, "msg5: Une colonne porte déjà le même nom veuillez en changer"));
    EXPECT_EQ(doc.ColCount(), 3);
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_TRUE(AjouterColonne(doc, "Prete")) << "without its accents it is another title";
}

TEST_F(EditerColonnes, ANewColumnOfThatTitleIsTheLoanColumn)
{
    doc.Table.ColumnHeaders.Remove(3);
    doc.IndexColPrete = -1;
    ASSERT_TRUE(AjouterColonne(doc, "prêté"));
    EXPECT_EQ(doc.IndexColPrete, -1);
    doc.Table.ColumnHeaders.Remove(3);
    ASSERT_TRUE(AjouterColonne(doc, "Prêté"));
    EXPECT_EQ(doc.IndexColPrete, 3);
}

TEST_F(EditerColonnes, TheDependantColumnIsTheOneChosen)
{
    ChoisirDependante(doc, 2);
    EXPECT_EQ(doc.dependantcol, 2);
    EXPECT_TRUE(doc.IlFautSauver);
    doc.IlFautSauver = false;
    ChoisirDependante(doc, 0);
    EXPECT_EQ(doc.dependantcol, 0);
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(doc.Table.ListItems(2).Valeurs(), QStringList({"Abbey Road", "Beatles", "Paul"}));
}

// ---- delete

TEST_F(EditerColonnes, OnlyAColumnThatIsChosenAndNotTheLoanColumnMayGo)
{
    EXPECT_TRUE(PeutSupprimer(doc, Choix(1)));
    EXPECT_FALSE(PeutSupprimer(doc, {"", -1}));
    EXPECT_FALSE(PeutSupprimer(doc, {"Prêté", 2}));
    EXPECT_FALSE(PeutSupprimer(doc, {"Autre", -1}));
    EXPECT_FALSE(PeutSupprimer(doc, {"titre", -1})) << "typed: it differs by its case alone";
    EXPECT_FALSE(PeutSupprimer(doc, {"Titre", -1})) << "typed";
    const QString aucune = "msg6: Veuillez selectionner une colonne à supprimer";
    EXPECT_EQ(Dits(), QStringList({aucune, "msg7: Cette colonne ne peut pas etre supprimée", aucune, aucune, aucune}));
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(EditerColonnes, TheLoanColumnIsSparedByItsExactTitleAlone)
{
    doc.Table.ColumnHeaders(2).SetText("prêté");
    EXPECT_TRUE(PeutSupprimer(doc, Choix(2)));
    Supprimer(2);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Prêté"}));
}

TEST_F(EditerColonnes, DeletingAsksInOneQuestion)
{
    reponses.Preparer(RepNon);
    EXPECT_FALSE(AccepterSuppression());
    reponses.Preparer(RepOui);
    EXPECT_TRUE(AccepterSuppression());
    for (const FileDeReponses::Affiche& affiche : reponses.Affiches()) {
        EXPECT_EQ(affiche.genre, MsgOuiNon);
        EXPECT_EQ(affiche.message.cle, "msg8");
        EXPECT_EQ(affiche.message.texte, "Etes vous sûr de vouloir supprimer la colonne sélectionnée et toutes les "
                                         "information qu'elle contient?");
    }
}

TEST_F(EditerColonnes, AColumnGoesWithItsValues)
{
    Supprimer(2);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Thriller", ""}, {"Abbey Road", "Paul"}}));
    EXPECT_EQ(doc.IndexColPrete, 2);
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(EditerColonnes, TheSecondColumnTakesThePlaceOfTheFirst)
{
    Supprimer(1);
    EXPECT_EQ(Titres(), QStringList({"Artiste", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Jackson", ""}, {"Beatles", "Paul"}}));
}

TEST_F(EditerColonnes, TheLastColumnThereIsLeavesEmptyTexts)
{
    doc.ClearLV();
    MettreColonnes(doc.Table, {"Seule"});
    AjouterEntrees(doc.Table, {{"a"}});
    Supprimer(1);
    EXPECT_EQ(doc.ColCount(), 0);
    EXPECT_EQ(doc.Table.ListItems(1).Text(), "");
}

TEST_F(EditerColonnes, EntriesThatLackTheCellAreLeft)
{
    Charger({"A", "B", "C", "Prêté"}, {"un", "a|b", "1|2|3|4|image.jpg"});
    Supprimer(3);
    EXPECT_EQ(Valeurs(), Valeurs({{"un", "", ""}, {"a", "b", ""}, {"1", "2", "4"}}));
    EXPECT_EQ(doc.Table.ListItems(3).Tag(), "image.jpg");
    EXPECT_FALSE(doc.Table.ListItems(2).ListSubItems(2));
    EXPECT_TRUE(doc.IlFautSauver);
    Supprimer(1);
    EXPECT_EQ(Valeurs(), Valeurs({{"", ""}, {"b", ""}, {"2", "4"}}));
}

TEST_F(EditerColonnes, ValuesBehindACellThatWasNeverWrittenStayUnderTheirTitles)
{
    MettreColonnes(doc.Table, {"Suite"});
    ListItem entree = doc.Table.ListItems.Add(0, "k3", "Kind of Blue");
    entree.SetSubItems(3, "loin");
    Supprimer(2);
    EXPECT_EQ(entree.Valeurs(), QStringList({"Kind of Blue", "", "loin"}));
}

TEST_F(EditerColonnes, AnEmptyTableLosesTheColumn)
{
    doc.Table.ListItems.Clear();
    Supprimer(1);
    EXPECT_EQ(Titres(), QStringList({"Artiste", "Prêté"}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(EditerColonnes, TheDependantNumberStaysWhenAColumnGoes)
{
    doc.dependantcol = 3;
    Supprimer(1);
    EXPECT_EQ(doc.dependantcol, 3) << "a number behind the last column by now";
}

// ---- rename

TEST_F(EditerColonnes, AColumnGetsAnotherTitle)
{
    ASSERT_TRUE(RenommerColonne(doc, Choix(2), "Groupe", ""));
    EXPECT_EQ(Titres(), QStringList({"Titre", "Groupe", "Prêté"}));
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(Valeurs(), Valeurs({{"Thriller", "Jackson", ""}, {"Abbey Road", "Beatles", "Paul"}}));
}

TEST_F(EditerColonnes, RenamingLooksAtTheTitleToAddAndNotAtTheNewOne)
{
    EXPECT_FALSE(RenommerColonne(doc, Choix(2), "Groupe", "TITRE"));
    EXPECT_EQ(Dits(), QStringList("msg11: Une colonne porte déjà le même nom veuillez en changer"));
    EXPECT_TRUE(RenommerColonne(doc, Choix(2), "Titre", "Autre"));
    EXPECT_EQ(Titres(), QStringList({"Titre", "Titre", "Prêté"}));
}

TEST_F(EditerColonnes, WhatCannotBeRenamedIsTold)
{
    EXPECT_FALSE(RenommerColonne(doc, Choix(3), "Chez", ""));
    EXPECT_FALSE(RenommerColonne(doc, Choix(1), "", ""));
    EXPECT_FALSE(RenommerColonne(doc, {"Autre", -1}, "X", ""));
    EXPECT_FALSE(RenommerColonne(doc, {"titre", -1}, "X", "")) << "typed";
    EXPECT_FALSE(RenommerColonne(doc, {"", -1}, "X", "")) << "nothing is chosen";
    const QString nom = "msg10: Veuillez entrer un nom";
    const QString choisir = "msg19: Veuillez sélectionner une colonne";
    EXPECT_EQ(Dits(), QStringList({"msg9: Cette colonne ne peut pas etre renommée", nom, nom, choisir, choisir}));
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(EditerColonnes, AnUntitledColumnKeepsAllFromBeingRenamed)
{
    doc.Table.ColumnHeaders(2).SetText("");
    EXPECT_FALSE(RenommerColonne(doc, Choix(2), "Artiste", ""));
    EXPECT_EQ(Dits().value(0).left(6), "msg11:");
    EXPECT_TRUE(RenommerColonne(doc, Choix(2), "Artiste", "quelque chose"));
}

TEST_F(EditerColonnes, AColumnRenamedSoIsTheLoanColumn)
{
    doc.Table.ColumnHeaders.Remove(3);
    doc.IndexColPrete = -1;
    ASSERT_TRUE(RenommerColonne(doc, Choix(1), "Prêté", ""));
    EXPECT_EQ(doc.IndexColPrete, 1);
}

// ---- move

TEST_F(EditerColonnes, AMoveTakesValuesTitleAndWidthAlongButNoTexts)
{
    doc.Table.ColumnHeaders(2).SetWidth(500);
    doc.Table.ColumnHeaders(2).SetTag("rock|jazz");
    EXPECT_TRUE(Deplacer(2, Sens::Gauche));
    EXPECT_EQ(Titres(), QStringList({"Artiste", "Titre", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Jackson", "Thriller", ""}, {"Beatles", "Abbey Road", "Paul"}}));
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Width(), 500);
    EXPECT_EQ(doc.Table.ColumnHeaders(2).Width(), 1440);
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Tag(), "");
    EXPECT_EQ(doc.Table.ColumnHeaders(2).Tag(), "rock|jazz");
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_TRUE(Deplacer(1, Sens::Droite));
    EXPECT_TRUE(Deplacer(2, Sens::Droite));
    EXPECT_EQ(Titres(), QStringList({"Titre", "Prêté", "Artiste"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Thriller", "", "Jackson"}, {"Abbey Road", "Paul", "Beatles"}}));
    EXPECT_EQ(doc.Table.ColumnHeaders(3).Width(), 500);
}

TEST_F(EditerColonnes, AtTheEndsNothingMoves)
{
    EXPECT_FALSE(Deplacer(1, Sens::Gauche));
    EXPECT_FALSE(Deplacer(3, Sens::Droite));
    EXPECT_FALSE(Deplacer(0, Sens::Gauche)) << "nothing is chosen";
    EXPECT_FALSE(Deplacer(0, Sens::Droite));
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(EditerColonnes, TheLoanColumnIsFoundAgainWhicheverColumnMoved)
{
    Deplacer(3, Sens::Gauche);
    EXPECT_EQ(doc.IndexColPrete, 2);
    Deplacer(1, Sens::Droite);
    EXPECT_EQ(doc.IndexColPrete, 1);
}

TEST_F(EditerColonnes, ToTheLeftAMissingCellTakesTheValueOfTheEntryBefore)
{
    Charger({"A", "B", "C", "Prêté"}, {"court", "a|b|c", "x", "y|z", "1|2|3"});
    Deplacer(3, Sens::Gauche);
    EXPECT_EQ(Valeurs(), Valeurs({{"court", "", "", ""},
                                  {"a", "c", "b", ""},
                                  {"x", "c", "", ""},
                                  {"y", "c", "z", ""},
                                  {"1", "3", "2", ""}}));
    EXPECT_TRUE(doc.Table.ListItems(3).ListSubItems(1)) << "both cells are written now";
}

TEST_F(EditerColonnes, ToTheLeftOntoTheFirstColumnTheSameHolds)
{
    Charger({"A", "B", "Prêté"}, {"a|b", "x"});
    Deplacer(2, Sens::Gauche);
    EXPECT_EQ(Valeurs(), Valeurs({{"b", "a", ""}, {"b", "x", ""}}));
}

TEST_F(EditerColonnes, ToTheRightAMissingCellIsEmpty)
{
    Charger({"A", "B", "C", "Prêté"}, {"a|b|c", "x", "y|z"});
    Deplacer(2, Sens::Droite);
    EXPECT_EQ(Valeurs(), Valeurs({{"a", "c", "b", ""}, {"x", "", "", ""}, {"y", "", "z", ""}}));
}

TEST_F(EditerColonnes, TheDependantColumnIsFoundByItsTitle)
{
    doc.dependantcol = 2;
    Deplacer(2, Sens::Gauche);
    EXPECT_EQ(doc.dependantcol, 1);
    Deplacer(2, Sens::Gauche);
    EXPECT_EQ(doc.dependantcol, 2) << "its neighbour moved across it";
    Deplacer(3, Sens::Gauche);
    EXPECT_EQ(doc.dependantcol, 3);
}

TEST_F(EditerColonnes, OfTwoColumnsOfTheTitleTheLaterOneIsDependantAfterAMove)
{
    doc.Table.ColumnHeaders(3).SetText("Titre");
    doc.dependantcol = 1;
    Deplacer(2, Sens::Gauche);
    EXPECT_EQ(doc.dependantcol, 3);
}

TEST_F(EditerColonnes, ADependantColumnWhoseTitleIsNotFoundIsNone)
{
    doc.dependantcol = 2;
    DeplacerColonne(doc, 0, Sens::Droite, "autre", avancement);
    EXPECT_EQ(doc.dependantcol, -1);
    DeplacerColonne(doc, 0, Sens::Droite, "- pas dependant -", avancement);
    EXPECT_EQ(doc.dependantcol, 0);
    doc.dependantcol = 9;
    EXPECT_EQ(LigneDependante(doc), "");
    Deplacer(1, Sens::Droite);
    EXPECT_EQ(doc.dependantcol, 4) << "the line behind the last one reads empty";
}

TEST_F(EditerColonnes, WithoutADependantColumnThereIsNoneAfterAMove)
{
    DeplacerColonne(doc, 0, Sens::Droite, "Titre", avancement);
    EXPECT_EQ(doc.dependantcol, 0);
}

// ---- the sort

TEST_F(EditerColonnes, TheSortStaysOnItsColumnAndNoEntryMoves)
{
    TrierParColonne(doc.Table, 2);
    ASSERT_EQ(ColonneDe(doc.Table, 1), QStringList({"Abbey Road", "Thriller"}));
    doc.Table.ListItems(1).SetSubItems(1, "Zappa");
    Deplacer(2, Sens::Gauche);
    EXPECT_EQ(doc.Table.SortKey(), 0);
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Icon(), "down");
    EXPECT_EQ(doc.Table.ColumnHeaders(2).Icon(), "");
    Deplacer(2, Sens::Gauche);
    EXPECT_EQ(doc.Table.SortKey(), 1);
    Supprimer(1);
    EXPECT_EQ(doc.Table.SortKey(), 0);
    EXPECT_TRUE(doc.Table.Sorted());
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Icon(), "down");
    EXPECT_EQ(ColonneDe(doc.Table, 1), QStringList({"Zappa", "Jackson"})) << "as it stood before";
}

TEST_F(EditerColonnes, TheSortGoesWithItsColumn)
{
    TrierParColonne(doc.Table, 2);
    TrierParColonne(doc.Table, 2);
    doc.Table.ColumnHeaders(1).SetIcon("up"); // where the reader puts it
    Supprimer(2);
    EXPECT_FALSE(doc.Table.Sorted());
    EXPECT_EQ(doc.Table.SortKey(), 0);
    EXPECT_EQ(doc.Table.SortOrder(), 0);
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Icon(), "");
}

// ---- what is selected

TEST_F(EditerColonnes, SelectionFocusKeysAndImagesStayWithTheirEntries)
{
    doc.Table.ListItems(2).SetSelected(true);
    doc.Table.ListItems(2).SetTag("route.jpg");
    doc.Table.ListItems(2).SetSmallIcon("ico");
    doc.Table.SetSelectedItem(doc.Table.ListItems(2));
    const ListItem entree = doc.Table.ListItems(2);
    Deplacer(1, Sens::Droite);
    Supprimer(1);
    EXPECT_FALSE(doc.Table.ListItems(1).Selected());
    EXPECT_TRUE(doc.Table.ListItems(2).Selected());
    EXPECT_EQ(doc.Table.SelectedItem(), entree);
    EXPECT_EQ(entree.Key(), "k2");
    EXPECT_EQ(entree.Tag(), "route.jpg");
    EXPECT_EQ(entree.SmallIcon(), "ico");
}
