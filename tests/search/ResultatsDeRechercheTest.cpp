#include "search/ResultatsDeRecherche.h"

#include "platform/PageDeCode.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

/// A category that was loaded, and a search in it.
class ResultatsTest : public testing::Test
{
protected:
    void Charger(const QList<QByteArray>& entrees,
                 const QList<QByteArray>& colonnes = {"Titre|1000|", "Artiste|900,5|x|y", "Prêté|600|"})
    {
        TexteDeCatalogue texte;
        texte.trie = "0";
        texte.colonnes = colonnes;
        texte.entrees = entrees;
        d.Charger(texte.Texte());
        resultats = std::make_unique<ResultatsDeRecherche>(d.doc);
    }
    void Chercher(const QString& texte)
    {
        Recherche recherche(d.doc.TmpFolder, d.doc.ColCount(), texte, PorteeDeRecherche());
        while (recherche.Avancer(1 << 20)) {
        }
        resultats->Prendre(recherche);
    }
    ListItem Resultat(int place) { return resultats->Table.ListItems(place); }

    FileDeReponses messages;
    DocumentDeTest d;
    std::unique_ptr<ResultatsDeRecherche> resultats;
};

} // namespace

TEST_F(ResultatsTest, HaveTheColumnsOfTheTable)
{
    Charger({});
    const ColumnHeaders& colonnes = resultats->Table.ColumnHeaders;
    ASSERT_EQ(colonnes.Count(), 3);
    EXPECT_EQ(colonnes(2).Text(), "Artiste");
    EXPECT_EQ(colonnes(2).Width(), 900.5F);
    EXPECT_EQ(colonnes(3).Text(), "Prêté");
}

TEST_F(ResultatsTest, AreTheFieldsOfTheLine)
{
    Charger({"x|||", "Été|Zazie|à Éric|la.jpg", "éTé||", "été|a|b|perdue.gif"});
    d.dossier.Ecrire("la.jpg", "x");
    Chercher("été");
    ASSERT_EQ(resultats->Table.ListItems.Count(), 3);
    EXPECT_EQ(Resultat(1).Valeurs(), QStringList({"Été", "Zazie", "à Éric"}));
    EXPECT_EQ(Resultat(1).Tag(), "la.jpg");
    EXPECT_EQ(Resultat(1).Key(), "k2");
    EXPECT_EQ(Resultat(1).SmallIcon(), "ico");
    EXPECT_EQ(resultats->Infobulle(Resultat(1)), "Été <> Zazie");
    EXPECT_EQ(Resultat(2).Valeurs(), QStringList({"éTé", "", ""})) << "fields that the line lacks";
    EXPECT_EQ(Resultat(2).SmallIcon(), "noico");
    EXPECT_EQ(Resultat(3).SmallIcon(), "icoerror");
    EXPECT_EQ(resultats->Table.ListItems(QStringLiteral("k4")), Resultat(3)) << "found by its key";
    EXPECT_FALSE(resultats->Table.ListItems(QStringLiteral("k1")));
}

TEST_F(ResultatsTest, OfOneColumnEndTheirToolTipWithTheImage)
{
    Charger({"seule|image.jpg"}, {"Prêté|600|"});
    Chercher("seule");
    EXPECT_EQ(resultats->Infobulle(Resultat(1)), "seule <> image.jpg");
}

TEST_F(ResultatsTest, OfAFileWithoutALoanColumnAreAsItLiesThere)
{
    Charger({"a|b|c.jpg"}, {"Titre|1000|", "Artiste|900|"});
    Chercher("a");
    EXPECT_EQ(Resultat(1).Valeurs(), QStringList({"a", "b", "c.jpg"}));
    EXPECT_EQ(Resultat(1).Tag(), "");
}

TEST_F(ResultatsTest, OfTheExactTextHaveItsCharacters)
{
    Charger({"Жук|||"});
    const QString huitBits = PageDeCode::VersTexte(d.dossier.Lire("Zelvane.qrt"));
    d.dossier.Ecrire("Zelvane.utf8", QString(huitBits).replace("???", "Жук").toUtf8());
    Chercher("ЖУК");
    ASSERT_EQ(resultats->Table.ListItems.Count(), 1);
    EXPECT_EQ(Resultat(1).Text(), "Жук");
}

TEST_F(ResultatsTest, OfAnEarlierSearchAreGone)
{
    Charger({"a|||", "b|||"});
    Chercher("a");
    Chercher("b");
    EXPECT_EQ(ClesDe(resultats->Table), QStringList({"k2"}));
    resultats->Vider();
    EXPECT_EQ(resultats->Table.ListItems.Count(), 0);
}

TEST_F(ResultatsTest, StayWhenTheFileGoes)
{
    Charger({"abc|d||"});
    Chercher("abc");
    d.dossier.Ecrire("Zelvane.qrt", "x");
    EXPECT_EQ(Resultat(1).Valeurs(), QStringList({"abc", "d", ""}));
}

