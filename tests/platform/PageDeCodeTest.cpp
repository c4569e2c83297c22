#include "platform/PageDeCode.h"
#include "support/Impression.h"

#include <gtest/gtest.h>

#include <map>

namespace {

QByteArray TousLesOctets()
{
    QByteArray octets;
    for (int octet = 0; octet < 256; ++octet)
        octets.append(static_cast<char>(octet));
    return octets;
}

TEST(PageDeCode, EveryByteSurvivesBothWays)
{
    const QString texte = PageDeCode::VersTexte(TousLesOctets());

    ASSERT_EQ(texte.size(), 256);
    EXPECT_TRUE(PageDeCode::EstRepresentable(texte));
    EXPECT_EQ(PageDeCode::VersOctets(texte), TousLesOctets());
}

TEST(PageDeCode, KnowsTheCharactersOfWindows1252)
{
    const std::map<int, char16_t> haut = {
        {0x80, u'€'}, {0x82, u'‚'}, {0x83, u'ƒ'}, {0x84, u'„'}, {0x85, u'…'}, {0x86, u'†'}, {0x87, u'‡'},
        {0x88, u'ˆ'}, {0x89, u'‰'}, {0x8A, u'Š'}, {0x8B, u'‹'}, {0x8C, u'Œ'}, {0x8E, u'Ž'}, {0x91, u'‘'},
        {0x92, u'’'}, {0x93, u'“'}, {0x94, u'”'}, {0x95, u'•'}, {0x96, u'–'}, {0x97, u'—'}, {0x98, u'˜'},
        {0x99, u'™'}, {0x9A, u'š'}, {0x9B, u'›'}, {0x9C, u'œ'}, {0x9E, u'ž'}, {0x9F, u'Ÿ'},
    };
    for (int octet = 0; octet < 256; ++octet) {
        const auto special = haut.find(octet);
        const int attendu = special == haut.end() ? octet : special->second;
        EXPECT_EQ(PageDeCode::TableVersUnicode()[static_cast<size_t>(octet)], attendu) << octet;
        EXPECT_EQ(PageDeCode::OctetDe(static_cast<char16_t>(attendu)), octet);
    }
}

TEST(PageDeCode, MapsTheOpenBytesToTheControlCharactersOfTheirNumber)
{
    for (const char16_t ouvert : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
        EXPECT_EQ(PageDeCode::TableVersUnicode()[ouvert], ouvert);
        EXPECT_EQ(PageDeCode::OctetDe(ouvert), ouvert);
    }
    // The other control characters of that row have no byte: theirs mean something else.
    EXPECT_EQ(PageDeCode::OctetDe(u'\x80'), -1);
    EXPECT_EQ(PageDeCode::OctetDe(u'\x9F'), -1);
}

TEST(PageDeCode, HasNoBestFit)
{
    for (const char16_t absent : {u'ā', u'Ω', u'―', u'ﬁ', u'＝', u'\u2028', u'\uFEFF', u'\uFFFD'})
        EXPECT_EQ(PageDeCode::OctetDe(absent), -1) << static_cast<int>(absent);
}

TEST(PageDeCode, WritesAQuestionMarkForEachCharacterItLacks)
{
    EXPECT_EQ(PageDeCode::VersOctets(u"Ωmega"), "?mega");
    EXPECT_EQ(PageDeCode::VersOctets(u"aΩΩb"), "a??b");
    EXPECT_FALSE(PageDeCode::EstRepresentable(u"Ωmega"));
}

TEST(PageDeCode, TakesASurrogatePairAsOneCharacter)
{
    EXPECT_EQ(PageDeCode::VersOctets(u"a\U0001F642b"), "a?b");
    EXPECT_EQ(PageDeCode::VersOctets(u"\U0001F642\U0001F642"), "??");
}

TEST(PageDeCode, TakesALoneSurrogateAsACharacter)
{
    const QString haute = QString(QChar(0xD83D)) + u'x';
    const QString basse = QString(QChar(0xDE42)) + u'x';
    const QString inversee = QString(QChar(0xDE42)) + QChar(0xD83D);

    EXPECT_EQ(PageDeCode::VersOctets(haute), "?x");
    EXPECT_EQ(PageDeCode::VersOctets(basse), "?x");
    EXPECT_EQ(PageDeCode::VersOctets(inversee), "??");
    EXPECT_EQ(PageDeCode::VersOctets(QString(QChar(0xD83D))), "?");
}

TEST(PageDeCode, KeepsNulAndLineEnds)
{
    const QByteArray octets("a\0b\r\n", 5);

    EXPECT_EQ(PageDeCode::VersTexte(octets).size(), 5);
    EXPECT_EQ(PageDeCode::VersOctets(PageDeCode::VersTexte(octets)), octets);
}

TEST(PageDeCode, TakesEmptyTexts)
{
    EXPECT_TRUE(PageDeCode::VersTexte({}).isEmpty());
    EXPECT_TRUE(PageDeCode::VersOctets({}).isEmpty());
    EXPECT_TRUE(PageDeCode::EstRepresentable({}));
}

TEST(PageDeCode, EveryByteBecomesTheUtf8OfItsText)
{
    QByteArray octets;
    for (int octet = 0; octet < 256; ++octet)
        octets.append(static_cast<char>(octet));
    QByteArray sortie = "devant";
    PageDeCode::AjouterEnUtf8(sortie, octets);
    PageDeCode::AjouterEnUtf8(sortie, {});
    EXPECT_EQ(sortie, "devant" + PageDeCode::VersTexte(octets).toUtf8());
}

TEST(PageDeCode, ReducesUtf8)
{
    EXPECT_EQ(PageDeCode::ReduireUtf8("Pr\xC3\xAAt\xC3\xA9 \xE2\x82\xAC \xCE\xA9 \xF0\x9F\x99\x82"),
              "Pr\xEAt\xE9 \x80 ? ?");
    EXPECT_EQ(PageDeCode::ReduireUtf8("a\xFF"), "a?");
}

TEST(PageDeCode, TakesAByteOrderMarkInUtf8AsACharacter)
{
    EXPECT_EQ(PageDeCode::DeUtf8("\xEF\xBB\xBF\xEF\xBB\xBF\xC3\xA9\xFF"), u"\uFEFF\uFEFF\u00E9\uFFFD");
    EXPECT_EQ(PageDeCode::DeUtf8("\xC3\xA9\xFF"), u"\u00E9\uFFFD");
    EXPECT_EQ(PageDeCode::ReduireUtf8("\xEF\xBB\xBF"), "?");
}

} // namespace
