#include "platform/TexteIni.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QByteArray s_fichier = Lignes(
    {"[FileInfo]", "Type=QRT INI FILE", "", "[Preter]", "count=2", "Nom1=Paul|p@x.fr", "", "[Internet]", "UseProxy=0"});

std::optional<QString> Valeur(const QByteArray& texte)
{
    return TexteIni::Lire(texte, u"s", u"k");
}

TEST(TexteIniLire, FindsAKeyOfASection)
{
    EXPECT_EQ(TexteIni::Lire(s_fichier, u"Preter", u"Nom1"), "Paul|p@x.fr");
    EXPECT_EQ(TexteIni::Lire(s_fichier, u"Internet", u"UseProxy"), "0");
}

TEST(TexteIniLire, TellsWhatIsMissing)
{
    EXPECT_EQ(TexteIni::Lire(s_fichier, u"Preter", u"Nom2"), std::nullopt);
    EXPECT_EQ(TexteIni::Lire(s_fichier, u"Autre", u"count"), std::nullopt);
    EXPECT_EQ(TexteIni::Lire(s_fichier, u"Preter", u"UseProxy"), std::nullopt);
    EXPECT_EQ(TexteIni::Lire(s_fichier, u"Preter", u""), std::nullopt);
    EXPECT_EQ(TexteIni::Lire("", u"s", u"k"), std::nullopt);
}

TEST(TexteIniLire, FindsAnEmptyValue)
{
    EXPECT_EQ(Valeur("[s]\nk=\n"), "");
}

TEST(TexteIniLire, ComparesNamesWithoutCase)
{
    EXPECT_EQ(TexteIni::Lire(s_fichier, u"PRETER", u"Count"), "2");
    EXPECT_EQ(TexteIni::Lire("[\xC9t\xE9]\ncl\xC9=1\n", u"éTÉ", u"CLé"), "1");
}

TEST(TexteIniLire, TakesTheFirstKeyOfThatName)
{
    EXPECT_EQ(Valeur("[s]\nk=1\nK=2\n"), "1");
}

TEST(TexteIniLire, LooksIntoTheFirstSectionOfThatNameOnly)
{
    EXPECT_EQ(Valeur("[s]\na=1\n[S]\nk=2\n"), std::nullopt);
    EXPECT_EQ(Valeur("[s]\nk=1\n[s]\nk=2\n"), "1");
}

TEST(TexteIniLire, TrimsBlanksAroundNamesAndValues)
{
    EXPECT_EQ(Valeur(" \t[ s ] \n\t k \t= \t a b \t\n"), "a b");
    EXPECT_EQ(TexteIni::Lire("[s]\nk=1\n", u" s ", u"\tk "), "1");
}

TEST(TexteIniLire, CutsAtTheFirstEqualsSign)
{
    EXPECT_EQ(Valeur("[s]\nk=a=b\n"), "a=b");
}

TEST(TexteIniLire, TakesOnePairOfQuotesOff)
{
    EXPECT_EQ(Valeur("[s]\nk=\" a \"\n"), " a ");
    EXPECT_EQ(Valeur("[s]\nk=' a '\n"), " a ");
    EXPECT_EQ(Valeur("[s]\nk=\"\"a\"\"\n"), "\"a\"");
    EXPECT_EQ(Valeur("[s]\nk=\"\"\n"), "");
}

TEST(TexteIniLire, LeavesQuotesThatAreNoPair)
{
    for (const char* texte : {"\"a", "a\"", "\"a'", "\"", "'"})
        EXPECT_EQ(Valeur(QByteArray("[s]\nk=") + texte + "\n"), QString(texte)) << texte;
}

TEST(TexteIniLire, PassesCommentsAndOtherLinesOver)
{
    EXPECT_EQ(Valeur("; [s]\n[s]\n;k=1\n  ;k=2\nk\n  #k=x\n=3\nk=4 ; no comment\n"), "4 ; no comment");
}