TEST_F(ResultatsTest, KeepTheirKeysWhenTheyAreSorted)
{
    Charger({"a|2||", "x|||", "ab|1||"});
    resultats->Table.SetSortKey(1);
    resultats->Table.SetSorted(true);
    Chercher("a");
    EXPECT_EQ(ClesDe(resultats->Table), QStringList({"k3", "k1"}));
}

TEST_F(ResultatsTest, ChooseTheEntriesWithTheirKeys)
{
    Charger({"a|||", "ab|||", "b|||", "ac|||"});
    Chercher("a");
    d.table.Selectionner(3, 3, true);
    Resultat(2).SetSelected(true);
    Resultat(3).SetSelected(true);
    d.table.ListItems(4).SetKey("ailleurs");
    resultats->ChoisirDans(d.table);
    EXPECT_EQ(d.table.NombreDeSelectionnees(), 1) << "a key that names no entry is passed over";
    EXPECT_TRUE(d.table.EstSelectionnee(2));
}

TEST_F(ResultatsTest, GiveTheFirstEntryThatTheyChooseTheFocus)
{
    Charger({"a|||", "ab|||", "b|||", "ac|||"});
    Chercher("a");
    Resultat(2).SetSelected(true);
    Resultat(3).SetSelected(true);
    resultats->ChoisirDans(d.table);
    EXPECT_EQ(d.table.SelectedItem().Index(), 2);
}

TEST_F(ResultatsTest, TakeTheValuesOfTheirEntriesAndNothingElse)
{
    Charger({"a|1||i.jpg", "ab|2||", "ac|3||"});
    Chercher("a");
    for (int i = 1; i <= 3; ++i)
        d.table.ListItems(i).EcrireValeurs({"neuf", QString::number(i * 10), "p"});
    d.table.ListItems(1).SetTag("autre.jpg");
    Resultat(1).SetSelected(true);
    Resultat(3).SetSelected(true);
    d.table.ListItems.Remove(3);
    resultats->Rafraichir(d.table);
    EXPECT_EQ(Resultat(1).Valeurs(), QStringList({"neuf", "10", "p"}));
    EXPECT_EQ(Resultat(1).Tag(), "i.jpg");
    EXPECT_EQ(Resultat(1).SmallIcon(), "icoerror");
    EXPECT_EQ(resultats->Infobulle(Resultat(1)), "a <> 1");
    EXPECT_EQ(Resultat(2).Valeurs(), QStringList({"ab", "2", ""})) << "it is not selected";
    EXPECT_EQ(Resultat(3).Valeurs(), QStringList({"ac", "3", ""})) << "its entry is gone";

    d.table.ListItems(1).SetText("encore");
    resultats->Rafraichir(d.table);
    EXPECT_EQ(Resultat(1).Text(), "encore");
    EXPECT_EQ(resultats->Infobulle(Resultat(1)), "a <> 1");

    d.dossier.Ecrire("Zelvane.qrt", "[ListItems]\r\nCount=1\r\nIt1=ab|9||\r\n");
    Chercher("ab");
    EXPECT_EQ(resultats->Infobulle(Resultat(1)), "ab <> 9") << "of the line found now, with the same key";
}

TEST_F(ResultatsTest, CostNoMoreWhereTheirEntriesDidNotChange)
{
    Charger({"a|1||i.jpg", "ab|2||"});
    Chercher("a");
    resultats->Table.Selectionner(1, 2, true);
    const size_t avant = resultats->Table.Memoire();
    resultats->Rafraichir(d.table);
    EXPECT_EQ(resultats->Table.Memoire(), avant);
}

TEST(MessageDeRecherche, SaysWhyNothingWasFound)
{
    EXPECT_EQ(MessageDeRecherche(IssueDeRecherche::SansTexte).cle, "msg13");
    EXPECT_EQ(MessageDeRecherche(IssueDeRecherche::SansTexte).texte, "Veuillez entrer un texte à rechercher");
    EXPECT_EQ(MessageDeRecherche(IssueDeRecherche::Rien).cle, "msg14");
    EXPECT_EQ(MessageDeRecherche(IssueDeRecherche::Rien).texte, "Désolé rien n'a été trouvé");
    EXPECT_EQ(MessageDeRecherche(IssueDeRecherche::Absent).cle, "msgRechercheAbsente");
    EXPECT_EQ(MessageDeRecherche(IssueDeRecherche::Illisible).cle, "msgRechercheIllisible");
    EXPECT_EQ(MessageDeRecherche(IssueDeRecherche::Trouve).texte, QString());
}

TEST(TexteDuCompte, NamesTheTextAndTheNumber)
{
    EXPECT_EQ(TexteDuCompte("abc", 12), "'abc' à été trouvé 12 fois");
    EXPECT_EQ(TexteDuCompte("%2 %1", 3), "'%2 %1' à été trouvé 3 fois");
}
