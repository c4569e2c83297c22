#include "columns/SeparerColonne.h"

#include "DocumentAColonnes.h"
#include "catalogue/texte/TriDeTable.h"

namespace {

class SeparerColonne : public DocumentAColonnes
{
protected:
    void Couper(int numero, const QString& separateur = "_-_")
    {
        Separer(doc, numero - 1, "Suite", separateur, avancement);
    }
    void Copier(int numero) { Dupliquer(doc, numero - 1, "Suite", avancement); }
    /// Cuts one value.
    QStringList Morceaux(const QString& valeur, const QString& separateur)
    {
        doc.Table.ListItems(1).SetText(valeur);
        Couper(1, separateur);
        const QStringList morceaux = doc.Table.ListItems(1).Valeurs().first(2);
        doc.Table.ColumnHeaders.Remove(2);
        return morceaux;
    }
};

} // namespace

TEST_F(SeparerColonne, AColumnThatThereIsAndATitleAreNeeded)
{
    EXPECT_TRUE(PeutSeparer(doc, ChoixDeColonne::Numero(doc, 1), "Titre")) << "a title that there is will do";
    EXPECT_FALSE(PeutSeparer(doc, {"", -1}, ""));
    EXPECT_FALSE(PeutSeparer(doc, {"titre", -1}, ""));
    EXPECT_FALSE(PeutSeparer(doc, {"Titre", -1}, ""));
    EXPECT_FALSE(PeutSeparer(doc, {"Titre", -1}, "X")) << "typed";
    const QString choisir = "msg19: Veuillez sélectionner une colonne";
    EXPECT_EQ(Dits(), QStringList({choisir, "msg20: Veuillez sélectionner une colonne existante",
                                   "msg21: Veuillez taper un nom pour la nouvelle colonne", choisir}));
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(SeparerColonne, ASeparatorIsNeeded)
{
    EXPECT_TRUE(SeparateurDonne("|"));
    EXPECT_FALSE(SeparateurDonne(""));
    EXPECT_EQ(Dits(), QStringList("msg22: Veuillez taper quelquechose dans le champ Séparateur"));
}

TEST_F(SeparerColonne, TheRestGoesToANewColumnToTheRight)
{
    doc.Table.ListItems(1).SetSubItems(1, "Jackson_-_Michael");
    doc.Table.ColumnHeaders(2).SetWidth(901);
    Couper(2);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Suite", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Thriller", "Jackson", "Michael", ""}, {"Abbey Road", "Beatles", "", "Paul"}}));
    EXPECT_EQ(doc.Table.ColumnHeaders(2).Width(), 450.5F);
    EXPECT_EQ(doc.Table.ColumnHeaders(3).Width(), 450.5F);
    EXPECT_EQ(doc.Table.ColumnHeaders(3).Tag(), "");
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(SeparerColonne, OfTheFirstColumnTheFrontStaysInIt)
{
    Couper(1, " ");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Suite", "Artiste", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Thriller", "", "Jackson", ""}, {"Abbey", "Road", "Beatles", "Paul"}}));
}

TEST_F(SeparerColonne, OnlyTheFirstWholeSeparatorCuts)
{
    EXPECT_EQ(Morceaux("a_-_b_-_c", "_-_"), QStringList({"a", "b_-_c"}));
    EXPECT_EQ(Morceaux("a_-_", "_-_"), QStringList({"a", ""}));
    EXPECT_EQ(Morceaux("_-_a", "_-_"), QStringList({"", "a"}));
    EXPECT_EQ(Morceaux("a_-b", "_-_"), QStringList({"a_-b", ""}));
    EXPECT_EQ(Morceaux("a_-_-_b", "_-_"), QStringList({"a", "-_b"}));
    EXPECT_EQ(Morceaux("a_-", "_-_"), QStringList({"a_-", ""})) << "the beginning of a separator is none";
    EXPECT_EQ(Morceaux("a_", "__"), QStringList({"a_", ""}));
    EXPECT_EQ(Morceaux("aXbxc", "x"), QStringList({"aXb", "c"})) << "letter case counts";
    EXPECT_EQ(Morceaux("un|deux", "|"), QStringList({"un", "deux"}));
    EXPECT_EQ(Morceaux("été à Paris", "é à"), QStringList({"ét", " Paris"}));
    EXPECT_EQ(Morceaux("日本→語", "→"), QStringList({"日本", "語"}));
    EXPECT_EQ(Morceaux("", "_"), QStringList({"", ""}));
}