TEST(TexteIniLire, HasNoKeyInAComment)
{
    EXPECT_EQ(TexteIni::Lire("[s]\n;k=1\n", u"s", u";k"), std::nullopt);
}

TEST(TexteIniLire, KeepsAHeaderWithoutItsBracketOut)
{
    EXPECT_EQ(Valeur("[s\nk=1\n"), std::nullopt);
    EXPECT_EQ(Valeur("[s]\n[t\nk=1\n"), "1");
}

TEST(TexteIniLire, IgnoresWhatStandsBehindAHeader)
{
    EXPECT_EQ(Valeur("[s] ; the section\nk=1\n"), "1");
}

TEST(TexteIniLire, ReadsKeysBeforeTheFirstHeaderNowhere)
{
    EXPECT_EQ(TexteIni::Lire("k=1\n[s]\n", u"", u"k"), std::nullopt);
}

TEST(TexteIniLire, TakesAllLineEnds)
{
    for (const QByteArray fin : {"\n", "\r\n", "\r"})
        EXPECT_EQ(Valeur("[r]" + fin + "k=0" + fin + fin + "[s]" + fin + "a=" + fin + "k=1"), "1");
}

TEST(TexteIniLire, DecodesTheCodePage)
{
    EXPECT_EQ(Valeur("[s]\nk=\x80 \x9Cuvre \x81\n"), "€ œuvre \u0081");
}

TEST(TexteIniLire, CutsAValueAt1024Characters)
{
    const QByteArray trop(2000, 'x');

    EXPECT_EQ(Valeur("[s]\nk=" + trop + "\n"), QString(1024, u'x'));
    EXPECT_EQ(Valeur("[s]\nk=" + trop.left(1024) + "\n"), QString(1024, u'x'));
    EXPECT_EQ(Valeur("[s]\nk=\"" + trop + "\"\n"), QString(1024, u'x'));
}

TEST(TexteIniLire, CutsAValueAtTheFirstNul)
{
    EXPECT_EQ(Valeur(QByteArray("[s]\nk=a\0b\n", 11)), "a");
    EXPECT_EQ(Valeur(QByteArray("[s]\nk=\0b\n", 10)), "");
}

TEST(TexteIniEcrire, ReplacesTheLineOfTheKeyAndNoOther)
{
    const std::optional<QByteArray> apres = TexteIni::Ecrire(s_fichier, u"preter", u"Count", u"3");

    QByteArray attendu = s_fichier;
    EXPECT_EQ(apres, attendu.replace("count=2", "count=3"));
}

TEST(TexteIniEcrire, ReplacesTheFirstOfTwo)
{
    EXPECT_EQ(TexteIni::Ecrire("[s]\nk=1\nk=2\n", u"s", u"k", u"3"), "[s]\nk=3\nk=2\n");
}

TEST(TexteIniEcrire, KeepsEachLineEndAsItStands)
{
    EXPECT_EQ(TexteIni::Ecrire("[s]\r\na=1\nk = 2\rb=3", u"s", u"k", u"9"), "[s]\r\na=1\nk=9\rb=3");
    EXPECT_EQ(TexteIni::Ecrire("[s]\nk=1", u"s", u"k", u"2"), "[s]\nk=2");
}

TEST(TexteIniEcrire, AddsAKeyBehindTheLastLineOfItsSection)
{
    EXPECT_EQ(TexteIni::Ecrire(s_fichier, u"Preter", u"Nom2", u"Anne|"),
              Lignes({"[FileInfo]", "Type=QRT INI FILE", "", "[Preter]", "count=2", "Nom1=Paul|p@x.fr", "Nom2=Anne|",
                      "", "[Internet]", "UseProxy=0"}));
    EXPECT_EQ(TexteIni::Ecrire("[s]\n\n[t]\n", u"s", u"k", u"1"), "[s]\nk=1\n\n[t]\n");
    EXPECT_EQ(TexteIni::Ecrire("[s]\na=1\n; end\n\n", u"s", u"k", u"1"), "[s]\na=1\n; end\nk=1\n\n");
}

