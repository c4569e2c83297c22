#include "lending/Prets.h"

#include "base/Avancement.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

const Pret s_paul{u"Paul"_s, u"13/09/2005"_s};

class PretsTest : public testing::Test
{
protected:
    PretsTest() { Colonnes({"Titre", "Coffret", "Prêté"}); }

    void Colonnes(const QStringList& titres)
    {
        table.ColumnHeaders.Clear();
        MettreColonnes(table, titres);
        doc.IndexColPrete = static_cast<int>(titres.indexOf(u"Prêté"_s)) + 1;
    }
    void Choisir(std::initializer_list<int> positions)
    {
        for (const int position : positions)
            table.Selectionner(position, position, true);
    }
    /// `reponses` are those to the question whether a loan is replaced, one after the other.
    void Preter(Portee portee = Portee::Selection, QList<bool> reponses = {})
    {
        PreterEntrees(
            doc, s_paul, portee,
            [&] {
                ++questions;
                EXPECT_FALSE(reponses.isEmpty()) << "a question too many";
                return !reponses.isEmpty() && reponses.takeFirst();
            },
            avancement);
        EXPECT_TRUE(reponses.isEmpty()) << "questions that were not asked";
    }
    void Rendre(Portee portee = Portee::Selection) { RendreEntrees(doc, portee, avancement); }
    QStringList Prets() const { return ColonneDe(table, doc.IndexColPrete); }
    QList<int> Choisies() const
    {
        QList<int> choisies;
        for (int i = 1; i <= table.ListItems.Count(); ++i) {
            if (table.EstSelectionnee(i))
                choisies.append(i);
        }
        return choisies;
    }

    DocumentDeTest document;
    Categorie& doc = document.doc;
    MyLV& table = document.table;
    SansAvancement avancement;
    int questions = 0;
};

// ---- lending

TEST_F(PretsTest, ALoanIsTheNameAndTheDate)
{
    EXPECT_EQ(TexteDuPret(s_paul), "Paul - 13/09/2005");
    EXPECT_EQ(TexteDuPret({u"Paul - Louis"_s, u"1/2/2006"_s}), "Paul - Louis - 1/2/2006");
}

TEST_F(PretsTest, ABarInTheNamePartsNoCell)
{
    for (const int colonne : {1, 2}) {
        Colonnes(colonne == 1 ? QStringList({u"Prêté"_s, "Titre"}) : QStringList({"Titre", u"Prêté"_s}));
        table.ListItems.Clear();
        AjouterEntrees(table, {{"", ""}, {"x", "x"}});
        Choisir({1, 2});
        PreterEntrees(
            doc, {u"Ida|Paul"_s, u"13/09/2005"_s}, Portee::Selection, [] { return true; }, avancement);
        EXPECT_EQ(Prets(), QStringList({u"Ida\u00A6Paul - 13/09/2005"_s,
                                        colonne == 1 ? u"Ida\u00A6Paul"_s : u"Ida\u00A6Paul - 13/09/2005"_s}));
    }
}

TEST_F(PretsTest, MarksTheSelectedEntriesAlone)
{
    AjouterEntrees(table, {{"Aja"}, {"Blue"}, {"Dummy"}});
    Choisir({1, 3});
    Preter();
    EXPECT_EQ(Prets(), QStringList({"Paul - 13/09/2005", "", "Paul - 13/09/2005"}));
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"Aja", "Blue", "Dummy"}));
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(questions, 0);
}

TEST_F(PretsTest, ACellThatWasNeverWrittenIsEmpty)
{
    TexteDeCatalogue texte;
    texte.colonnes = {"Titre|1000|", "Prêté|600|", "Artiste|600|"};
    texte.entrees = {"Aja", "Blue|", "Dummy|Ida - 1/1/2001|Portishead|dummy.jpg"};
    document.Charger(texte.Texte());
    ASSERT_FALSE(table.ListItems(1).ListSubItems(1));
    Choisir({1, 2});
    Preter();
    EXPECT_EQ(Prets(), QStringList({"Paul - 13/09/2005", "Paul - 13/09/2005", "Ida - 1/1/2001"}));
    EXPECT_EQ(table.ListItems(3).Tag(), "dummy.jpg");
}

TEST_F(PretsTest, AnEntryThatIsLentIsAskedAboutUntilOneIsReplaced)
{
    AjouterEntrees(table, {{"a", "", "Ida - 1/1/2001"},
                           {"b", "", "Ida - 1/1/2001"},
                           {"c", "", ""},
                           {"d", "", "Ida - 1/1/2001"},
                           {"e", "", "Ida - 1/1/2001"}});
    Choisir({1, 2, 3, 4, 5});
    // From the last to the first: no for "e", yes for "d", and for those that follow.
    Preter(Portee::Selection, {false, true});
    EXPECT_EQ(Prets(), QStringList({"Paul - 13/09/2005", "Paul - 13/09/2005", "Paul - 13/09/2005", "Paul - 13/09/2005",
                                    "Ida - 1/1/2001"}));
    EXPECT_EQ(questions, 2);
}

