#include "base/Nombres.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

TEST(Val, ReadsTheDigitsThatATextStartsWith)
{
    EXPECT_EQ(Val(u"12"), 12);
    EXPECT_EQ(Val(u"12 cm"), 12);
    EXPECT_EQ(Val(u"  \t7"), 7);
    EXPECT_EQ(Val(u"-3x"), -3);
    EXPECT_EQ(Val(u"+3"), 3);
    EXPECT_EQ(Val(u"0012"), 12);
}

TEST(Val, TakesAPointAndStopsAtAComma)
{
    EXPECT_EQ(Val(u"2.5"), 2.5);
    EXPECT_EQ(Val(u"2,5"), 2);
    EXPECT_EQ(Val(u".5"), 0.5);
    EXPECT_EQ(Val(u"2."), 2);
    EXPECT_EQ(Val(u"1.2.3"), 1.2);
}

TEST(Val, ReadsNoExponent)
{
    EXPECT_EQ(Val(u"1e3"), 1);
}

TEST(Val, IsInfiniteBeyondWhatADoubleHolds)
{
    EXPECT_EQ(Val(QString(400, u'9')), std::numeric_limits<double>::infinity());
}

TEST(Val, IsZeroWithoutADigit)
{
    for (const QStringView texte : {u"", u" ", u"abc", u"-", u".", u"-.", u",5", u"x1", u"e5"})
        EXPECT_EQ(Val(texte), 0) << texte.toString().toStdString();
}

TEST(VersEntier32, TakesTheWholeTextAsANumber)
{
    EXPECT_EQ(VersEntier32(u"12"), 12);
    EXPECT_EQ(VersEntier32(u" \t-12 "), -12);
    EXPECT_EQ(VersEntier32(u"+12"), 12);
    EXPECT_EQ(VersEntier32(u"1,0"), 1);
    EXPECT_EQ(VersEntier32(u"1.0"), 1);
    EXPECT_EQ(VersEntier32(u"1e3"), 1000);
    EXPECT_EQ(VersEntier32(u"1,5E+1"), 15);
    EXPECT_EQ(VersEntier32(u"1500e-2"), 15);
    EXPECT_EQ(VersEntier32(u".0"), 0);
    EXPECT_EQ(VersEntier32(u"3."), 3);
}

TEST(VersEntier32, RefusesWhatIsNoNumber)
{
    for (const QStringView texte :
         {u"",      u" ",  u"a",   u"1a", u"a1",   u"1 2", u"--1", u"-",   u".",  u",",      u"1,2,3",
          u"1.2,3", u"1e", u"1e+", u"e1", u"0x10", u"inf", u"nan", u"1\n", u"１", u"1\u00A0"})
        EXPECT_EQ(VersEntier32(texte), std::nullopt) << texte.toString().toStdString();
}

TEST(VersEntier32, RoundsHalvesToTheEvenNeighbour)
{
    EXPECT_EQ(VersEntier32(u"0,5"), 0);
    EXPECT_EQ(VersEntier32(u"1,5"), 2);
    EXPECT_EQ(VersEntier32(u"2.5"), 2);
    EXPECT_EQ(VersEntier32(u"-0,5"), 0);
    EXPECT_EQ(VersEntier32(u"-1,5"), -2);
    EXPECT_EQ(VersEntier32(u"2,51"), 3);
    EXPECT_EQ(VersEntier32(u"2,49"), 2);
}

TEST(VersEntier32, ChecksTheRangeAfterRounding)
{
    EXPECT_EQ(VersEntier32(u"2147483647"), 2147483647);
    EXPECT_EQ(VersEntier32(u"2147483647,4"), 2147483647);
    EXPECT_EQ(VersEntier32(u"2147483648"), std::nullopt);
    EXPECT_EQ(VersEntier32(u"-2147483648"), std::numeric_limits<int32_t>::min());
    EXPECT_EQ(VersEntier32(u"-2147483649"), std::nullopt);
    EXPECT_EQ(VersEntier32(u"1e400"), std::nullopt);
    EXPECT_EQ(VersEntier32(u"1e-400"), 0);
}

TEST(VersEntier16, ChecksItsOwnRange)
{
    EXPECT_EQ(VersEntier16(u"32767"), 32767);
    EXPECT_EQ(VersEntier16(u"32767,5"), std::nullopt);
    EXPECT_EQ(VersEntier16(u"32768"), std::nullopt);
    EXPECT_EQ(VersEntier16(u"-32768"), -32768);
    EXPECT_EQ(VersEntier16(u"-32769"), std::nullopt);
    EXPECT_EQ(VersEntier16(u"abc"), std::nullopt);
}

