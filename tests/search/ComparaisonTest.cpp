#include "search/Comparaison.h"

#include "base/Avancement.h"
#include "catalogue/texte/LectureQrt.h"
#include "columns/SeparerColonne.h"
#include "platform/PageDeCode.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Etape = Comparaison::Etape;

/// Two tables of two columns, and what is missing from each.
class ComparaisonTest : public testing::Test
{
protected:
    ComparaisonTest()
    {
        MettreColonnes(a, {"Titre", "Genre"});
        MettreColonnes(b, {"Titre", "Genre"});
    }
    void Comparer(int colonneA = 0, int colonneB = 0, int pas = std::numeric_limits<int>::max())
    {
        Comparer(a, colonneA, b, colonneB, pas);
    }
    void Comparer(MyLV& premiere, int colonneA, MyLV& seconde, int colonneB, int pas = std::numeric_limits<int>::max())
    {
        CopierColonnes(seulesDeA, premiere);
        CopierColonnes(seulesDeB, seconde);
        Comparaison comparaison(premiere, colonneA, seconde, colonneB);
        while (comparaison.Avancer(pas) != Etape::Finie)
            ASSERT_NE(comparaison.Ou(), Etape::Rompue);
        comparaison.Remplir(seulesDeA, seulesDeB);
    }

    MyLV a;
    MyLV b;
    MyLV seulesDeA;
    MyLV seulesDeB;
};

QStringList Capitales1252()
{
    QStringList textes;
    for (int octet = 0; octet < 256; ++octet)
        textes.append(PageDeCode::VersTexte(QByteArray(1, static_cast<char>(octet))));
    return textes;
}

QString EnCapitales(const QByteArray& octets, stockage::Codage codage)
{
    Capitales capitales;
    capitales.Lire({octets.constData(), static_cast<uint32_t>(octets.size()), codage, true});
    return capitales.Texte().toString();
}

} // namespace

// ---- capitals

TEST(Capitales, AreThoseOfThePlatformForEveryByte)
{
    for (const QString& texte : Capitales1252()) {
        const QString voulues = u'a' + texte.toUpper() + u'Z';
        EXPECT_EQ(EnCapitales(PageDeCode::VersOctets(u'a' + texte + u'z'), stockage::Codage::Cp1252),
                  voulues.toUpper());
        EXPECT_EQ(EnCapitales((u'a' + texte + u'z').toUtf8(), stockage::Codage::Utf8), voulues.toUpper());
    }
}

TEST(Capitales, AreMadeOfAllOfUnicode)
{
    const QString texte = u"abc ß ŉ жук ΐ ǆ 𐐨 İı"_s;
    EXPECT_EQ(EnCapitales(texte.toUtf8(), stockage::Codage::Utf8), texte.toUpper());
    EXPECT_EQ(EnCapitales("Stra\xDF"
                          "e",
                          stockage::Codage::Cp1252),
              "STRASSE");
}

TEST(Capitales, OfACellThatWasNeverWrittenAreEmpty)
{
    Capitales capitales;
    const QByteArray octets = "abc";
    capitales.Lire({octets.constData(), 3, stockage::Codage::Cp1252, true});
    capitales.Lire({});
    EXPECT_EQ(capitales.Texte().toString(), "");
}

// ---- the merge

TEST_F(ComparaisonTest, TellsWhatIsMissingOnBothSides)
{
    AjouterEntrees(a, {{"b", "1"}, {"d", "2"}, {"a", "3"}});
    AjouterEntrees(b, {{"c", "4"}, {"a", "5"}, {"b", "6"}, {"e", "7"}});
    Comparer();
    EXPECT_EQ(ColonneDe(seulesDeA, 1), QStringList({"d"}));
    EXPECT_EQ(ColonneDe(seulesDeB, 1), QStringList({"c", "e"}));
}

TEST_F(ComparaisonTest, AllColumnsGoOverAndNothingElse)
{
    AjouterEntrees(a, {{"x", "1"}});
    AjouterEntrees(b, {{"y", "rock"}});
    b.ListItems(1).SetTag("pochette.jpg");
    b.ListItems(1).SetSmallIcon("ico");
    b.ColumnHeaders(2).SetKey("genre");
    b.ColumnHeaders(2).SetWidth(2500);
    Comparer();
    ASSERT_EQ(seulesDeB.ListItems.Count(), 1);
    EXPECT_EQ(seulesDeB.ListItems(1).Valeurs(), QStringList({"y", "rock"}));
    EXPECT_EQ(seulesDeB.ListItems(1).Tag(), "");
    EXPECT_EQ(seulesDeB.ListItems(1).SmallIcon(), "");
    EXPECT_EQ(seulesDeB.ColumnHeaders(2).Text(), "Genre");
    EXPECT_EQ(seulesDeB.ColumnHeaders(2).Key(), "genre");
    EXPECT_EQ(seulesDeB.ColumnHeaders(2).Width(), 2500);
}

