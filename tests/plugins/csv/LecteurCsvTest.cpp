#include "LecteurCsv.h"

#include "support/Impression.h"

#include <QBuffer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The rows of a text.
QList<LigneCsv> Lignes(QByteArray octets, const FormatCsv& format = {}, qsizetype champsAuPlus = 16384)
{
    QBuffer texte(&octets);
    texte.open(QIODevice::ReadOnly);
    LecteurCsv lecteur(texte, format, champsAuPlus);
    QList<LigneCsv> lignes;
    LigneCsv ligne;
    while (lecteur.Lire(ligne))
        lignes.append(ligne);
    return lignes;
}

QList<QStringList> Champs(const QByteArray& octets, const FormatCsv& format = {}, qsizetype champsAuPlus = 16384)
{
    QList<QStringList> champs;
    for (const LigneCsv& ligne : Lignes(octets, format, champsAuPlus))
        champs.append(ligne.champs);
    return champs;
}

FormatCsv Avec(QChar separateur, QChar guillemet = u'"')
{
    return {CodageCsv::Utf8, separateur, guillemet, true};
}

using Rangees = QList<QStringList>;

} // namespace

TEST(LecteurCsv, SeparatorsPartFieldsAndLineEndsRows)
{
    EXPECT_EQ(Champs("a,b\nc,\n"), Rangees({{"a", "b"}, {"c", ""}}));
    EXPECT_EQ(Champs("a;b\n", Avec(u';')), Rangees({{"a", "b"}}));
    EXPECT_EQ(Champs("a\tb,c\n", Avec(u'\t')), Rangees({{"a", "b,c"}}));
}

TEST(LecteurCsv, LinesEndAsEverySystemEndsThem)
{
    EXPECT_EQ(Champs("a\rb\r\nc\nd"), Rangees({{"a"}, {"b"}, {"c"}, {"d"}}));
    EXPECT_EQ(Champs("a,b\r"), Rangees({{"a", "b"}}));
}

