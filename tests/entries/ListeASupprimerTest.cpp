#include "entries/ListeASupprimer.h"

#include "base/Avancement.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ListeASupprimerTest : public testing::Test
{
protected:
    ListeASupprimerTest() { MettreColonnes(table, {"Titre", "Coffret"}); }

    /// Adds entries "1", "2" ... with these values in the dependant column.
    void Coffrets(const QStringList& valeurs)
    {
        doc.dependantcol = 2;
        for (const QString& valeur : valeurs)
            AjouterEntrees(table, {{QString::number(table.ListItems.Count() + 1), valeur}});
    }
    void Choisir(std::initializer_list<int> positions)
    {
        for (const int position : positions)
            table.Selectionner(position, position, true);
    }
    QStringList Remplir(bool avecDependantes)
    {
        SansAvancement sans;
        liste.Remplir(avecDependantes, sans);
        return Titres();
    }
    QStringList Titres() const
    {
        QStringList titres;
        for (int i = 1; i <= liste.Count(); ++i)
            titres.append(liste.Entree(i).Text());
        return titres;
    }
    QString Coches() const
    {
        QString coches;
        for (int i = 1; i <= liste.Count(); ++i)
            coches += liste.EstCochee(i) ? u'x' : u'-';
        return coches;
    }

    DocumentDeTest document;
    MyLV& table = document.table;
    Categorie& doc = document.doc;
    ListeASupprimer liste{document.doc};
};

} // namespace

// ---- which entries

TEST_F(ListeASupprimerTest, WithoutDependantsTheSelectionIsListedInTableOrder)
{
    Coffrets({"A", "A", "B", "A"});
    Choisir({4, 1});
    EXPECT_EQ(Remplir(false), QStringList({"1", "4"}));
    EXPECT_EQ(Coches(), "xx");
    EXPECT_EQ(liste.NbCoches(), 2);
}

TEST_F(ListeASupprimerTest, AnEmptySelectionListsNothing)
{
    Coffrets({"A", "A"});
    EXPECT_EQ(Remplir(false), QStringList());
    EXPECT_EQ(Remplir(true), QStringList());
    EXPECT_EQ(liste.NbCoches(), 0);
}

TEST_F(ListeASupprimerTest, DependantsAboveTheFirstSelectedOneAreLeftOut)
{
    Coffrets({"x", "A", "x", "x", "A", "x", "x", "A"});
    Choisir({5});
    EXPECT_EQ(Remplir(true), QStringList({"5", "8"}));
}

TEST_F(ListeASupprimerTest, EverySelectedEntryBringsItsOwnDependants)
{
    Coffrets({"A", "B", "A", "B", "C"});
    Choisir({1, 2});
    EXPECT_EQ(Remplir(true), QStringList({"1", "2", "3", "4"}));
}

TEST_F(ListeASupprimerTest, ValuesAreComparedExactly)
{
    Coffrets({"Coffret", "coffret", "Coffret ", "Coffre", "Coffret"});
    Choisir({1});
    EXPECT_EQ(Remplir(true), QStringList({"1", "5"}));
}

TEST_F(ListeASupprimerTest, EmptyValuesFormAGroup)
{
    Coffrets({"", "A", "", "B", ""});
    Choisir({1});
    EXPECT_EQ(Remplir(true), QStringList({"1", "3", "5"}));
}

TEST_F(ListeASupprimerTest, AnEmptyValueIsNotSeenBeforeAnEntryHasIt)
{
    Coffrets({"A", "", "A"});
    Choisir({1});
    EXPECT_EQ(Remplir(true), QStringList({"1", "3"}));
}

TEST_F(ListeASupprimerTest, TheDependantColumnMayBeTheFirst)
{
    AjouterEntrees(table, {{"Bleu", "1"}, {"Rouge", "2"}, {"Bleu", "3"}});
    doc.dependantcol = 1;
    Choisir({1});
    EXPECT_EQ(Remplir(true), QStringList({"Bleu", "Bleu"}));
}