TEST_F(PretsTest, ANoKeepsEachLoanAndTheDocumentCountsAsChanged)
{
    AjouterEntrees(table, {{"a", "", "Ida"}, {"b", "", "Jo"}});
    Choisir({1, 2});
    Preter(Portee::Selection, {false, false});
    EXPECT_EQ(Prets(), QStringList({"Ida", "Jo"}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(PretsTest, InTheFirstColumnAReplacedLoanIsTheBareName)
{
    Colonnes({"Prêté", "Titre"});
    AjouterEntrees(table, {{"Ida - 1/1/2001", "Aja"}, {"", "Blue"}});
    Choisir({1, 2});
    Preter(Portee::Selection, {true});
    EXPECT_EQ(Prets(), QStringList({"Paul", "Paul - 13/09/2005"}));
}

// ---- the dependants

TEST_F(PretsTest, LendsTheDependantsInTheWholeTable)
{
    AjouterEntrees(table, {{"1", "A"}, {"2", "B"}, {"3", "A"}, {"4", "a"}, {"5", "A"}, {"6", "B"}});
    doc.dependantcol = 2;
    Choisir({3});
    Preter(Portee::Dependantes);
    EXPECT_EQ(Prets(), QStringList({"Paul - 13/09/2005", "", "Paul - 13/09/2005", "", "Paul - 13/09/2005", ""}));
    EXPECT_EQ(Choisies(), QList<int>({1, 3, 5})) << "the selection stays widened";
}

TEST_F(PretsTest, OnlyTheSelectionWithoutDependants)
{
    AjouterEntrees(table, {{"1", "A"}, {"2", "A"}});
    doc.dependantcol = 2;
    Choisir({2});
    Preter();
    EXPECT_EQ(Prets(), QStringList({"", "Paul - 13/09/2005"}));
    EXPECT_EQ(Choisies(), QList<int>({2}));
}

TEST_F(PretsTest, AnEmptyDependantValueIsAValue)
{
    AjouterEntrees(table, {{"1", ""}, {"2", "A"}, {"3"}});
    doc.dependantcol = 2;
    Choisir({1});
    Preter(Portee::Dependantes);
    EXPECT_EQ(Choisies(), QList<int>({1, 3}));
}

TEST_F(PretsTest, TheFirstColumnMayBeTheDependantOneOfALoan)
{
    AjouterEntrees(table, {{"A"}, {"B"}, {"A"}});
    doc.dependantcol = 1;
    Choisir({1});
    Preter(Portee::Dependantes);
    EXPECT_EQ(Choisies(), QList<int>({1, 3}));
}

TEST_F(PretsTest, ADependantColumnThatIsNotThereHasNoDependants)
{
    AjouterEntrees(table, {{"A"}, {"B"}});
    for (const int colonne : {4, -1}) {
        doc.dependantcol = colonne;
        table.Selectionner(1, 2, false);
        Choisir({1});
        Preter(Portee::Dependantes, QList<bool>(colonne == 4 ? 0 : 1, true));
        EXPECT_EQ(Choisies(), QList<int>({1}));
    }
}

TEST_F(PretsTest, AValueFoundBetweenTheBarsOfAnotherBringsNoDependants)
{
    // From the last: "A|B" is looked at first, and "A" stands between its bars.
    AjouterEntrees(table, {{"1", "A"}, {"2", "A"}, {"3", "A|B"}, {"4", "A|B"}});
    doc.dependantcol = 2;
    Choisir({2, 4});
    Preter(Portee::Dependantes);
    EXPECT_EQ(Choisies(), QList<int>({2, 3, 4}));
}

/// The selection widened step by step, as it is stated: with a text that grows.
void EtendrePasAPas(MyLV& table, int colonne)
{
    QString vues = u"|"_s;
    for (int i = table.ListItems.Count(); i >= 1; --i) {
        if (!table.EstSelectionnee(i))
            continue;
        const QString valeur = table.ListItems(i).Valeur(colonne);
        if (vues.contains(u'|' + valeur + u'|'))
            continue;
        for (int j = table.ListItems.Count(); j >= 1; --j) {
            if (table.ListItems(j).Valeur(colonne) == valeur)
                table.Selectionner(j, j, true);
        }
        vues += valeur + u'|';
    }
}

TEST_F(PretsTest, TheSelectionIsWidenedAsStepByStep)
{
    std::mt19937 hasard(7); // NOLINT(cert-msc51-cpp): the same tables each time
    const QStringList valeurs{"", "A", "B", "A|B", "B|A", "|", "A|", "é", "É", "B|A|B"};
    const auto tirer = [&hasard](int nombre) { return std::uniform_int_distribution(0, nombre - 1)(hasard); };
    for (int essai = 0; essai < 300; ++essai) {
        DocumentDeTest d, modele;
        for (DocumentDeTest* un : {&d, &modele})
            MettreColonnes(un->table, {"Titre", "Coffret", "Prêté"});
        for (int i = 0; i < 12; ++i) {
            const QStringList valeursDEntree{QString::number(i), valeurs[tirer(10)], valeurs[tirer(4)]};
            const bool choisie = tirer(4) == 0;
            for (DocumentDeTest* un : {&d, &modele}) {
                AjouterEntrees(un->table, {valeursDEntree});
                un->table.Selectionner(i + 1, i + 1, choisie);
            }
        }
        d.doc.IndexColPrete = 3;
        d.doc.dependantcol = 2;
        EtendrePasAPas(modele.table, 2);
        if (essai % 2 == 0) {
            PreterEntrees(
                d.doc, s_paul, Portee::Dependantes, [] { return true; }, avancement);
        } else {
            RendreEntrees(d.doc, Portee::Dependantes, avancement);
            EtendrePasAPas(modele.table, 3);
        }
        for (int i = 1; i <= 12; ++i)
            ASSERT_EQ(d.table.EstSelectionnee(i), modele.table.EstSelectionnee(i)) << essai << ' ' << i;
    }
}

// ---- return

TEST_F(PretsTest, EmptiesTheLoansOfTheSelectedEntries)
{
    AjouterEntrees(table, {{"a", "", "Ida"}, {"b", "", "Ida"}, {"c", "", "Jo"}});
    Choisir({1, 3});
    Rendre();
    EXPECT_EQ(Prets(), QStringList({"", "Ida", ""}));
    EXPECT_EQ(Choisies(), QList<int>({1, 3})) << "no dependant column";
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(PretsTest, WhatWasLentTogetherComesBackTogetherWhereThereIsADependantColumn)
{
    AjouterEntrees(table, {{"a", "A", "Ida - 1/1/2001"}, {"b", "B", "Ida - 1/1/2001"}, {"c", "A", "Ida - 2/1/2001"}});
    doc.dependantcol = 2;
    Choisir({1});
    Rendre();
    EXPECT_EQ(Prets(), QStringList({"", "", "Ida - 2/1/2001"}));
    EXPECT_EQ(Choisies(), QList<int>({1, 2}));
}

TEST_F(PretsTest, AnEmptyLoanSelectsAllThatIsNotLent)
{
    AjouterEntrees(table, {{"a", "A", ""}, {"b", "B", ""}, {"c", "C", "Ida"}, {"d", "D"}});
    doc.dependantcol = 2;
    Choisir({1});
    Rendre();
    EXPECT_EQ(Choisies(), QList<int>({1, 2, 4}));
    EXPECT_EQ(Prets(), QStringList({"", "", "Ida", ""}));
}

TEST_F(PretsTest, ReturnsTheDependantsAndThenWhatHasTheirLoans)
{
    AjouterEntrees(table, {{"a", "A", "Ida"}, {"b", "A", "Jo"}, {"c", "B", "Jo"}, {"d", "C", "Lou"}});
    doc.dependantcol = 2;
    Choisir({1});
    Rendre(Portee::Dependantes);
    EXPECT_EQ(Prets(), QStringList({"", "", "", "Lou"}));
    EXPECT_EQ(Choisies(), QList<int>({1, 2, 3}));
}

TEST_F(PretsTest, AReturnKnowsNoDependantsByTheFirstColumn)
{
    AjouterEntrees(table, {{"A", "", "Ida"}, {"A", "", "Jo"}});
    doc.dependantcol = 1;
    Choisir({1});
    Rendre(Portee::Dependantes);
    EXPECT_EQ(Prets(), QStringList({"", "Jo"}));
}

TEST_F(PretsTest, ReturnsInTheFirstColumnToo)
{
    Colonnes({"Prêté", "Titre"});
    AjouterEntrees(table, {{"Ida", "Aja"}, {"Ida", "Blue"}, {"Jo", "Dummy"}});
    doc.dependantcol = 2;
    Choisir({1});
    Rendre();
    EXPECT_EQ(Prets(), QStringList({"", "", "Jo"}));
}

TEST_F(PretsTest, AReturnWritesNoCellThatWasNeverWritten)
{
    TexteDeCatalogue texte;
    texte.colonnes = {"Titre|1000|", "Prêté|600|"};
    texte.entrees = {"Aja"};
    document.Charger(texte.Texte());
    doc.IlFautSauver = false;
    Choisir({1});
    Rendre();
    EXPECT_FALSE(table.ListItems(1).ListSubItems(1));
    EXPECT_TRUE(doc.IlFautSauver);
}

} // namespace
