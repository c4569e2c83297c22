#include "ExportDeTest.h"

namespace {

QByteArray Cadre(const QByteArray& nombre, const QByteArray& lignes)
{
    return Lignes({R"(        \\\|///)", R"(       \\ - - //)", "        ( @ @ )",
                   "----oOOo--(_)-oOOo-------------------" + EnHuitBits("été.qrt") + " : " + nombre +
                       "--------------------------------",
                   ""}) +
           lignes +
           Lignes({"",
                   "------------------------------------Zelvane v2.2 by Morvenal------------------------------------"});
}

QStringList Numerotes(const QString& debut, int nombre)
{
    QStringList textes;
    for (int i = 1; i <= nombre; ++i)
        textes.append(debut + QString::number(i));
    return textes;
}

} // namespace

using TexteEncadreTest = ExportDeTest;
using PointsVirgulesTest = ExportDeTest;
using TabulationsTest = ExportDeTest;

// ---- framed text

TEST_F(TexteEncadreTest, OneColumnIsWritten)
{
    Colonnes({"A"});
    AjouterEntrees(d.table, {{"un"}, {"trois"}});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("2", Lignes({"- un", "- trois"})));
}

TEST_F(TexteEncadreTest, OfTwoColumnsTheFirstIsWrittenWithItsBlanks)
{
    Colonnes({"A", "B"});
    AjouterEntrees(d.table, {{"un", "x"}, {"trois", "y"}});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("2", Lignes({"- un     ", "- trois  "})));
}

TEST_F(TexteEncadreTest, OfTwoColumnsTheFirstHasNoBlanksWhereTheOtherIsEmpty)
{
    Colonnes({"A", "B"});
    AjouterEntrees(d.table, {{"un", ""}, {"trois", ""}});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("2", Lignes({"- un", "- trois"})));
}

TEST_F(TexteEncadreTest, ColumnsAreTwoWiderThanTheirLongestValueAndTheLastOneWithContentEndsTheLine)
{
    Colonnes({"A", "B", "C", "D"});
    AjouterEntrees(d.table, {{"a", "bb", "c", ""}, {"aaa", "b", "cc", ""}});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("2", Lignes({"- a    bb  c", "- aaa  b   cc"})));
}

TEST_F(TexteEncadreTest, AnEmptyValueMovesTheRestOfItsLineToTheLeft)
{
    Colonnes({"A", "B", "C", "D"});
    AjouterEntrees(d.table, {{"a", "", "c", "d"}, {"", "bb", "c", "d"}});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("2", Lignes({"- a  c  ", "- bb  c  "})));
}

TEST_F(TexteEncadreTest, TheLastColumnAloneIsMeasuredAndNotWritten)
{
    Colonnes({"A", "B", "C"});
    AjouterEntrees(d.table, {{"a", "b", "c"}});
    Cocher({3});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("1", Lignes({"- "})));
}

TEST_F(TexteEncadreTest, TickedColumnsAloneAreMeasuredAndWritten)
{
    Colonnes({"A", "B", "C", "D"});
    AjouterEntrees(d.table, {{"a", "b", "c", "d"}});
    Cocher({1, 3});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("1", Lignes({"- a  c"})));
    Cocher({2, 3});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("1", Lignes({"- b  c"})));
    Cocher({1, 4});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("1", Lignes({"- a  "}))) << "the last one has content";
}

TEST_F(TexteEncadreTest, EntriesThatAreNotWrittenAreMeasured)
{
    Colonnes({"A", "B", "C"});
    AjouterEntrees(d.table, {{"long", "b", ""}, {"a", "b", ""}});
    choix.selectionUniquement = true;
    d.table.Selectionner(2, 2, true);
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("2", Lignes({"- a     b"})));
}

TEST_F(TexteEncadreTest, OfElevenColumnsTheTenthIsTheLastWritten)
{
    Colonnes(Numerotes("T", 11));
    AjouterEntrees(d.table, {Numerotes("", 11)});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("1", Lignes({"- 1  2  3  4  5  6  7  8  9  10  "})));
}

TEST_F(TexteEncadreTest, OfThirteenColumnsElevenAreMeasuredAndWritten)
{
    Colonnes(Numerotes("T", 13));
    AjouterEntrees(d.table, {Numerotes("", 13)});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("1", Lignes({"- 1  2  3  4  5  6  7  8  9  10  11  "})))
        << "the one in the last place has blanks";
}

TEST_F(TexteEncadreTest, AnEmptyEleventhColumnLeavesTheTenthWithoutBlanks)
{
    Colonnes(Numerotes("T", 11));
    QStringList valeurs = Numerotes("", 11);
    valeurs[10].clear();
    AjouterEntrees(d.table, {valeurs});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("1", Lignes({"- 1  2  3  4  5  6  7  8  9  10"})));
}

TEST_F(TexteEncadreTest, AnEmptyTenthColumnBeforeTheEleventhLeavesTheNinthItsBlanks)
{
    Colonnes(Numerotes("T", 12));
    QStringList valeurs = Numerotes("", 12);
    valeurs[9].clear();
    AjouterEntrees(d.table, {valeurs});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("1", Lignes({"- 1  2  3  4  5  6  7  8  9  11  "})));
}

