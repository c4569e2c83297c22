#include "entries/Correspondance.h"

#include "base/SurUneLigne.h"
#include "extensions/langue/modLang.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The titles with their numbers, filled up with `absente` to `rangs` cells.
QStringList Numeroter(const QStringList& titres, qsizetype rangs, const QString& absente)
{
    QStringList cellules;
    cellules.reserve(rangs);
    for (qsizetype i = 0; i < rangs; ++i)
        cellules.append(i < titres.size() ? u'(' + QString::number(i + 1) + u')' + SurUneLigne(titres[i]) : absente);
    return cellules;
}

} // namespace

qsizetype Correspondance::Source(qsizetype rang) const
{
    return rang >= 1 && rang <= Rangs() ? NumeroDeSource(departs[rang - 1]) : 0;
}

Correspondance Correspondre(const QStringList& sources, const QStringList& cibles)
{
    const qsizetype rangs = std::max(sources.size(), cibles.size());
    return {Numeroter(sources, rangs, LangMsg(u"msg74"_s, u"<vide>"_s).texte),
            Numeroter(cibles, rangs, LangMsg(u"msg75"_s, u"<perdu>"_s).texte)};
}

bool DesigneUneSource(QStringView cellule)
{
    return cellule.contains(u')');
}

qsizetype NumeroDeSource(QStringView cellule)
{
    const qsizetype fin = cellule.indexOf(u')');
    if (fin < 1)
        return 0;
    bool juste = false;
    const qlonglong numero = cellule.sliced(1, fin - 1).toLongLong(&juste);
    return juste && numero > 0 ? static_cast<qsizetype>(numero) : 0;
}
