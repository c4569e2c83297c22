#include "entries/AjouterEchange.h"
#include "SelectionDeTest.h"

#include "base/Avancement.h"
#include "entries/Echange.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A category of three columns with one entry; a text of three columns comes in.
class AjouterEchangeTest : public testing::Test
{
protected:
    AjouterEchangeTest()
    {
        MettreColonnes(table, {"Nom", "Prix", "Lieu"});
        AjouterEntrees(table, {{"m", "5", "Lyon"}});
    }

    static QString Texte(const QStringList& lignes, const QString& titres = u"A\tB\tC\t/d/"_s)
    {
        return u"[Zelvane]\r\n"_s + titres + u"\r\n"_s + lignes.join(u"\r\n"_s) + u"\r\n"_s;
    }
    std::optional<QStringList> Ajouter(const QString& texte, const FaconDAjouter& facon = {})
    {
        SansAvancement sans;
        return Ajouter(texte, facon, sans);
    }
    std::optional<QStringList> Ajouter(const QString& texte, const FaconDAjouter& facon, Avancement& avancement)
    {
        const EchangeLu echange(texte);
        Correspondance c = rangs ? *rangs : Correspondre(echange.Titres(), Titres());
        return AjouterEchange(table, echange, c, facon, avancement);
    }
    QStringList Titres() const
    {
        QStringList titres;
        for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
            titres.append(table.ColumnHeaders(i).Text());
        return titres;
    }
    QStringList Entree(int index) const { return table.ListItems(index).Valeurs(); }

    MyLV table;
    std::optional<Correspondance> rangs;
};

class Abandonnee : public Avancement
{
public:
    bool EstAbandonne() const override { return ++m_vus > 2; }

protected:
    void Dire(int, int) override {}

private:
    mutable int m_vus = 0;
};

} // namespace

TEST_F(AjouterEchangeTest, EachLineIsAnEntryBehindTheOthers)
{
    const auto images = Ajouter(Texte({"a\t1\tx\ta.jpg", "b\t2\ty\t"}));
    ASSERT_EQ(table.ListItems.Count(), 3);
    EXPECT_EQ(Entree(1), QStringList({"m", "5", "Lyon"}));
    EXPECT_EQ(Entree(2), QStringList({"a", "1", "x"}));
    EXPECT_EQ(Entree(3), QStringList({"b", "2", "y"}));
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2", "k3"}));
    EXPECT_EQ(Choisies(table), QList<int>({2, 3}));
    EXPECT_EQ(images, QStringList({"a.jpg"}));
}

TEST_F(AjouterEchangeTest, AnImageIsKeptByItsNameAndMarked)
{
    Ajouter(Texte({"a\t1\tx\ta.jpg", "b\t2\ty\t"}));
    EXPECT_EQ(table.ListItems(2).Tag(), u"a.jpg"_s);
    EXPECT_EQ(table.ListItems(2).SmallIcon(), u"ico"_s);
    EXPECT_EQ(table.ListItems(3).Tag(), QString());
    EXPECT_EQ(table.ListItems(3).SmallIcon(), u"noico"_s);
}

TEST_F(AjouterEchangeTest, ColumnsThatNothingIsLedIntoStayEmpty)
{
    Ajouter(Texte({"a\t"}, u"A\t/d/"_s));
    EXPECT_EQ(Entree(2), QStringList({"a", "", ""}));
}

TEST_F(AjouterEchangeTest, SourcesBeyondTheColumnsAreDropped)
{
    Ajouter(Texte({"a\t1\tx\tperdu\tperdu aussi\ta.jpg"}, u"A\tB\tC\tD\tE\t/d/"_s));
    EXPECT_EQ(Entree(2), QStringList({"a", "1", "x"}));
    EXPECT_EQ(table.ListItems(2).Tag(), u"a.jpg"_s);
}

TEST_F(AjouterEchangeTest, EmptyInTheFirstRowLeavesTheFirstColumnEmpty)
{
    rangs = Correspondre({"A", "B"}, Titres());
    rangs->departs.swapItemsAt(0, 2);
    Ajouter(Texte({"a\t1\t", "b\t2\t"}, u"A\tB\t/d/"_s));
    EXPECT_EQ(Entree(2), QStringList({"", "1", "a"}));
    EXPECT_EQ(Entree(3), QStringList({"", "2", "b"}));
}