TEST(LecteurCsv, TheLastLineNeedsNoEnd)
{
    EXPECT_EQ(Champs("a,b\nc,d"), Rangees({{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(Champs("a,"), Rangees({{"a", ""}}));
    EXPECT_EQ(Champs("\"a\""), Rangees({{"a"}}));
}

TEST(LecteurCsv, AnEmptyTextHasNoRows)
{
    EXPECT_EQ(Champs(""), Rangees());
    EXPECT_EQ(Champs("\xEF\xBB\xBF"), Rangees()) << "a mark alone";
}

TEST(LecteurCsv, AnEmptyLineIsARowOfNothing)
{
    const QList<LigneCsv> lignes = Lignes("a\n\n,\n");
    ASSERT_EQ(lignes.size(), 3);
    EXPECT_FALSE(lignes[0].EstVide());
    EXPECT_TRUE(lignes[1].EstVide());
    EXPECT_FALSE(lignes[2].EstVide());
}

TEST(LecteurCsv, QuotesHoldSeparatorsLineEndsAndDoubledQuotes)
{
    EXPECT_EQ(Champs("\"a,b\",\"c\r\nd\ne\",\"f\"\"g\"\"\"\nh\n"), Rangees({{"a,b", "c\r\nd\ne", "f\"g\""}, {"h"}}));
    EXPECT_EQ(Champs("\"\",\"\"\"\"\n"), Rangees({{"", "\""}}));
    EXPECT_EQ(Champs("'a,''b'\n", Avec(u',', u'\'')), Rangees({{"a,'b"}}));
    EXPECT_EQ(Champs("\"a\",b\n", Avec(u',', QChar())), Rangees({{"\"a\"", "b"}}));
}

TEST(LecteurCsv, AQuoteWithinAFieldIsACharacter)
{
    EXPECT_EQ(Champs("12\" single,d'ici\n"), Rangees({{"12\" single", "d'ici"}}));
    EXPECT_EQ(Lignes("12\" single\n")[0].defauts, SansDefaut);
}

TEST(LecteurCsv, TextBehindAQuoteIsKeptAndTold)
{
    const QList<LigneCsv> lignes = Lignes("\"a\"b\"c,d\ne\n");
    EXPECT_EQ(lignes[0].champs, QStringList({"ab\"c", "d"}));
    EXPECT_EQ(lignes[0].defauts, TexteApresGuillemet);
    EXPECT_EQ(lignes[1].defauts, SansDefaut);
}

TEST(LecteurCsv, AQuoteThatNeverEndsIsACharacterOfItsLine)
{
    const QList<LigneCsv> lignes = Lignes("a,\"b,c\nd,e\n");
    ASSERT_EQ(lignes.size(), 2);
    EXPECT_EQ(lignes[0].champs, QStringList({"a", "\"b", "c"}));
    EXPECT_EQ(lignes[0].defauts, GuillemetOuvert);
    EXPECT_EQ(lignes[1].champs, QStringList({"d", "e"}));
    EXPECT_EQ(lignes[1].defauts, SansDefaut);
}

TEST(LecteurCsv, AQuoteThatEndsTooLateIsTakenNeverToEnd)
{
    // Millions of characters stand between the quotes.
    QByteArray texte = "\"a,b\n";
    texte += QByteArray("c,d\n").repeated(600000) + "e,f\"\n";
    const QList<LigneCsv> lignes = Lignes(texte);
    ASSERT_EQ(lignes.size(), 600002);
    EXPECT_EQ(lignes[0].champs, QStringList({"\"a", "b"}));
    EXPECT_EQ(lignes[0].defauts, GuillemetOuvert);
    EXPECT_EQ(lignes[600001].champs, QStringList({"e", "f\""}));
}

TEST(LecteurCsv, RowsKnowTheirLine)
{
    const QList<LigneCsv> lignes = Lignes("a\r\n\"b\r\nb\rb\"\rc\nd");
    ASSERT_EQ(lignes.size(), 4);
    EXPECT_EQ(lignes[0].numero, 1);
    EXPECT_EQ(lignes[1].numero, 2);
    EXPECT_EQ(lignes[2].numero, 5);
    EXPECT_EQ(lignes[3].numero, 6);
}

TEST(LecteurCsv, FieldsBeyondTheLastJoinIt)
{
    const QList<LigneCsv> lignes = Lignes("a,b,c,,\"d,e\"\nf,g,,\nh\n", {}, 2);
    EXPECT_EQ(lignes[0].champs, QStringList({"a", "b,c,,d,e"}));
    EXPECT_EQ(lignes[0].nombre, 5);
    EXPECT_EQ(lignes[1].champs, QStringList({"f", "g"})) << "separators at the end part nothing";
    EXPECT_EQ(lignes[1].nombre, 2);
    EXPECT_EQ(lignes[2].nombre, 1);
}

TEST(LecteurCsv, ZerosAreCharacters)
{
    EXPECT_EQ(Champs(QByteArray("a\0b,c\n", 6)), Rangees({{u"a\0b"_s, u"c"_s}}));
}

TEST(LecteurCsv, ACharacterThatTheEndCutsShortIsNotLost)
{
    EXPECT_EQ(Champs("a,b\xE2\x82"), Rangees({{u"a"_s, u"b\uFFFD"_s}}));
}

TEST(LecteurCsv, PiecesInWhichTheTextArrivesDoNotShow)
{
    // Rows of 34 bytes: piece ends fall onto each of their characters.
    QByteArray texte;
    const int nombre = 200000;
    for (int i = 0; i < nombre; ++i)
        texte += "\"é\"\"\r\n" + QByteArray::number(1000000 + i) + "\",\"b\r\",c\r\n";
    const QList<LigneCsv> lignes = Lignes(texte);
    ASSERT_EQ(lignes.size(), nombre);
    for (int i = 0; i < nombre; ++i) {
        ASSERT_EQ(lignes[i].champs, QStringList({u"é\"\r\n%1"_s.arg(1000000 + i), "b\r", "c"})) << i;
        ASSERT_EQ(lignes[i].defauts, SansDefaut);
        ASSERT_EQ(lignes[i].numero, 1 + 3 * i);
    }
}

TEST(LecteurCsv, ALineThatNeverEndsIsCutAndAllOfItComes)
{
    const QByteArray texte(9 << 20, 'x');
    const QList<LigneCsv> lignes = Lignes(texte);
    EXPECT_GT(lignes.size(), 1);
    qsizetype lus = 0;
    for (const LigneCsv& ligne : lignes) {
        lus += ligne.champs.join(u',').size();
        EXPECT_EQ(ligne.defauts, &ligne == &lignes.last() ? SansDefaut : LigneCoupee);
        EXPECT_EQ(ligne.numero, 1);
    }
    EXPECT_EQ(lus, texte.size());
}

TEST(LecteurCsv, ACutPartsNoPairOfSurrogates)
{
    // Behind one byte the pairs stand at odd places.
    const QByteArray texte = "a" + QByteArray("😀").repeated(3 << 20);
    for (const LigneCsv& ligne : Lignes(texte)) {
        ASSERT_FALSE(ligne.champs.last().back().isHighSurrogate());
        ASSERT_FALSE(ligne.champs.first().front().isLowSurrogate());
    }
}

TEST(LecteurCsv, ManyQuotesThatNeverEndTakeNoQuadraticTime)
{
    // Each of them is looked for an end of, over and over, where nobody sees to that.
    const QByteArray texte = QByteArray("\"\"\"a,\"\"\n").repeated(500000);
    qsizetype lus = 0;
    for (const LigneCsv& ligne : Lignes(texte)) {
        lus += ligne.champs.join(u',').size();
        ASSERT_LE(ligne.numero, 500000);
    }
    EXPECT_GT(lus, 0);
    EXPECT_EQ(Lignes(QByteArray(",").repeated(20 << 20), {}, 3).size(), 5) << "separators alone";
}

TEST(LecteurCsv, ADeviceThatFailsIsTold)
{
    class Casse : public QIODevice
    {
    public:
        qint64 readData(char* cible, qint64) override
        {
            if (m_lu)
                return -1;
            m_lu = true;
            memcpy(cible, "a,b\nc", 5);
            return 5;
        }
        qint64 writeData(const char*, qint64) override { return -1; }

    private:
        bool m_lu = false;
    };
    Casse casse;
    casse.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    LecteurCsv lecteur(casse, {});
    LigneCsv ligne;
    EXPECT_TRUE(lecteur.Lire(ligne));
    EXPECT_FALSE(lecteur.EstInterrompu());
    EXPECT_TRUE(lecteur.Lire(ligne));
    EXPECT_EQ(ligne.champs, QStringList({"c"}));
    EXPECT_FALSE(lecteur.Lire(ligne));
    EXPECT_TRUE(lecteur.EstInterrompu());
}
