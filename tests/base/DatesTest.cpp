#include "base/Dates.h"

#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QDate s_septembre(2005, 9, 13);
const QDate s_mars(2026, 3, 5);

void Habiter(const char* region)
{
    PlateformeDeTest::Courante().region.locale = QLocale(QString::fromLatin1(region));
}

} // namespace

TEST(Dates, TheShortDateIsTheRegionsWithAYearOfFourDigits)
{
    EXPECT_EQ(DateCourte(s_septembre), "13/09/2005");
    for (const auto& [region, date] :
         {std::pair("de_DE", "05.03.2026"), std::pair("en_US", "3/5/2026"), std::pair("en_GB", "05/03/2026"),
          std::pair("sv_SE", "2026-03-05"), std::pair("fr_FR", "05/03/2026")}) {
        Habiter(region);
        EXPECT_EQ(DateCourte(s_mars), date) << region;
    }
}

TEST(Dates, ADateInLettersHasTheMonthOfTheRegion)
{
    EXPECT_EQ(DateEnLettres(s_mars), "05 mars 2026");
    Habiter("en_US");
    EXPECT_EQ(DateEnLettres(s_septembre), "13 September 2005");
    Habiter("es_ES");
    EXPECT_EQ(DateEnLettres(s_mars), "05 marzo 2026");
}
