#include "Forme.h"

#include <gtest/gtest.h>

#include <QString>

#include <ostream>

using namespace Qt::StringLiterals;

namespace {

struct Paire
{
    QString a;
    QString b;
    bool proches;
};
void PrintTo(const Paire& paire, std::ostream* flux)
{
    *flux << paire.a.toStdString() << " / " << paire.b.toStdString();
}

class PairesDeTextes : public testing::TestWithParam<Paire>
{
};

} // namespace

TEST_P(PairesDeTextes, AreNearOrNot)
{
    const Paire& paire = GetParam();
    EXPECT_EQ(PresqueEgales(FormeDe(paire.a), FormeDe(paire.b)), paire.proches);
    EXPECT_EQ(PresqueEgales(FormeDe(paire.b), FormeDe(paire.a)), paire.proches) << "the other way round";
    EXPECT_TRUE(PresqueEgales(FormeDe(paire.a), FormeDe(paire.a)));
}

INSTANTIATE_TEST_SUITE_P(CaseAndAccents, PairesDeTextes,
                         testing::Values(Paire{u"ÉTÉ"_s, u"ete"_s, true}, Paire{u"Cœur"_s, u"coeur"_s, true},
                                         Paire{u"Straße"_s, u"STRASSE"_s, true}, Paire{u"Bjørk"_s, u"Björk"_s, true},
                                         Paire{u"ete\u0301"_s, u"eté"_s, true}, Paire{u"été"_s, u"âne"_s, false}));
INSTANTIATE_TEST_SUITE_P(PunctuationAndBlanks, PairesDeTextes,
                         testing::Values(Paire{u"AC/DC"_s, u"ac dc"_s, true}, Paire{u"AC/DC"_s, u"ACDC"_s, true},
                                         Paire{u"Rock'n'Roll !"_s, u"Rock n Roll"_s, true},
                                         Paire{u"  Aja  "_s, u"Aja"_s, true}, Paire{u"?!"_s, u"!!"_s, false},
                                         Paire{u"?!"_s, u" ?! "_s, true}, Paire{u"C++"_s, u"C#"_s, false},
                                         Paire{QString(), u"-"_s, false}, Paire{QString(), u" "_s, true}));
INSTANTIATE_TEST_SUITE_P(Articles, PairesDeTextes,
                         testing::Values(Paire{u"The Beatles"_s, u"Beatles"_s, true},
                                         Paire{u"Beatles, The"_s, u"the beatles"_s, true},
                                         Paire{u"Misérables (Les)"_s, u"Les Misérables"_s, true},
                                         Paire{u"L'Étranger"_s, u"Étranger"_s, true},
                                         Paire{u"The The"_s, u"The"_s, true}, Paire{u"La"_s, u"Le"_s, false},
                                         Paire{u"Aller à la mer"_s, u"Aller à mer"_s, false}));
INSTANTIATE_TEST_SUITE_P(OrderOfWords, PairesDeTextes,
                         testing::Values(Paire{u"Dan Steely"_s, u"Steely, Dan"_s, true},
                                         Paire{u"Victor Hugo"_s, u"HUGO Victor"_s, true},
                                         Paire{u"Hugo Victr"_s, u"Victor Hugo"_s, true}));
INSTANTIATE_TEST_SUITE_P(TypingErrors, PairesDeTextes,
                         testing::Values(Paire{u"Kings"_s, u"Kinks"_s, false}, Paire{u"Kinged"_s, u"Kinked"_s, true},
                                         Paire{u"Kinged"_s, u"Kingde"_s, true}, Paire{u"Kinged"_s, u"Kined"_s, false},
                                         Paire{u"Nevermind"_s, u"Nevermnid"_s, true},
                                         Paire{u"Nevermind"_s, u"Nvermnid"_s, false},
                                         Paire{u"Bohemian Rhapsodies"_s, u"Bohemain Rapsodies"_s, true},
                                         Paire{u"Bohemian Rhapsodies"_s, u"Bohemain Rapsodiez"_s, false},
                                         Paire{u"abcdefghijklmnop"_s, u"xabcdefghijklmnopy"_s, true},
                                         Paire{u"abcdefghijklmno"_s, u"xabcdefghijklmnoy"_s, false}));
INSTANTIATE_TEST_SUITE_P(Numbers, PairesDeTextes,
                         testing::Values(Paire{u"Volume 1"_s, u"Volume 2"_s, false},
                                         Paire{u"Volume 1"_s, u"Volume 12"_s, false},
                                         Paire{u"Volume 12"_s, u"Volune 12"_s, true},
                                         Paire{u"Rocky II, le retour"_s, u"Rocky III, le retour"_s, false},
                                         Paire{u"Rocky V"_s, u"Rocky X"_s, false},
                                         Paire{u"Plan A"_s, u"Plan B"_s, false}, Paire{u"x²"_s, u"x2"_s, true},
                                         Paire{u"1 2"_s, u"12"_s, false}));

TEST(AFautesPres, CountsLettersAddedLostChangedAndSwapped)
{
    EXPECT_TRUE(AFautesPres(u"", u"", 0));
    EXPECT_FALSE(AFautesPres(u"", u"a", 0));
    EXPECT_TRUE(AFautesPres(u"", u"ab", 2));
    EXPECT_FALSE(AFautesPres(u"", u"ab", 1));
    EXPECT_TRUE(AFautesPres(u"abcd", u"abdc", 1));
    EXPECT_FALSE(AFautesPres(u"abcd", u"badc", 1));
    EXPECT_TRUE(AFautesPres(u"abcd", u"badc", 2));
    EXPECT_TRUE(AFautesPres(u"xbcdefgy", u"bcdefg", 2));
    EXPECT_TRUE(AFautesPres(u"abcdef", u"bcdefa", 2)) << "one lost at the start, one added at the end";
    EXPECT_FALSE(AFautesPres(u"abcdef", u"cdefab", 2));
}

TEST(AFautesPres, VeryLongTextsAreComparedWhole)
{
    const std::u16string un(100000, u'a');
    std::u16string deux = un;
    deux[5] = u'b';
    deux[99990] = u'b';
    EXPECT_TRUE(AFautesPres(un, deux, 2));
    deux[50000] = u'b';
    EXPECT_FALSE(AFautesPres(un, deux, 2));
    EXPECT_EQ(FautesPermises(200, 200), 2);
    EXPECT_EQ(FautesPermises(201, 201), 0);
}