TEST_F(TexteEncadreTest, NumbersStandInAColumnAsWideAsThatOfTheCount)
{
    Colonnes({"A"});
    for (int i = 1; i <= 120; ++i)
        AjouterEntrees(d.table, {{"x"}});
    choix.numeroter = choix.selectionUniquement = true;
    for (const int entree : {7, 10, 99, 100, 120})
        d.table.Selectionner(entree, entree, true);
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre),
              Cadre("120", Lignes({"-  7 :x", "- 10 :x", "- 99 :x", "-100 :x", "-120 :x"})));
}

TEST_F(TexteEncadreTest, LengthsAreOfCharacters)
{
    Colonnes({"A", "B", "C"});
    AjouterEntrees(d.table, {{"été", "x", "y"}, {"aa", "x", "y"}});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), EnHuitBits(QByteArray()) + Cadre("2", EnHuitBits(Lignes({
                                                                                             "- été  x  ",
                                                                                             "- aa   x  ",
                                                                                         }))));
}

TEST_F(TexteEncadreTest, WideBlanksAreWrittenWhole)
{
    Colonnes({"A", "B", "C"});
    AjouterEntrees(d.table, {{QString(300, u'a'), "b", ""}, {"a", "b", ""}});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre),
              Cadre("2", Lignes({"- " + QByteArray(300, 'a') + "  b", "- a" + QByteArray(301, ' ') + "b"})));
}

TEST_F(TexteEncadreTest, AnEmptyTableHasItsFrame)
{
    Colonnes({"A"});
    EXPECT_EQ(Exporter(GenreExport::TexteEncadre), Cadre("0", ""));
}

// ---- semicolons

TEST_F(PointsVirgulesTest, TheTitlesHaveOneSemicolonMoreThanTheRows)
{
    Colonnes({"Titre", "Année", "Prêté"});
    AjouterEntrees(d.table, {{"élan", "1959", ""}, {"", "a;b", "\"c\""}});
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules),
              EnHuitBits(Lignes({"Titre;Année;Prêté;", "élan;1959;", ";a;b;\"c\""})));
}

TEST_F(PointsVirgulesTest, HasTickedColumnsNumbersAndTheSelection)
{
    Colonnes({"A", "B", "C"});
    AjouterEntrees(d.table, {{"a", "b", "c"}, {"d", "e", "f"}});
    Cocher({2, 3});
    choix.numeroter = choix.selectionUniquement = true;
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), EnHuitBits("N°;B;C;\r\n"));
    d.table.Selectionner(2, 2, true);
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), EnHuitBits("N°;B;C;\r\n2;e;f\r\n"));
}

TEST_F(PointsVirgulesTest, WithoutAColumnLinesAreEmpty)
{
    Colonnes({"A"});
    AjouterEntrees(d.table, {{"a"}});
    Cocher({});
    EXPECT_EQ(Exporter(GenreExport::PointsVirgules), "\r\n\r\n");
}

// ---- tabs

TEST_F(TabulationsTest, AllColumnsStandUnderTheirTitles)
{
    Colonnes({"Titre", "Année", "Prêté"});
    AjouterEntrees(d.table, {{"élan", "1959", ""}, {"", "b", "c"}});
    EXPECT_EQ(Exporter(GenreExport::Tabulations),
              EnHuitBits(Lignes({"Titre\tAnnée\tPrêté", "élan\t1959\t", "\tb\tc"})));
}

TEST_F(TabulationsTest, TheTickOfTheColumnBeforeDecides)
{
    Colonnes({"A", "B", "C", "D"});
    AjouterEntrees(d.table, {{"a", "b", "c", "d"}});
    Cocher({1, 3, 4});
    EXPECT_EQ(Exporter(GenreExport::Tabulations), "A\tB\tD\r\na\tb\td\r\n");
    Cocher({1, 2, 3});
    EXPECT_EQ(Exporter(GenreExport::Tabulations), "A\tB\tC\tD\r\na\tb\tc\td\r\n") << "the last tick decides nothing";
}

TEST_F(TabulationsTest, WithoutTheFirstColumnTheRowsLoseTwoAndTheTitlesOne)
{
    Colonnes({"A", "B", "C", "D"});
    AjouterEntrees(d.table, {{"a", "b", "c", "d"}});
    Cocher({2, 3, 4});
    EXPECT_EQ(Exporter(GenreExport::Tabulations), "A\tC\tD\r\nc\td\r\n");
}

TEST_F(TabulationsTest, NumbersComeFirst)
{
    Colonnes({"A", "B"});
    AjouterEntrees(d.table, {{"a", "b"}, {"c", "d"}});
    choix.numeroter = choix.selectionUniquement = true;
    d.table.Selectionner(2, 2, true);
    EXPECT_EQ(Exporter(GenreExport::Tabulations), EnHuitBits("N°\tA\tB\r\n2\tc\td\r\n"));
}

TEST_F(TabulationsTest, OfOneColumnThereIsItsTitleAlsoWithoutItsTick)
{
    Colonnes({"A"});
    AjouterEntrees(d.table, {{"a"}});
    EXPECT_EQ(Exporter(GenreExport::Tabulations), "A\r\na\r\n");
    Cocher({});
    EXPECT_EQ(Exporter(GenreExport::Tabulations), "A\r\n\r\n");
}
