#include "ColonneOds.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace {

ColonneOds ColonneDe(std::initializer_list<QStringView> valeurs, QStringView titre = u"T")
{
    ColonneOds colonne(titre);
    for (const QStringView valeur : valeurs)
        colonne.Voir(valeur);
    return colonne;
}

QByteArray Cellule(const ColonneOds& colonne, QStringView valeur)
{
    QByteArray sortie;
    colonne.AjouterCellule(sortie, valeur);
    return sortie;
}

} // namespace

TEST(DecimalesDe, PlainNumbersHaveNoneOneOrTwo)
{
    for (const QStringView entier : {u"0", u"7", u"1969", u"-12", u"12345678901"})
        EXPECT_EQ(DecimalesDe(entier), 0) << entier.toString().toStdString();
    EXPECT_EQ(DecimalesDe(u"0.5"), 1);
    EXPECT_EQ(DecimalesDe(u"-0,5"), 1);
    EXPECT_EQ(DecimalesDe(u"12.50"), 2);
    EXPECT_EQ(DecimalesDe(u"123456789,01"), 2);
}

TEST(DecimalesDe, WhatANumberWouldLoseIsNone)
{
    for (const QStringView texte : {u"",
                                    u"-",
                                    u".",
                                    u",5",
                                    u"5.",
                                    u"007",
                                    u"00",
                                    u"-01",
                                    u"+5",
                                    u"-0",
                                    u"-0.00",
                                    u"1.234",
                                    u"1,234",
                                    u"1 000",
                                    u"1e5",
                                    u"12 ",
                                    u" 12",
                                    u"1.2.3",
                                    u"1.2x",
                                    u"12:30",
                                    u"0x1F",
                                    u"٣",
                                    u"9782070360024",
                                    u"123456789012",
                                    u"1234567890.12",
                                    u"--1",
                                    u"1-",
                                    u"½",
                                    u"1\u00A0000",
                                    u"inf",
                                    u"nan"})
        EXPECT_EQ(DecimalesDe(texte), std::nullopt) << texte.toString().toStdString();
}

TEST(ColonneOds, IsOfNumbersOnlyWhereAllAreAlike)
{
    EXPECT_EQ(ColonneDe({u"1969", u"", u"7"}).EnNombres(), 0);
    EXPECT_EQ(ColonneDe({u"12.50", u"3,00"}).EnNombres(), 2);
    EXPECT_EQ(ColonneDe({u"12.5", u"12.50"}).EnNombres(), std::nullopt);
    EXPECT_EQ(ColonneDe({u"12.5", u"12"}).EnNombres(), std::nullopt);
    EXPECT_EQ(ColonneDe({u"1969", u"vers 1970"}).EnNombres(), std::nullopt);
    EXPECT_EQ(ColonneDe({u"vers 1970", u"1969"}).EnNombres(), std::nullopt);
    EXPECT_EQ(ColonneDe({u"vers 1970", u"1969", u"1970"}).EnNombres(), std::nullopt);
    EXPECT_EQ(ColonneDe({u"2070360024", u"0140449132"}).EnNombres(), std::nullopt) << "the numbers of books";
    EXPECT_EQ(ColonneDe({u"", u""}).EnNombres(), std::nullopt);
    EXPECT_EQ(ColonneDe({}).EnNombres(), std::nullopt);
}

TEST(ColonneOds, CellsSayWhatTheyAre)
{
    const ColonneOds nombres = ColonneDe({u"12,50", u""});
    EXPECT_EQ(Cellule(nombres, u"12,50"), "<table:table-cell office:value-type=\"float\" office:value=\"12.50\">"
                                          "<text:p>12,50</text:p></table:table-cell>");
    EXPECT_EQ(Cellule(nombres, u""), "<table:table-cell/>");
    const ColonneOds textes = ColonneDe({u"0140449132"});
    EXPECT_EQ(Cellule(textes, u"7"),
              "<table:table-cell office:value-type=\"string\"><text:p>7</text:p></table:table-cell>");
    EXPECT_EQ(Cellule(textes, u""), "<table:table-cell/>");
}

TEST(ColonneOds, TellsTheLengthOfItsCellsAhead)
{
    for (const auto& valeurs :
         {std::initializer_list<QStringView>{u"1", u"", u"-22"}, std::initializer_list<QStringView>{u"1,5", u"22.3"},
          std::initializer_list<QStringView>{u"1", u"22", u"é & <  b>\n\t", u"3"},
          std::initializer_list<QStringView>{u"", u""}}) {
        const ColonneOds colonne = ColonneDe(valeurs);
        int64_t octets = 0;
        for (const QStringView valeur : valeurs)
            octets += Cellule(colonne, valeur).size();
        EXPECT_EQ(colonne.Octets(), octets);
    }
}

TEST(ColonneOds, IsAsWideAsItsLongestText)
{
    EXPECT_EQ(ColonneDe({u"quatorze signe", u"x"}).Largeur(), 14);
    EXPECT_EQ(ColonneDe({u"x"}, u"Artiste").Largeur(), 7);
    EXPECT_EQ(ColonneDe({u"x"}).Largeur(), 4);
    EXPECT_EQ(ColonneDe({QString(500, u'x')}).Largeur(), 60);
    EXPECT_TRUE(ColonneDe({u"", u""}).EstVide());
    EXPECT_FALSE(ColonneDe({u"", u"x"}).EstVide());
}