TEST(ArrondirEntier, RefusesWhatNoIntegerHolds)
{
    EXPECT_EQ(ArrondirEntier32(2.5), 2);
    EXPECT_EQ(ArrondirEntier32(3e9), std::nullopt);
    EXPECT_EQ(ArrondirEntier32(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
    EXPECT_EQ(ArrondirEntier16(std::numeric_limits<double>::infinity()), std::nullopt);
    EXPECT_EQ(ArrondirEntier16(-1.5), -2);
}

TEST(VersDouble, IsReadWithCommaAndPoint)
{
    EXPECT_EQ(VersDouble(u"8,25"), 8.25);
    EXPECT_EQ(VersDouble(u"8.25"), 8.25);
    EXPECT_EQ(VersDouble(u"1e400"), std::nullopt);
    EXPECT_EQ(VersDouble(u"Vrai"), std::nullopt);
}

TEST(VersDouble, TellsTooLargeFromTooSmall)
{
    EXPECT_EQ(VersDouble(u"0,0001e400"), std::nullopt);
    EXPECT_EQ(VersDouble(u"-12345e400"), std::nullopt);
    EXPECT_EQ(VersDouble(u"1e99999999999999999999"), std::nullopt);
    EXPECT_EQ(VersDouble(u"12345e-400"), 0);
    EXPECT_EQ(VersDouble(u"1e-99999999999999999999"), 0);
    EXPECT_EQ(VersDouble(QString(400, u'9')), std::nullopt);
    EXPECT_EQ(VersDouble(QStringLiteral("0,") + QString(400, u'0') + u'1'), 0);
    EXPECT_EQ(VersDouble(u"0e99999"), 0);
}

TEST(VersSimple, ReadsCommaAndPoint)
{
    EXPECT_EQ(VersSimple(u"1000,5"), 1000.5f);
    EXPECT_EQ(VersSimple(u"1000.5"), 1000.5f);
    EXPECT_EQ(VersSimple(u" -12 "), -12.0f);
    EXPECT_EQ(VersSimple(u"+1E2"), 100.0f);
}

TEST(VersSimple, RefusesTextsAndOverflows)
{
    EXPECT_EQ(VersSimple(u""), std::nullopt);
    EXPECT_EQ(VersSimple(u"1 000"), std::nullopt);
    EXPECT_EQ(VersSimple(u"1e39"), std::nullopt);
    EXPECT_EQ(VersSimple(u"-1e39"), std::nullopt);
    EXPECT_EQ(VersSimple(u"1e999"), std::nullopt);
}

TEST(VersSimple, TakesWhatIsTooSmallAsZero)
{
    EXPECT_EQ(VersSimple(u"1e-60"), 0.0f);
    EXPECT_EQ(VersSimple(u"1e-999"), 0.0f);
}

TEST(SimpleVersTexte, WritesTheShortestTextWithAComma)
{
    EXPECT_EQ(SimpleVersTexte(1000), "1000");
    EXPECT_EQ(SimpleVersTexte(8.25f), "8,25");
    EXPECT_EQ(SimpleVersTexte(0.1f), "0,1");
    EXPECT_EQ(SimpleVersTexte(-1440.5f), "-1440,5");
    EXPECT_EQ(SimpleVersTexte(1234567.0f), "1234567");
    EXPECT_EQ(SimpleVersTexte(0.0001f), "0,0001");
}

TEST(SimpleVersTexte, KeepsExponentsForTheExtremes)
{
    EXPECT_EQ(SimpleVersTexte(1e14f), "100000000376832");
    EXPECT_EQ(SimpleVersTexte(1.5e20f), "1,5E+20");
    EXPECT_EQ(SimpleVersTexte(1e-7f), "1E-07");
}

TEST(SimpleVersTexte, WritesZeroForWhatHasNoText)
{
    EXPECT_EQ(SimpleVersTexte(0), "0");
    EXPECT_EQ(SimpleVersTexte(-0.0f), "0");
    EXPECT_EQ(SimpleVersTexte(std::numeric_limits<float>::infinity()), "0");
    EXPECT_EQ(SimpleVersTexte(std::numeric_limits<float>::quiet_NaN()), "0");
}

TEST(SimpleVersTexte, ReadsBackAsTheSameNumber)
{
    std::mt19937 hasard(1);
    for (int i = 0; i < 200000; ++i) {
        const uint32_t bits = hasard();
        float nombre;
        std::memcpy(&nombre, &bits, sizeof nombre);
        if (!std::isfinite(nombre))
            continue;
        ASSERT_EQ(VersSimple(SimpleVersTexte(nombre)), nombre) << bits;
    }
}

} // namespace