TEST(TexteIniEcrire, EndsALastLineThatHasNoEnd)
{
    EXPECT_EQ(TexteIni::Ecrire("[s]\na=1", u"s", u"k", u"2"), "[s]\na=1\nk=2\n");
    EXPECT_EQ(TexteIni::Ecrire("[s]", u"s", u"k", u"2"), "[s]\r\nk=2\r\n");
    EXPECT_EQ(TexteIni::Ecrire("[s]\na=1", u"t", u"k", u"2"), "[s]\na=1\n[t]\nk=2\n");
}

TEST(TexteIniEcrire, AddsASectionAtTheEnd)
{
    EXPECT_EQ(TexteIni::Ecrire("[s]\nk=1\n", u"t", u"k", u"2"), "[s]\nk=1\n[t]\nk=2\n");
}

TEST(TexteIniEcrire, StartsAnEmptyFile)
{
    EXPECT_EQ(TexteIni::Ecrire("", u"s", u"k", u"1"), "[s]\r\nk=1\r\n");
}

TEST(TexteIniEcrire, WritesTheValueAsGiven)
{
    EXPECT_EQ(TexteIni::Ecrire("[s]\n", u"s", u"k", u" \"a\" = [b] "), "[s]\nk= \"a\" = [b] \n");
    EXPECT_EQ(TexteIni::Ecrire("[s]\n", u"s", u"k", u""), "[s]\nk=\n");
}

TEST(TexteIniEcrire, WritesTheCodePage)
{
    EXPECT_EQ(TexteIni::Ecrire("[s]\n", u"s", u"é", u"€ Ω \U0001F642"), "[s]\n\xE9=\x80 ? ?\n");
}

TEST(TexteIniEcrire, FindsANameAgainThatTheCodePageLacks)
{
    const std::optional<QByteArray> apres = TexteIni::Ecrire("", u"Ω", u"ключ", u"1");

    EXPECT_EQ(TexteIni::Lire(*apres, u"Ω", u"ключ"), "1");
}

TEST(TexteIniEcrire, CutsAValueAtTheFirstNul)
{
    EXPECT_EQ(TexteIni::Ecrire("[s]\n", u"s", u"k", QString::fromLatin1("a\0b", 3)), "[s]\nk=a\n");
}

TEST(TexteIniEcrire, RefusesWhatAnIniFileCannotHold)
{
    for (const QString& valeur : {QStringLiteral("a\nb"), QStringLiteral("a\rb"), QStringLiteral("\r\n")})
        EXPECT_EQ(TexteIni::Ecrire("[s]\n", u"s", u"k", valeur), std::nullopt);
    for (const QString& cle : {QString(), QStringLiteral("  "), QStringLiteral("a=b"), QStringLiteral("[a"),
                               QStringLiteral(";a"), QStringLiteral("a\nb"), QString::fromLatin1("a\0b", 3)})
        EXPECT_EQ(TexteIni::Ecrire("[s]\n", u"s", cle, u"1"), std::nullopt) << cle.toStdString();
    for (const QString& section : {QStringLiteral("a]b"), QStringLiteral("a\rb"), QString::fromLatin1("\0", 1)})
        EXPECT_EQ(TexteIni::Ecrire("[s]\n", section, u"k", u"1"), std::nullopt) << section.toStdString();
}

