#include "platform/Region.h"

QLocale RegionDuSysteme::DesDates() const
{
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        // An empty variable counts as one that is not set.
        const QByteArray nom = qgetenv(variable);
        if (!nom.isEmpty())
            return Nommee(nom);
    }
    return Nommee(QByteArray());
}

QLocale RegionDuSysteme::Nommee(const QByteArray& nom)
{
    const qsizetype fin = nom.indexOf('.') < 0 ? nom.indexOf('@') : nom.indexOf('.');
    // C, POSIX, nothing and what nobody knows are all the C locale here.
    const QLocale nommee(QString::fromLatin1(fin < 0 ? nom : nom.first(fin)));
    return nommee.language() == QLocale::C ? QLocale(QLocale::French, QLocale::France) : nommee;
}