TEST_F(ComparaisonTest, LooksAtTheChosenColumnOfEachAlone)
{
    AjouterEntrees(a, {{"Takk", "rock"}, {"Aja", "jazz"}});
    AjouterEntrees(b, {{"jazz", "x"}, {"Takk", "y"}});
    Comparer(1, 0);
    EXPECT_EQ(seulesDeA.ListItems.Count(), 1);
    EXPECT_EQ(seulesDeA.ListItems(1).Valeurs(), QStringList({"Takk", "rock"}));
    EXPECT_EQ(seulesDeB.ListItems(1).Valeurs(), QStringList({"Takk", "y"}));
}

TEST_F(ComparaisonTest, LettersOfBothCasesAreEqualAndAccentsAreTold)
{
    AjouterEntrees(a, {{"abc", ""}, {"É", ""}, {"straße", ""}});
    AjouterEntrees(b, {{"ABC", ""}, {"é", ""}, {"STRASSE", ""}});
    Comparer();
    EXPECT_EQ(seulesDeA.ListItems.Count(), 0);
    EXPECT_EQ(seulesDeB.ListItems.Count(), 0);
    a.ListItems("k3").SetText("e");
    b.ListItems("k3").SetText("x");
    Comparer();
    EXPECT_EQ(ColonneDe(seulesDeA, 1), QStringList({"e"})) << "what it is beside an accent is another letter";
}

TEST_F(ComparaisonTest, EqualValuesPairOffOneByOne)
{
    AjouterEntrees(a, {{"x", "1"}, {"X", "2"}, {"y", "3"}});
    AjouterEntrees(b, {{"x", "4"}, {"y", "5"}, {"y", "6"}});
    Comparer();
    EXPECT_EQ(ColonneDe(seulesDeA, 2), QStringList({"2"}));
    EXPECT_EQ(ColonneDe(seulesDeB, 2), QStringList({"6"}));
}

TEST_F(ComparaisonTest, AnEmptyValueIsOneLikeAnyOther)
{
    AjouterEntrees(a, {{"", "1"}, {"", "2"}, {"x", "3"}});
    AjouterEntrees(b, {{"x", "4"}, {"", "5"}});
    Comparer();
    EXPECT_EQ(ColonneDe(seulesDeA, 2), QStringList({"2"}));
    EXPECT_EQ(seulesDeB.ListItems.Count(), 0);
}

TEST_F(ComparaisonTest, AColumnThatWasNeverWrittenIsEmpty)
{
    AjouterEntrees(a, {{"x"}});
    AjouterEntrees(b, {{"y", ""}});
    Comparer(1, 1);
    EXPECT_EQ(seulesDeA.ListItems.Count(), 0);
    EXPECT_EQ(seulesDeB.ListItems.Count(), 0);
}

TEST_F(ComparaisonTest, EqualValuesMissEachOtherWhereBothOrdersDiffer)
{
    // The tables put "é" before "z", and its code stands behind that of "Z".
    AjouterEntrees(a, {{"é", ""}, {"z", ""}});
    AjouterEntrees(b, {{"z", ""}});
    Comparer();
    EXPECT_EQ(ColonneDe(seulesDeA, 1), QStringList({"é", "z"}));
    EXPECT_EQ(ColonneDe(seulesDeB, 1), QStringList({"z"}));
}

TEST_F(ComparaisonTest, FindsTheSameInStepsOfAnySize)
{
    for (int i = 0; i < 200; ++i) {
        if (i % 3)
            AjouterEntrees(a, {{QStringLiteral("t%1").arg(i * 37 % 200, 3, 10, QLatin1Char('0')), "a"}});
        if (i % 5)
            AjouterEntrees(b, {{QStringLiteral("T%1").arg(i * 37 % 200, 3, 10, QLatin1Char('0')), "b"}});
    }
    Comparer();
    const QStringList deA = ColonneDe(seulesDeA, 1);
    const QStringList deB = ColonneDe(seulesDeB, 1);
    EXPECT_EQ(deA.size(), 26);
    EXPECT_EQ(deB.size(), 53);
    for (const int pas : {1, 7, 64}) {
        Comparer(0, 0, pas);
        EXPECT_EQ(ColonneDe(seulesDeA, 1), deA) << pas;
        EXPECT_EQ(ColonneDe(seulesDeB, 1), deB) << pas;
    }
}