TEST_F(ListeASupprimerTest, WithoutADependantColumnThereAreNoDependants)
{
    Coffrets({"A", "A"});
    Choisir({1});
    for (const int colonne : {0, 7}) {
        doc.dependantcol = colonne;
        EXPECT_EQ(Remplir(true), QStringList({"1"})) << colonne;
    }
}

/// A value is looked for between bars in the line of those seen: what a paste has put bars into is found in parts.
TEST_F(ListeASupprimerTest, PastedValuesWithBarsAreFoundInParts)
{
    Coffrets({"x|y", "y", "x", "x|y", "y|x", "xy", "z", "z", "y|z", "x|y|z", "y|z|x"});
    Choisir({1, 7});
    EXPECT_EQ(Remplir(true), QStringList({"1", "2", "3", "4", "7", "8", "9", "10"}));
}

TEST_F(ListeASupprimerTest, AValueWithBarsIsFoundOnceItIsSeen)
{
    Coffrets({"a|b", "c", "a|b", "a|b", "a|b"});
    Choisir({2, 4});
    EXPECT_EQ(Remplir(true), QStringList({"2", "4", "5"}));
}

// ---- check marks

TEST_F(ListeASupprimerTest, ChecksAreCountedOneByOne)
{
    Coffrets({"A", "A", "A"});
    Choisir({1, 2, 3});
    Remplir(false);
    liste.Cocher(2, 2, false);
    EXPECT_EQ(Coches(), "x-x");
    EXPECT_EQ(liste.NbCoches(), 2);
    liste.Cocher(2, 2, false);
    EXPECT_EQ(liste.NbCoches(), 2) << "it was unchecked already";
    liste.Cocher(1, 3, true);
    EXPECT_EQ(liste.NbCoches(), 3);
    liste.Cocher(0, 9, false);
    EXPECT_EQ(liste.NbCoches(), 0) << "rows that are not there are passed over";
}

TEST_F(ListeASupprimerTest, InvertingFlipsEachRow)
{
    Coffrets({"A", "A", "A"});
    Choisir({1, 2, 3});
    Remplir(false);
    liste.Cocher(1, 1, false);
    liste.Inverser();
    EXPECT_EQ(Coches(), "x--");
    EXPECT_EQ(liste.NbCoches(), 1);
}

TEST_F(ListeASupprimerTest, FillingAgainChecksAllRows)
{
    Coffrets({"A", "A"});
    Choisir({1, 2});
    Remplir(false);
    liste.Cocher(1, 2, false);
    Remplir(true);
    EXPECT_EQ(Coches(), "xx");
    EXPECT_EQ(liste.NbCoches(), 2);
}

// ---- order

TEST_F(ListeASupprimerTest, AColumnSortsAscendingFirstAndThenTheOtherWayRound)
{
    AjouterEntrees(table, {{"été", "2"}, {"abricot", "1"}, {"Zoo", "3"}});
    Choisir({1, 2, 3});
    Remplir(false);
    EXPECT_EQ(liste.ColonneDeTri(), 0);
    EXPECT_EQ(liste.Trier(1), std::vector<int>({2, 1, 3}));
    EXPECT_EQ(Titres(), QStringList({"abricot", "été", "Zoo"}));
    EXPECT_FALSE(liste.EstDecroissant());
    EXPECT_EQ(liste.Trier(1), std::vector<int>({3, 2, 1}));
    EXPECT_EQ(Titres(), QStringList({"Zoo", "été", "abricot"}));
    EXPECT_TRUE(liste.EstDecroissant());
    liste.Trier(2);
    EXPECT_EQ(Titres(), QStringList({"abricot", "été", "Zoo"}));
    EXPECT_FALSE(liste.EstDecroissant());
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"été", "abricot", "Zoo"})) << "the table keeps its order";
}