TEST(TexteIniEcrireCles, WritesAsIfOneWereWrittenAfterTheOther)
{
    const TexteIni::Cles cles{{"b", "2"}, {"A", "1"}, {"é", "3"}, {"c", ""}, {"b", "4"}};
    for (const char* avant :
         {"", "x", "[s]", "[s]\n", "[s]\r\na=0\r\n\r\n[t]\r\nb=9\r\n", "[t]\nb=9", "[s]\n a = 0\nB=7\nb=8\n; c\n\n",
          "[s]\nx=1\nb=2\n[s]\nc=3", "[s]\nc=3", "[s]\r\xC9=0\r"}) {
        std::optional<QByteArray> attendu = avant;
        for (const auto& [cle, valeur] : cles)
            attendu = TexteIni::Ecrire(*attendu, u"s", cle, valeur);
        EXPECT_EQ(TexteIni::EcrireCles(avant, u"s", cles), attendu) << avant;
    }
    EXPECT_EQ(TexteIni::EcrireCles("[s]\na=0\n\n[t]\n", u"s", {{"b", "2"}, {"a", "1"}}), "[s]\na=1\nb=2\n\n[t]\n");
}

TEST(TexteIniEcrireCles, WritesNoneWhenOneCannotBeHeld)
{
    EXPECT_EQ(TexteIni::EcrireCles("", u"s", {{"a", "1"}, {"b", "2\n3"}}), std::nullopt);
}

TEST(TexteIniParcourir, HandsOverTheKeysOfTheFirstSectionOfThatName)
{
    QByteArrayList vues;
    TexteIni::Parcourir("x=0\n[S]\n b = \"2\" \n;c=3\n\nz\nB=4\n[s]\nd=5\n", u"s",
                        [&vues](QByteArrayView cle, QByteArrayView valeur) {
                            vues.append(cle.toByteArray() + ':' + TexteIni::Valeur(valeur).toUtf8());
                        });
    EXPECT_EQ(vues, QByteArrayList({"b:2", "B:4"}));
}

TEST(TexteIniCommeRelue, IsWhatIsReadOnceItWasWritten)
{
    for (const QString& valeur : {u"Paul|p@x.fr"_s, u" a "_s, u"\"a\""_s, u"Łódź"_s, u""_s, u"'"_s, QString(2000, u'é'),
                                  QString::fromLatin1("a\0b", 3)})
        EXPECT_EQ(TexteIni::CommeRelue(valeur), TexteIni::Lire(*TexteIni::Ecrire("", u"s", u"k", valeur), u"s", u"k"))
            << valeur.toStdString();
}

TEST(TexteIniSupprimer, TakesTheLineOfAKeyOut)
{
    EXPECT_EQ(TexteIni::SupprimerCle("[s]\r\na=1\r\nK=2\r\nk=3\r\n\r\n", u"S", u"k"), "[s]\r\na=1\r\nk=3\r\n\r\n");
    EXPECT_EQ(TexteIni::SupprimerCle("[s]\nk=2", u"s", u"k"), "[s]\n");
}

TEST(TexteIniSupprimer, LeavesAFileWithoutThatKeyAlone)
{
    EXPECT_EQ(TexteIni::SupprimerCle("[s]\na=1\n[t]\nk=1", u"s", u"k"), "[s]\na=1\n[t]\nk=1");
    EXPECT_EQ(TexteIni::SupprimerCle("[s]\nk=1\n", u"t", u"k"), "[s]\nk=1\n");
}

TEST(TexteIniSupprimer, TakesASectionOutUpToTheNextOne)
{
    EXPECT_EQ(TexteIni::SupprimerSection("a\n[s]\nk=1\n; c\n\n[t]\nk=2\n", u"S"), "a\n[t]\nk=2\n");
    EXPECT_EQ(TexteIni::SupprimerSection("[r]\n[s]\nk=1", u"s"), "[r]\n");
    EXPECT_EQ(TexteIni::SupprimerSection("[s]\nk=1\n[s]\nk=2\n", u"s"), "[s]\nk=2\n");
    EXPECT_EQ(TexteIni::SupprimerSection("[s]\nk=1\n", u"t"), "[s]\nk=1\n");
}

} // namespace
