#include "entries/TextesPreenregistres.h"

#include "base/SurUneLigne.h"
#include "entries/SaisieDEntree.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString s_entete = u"[Zelvane-TxtPRE]"_s;
const QString s_finDeLigne = u"\r\n"_s;

} // namespace

QString EntetePreenregistres()
{
    return s_entete + s_finDeLigne;
}

QString LignePreenregistree(const TextesDeColonne& colonne)
{
    return colonne.titre + u'\t' + colonne.liste + s_finDeLigne;
}

bool SontVides(const ListesDeColonnes& colonnes)
{
    return std::ranges::all_of(colonnes, [](const TextesDeColonne& c) { return c.liste.isEmpty(); });
}

QStringList TitresDe(const ListesDeColonnes& colonnes)
{
    QStringList titres;
    titres.reserve(static_cast<qsizetype>(colonnes.size()));
    for (const TextesDeColonne& colonne : colonnes)
        titres.append(colonne.titre);
    return titres;
}

std::optional<ListesDeColonnes> LirePreenregistres(const QString& texte)
{
    const QList<QStringView> lignes = QStringView(texte).split(s_finDeLigne);
    if (lignes.first() != s_entete)
        return std::nullopt;
    ListesDeColonnes colonnes;
    colonnes.reserve(static_cast<size_t>(lignes.size()));
    for (qsizetype i = 1; i + 1 < lignes.size(); ++i) {
        const QStringView ligne = lignes[i];
        const qsizetype fin = ligne.indexOf(u'\t');
        if (fin < 0) {
            colonnes.push_back({ligne.toString(), QString()});
            continue;
        }
        const QStringView suite = ligne.sliced(fin + 1);
        const qsizetype apres = suite.indexOf(u'\t');
        colonnes.push_back(
            {ligne.first(fin).toString(), SurUneLigne(suite.first(apres < 0 ? suite.size() : apres).toString())});
    }
    return colonnes;
}

void CollerPreenregistres(ListesDeColonnes& colonnes, const ListesDeColonnes& sources, const Correspondance& rangs)
{
    if (rangs.Rangs() == 0 || !DesigneUneSource(rangs.departs.first()))
        return;
    const size_t total = std::min(colonnes.size(), sources.size());
    for (size_t i = 0; i < total; ++i) {
        const auto source = static_cast<size_t>(rangs.Source(static_cast<qsizetype>(i) + 1));
        if (source >= 1 && source <= sources.size())
            colonnes[i].liste = AvecTexte(colonnes[i].liste, sources[source - 1].liste);
    }
}

QStringList SansTextes(const QStringList& textes, const std::vector<int>& positions)
{
    QStringList restants;
    auto retiree = positions.begin();
    for (int i = 0; i < textes.size(); ++i) {
        if (retiree != positions.end() && *retiree == i)
            ++retiree;
        else
            restants.append(textes[i]);
    }
    return restants;
}