TEST_F(SeparerColonne, ValuesInTheCodePageAreCutAtCharactersOfIt)
{
    Charger({"A", "Prêté"}, {"chérie et père"});
    ASSERT_EQ(doc.Table.CodageSource(), stockage::Codage::Cp1252);
    Couper(1, "é");
    EXPECT_EQ(Valeurs(), Valeurs({{"ch", "rie et père", ""}}));
    Couper(2, "→");
    EXPECT_EQ(Valeurs(), Valeurs({{"ch", "rie et père", "", ""}}));
}

TEST_F(SeparerColonne, ShortEntriesGetEmptyCells)
{
    Charger({"A", "B", "C", "Prêté"}, {"a", "b|c_-_d", "e|f|g|h|i.jpg"});
    Couper(2);
    EXPECT_EQ(Valeurs(), Valeurs({{"a", "", "", "", ""}, {"b", "c", "d", "", ""}, {"e", "f", "", "g", "h"}}));
    EXPECT_EQ(doc.Table.ListItems(3).Tag(), "i.jpg");
    Copier(4);
    EXPECT_EQ(Valeurs(),
              Valeurs({{"a", "", "", "", "", ""}, {"b", "c", "d", "", "", ""}, {"e", "f", "", "g", "g", "h"}}));
}

TEST_F(SeparerColonne, AnEmptyTableGetsTheColumnAlone)
{
    doc.Table.ListItems.Clear();
    doc.Table.ColumnHeaders(1).SetWidth(1000);
    Couper(1);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Suite", "Artiste", "Prêté"}));
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Width(), 500);
    EXPECT_EQ(doc.Table.ColumnHeaders(2).Width(), 500);
}

TEST_F(SeparerColonne, ACopyStandsToTheRightAndIsAsWide)
{
    doc.Table.ColumnHeaders(2).SetWidth(777);
    Copier(2);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Suite", "Prêté"}));
    EXPECT_EQ(Valeurs(),
              Valeurs({{"Thriller", "Jackson", "Jackson", ""}, {"Abbey Road", "Beatles", "Beatles", "Paul"}}));
    EXPECT_EQ(doc.Table.ColumnHeaders(2).Width(), 777);
    EXPECT_EQ(doc.Table.ColumnHeaders(3).Width(), 777);
    EXPECT_TRUE(doc.IlFautSauver);
    Copier(1);
    EXPECT_EQ(doc.Table.ListItems(1).Valeurs(), QStringList({"Thriller", "Thriller", "Jackson", "Jackson", ""}));
    Copier(5);
    EXPECT_EQ(doc.Table.ListItems(2).Valeurs().mid(4), QStringList({"Paul", "Paul"}));
}

TEST_F(SeparerColonne, TheNumbersOfLoanAndDependantColumnStay)
{
    doc.dependantcol = 2;
    Couper(1);
    Copier(1);
    EXPECT_EQ(doc.dependantcol, 2);
    EXPECT_EQ(doc.IndexColPrete, 3);
}

TEST_F(SeparerColonne, ANewColumnOfLoansIsNotTakenForOneYet)
{
    const int avant = doc.IndexColPrete;
    Separer(doc, 0, "Prêté", "_-_", avancement);
    EXPECT_EQ(doc.IndexColPrete, avant);
}

TEST_F(SeparerColonne, TheSortStaysOnItsColumn)
{
    TrierParColonne(doc.Table, 2);
    Couper(1);
    EXPECT_EQ(doc.Table.SortKey(), 2);
    EXPECT_EQ(doc.Table.ColumnHeaders(3).Icon(), "down");
    Copier(3);
    EXPECT_EQ(doc.Table.SortKey(), 2);
    EXPECT_TRUE(doc.Table.Sorted());
}