TEST_F(AjouterEchangeTest, AShortLineGivesItsLastFieldToTheFirstColumnAlone)
{
    rangs = Correspondre({"A", "B", "C"}, Titres());
    Ajouter(Texte({"a", "a\t1"}));
    EXPECT_EQ(Entree(2), QStringList({"a", "", ""}));
    EXPECT_EQ(table.ListItems(2).Tag(), u"a"_s) << "the last field is the image, whatever stands before";
    EXPECT_EQ(Entree(3), QStringList({"a", "", ""}));
    EXPECT_EQ(table.ListItems(3).Tag(), u"1"_s);

    rangs->departs.swapItemsAt(0, 1);
    Ajouter(Texte({"a\t1"}));
    EXPECT_EQ(Entree(4), QStringList({"1", "a", ""}));
    rangs->departs.swapItemsAt(0, 2);
    Ajouter(Texte({"a\t1"}));
    EXPECT_EQ(Entree(5), QStringList({"", "a", ""})) << "outside a short line nothing is";
}

TEST_F(AjouterEchangeTest, AnEmptyLineIsAnEmptyEntry)
{
    EXPECT_EQ(Ajouter(Texte({""})), QStringList());
    EXPECT_EQ(Entree(2), QStringList({"", "", ""}));
}

TEST_F(AjouterEchangeTest, ALongLineLosesWhatHasNoColumn)
{
    Ajouter(Texte({"a\t1\tx\tplus\tplus\tz.gif"}));
    EXPECT_EQ(Entree(2), QStringList({"a", "1", "x"}));
    EXPECT_EQ(table.ListItems(2).Tag(), u"z.gif"_s);
}

TEST_F(AjouterEchangeTest, ACellWithABracketButNoNumberBringsNothing)
{
    rangs = Correspondre({"A"}, Titres());
    rangs->departs[0] = u"(vide)"_s;
    Ajouter(Texte({"a\t"}, u"A\t/d/"_s));
    EXPECT_EQ(Entree(2), QStringList({"", "", ""}));
}

// ---- copies

TEST_F(AjouterEchangeTest, FourCopiesOfTwoEntriesAreEightOfWhichTwoAreSelected)
{
    const auto images = Ajouter(Texte({"a\t1\tx\ta.jpg", "b\t2\ty\t"}), {.copies = 4});
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"m", "a", "a", "a", "a", "b", "b", "b", "b"}));
    EXPECT_EQ(Choisies(table), QList<int>({2, 6}));
    EXPECT_EQ(Entree(5), QStringList({"a", "1", "x"}));
    EXPECT_EQ(table.ListItems(5).Tag(), u"a.jpg"_s);
    EXPECT_EQ(table.ListItems(5).SmallIcon(), u"ico"_s);
    EXPECT_EQ(table.ListItems(9).SmallIcon(), u"noico"_s);
    EXPECT_EQ(ClesDe(table).last(), u"k9"_s);
    EXPECT_EQ(images, QStringList({"a.jpg"})) << "copies share it";
}

TEST_F(AjouterEchangeTest, LessThanOneCopyIsOne)
{
    Ajouter(Texte({"a\t1\tx\t"}), {.copies = -3});
    EXPECT_EQ(table.ListItems.Count(), 2);
}

// ---- keys and order

TEST_F(AjouterEchangeTest, AKeyThatIsTakenIsPassedOver)
{
    table.ListItems(1).SetKey(u"k3"_s);
    Ajouter(Texte({"a\t1\tx\t", "b\t2\ty\t", "c\t3\tz\t"}));
    EXPECT_EQ(ClesDe(table), QStringList({"k3", "k2", "k4", "k5"}));
}

TEST_F(AjouterEchangeTest, InASortedTableEntriesGoToTheirPlaces)
{
    table.SetSorted(true);
    Ajouter(Texte({"z\t1\tx\t", "a\t2\ty\t"}), {.copies = 2});
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "a", "m", "z", "z"}));
    EXPECT_EQ(Choisies(table), QList<int>({1, 4}));
    EXPECT_EQ(ClesDe(table), QStringList({"k4", "k5", "k1", "k2", "k3"}));
}

TEST_F(AjouterEchangeTest, WhatIsGivenUpLeavesTheTableAsItWas)
{
    table.SetSorted(true);
    Abandonnee abandonnee;
    EXPECT_EQ(Ajouter(Texte({"a\t1\tx\t", "b\t2\ty\t", "c\t3\tz\t"}), {.copies = 2}, abandonnee), std::nullopt);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"m"}));
    Ajouter(Texte({"a\t1\tx\t"}));
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "m"}));
}

// ---- dropped entries

