// Where the user lives, as far as dates go.
#pragma once

#include <QByteArray>
#include <QLocale>

class Region
{
public:
    virtual ~Region() = default;
    /// The locale that dates are written in.
    virtual QLocale DesDates() const = 0;
};

/// What the desktop or the shell says: LC_ALL, or else LC_TIME, or else LANG. Where that is nothing, C, POSIX or
/// unknown, it is France: the program speaks French.
class RegionDuSysteme : public Region
{
public:
    QLocale DesDates() const override;
    /// The locale of a name as those variables hold it, such as "de_DE.UTF-8@euro".
    static QLocale Nommee(const QByteArray& nom);
};
