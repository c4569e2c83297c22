#include "entries/Macros.h"

#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QDateTime s_mars(QDate(2026, 3, 5), QTime(9, 7, 42));

QString Developper(const QString& texte, const QDateTime& maintenant = s_mars)
{
    return DevelopperMacros({texte, texte.size()}, maintenant).texte;
}

qsizetype Caret(const QString& texte, qsizetype caret)
{
    return DevelopperMacros({texte, caret}, s_mars).caret;
}

} // namespace

TEST(MacrosTest, EachBecomesTheDateOrTheTimeInItsOwnForm)
{
    EXPECT_EQ(Developper(u"%d"_s), "05/03/2026");
    EXPECT_EQ(Developper(u"%t"_s), "2026-03-05");
    EXPECT_EQ(Developper(u"%D"_s), "05 mars 2026");
    EXPECT_EQ(Developper(u"%j"_s), "5");
    EXPECT_EQ(Developper(u"%m"_s), "3");
    EXPECT_EQ(Developper(u"%a"_s), "2026");
    EXPECT_EQ(Developper(u"%h"_s), "9:7");
}

TEST(MacrosTest, LongNumbersStayWhole)
{
    const QDateTime noel(QDate(1999, 12, 25), QTime(23, 59));
    EXPECT_EQ(Developper(u"%d"_s, noel), "25/12/1999");
    EXPECT_EQ(Developper(u"%t"_s, noel), "1999-12-25");
    EXPECT_EQ(Developper(u"%D"_s, noel), u"25 décembre 1999"_s);
    EXPECT_EQ(Developper(u"%j/%m/%a"_s, noel), "25/12/1999");
    EXPECT_EQ(Developper(u"%h"_s, noel), "23:59");
    EXPECT_EQ(Developper(u"%h"_s, QDateTime(QDate(2000, 1, 1), QTime(0, 0))), "0:0");
}

TEST(MacrosTest, TheMonthIsInTheLanguageOfTheRegionAndTheRestIsTheSameEverywhere)
{
    PlateformeDeTest::Courante().region.locale = QLocale(QLocale::German, QLocale::Germany);
    EXPECT_EQ(Developper(u"%D"_s), u"05 März 2026"_s);
    EXPECT_EQ(Caret(u"%D"_s, 2), 12);
    EXPECT_EQ(Developper(u"%d"_s), "05/03/2026");
    EXPECT_EQ(Developper(u"%t"_s), "2026-03-05");
}

TEST(MacrosTest, TheLocaleThatQtTakesForItsOwnIsOfNoMatter)
{
    const QLocale avant;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(Developper(u"%D"_s, QDateTime(QDate(2026, 8, 1), QTime(0, 0))), u"01 août 2026"_s);
    EXPECT_EQ(Developper(u"%d"_s), "05/03/2026");
    QLocale::setDefault(avant);
}

TEST(MacrosTest, CaseCounts)
{
    EXPECT_EQ(Developper(u"%D et %d"_s), "05 mars 2026 et 05/03/2026");
    for (const QString& autre : {u"%T"_s, u"%J"_s, u"%M"_s, u"%A"_s, u"%H"_s, u"%x"_s, u"%"_s, u"% d"_s, u"100 %"_s})
        EXPECT_EQ(Developper(autre), autre);
}

TEST(MacrosTest, AllOccurrencesAreReplacedAtOnce)
{
    EXPECT_EQ(Developper(u"du %d au %d, %j %j %j"_s), "du 05/03/2026 au 05/03/2026, 5 5 5");
}

TEST(MacrosTest, APercentSignBeforeAMacroStays)
{
    EXPECT_EQ(Developper(u"%%d"_s), "%05/03/2026");
    EXPECT_EQ(Developper(u"%%%h%"_s), "%%9:7%");
}

TEST(MacrosTest, TheCaretMovesByTheGrowthOfTheText)
{
    EXPECT_EQ(Caret(u"ab%dcd"_s, 4), 12);
    EXPECT_EQ(Caret(u"ab%tcd"_s, 4), 12);
    EXPECT_EQ(Caret(u"ab%Dcd"_s, 4), 14) << "right behind the date";
    EXPECT_EQ(Caret(u"ab%jcd"_s, 4), 3);
    EXPECT_EQ(Caret(u"ab%hcd"_s, 4), 5);
    EXPECT_EQ(Caret(u"ab%acd"_s, 4), 6);
    EXPECT_EQ(Caret(u"abcd"_s, 2), 2);
}

TEST(MacrosTest, TheCaretMovesOnceForEachMacroHoweverOftenItOccurs)
{
    EXPECT_EQ(Caret(u"%d-%d"_s, 5), 13);
    EXPECT_EQ(Caret(u"%d-%a"_s, 5), 15);
}

TEST(MacrosTest, TheCaretStaysInTheText)
{
    EXPECT_EQ(Caret(u"%j"_s, 0), 0);
    EXPECT_EQ(Caret(u"%j%j%j"_s, 6), 3) << "three digits, and the caret moved by one only";
    EXPECT_EQ(Caret(u"%d"_s, 0), 8);
}
