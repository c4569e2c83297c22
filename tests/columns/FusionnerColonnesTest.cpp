#include "columns/FusionnerColonnes.h"

#include "DocumentAColonnes.h"
#include "catalogue/texte/TriDeTable.h"

namespace {

class FusionnerColonnes : public DocumentAColonnes
{
protected:
    FusionDeColonnes Fusion(int premiere, int seconde, const QString& separateur = "_-_") const
    {
        return {ChoixDeColonne::Numero(doc, premiere), ChoixDeColonne::Numero(doc, seconde), separateur};
    }
    void Joindre(int premiere, int seconde, const QString& separateur = "_-_")
    {
        Fusionner(doc, Fusion(premiere, seconde, separateur), avancement);
    }
};

} // namespace

TEST_F(FusionnerColonnes, TwoColumnsOfDifferentTitlesAreNeeded)
{
    EXPECT_TRUE(PeutFusionner(doc, Fusion(1, 2)));
    for (const ChoixDeColonne& autre : {ChoixDeColonne{"", -1}, {"Autre", -1}, {"artiste", -1}, {"Artiste", -1}}) {
        EXPECT_FALSE(PeutFusionner(doc, {Fusion(1, 2).premiere, autre, "_"}));
        EXPECT_FALSE(PeutFusionner(doc, {autre, Fusion(1, 2).premiere, "_"}));
    }
    EXPECT_EQ(Dits(), QStringList(8, "msg15: veuillez selectionner deux colonnes existantes"));
    EXPECT_FALSE(PeutFusionner(doc, Fusion(1, 1)));
    doc.Table.ColumnHeaders(2).SetText("Titre");
    EXPECT_FALSE(PeutFusionner(doc, Fusion(1, 2)));
    EXPECT_EQ(Dits().mid(8), QStringList(2, "msg16: Veuillez selectionner deux colonnes differentes"));
}

TEST_F(FusionnerColonnes, ASeparatorWithABarIsRefused)
{
    EXPECT_FALSE(PeutFusionner(doc, Fusion(1, 2, "|")));
    EXPECT_FALSE(PeutFusionner(doc, Fusion(1, 2, "a|b")));
    EXPECT_EQ(Dits(), QStringList(2, "msg17: Le séparateur ne peut pas contenir le caractere  | "));
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(FusionnerColonnes, AnEmptySeparatorIsAskedAbout)
{
    EXPECT_TRUE(AccepterSeparateur("_"));
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    reponses.Preparer(RepNon);
    EXPECT_FALSE(AccepterSeparateur(""));
    reponses.Preparer(RepOui);
    EXPECT_TRUE(AccepterSeparateur(""));
    EXPECT_EQ(reponses.Affiches().last().genre, MsgOuiNon);
    EXPECT_EQ(reponses.Affiches().last().message.cle, "msg18");
    EXPECT_EQ(reponses.Affiches().last().message.texte,
              "Le séparateur est vide. Continuer quand meme?\nLe contenu des deux colonnes sera collé");
}

TEST_F(FusionnerColonnes, TheSecondColumnGoesIntoTheFirst)
{
    MettreColonnes(doc.Table, {"Année"});
    doc.Table.ListItems(1).SetSubItems(3, "1982");
    Joindre(2, 4);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Thriller", "Jackson_-_1982", ""}, {"Abbey Road", "Beatles_-_", "Paul"}}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(FusionnerColonnes, IntoTheFirstColumn)
{
    Joindre(1, 2, " ");
    EXPECT_EQ(Titres(), QStringList({"Titre", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Thriller Jackson", ""}, {"Abbey Road Beatles", "Paul"}}));
}

TEST_F(FusionnerColonnes, TheFirstColumnIntoItsNeighbour)
{
    Joindre(2, 1);
    EXPECT_EQ(Titres(), QStringList({"Artiste", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Jackson_-_Thriller", ""}, {"Beatles_-_Abbey Road", "Paul"}}));
}

TEST_F(FusionnerColonnes, TheFirstColumnIntoAFartherOne)
{
    Joindre(3, 1, "");
    EXPECT_EQ(Titres(), QStringList({"Artiste", "Prêté"}));
    EXPECT_EQ(Valeurs(), Valeurs({{"Jackson", "Thriller"}, {"Beatles", "PaulAbbey Road"}}));
}

TEST_F(FusionnerColonnes, ShortEntriesKeepWhatTheyHave)
{
    Charger({"A", "B", "C", "Prêté"}, {"a", "b|c", "d|e|f"});
    Joindre(2, 3);
    EXPECT_EQ(Valeurs(), Valeurs({{"a", "_-_", ""}, {"b", "c_-_", ""}, {"d", "e_-_f", ""}}));
    Joindre(3, 1);
    EXPECT_EQ(Valeurs(), Valeurs({{"_-_", "_-_a"}, {"c_-_", "_-_b"}, {"e_-_f", "_-_d"}}));
}

TEST_F(FusionnerColonnes, AnEmptyTableLosesTheColumn)
{
    doc.Table.ListItems.Clear();
    Joindre(2, 1);
    EXPECT_EQ(Titres(), QStringList({"Artiste", "Prêté"}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(FusionnerColonnes, NeitherTheLoanColumnNorTheDependantOneIsSpared)
{
    doc.dependantcol = 2;
    Joindre(1, 3);
    EXPECT_EQ(Titres(), QStringList({"Titre", "Artiste"}));
    EXPECT_EQ(doc.IndexColPrete, 3) << "until it is looked for";
    Joindre(1, 2);
    EXPECT_EQ(doc.dependantcol, 2);
    EXPECT_EQ(Valeurs(), Valeurs({QStringList("Thriller_-__-_Jackson"), QStringList("Abbey Road_-_Paul_-_Beatles")}));
}

TEST_F(FusionnerColonnes, SeparatorsAndValuesOfEveryEncodingStandTogether)
{
    Charger({"A", "B", "Prêté"}, {"é|à", "x|y"});
    ASSERT_EQ(doc.Table.CodageSource(), stockage::Codage::Cp1252);
    doc.Table.ListItems(2).SetText("日");
    Joindre(1, 2, "é");
    EXPECT_EQ(Valeurs(), Valeurs({{"ééà", ""}, {"日éy", ""}}));
    EXPECT_EQ(doc.Table.CodageSource(), stockage::Codage::Cp1252);
    Joindre(1, 2, "→");
    EXPECT_EQ(Valeurs(), Valeurs({QStringList("ééà→"), QStringList("日éy→")}));
}

TEST_F(FusionnerColonnes, TheSortStaysOrGoesWithItsColumn)
{
    TrierParColonne(doc.Table, 3);
    Joindre(2, 1);
    EXPECT_TRUE(doc.Table.Sorted());
    EXPECT_EQ(doc.Table.SortKey(), 1);
    Joindre(1, 2);
    EXPECT_FALSE(doc.Table.Sorted());
    EXPECT_EQ(doc.Table.SortKey(), 0);
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Icon(), "");
}
