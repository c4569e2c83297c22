#include "entries/Macros.h"

#include "base/Dates.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Macro
{
    QString signe;
    QString valeur;
};

/// In the order in which they are looked for.
std::array<Macro, 7> Macros(const QDateTime& maintenant)
{
    const QDate date = maintenant.date();
    const QTime heure = maintenant.time();
    return {{
        {u"%d"_s, date.toString(u"dd/MM/yyyy"_s)},
        {u"%t"_s, date.toString(u"yyyy-MM-dd"_s)},
        {u"%D"_s, DateEnLettres(date)},
        {u"%j"_s, QString::number(date.day())},
        {u"%m"_s, QString::number(date.month())},
        {u"%a"_s, QString::number(date.year())},
        // Neither number is padded: 9:7 is meant.
        {u"%h"_s, u"%1:%2"_s.arg(heure.hour()).arg(heure.minute())},
    }};
}

} // namespace

TexteSaisi DevelopperMacros(TexteSaisi saisi, const QDateTime& maintenant)
{
    // Most keys leave a text without any macro.
    if (!saisi.texte.contains(u'%'))
        return saisi;
    for (const Macro& macro : Macros(maintenant)) {
        if (!saisi.texte.contains(macro.signe))
            continue;
        saisi.texte.replace(macro.signe, macro.valeur);
        saisi.caret += macro.valeur.size() - macro.signe.size();
    }
    saisi.caret = std::clamp<qsizetype>(saisi.caret, 0, saisi.texte.size());
    return saisi;
}
