// Dates as the user's region writes them.
#pragma once

#include <QDate>
#include <QString>

/// The region's short date with a year of four digits: "13/09/2005" in France, "9/13/2005" in the United States.
QString DateCourte(QDate date);
/// Day, month in letters and year, "05 mars 2026": the order is the same everywhere, the month is in the region's
/// language.
QString DateEnLettres(QDate date);
