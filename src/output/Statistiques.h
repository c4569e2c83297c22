// What is lent of a category, to whom, and since when: the report of the statistics window.
#pragma once

#include <QString>

class QrtClass;

/// The report; its lines end with CR LF. A loan is a value of the loan column: the borrower, " - " and a date. Without
/// a date the loan counts, and says nothing of the oldest and the most recent one. In a category with a dependant
/// column entries with the same value there are one loan of a borrower.
///
/// There is room for 101 borrowers, in the order in which they appear; a last line tells how many more there are
/// ("msgEmprunteurs"). Their loans are in the total.
QString RapportDesPrets(const QrtClass& doc);

/// A date of the form day/month/year turned round, so that such texts sort as dates: "01/02/2026" becomes "20260201".
/// Of another form its parts count as they come; missing ones are empty.
QString CmpDate(const QString& date);