TEST_F(ComparaisonTest, GoesThroughItsStepsAndTellsHowFarItIs)
{
    AjouterEntrees(a, {{"a", ""}, {"b", ""}});
    AjouterEntrees(b, {{"b", ""}, {"c", ""}, {"d", ""}});
    Comparaison comparaison(a, 0, b, 0);
    EXPECT_EQ(comparaison.Total(), 6);
    EXPECT_EQ(comparaison.Fait(), 2);
    EXPECT_EQ(comparaison.Ou(), Etape::Fusion);
    EXPECT_EQ(comparaison.Avancer(1), Etape::Fusion);
    EXPECT_EQ(comparaison.Fait(), 3);
    EXPECT_EQ(comparaison.Avancer(9), Etape::ResteDeB);
    EXPECT_EQ(comparaison.Fait(), 5);
    EXPECT_EQ(comparaison.Avancer(1), Etape::ResteDeB);
    EXPECT_EQ(comparaison.Avancer(1), Etape::ResteDeA);
    EXPECT_EQ(comparaison.Fait(), 6);
    EXPECT_EQ(comparaison.Avancer(1), Etape::Finie);
}

// ---- the tables

TEST_F(ComparaisonTest, BothTablesStandInTheOrderOfTheirColumnsWhileItLasts)
{
    AjouterEntrees(a, {{"b", "1"}, {"a", "2"}});
    AjouterEntrees(b, {{"c", "9"}, {"d", "8"}});
    b.SetSortOrder(1);
    b.SetSorted(true);
    {
        const Comparaison comparaison(a, 0, b, 1);
        EXPECT_EQ(ColonneDe(a, 1), QStringList({"a", "b"}));
        EXPECT_EQ(ColonneDe(b, 2), QStringList({"8", "9"}));
    }
    EXPECT_EQ(ColonneDe(b, 1), QStringList({"d", "c"}));
    EXPECT_EQ(b.SortKey(), 0);
    EXPECT_EQ(b.SortOrder(), 1);
}

TEST_F(ComparaisonTest, EndsWhenATableChanges)
{
    AjouterEntrees(a, {{"a", ""}, {"b", ""}});
    AjouterEntrees(b, {{"b", ""}});
    Comparaison comparaison(a, 0, b, 0);
    EXPECT_EQ(comparaison.Avancer(1), Etape::Fusion);
    b.ListItems.Clear();
    EXPECT_EQ(comparaison.Ou(), Etape::Rompue);
    EXPECT_EQ(comparaison.Avancer(1), Etape::Rompue);
}

TEST_F(ComparaisonTest, EndsWhenColumnsOfATableChangeAndTheSortStaysOnItsColumn)
{
    DocumentDeTest document;
    TexteDeCatalogue texte;
    texte.colonnes = {"Titre|1000|", "Genre|1000|", "Prêté|600|"};
    texte.cleDeTri = "1";
    texte.entrees = {"c|1||", "a|3||", "b|2||"};
    document.Charger(texte.Texte());
    AjouterEntrees(b, {{"b", ""}});
    {
        Comparaison comparaison(document.table, 0, b, 0);
        EXPECT_EQ(comparaison.Avancer(1), Etape::Fusion);
        SansAvancement avancement;
        Dupliquer(document.doc, 0, "Copie", avancement);
        EXPECT_EQ(comparaison.Ou(), Etape::Rompue);
        EXPECT_EQ(comparaison.Avancer(99), Etape::Rompue);
    }
    EXPECT_EQ(document.table.SortKey(), 2);
    EXPECT_EQ(ColonneDe(document.table, 3), QStringList({"1", "2", "3"}));
}

TEST_F(ComparaisonTest, EndsWhenATableHasGone)
{
    auto autre = std::make_unique<MyLV>();
    MettreColonnes(*autre, {"Titre"});
    AjouterEntrees(*autre, {{"a"}, {"b"}});
    AjouterEntrees(b, {{"b", ""}});
    Comparaison comparaison(*autre, 0, b, 0);
    EXPECT_EQ(comparaison.Avancer(1), Etape::Fusion);
    autre.reset();
    EXPECT_EQ(comparaison.Avancer(1), Etape::Rompue);
}

TEST_F(ComparaisonTest, TheResultsStayWhenTheTablesGo)
{
    {
        DocumentDeTest un;
        DocumentDeTest deux;
        TexteDeCatalogue texte;
        texte.entrees = {"Aja|Éric|steely.jpg", "Takk||", "Seul"};
        un.Charger(texte.Texte());
        texte.entrees = {"takk|x|", "Zut|y|z.jpg"};
        deux.Charger(texte.Texte());
        un.table.ListItems(1).SetSubItems(1, "Paul");
        Comparer(un.table, 0, deux.table, 0);
    }
    EXPECT_EQ(ColonneDe(seulesDeA, 1), QStringList({"Aja", "Seul"}));
    EXPECT_EQ(ColonneDe(seulesDeA, 2), QStringList({"Paul", ""}));
    EXPECT_EQ(seulesDeA.ListItems(1).Tag(), "");
    EXPECT_EQ(seulesDeB.ListItems(1).Valeurs(), QStringList({"Zut", "y"}));
    EXPECT_EQ(seulesDeB.ListItems(1).Tag(), "") << "the image stands behind the last cell";
}