TEST_F(ListeASupprimerTest, ChecksGoWithTheirRows)
{
    AjouterEntrees(table, {{"b"}, {"a"}, {"c"}});
    Choisir({1, 2, 3});
    Remplir(false);
    liste.Cocher(1, 1, false);
    liste.Trier(1);
    EXPECT_EQ(Coches(), "x-x");
    EXPECT_EQ(liste.NbCoches(), 2);
}

TEST_F(ListeASupprimerTest, RowsFilledAnewAreSortedToo)
{
    AjouterEntrees(table, {{"b"}, {"a"}});
    Choisir({1, 2});
    Remplir(false);
    liste.Trier(1);
    Remplir(false);
    EXPECT_EQ(Titres(), QStringList({"a", "b"}));
}

// ---- deletion

TEST_F(ListeASupprimerTest, TheCheckedEntriesGo)
{
    Coffrets({"A", "A", "A", "A"});
    Choisir({1, 2, 4});
    Remplir(false);
    liste.Cocher(2, 2, false);
    SansAvancement sans;
    SupprimerCochees(
        doc, liste, [](const QString&) { ADD_FAILURE() << "no entry has an image"; }, sans);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"2", "3"}));
}

TEST_F(ListeASupprimerTest, ImagesOfCheckedEntriesAreHandedOverInRowOrder)
{
    Coffrets({"A", "A", "A", "A", "A"});
    const auto donner = [this](int position, const QString& nom) { table.ListItems(position).SetTag(nom); };
    for (const char* nom : {"a.jpg", "b.jpg", "c.jpg"})
        document.dossier.Ecrire(QString::fromLatin1(nom), "image");
    donner(1, "b.jpg");
    donner(2, "a.jpg");
    donner(3, "c.jpg");
    donner(4, "b.jpg");
    donner(5, "absente.jpg");
    Choisir({1, 2, 3, 4, 5});
    Remplir(false);
    liste.Trier(1);
    liste.Trier(1);
    liste.Cocher(3, 3, false); // the one with c.jpg
    QStringList fichiers;
    SansAvancement sans;
    SupprimerCochees(
        doc, liste, [&](const QString& fichier) { fichiers.append(fichier); }, sans);
    EXPECT_EQ(fichiers, QStringList({document.dossier.Fichier("b.jpg"), document.dossier.Fichier("a.jpg"),
                                     document.dossier.Fichier("b.jpg")}))
        << "a file that two entries name comes twice, one that is not there never";
}

TEST_F(ListeASupprimerTest, AnImageOutsideTheFolderIsNotTouched)
{
    Coffrets({"A"});
    document.dossier.Ecrire("sous/a.jpg", "image");
    table.ListItems(1).SetTag("sous/a.jpg");
    Choisir({1});
    Remplir(false);
    SansAvancement sans;
    SupprimerCochees(
        doc, liste, [](const QString& fichier) { ADD_FAILURE() << fichier.toStdString(); }, sans);
    EXPECT_EQ(table.ListItems.Count(), 0);
}

// ---- long lists

TEST_F(ListeASupprimerTest, ALongListTellsHowFarItHasCome)
{
    for (int i = 1; i <= 2 * Avancement::Pas; ++i)
        AjouterEntrees(table, {{"x"}});
    table.Selectionner(1, table.ListItems.Count(), true);
    struct : Avancement
    {
        QList<std::pair<int, int>> dits;
        void Dire(int fait, int total) override { dits.append({fait, total}); }
    } avancement;
    liste.Remplir(false, avancement);
    const int total = 2 * Avancement::Pas;
    const QList<std::pair<int, int>> attendus{{Avancement::Pas, total}, {total, total}};
    EXPECT_EQ(avancement.dits, attendus);
    avancement.dits.clear();
    SupprimerCochees(
        doc, liste, [](const QString&) {}, avancement);
    EXPECT_EQ(avancement.dits, attendus);
}