TEST_F(AjouterEchangeTest, DroppedEntriesHaveNoKeyAndNoImage)
{
    Choisir(table, {1});
    rangs = Correspondre({"A", "B", "/d/"}, Titres());
    EXPECT_EQ(Ajouter(Texte({"a\t1\ta.jpg"}, u"A\tB\t/d/"_s), {.arrivee = Arrivee::Deposees}), QStringList());
    EXPECT_EQ(Entree(2), QStringList({"a", "1", "a.jpg"})) << "the last field is one like the others";
    EXPECT_EQ(table.ListItems(2).Key(), QString());
    EXPECT_EQ(table.ListItems(2).Tag(), QString());
    EXPECT_EQ(table.ListItems(2).SmallIcon(), u"noico"_s);
    EXPECT_EQ(Choisies(table), QList<int>({1, 2}));
}

TEST_F(AjouterEchangeTest, TheLastFieldOfADroppedLineIsAValue)
{
    rangs = Correspondre({"A", "B", "/d/"}, Titres());
    Ajouter(Texte({"a|b\t1\tp|q\n.jpg"}, u"A\tB\t/d/"_s), {.arrivee = Arrivee::Deposees});
    EXPECT_EQ(Entree(2), QStringList({"a|b", "1", "p|q .jpg"}));
}

// ---- hostile texts

TEST_F(AjouterEchangeTest, AValueStandsAsItCameOnOneLine)
{
    DocumentDeTest document;
    TexteDeCatalogue vide;
    vide.colonnes = {"A|1000|", "B|1000|", "Prêté|600|"};
    document.Charger(vide.Texte());
    const EchangeLu echange(u"[Zelvane]\r\nA\tB\tC\t/d/\r\na|b\nc\t1\r2\0 3\u2028\tx\tp|q\n.jpg\r\n"_s);
    SansAvancement sans;
    const auto images = AjouterEchange(document.table, echange, Correspondre({"A", "B", "C"}, {"A", "B", "Prêté"}),
                                       FaconDAjouter(), sans);
    EXPECT_EQ(images, QStringList({"p_q_.jpg"}));
    EXPECT_EQ(document.table.ListItems(1).Valeurs(), QStringList({u"a|b c"_s, u"1 2  3 "_s, u"x"_s}));
    EXPECT_EQ(document.table.ListItems(1).Tag(), u"p_q_.jpg"_s);
}

TEST_F(AjouterEchangeTest, EachThatBreaksALineIsReplacedAlone)
{
    Ajouter(Texte({u"a|b\t1\tx\t"_s, u"a\nb\t1\tx\t"_s, u"a\rb\t1\tx\t"_s, u"a\0b\t1\tx\t"_s, u"a\u2028b\t1\tx\t"_s,
                   u"a\u2029b\t1\tx\t"_s}));
    EXPECT_EQ(ColonneDe(table, 1), QStringList({u"m"_s, u"a|b"_s, "a b", "a b", "a b", "a b", "a b"}));
}

TEST_F(AjouterEchangeTest, AMillionFieldsAndLinesOfAllLengthsAreRead)
{
    rangs = Correspondre({"A", "B", "C"}, Titres());
    rangs->departs[1] = u"(999999)Z"_s;
    QStringList lignes{QString(999'997, u'\t') + u"loin\tfin.jpg"_s};
    for (int i = 0; i < 2000; ++i)
        lignes.append(QString(i, u'\t'));
    Ajouter(Texte(lignes));
    ASSERT_EQ(table.ListItems.Count(), 2002);
    EXPECT_EQ(Entree(2), QStringList({"", "", ""}));
    EXPECT_EQ(table.ListItems(2).Tag(), u"fin.jpg"_s);
    rangs->departs[1] = u"(999998)Z"_s;
    Ajouter(Texte({lignes[0]}));
    EXPECT_EQ(Entree(2003), QStringList({"", "loin", ""}));
}

TEST_F(AjouterEchangeTest, HalfACharacterIsReplaced)
{
    Ajouter(Texte({u"a"_s + QChar(0xD800) + u"\t1\tx\t"_s}));
    EXPECT_EQ(Entree(2).first(), u"a?"_s);
}

TEST_F(AjouterEchangeTest, ATableWithoutColumnsTakesTheFirstValue)
{
    MyLV vide;
    SansAvancement sans;
    AjouterEchange(vide, EchangeLu(Texte({"a\t1\tx\t"})), Correspondre({"A", "B", "C"}, {}), {}, sans);
    EXPECT_EQ(vide.ListItems(1).Text(), u"a"_s);
}
