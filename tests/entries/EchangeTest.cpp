#include "entries/Echange.h"
#include "SelectionDeTest.h"

#include "base/Avancement.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList LignesDe(const EchangeLu& echange)
{
    QStringList lignes;
    echange.Parcourir([&](QStringView ligne) {
        lignes.append(ligne.toString());
        return true;
    });
    return lignes;
}

} // namespace

// ---- writing

TEST(TexteDEchange, HoldsTheTitlesTheFolderAndTheSelectedEntries)
{
    MyLV table;
    MettreColonnes(table, {"Titre", "Artiste"});
    AjouterEntrees(table, {{"a", "1"}, {"b", "2"}, {"c", "3"}});
    table.ListItems(3).SetTag(u"c.jpg"_s);
    Choisir(table, {1, 3});
    EXPECT_EQ(TexteDEchange(table, u"/tmp/cat1/"_s), u"[Zelvane]\r\n"
                                                     "Titre\tArtiste\t/tmp/cat1/\r\n"
                                                     "a\t1\t\r\n"
                                                     "c\t3\tc.jpg\r\n"_s);
}

TEST(TexteDEchange, CellsThatWereNeverWrittenAreEmptyFields)
{
    MyLV table;
    MettreColonnes(table, {"Titre", "Artiste", "Prêté"});
    table.ListItems.Add(0, u"k1"_s, u"seul"_s);
    Choisir(table, {1});
    EXPECT_EQ(TexteDEchange(table, u"/d/"_s), u"[Zelvane]\r\nTitre\tArtiste\tPrêté\t/d/\r\nseul\t\t\t\r\n"_s);
}

TEST(TexteDEchange, EntriesOfAFileGoInItsWordsAndInTableOrder)
{
    DocumentDeTest document;
    TexteDeCatalogue texte;
    texte.colonnes = {"Titre|1000|", "Artiste|1000|", "Prêté|600|"};
    texte.entrees = {"b|Björk||b.gif", "a|œuvre|À Léa - 01/01/2020|"};
    document.Charger(texte.Texte());
    document.table.Selectionner(1, 2, true);
    EXPECT_EQ(TexteDEchange(document.table, u"/d/"_s), u"[Zelvane]\r\nTitre\tArtiste\tPrêté\t/d/\r\n"
                                                       "a\tœuvre\tÀ Léa - 01/01/2020\t\r\n"
                                                       "b\tBjörk\t\tb.gif\r\n"_s);
}

TEST(TexteDEchange, AColumnThatTheFileDidNotHaveGetsAField)
{
    DocumentDeTest document;
    TexteDeCatalogue texte;
    texte.entrees = {"a||a.gif"};
    document.Charger(texte.Texte());
    document.table.ColumnHeaders.Add(0, u"Neuve"_s);
    document.table.Selectionner(1, 1, true);
    EXPECT_EQ(TexteDEchange(document.table, u"/d/"_s), u"[Zelvane]\r\nTitre\tPrêté\tNeuve\t/d/\r\na\t\t\ta.gif\r\n"_s);
}

TEST(TexteDEchange, CharactersOutsideTheCodePageSurvive)
{
    MyLV table;
    MettreColonnes(table, {"Жанр"});
    AjouterEntrees(table, {{"漢字 \U0001F600"}});
    Choisir(table, {1});
    EXPECT_EQ(TexteDEchange(table, u"/д/"_s), u"[Zelvane]\r\nЖанр\t/д/\r\n漢字 \U0001F600\t\r\n"_s);
}

TEST(TexteDEchange, ATabOrALineBreakInATitleIsNotLookedAt)
{
    MyLV table;
    MettreColonnes(table, {"Ti\ttre"});
    EXPECT_EQ(TexteDEchange(table, u"/d/"_s), u"[Zelvane]\r\nTi\ttre\t/d/\r\n"_s);
}

