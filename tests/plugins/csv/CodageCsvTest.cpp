#include "CodageCsv.h"

#include "support/Impression.h"

#include <QBuffer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

CodageCsv Devine(QByteArray octets)
{
    QBuffer texte(&octets);
    texte.open(QIODevice::ReadOnly);
    const CodageCsv codage = DevinerCodage(texte);
    EXPECT_EQ(texte.pos(), 0);
    return codage;
}

QString Decode(CodageCsv codage, const QByteArray& octets)
{
    DecodeurCsv decodeur(codage);
    QString texte;
    for (const char octet : octets)
        texte += decodeur.Decoder(QByteArrayView(&octet, 1));
    return texte + decodeur.Finir();
}

QByteArray Utf16(const QString& texte, bool groutier)
{
    QByteArray octets;
    for (const QChar c : texte) {
        const auto u = c.unicode();
        const char haut = static_cast<char>(u >> 8);
        const char bas = static_cast<char>(u & 0xFF);
        octets.append(groutier ? haut : bas).append(groutier ? bas : haut);
    }
    return octets;
}

} // namespace

TEST(DevinerCodage, ByTheMark)
{
    EXPECT_EQ(Devine("\xFF\xFE"
                     "a"),
              CodageCsv::Utf16Le);
    EXPECT_EQ(Devine("\xFE\xFF"
                     "a"),
              CodageCsv::Utf16Be);
    EXPECT_EQ(Devine("\xEF\xBB\xBF\xE9"), CodageCsv::Utf8) << "the mark counts more than what follows";
}

TEST(DevinerCodage, ByTheZerosOfUtf16)
{
    EXPECT_EQ(Devine(Utf16(u"Titre;Artiste\r\nÉté;Ж\r\n"_s, false)), CodageCsv::Utf16Le);
    EXPECT_EQ(Devine(Utf16(u"Titre;Artiste\r\nÉté;Ж\r\n"_s, true)), CodageCsv::Utf16Be);
}

TEST(DevinerCodage, Utf8IsWhatReadsAsUtf8)
{
    EXPECT_EQ(Devine(""), CodageCsv::Utf8);
    EXPECT_EQ(Devine("abc"), CodageCsv::Utf8);
    EXPECT_EQ(Devine("été"), CodageCsv::Utf8);
    EXPECT_EQ(Devine("ab\0cd"_ba), CodageCsv::Utf8) << "a zero here and there";
}

TEST(DevinerCodage, LettersBeyondTheFirstPieceCount)
{
    EXPECT_EQ(Devine(QByteArray(3 << 20, 'a') + "\xE9t\xE9"), CodageCsv::Windows1252);
    // A character over the end of a piece.
    EXPECT_EQ(Devine(QByteArray((1 << 20) - 1, 'a') + "é" + QByteArray(1 << 20, 'a') + "é"), CodageCsv::Utf8);
    EXPECT_EQ(Devine(QByteArray((1 << 20) - 2, 'a') + "€" + "😀"), CodageCsv::Utf8);
}

TEST(DevinerCodage, ByTheLettersOfOtherEncodings)
{
    EXPECT_EQ(Devine("\xE9t\xE9, \x9Cuvre, l\x92\xE9t\xE9"), CodageCsv::Windows1252);
    EXPECT_EQ(Devine("\xE9t\xE9, \xBDuvre"), CodageCsv::Latin9);
    EXPECT_EQ(Devine("\xE9t\xE9"), CodageCsv::Windows1252) << "where both would do";
    EXPECT_EQ(Devine("\x82t\x82, \x85 la p\x88\x63he, gar\x87on"), CodageCsv::Cp850);
    EXPECT_EQ(Devine("\x8Et\x8E, \x88 la p\x90\x63he, gar\x8Don"), CodageCsv::MacRoman);
}

TEST(DecodeurCsv, EveryEncodingIsDecodedByteByByte)
{
    EXPECT_EQ(Decode(CodageCsv::Utf8, "\xEF\xBB\xBFété €"), u"été €");
    EXPECT_EQ(Decode(CodageCsv::Utf16Le, "\xFF\xFE" + Utf16(u"été 😀"_s, false)), u"été 😀");
    EXPECT_EQ(Decode(CodageCsv::Utf16Be, "\xFE\xFF" + Utf16(u"été"_s, true)), u"été");
    EXPECT_EQ(Decode(CodageCsv::Windows1252, "\xE9\x80\x9C\x81"), u"é€œ\u0081");
    EXPECT_EQ(Decode(CodageCsv::Latin9, "\xE9\xA4\xBD"), u"é€œ");
    EXPECT_EQ(Decode(CodageCsv::Cp850, "\x82\x85"), u"éà");
    EXPECT_EQ(Decode(CodageCsv::MacRoman, "\x8E\x88"), u"éà");
}

TEST(DecodeurCsv, WhatIsNoCharacterIsCounted)
{
    const auto illisibles = [](CodageCsv codage, const QByteArray& octets) {
        DecodeurCsv decodeur(codage);
        QString texte = decodeur.Decoder(octets);
        texte += decodeur.Finir();
        EXPECT_EQ(texte.count(QChar(QChar::ReplacementCharacter)), decodeur.Illisibles());
        return decodeur.Illisibles();
    };
    EXPECT_EQ(illisibles(CodageCsv::Utf8, "a\xE9z\xFFz"), 2);
    EXPECT_EQ(illisibles(CodageCsv::Utf8, "abc"), 0);
    EXPECT_EQ(illisibles(CodageCsv::Utf8, "a\xE2\x82"), 1) << "cut short at the end";
    EXPECT_EQ(illisibles(CodageCsv::Utf16Le, "a\0b"_ba), 1) << "half a character";
    EXPECT_EQ(illisibles(CodageCsv::Utf16Le, "a\0b\0"_ba), 0);
}

TEST(DecodeurCsv, ACharacterThatIsCutShortTakesNothingAlong)
{
    EXPECT_EQ(Decode(CodageCsv::Utf8, "a\xE2\x82\nb\xF0\x9F\x98,"), u"a\uFFFD\uFFFD\nb\uFFFD\uFFFD\uFFFD,");
}

TEST(DecodeurCsv, AllHaveAName)
{
    QStringList noms;
    for (const CodageCsv codage : CodagesCsv())
        noms.append(NomDuCodage(codage));
    EXPECT_EQ(noms, QStringList({"UTF-8", "UTF-16 LE", "UTF-16 BE", "Windows-1252", "ISO-8859-15 (Latin-9)",
                                 "CP850 (DOS)", "Mac Roman"}));
}
