#include "base/Dates.h"

#include "platform/Plateforme.h"

using namespace Qt::StringLiterals;

QString DateCourte(QDate date)
{
    const QLocale region = plateforme().region->DesDates();
    QString format = region.dateFormat(QLocale::ShortFormat);
    if (!format.contains(u"yyyy"_s))
        format.replace(u"yy"_s, u"yyyy"_s);
    return region.toString(date, format);
}

QString DateEnLettres(QDate date)
{
    return plateforme().region->DesDates().toString(date, u"dd MMMM yyyy"_s);
}