TEST(EcrireEchange, HandsALongTextOverInPieces)
{
    MyLV table;
    MettreColonnes(table, {"Titre"});
    const QString long_(1000, u'x');
    for (int i = 1; i <= 1000; ++i)
        table.ListItems.Add(0, QString(), long_);
    table.Selectionner(1, 1000, true);
    QByteArray tout;
    int morceaux = 0;
    SansAvancement sans;
    EcrireEchange(table, u"/d/"_s, sans, [&](QByteArrayView octets) {
        tout.append(octets);
        ++morceaux;
        EXPECT_LT(octets.size(), 300000);
    });
    EXPECT_GT(morceaux, 3);
    EXPECT_EQ(QString::fromUtf8(tout), TexteDEchange(table, u"/d/"_s));
    EXPECT_EQ(tout.count("\r\n"), 1002);
}

// ---- reading

TEST(EchangeLu, TakesATextApart)
{
    const EchangeLu echange(u"[Zelvane]\r\nTitre\tArtiste\t/d/\r\na\t1\ta.jpg\r\nb\t2\t\r\n"_s);
    EXPECT_TRUE(echange.EstEchange());
    EXPECT_EQ(echange.Champs(), QStringList({"Titre", "Artiste", "/d/"}));
    EXPECT_EQ(echange.Titres(), QStringList({"Titre", "Artiste"}));
    EXPECT_EQ(echange.Dossier(), u"/d/"_s);
    EXPECT_EQ(echange.Entrees(), 2);
    EXPECT_EQ(LignesDe(echange), QStringList({"a\t1\ta.jpg", "b\t2\t"}));
}

TEST(EchangeLu, AnotherFirstLineIsAnotherKindOfText)
{
    for (const char* texte : {"", "\r\n", "[Zelvane]", "[Zelvane]\r\n", "[Zelvane]\r\n\r\na\t\r\n",
                              "[zelvane]\r\nA\t/d/\r\n", " [Zelvane]\r\nA\t/d/\r\n", "[Zelvane] \r\nA\t/d/\r\n",
                              "[Zelvane]\nA\t/d/\n", "[Zelvane-TxtPRE]\r\nA\tx\r\n", "n'importe quoi"})
        EXPECT_FALSE(EchangeLu(QString::fromUtf8(texte)).EstEchange()) << texte;
}

TEST(EchangeLu, WhatStandsBehindTheLastLineEndIsNoEntry)
{
    const EchangeLu echange(u"[Zelvane]\r\nA\t/d/\r\na\t\r\nb\t"_s);
    EXPECT_EQ(echange.Entrees(), 1);
    EXPECT_EQ(LignesDe(echange), QStringList({"a\t"}));
    EXPECT_EQ(EchangeLu(u"[Zelvane]\r\nA\t/d/"_s).Entrees(), 0);
}

TEST(EchangeLu, AnEmptyLineIsAnEntry)
{
    EXPECT_EQ(LignesDe(EchangeLu(u"[Zelvane]\r\nA\t/d/\r\n\r\n"_s)), QStringList({""}));
}

TEST(EchangeLu, LoneLineBreaksAndZerosEndNoLine)
{
    const EchangeLu echange(u"[Zelvane]\r\nA\t/d/\r\na\nb\rc\0d\t\r\n"_s);
    EXPECT_EQ(LignesDe(echange), QStringList({u"a\nb\rc\0d\t"_s}));
}

TEST(EchangeLu, StopsWhereItIsTold)
{
    int lignes = 0;
    EXPECT_FALSE(EchangeLu(u"[Zelvane]\r\nA\t/d/\r\na\t\r\nb\t\r\n"_s).Parcourir([&](QStringView) {
        ++lignes;
        return false;
    }));
    EXPECT_EQ(lignes, 1);
}

TEST(EchangeLu, AMillionTitlesAreRead)
{
    const EchangeLu echange(u"[Zelvane]\r\n"_s + QString(1'000'000, u'\t') + u"\r\n"_s);
    EXPECT_EQ(echange.Titres().size(), 1'000'000);
    EXPECT_EQ(echange.Dossier(), QString());
}

TEST(EchangeLu, MoreTitlesThanAnyCategoryHasAreNone)
{
    const EchangeLu echange(u"[Zelvane]\r\n"_s + QString(2'000'000, u'\t') + u"\r\na\t\r\n"_s);
    EXPECT_FALSE(echange.EstEchange());
    EXPECT_EQ(echange.Champs(), QStringList());
}