TEST_F(ComparaisonTest, AColumnThatTheFileLacksDoesNotShowTheImage)
{
    DocumentDeTest un;
    TexteDeCatalogue texte;
    texte.entrees = {"Aja||steely.jpg"};
    un.Charger(texte.Texte());
    un.table.ColumnHeaders.Add(0, "Neuve");
    AjouterEntrees(b, {{"x", ""}});
    Comparer(un.table, 0, b, 0);
    EXPECT_EQ(seulesDeA.ListItems(1).Valeurs(), QStringList({"Aja", "", ""}));
}

TEST_F(ComparaisonTest, AFileWithoutColumnsHasACellAndNoImage)
{
    DocumentDeTest un;
    TexteDeCatalogue texte;
    texte.colonnes = {};
    texte.entrees = {"Aja"};
    un.Charger(texte.Texte());
    ASSERT_EQ(un.table.ColonnesSource(), 0);
    AjouterEntrees(b, {{"x", ""}});
    Comparer(un.table, 0, b, 0);
    EXPECT_EQ(seulesDeA.ListItems(1).Text(), "Aja");
    EXPECT_EQ(seulesDeA.ListItems(1).Tag(), "");
}

TEST_F(ComparaisonTest, ASortedListIsPutInOrderByTheValuesOfEditedEntriesToo)
{
    DocumentDeTest un;
    TexteDeCatalogue texte;
    texte.entrees = {"a||", "b||", "c||"};
    un.Charger(texte.Texte());
    un.table.ListItems(1).SetText("aa");
    un.table.ListItems(3).SetText("cc");
    AjouterEntrees(b, {{"x", ""}});
    seulesDeA.SetSortOrder(1);
    seulesDeA.SetSorted(true);
    Comparer(un.table, 0, b, 0);
    EXPECT_EQ(ColonneDe(seulesDeA, 1), QStringList({"cc", "b", "aa"}));
}

TEST_F(ComparaisonTest, AListThatTheUserSortedStaysSorted)
{
    AjouterEntrees(a, {{"x", ""}});
    AjouterEntrees(b, {{"a", "1"}, {"b", "2"}, {"c", "3"}});
    seulesDeB.SetSortOrder(1);
    seulesDeB.SetSorted(true);
    Comparer();
    EXPECT_EQ(ColonneDe(seulesDeB, 1), QStringList({"c", "b", "a"}));
}

// ---- what is told

TEST_F(ComparaisonTest, ACategoryWithoutEntriesIsNotCompared)
{
    EXPECT_EQ(RefusDeComparer(a, b).texte,
              "La première catégorie ne contient pas d'entrée.\nIl n'y a pas de comparaison à faire");
    AjouterEntrees(a, {{"x", ""}});
    EXPECT_EQ(RefusDeComparer(a, b).texte,
              "La deuxième catégorie ne contient pas d'entrée.\nIl n'y a pas de comparaison à faire");
    AjouterEntrees(b, {{"x", ""}});
    EXPECT_EQ(RefusDeComparer(a, b).texte, "");
}

TEST(Verdict, NamesTheFilesInItsOwnOrder)
{
    EXPECT_EQ(Verdict(0, 0, "a.qrt", "b.qrt"), "Aucune difference ! les fichiers sont identiques");
    EXPECT_EQ(Verdict(2, 0, "a.qrt", "b.qrt"),
              "Toutes les entrees du fichier \"a.qrt\"  sont presentes dans le fichier \"b.qrt\"");
    EXPECT_EQ(Verdict(0, 1, "a.qrt", "b.qrt"),
              "Toutes les entrees du fichier \"b.qrt\"  sont presentes dans le fichier \"a.qrt\"");
    EXPECT_EQ(Verdict(1, 1, "a.qrt", "b.qrt"), "");
    EXPECT_EQ(Verdict(1, 0, "%2", "%1"), "Toutes les entrees du fichier \"%2\"  sont presentes dans le fichier \"%1\"");
}

TEST(TitreDesResultats, CountsTheSecondSideFirst)
{
    EXPECT_EQ(TitreDesResultats(3, 14), "Resultats: 2>1: 14 - 1>2: 3");
}
