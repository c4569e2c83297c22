#include "TexteUtf8.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray Json(QStringView texte)
{
    QByteArray sortie("avant ");
    AjouterJson(sortie, texte);
    return sortie;
}

QByteArray Xml(QStringView texte)
{
    QByteArray sortie("avant ");
    AjouterXml(sortie, texte);
    return sortie;
}

QByteArray Paragraphes(QStringView texte)
{
    QByteArray sortie;
    AjouterParagraphes(sortie, texte);
    return sortie;
}

QString Unites(std::initializer_list<char16_t> unites)
{
    QString texte;
    for (const char16_t unite : unites)
        texte.append(QChar(unite));
    return texte;
}

} // namespace

TEST(AjouterJson, LettersOfAllLanguagesStandAsTheyAre)
{
    EXPECT_EQ(Json(u"Été à 3 €, 日本, 😀"), QString(u"avant \"Été à 3 €, 日本, 😀\""_s).toUtf8());
    EXPECT_EQ(Json(u""), "avant \"\"");
}

TEST(AjouterJson, QuotesBackslashesAndControlsAreEscaped)
{
    EXPECT_EQ(Json(u"\"a\\b\"/"), R"(avant "\"a\\b\"/")");
    EXPECT_EQ(Json(u"\b\f\n\r\t"), R"(avant "\b\f\n\r\t")");
    EXPECT_EQ(Json(Unites({0, 1, 0x1F, 0x7F, 0x80, 0x9F, 0xA0})),
              QByteArray(R"(avant "\u0000\u0001\u001f\u007f\u0080\u009f)") + "\xC2\xA0\"");
    EXPECT_EQ(Json(Unites({0x2028, 0x2029})), R"(avant "\u2028\u2029")") << "line ends to JavaScript";
}

TEST(AjouterJson, HalfOfAPairComesBack)
{
    EXPECT_EQ(Json(Unites({0xD83D, u'x'})), R"(avant "\ud83dx")");
    EXPECT_EQ(Json(Unites({u'x', 0xDE00, 0xD83D})), R"(avant "x\ude00\ud83d")");
}

TEST(AjouterJson, EveryUnitIsReadBack)
{
    QString tout;
    for (char32_t c = 1; c < 0x10000; ++c) {
        if (!QChar::isSurrogate(c))
            tout.append(QChar(static_cast<char16_t>(c)));
    }
    tout += u"\U00010000\U0010FFFF"_s;
    QByteArray sortie("[");
    AjouterJson(sortie, tout);
    EXPECT_EQ(QJsonDocument::fromJson(sortie + ']').array().at(0).toString(), tout);
}

TEST(AjouterXml, MarksAreEscaped)
{
    EXPECT_EQ(Xml(u"<a href=\"x\"> & 'é' 😀"), QString(u"avant &lt;a href=&quot;x&quot;&gt; &amp; 'é' 😀"_s).toUtf8());
}

TEST(AjouterXml, WhatXmlCannotHoldIsReplaced)
{
    EXPECT_EQ(Xml(Unites({0, 8, 0x1F, 0xFFFE, 0xFFFF, 0xD83D, u'x', 0xDE00})),
              QString(u"avant \uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDx\uFFFD"_s).toUtf8());
    EXPECT_EQ(Xml(Unites({0x7F, 0x85, 0xFFFD, 0xE000})), QString(u"avant \u007F\u0085\uFFFD\uE000"_s).toUtf8());
}

TEST(AjouterParagraphes, BlanksThatAReaderWouldTakeForOneAreCounted)
{
    EXPECT_EQ(Paragraphes(u"un deux trois"), "<text:p>un deux trois</text:p>");
    EXPECT_EQ(Paragraphes(u"un  deux"), "<text:p>un <text:s/>deux</text:p>");
    EXPECT_EQ(Paragraphes(u"un    deux  x y"), "<text:p>un <text:s text:c=\"3\"/>deux <text:s/>x y</text:p>");
    EXPECT_EQ(Paragraphes(u" un"), "<text:p><text:s/>un</text:p>");
    EXPECT_EQ(Paragraphes(u"un "), "<text:p>un<text:s/></text:p>");
    EXPECT_EQ(Paragraphes(u"   "), "<text:p><text:s text:c=\"3\"/></text:p>");
    EXPECT_EQ(Paragraphes(u"a\tb\t c"), "<text:p>a<text:tab/>b<text:tab/><text:s/>c</text:p>");
    EXPECT_EQ(Paragraphes(u"<a>  &"), "<text:p>&lt;a&gt; <text:s/>&amp;</text:p>");
}

TEST(AjouterParagraphes, EachLineIsOne)
{
    EXPECT_EQ(Paragraphes(u"un\ndeux\r\ntrois\rquatre"),
              "<text:p>un</text:p><text:p>deux</text:p><text:p>trois</text:p><text:p>quatre</text:p>");
    EXPECT_EQ(Paragraphes(u"un \n\n deux"),
              "<text:p>un<text:s/></text:p><text:p></text:p><text:p><text:s/>deux</text:p>");
}

TEST(AjouterParagraphes, ItsLengthIsKnownAhead)
{
    for (const QStringView texte :
         {u"", u" ", u"un deux", u"un  deux", u" un", u"un ", u"<", u"é", u"😀", u"a\nb", u"a\tb"})
        EXPECT_EQ(OctetsDesParagraphes(texte), Paragraphes(texte).size()) << texte.toString().toStdString();
    EXPECT_EQ(Paragraphes(u""), "<text:p></text:p>");
}
