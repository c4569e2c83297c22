#include "cli/ListeDeNombres.h"

#include <QStringList>

#include <algorithm>

std::optional<int> LireNombre(const QString& texte)
{
    const bool chiffres = std::all_of(texte.begin(), texte.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    bool lu = false;
    const int nombre = texte.toInt(&lu);
    return chiffres && lu ? std::optional(nombre) : std::nullopt;
}

std::optional<ListeDeNombres> ListeDeNombres::Lire(const QString& texte)
{
    ListeDeNombres liste;
    const QStringList parties = texte.split(u',');
    for (const QString& partie : parties) {
        const qsizetype tiret = partie.indexOf(u'-');
        const std::optional<int> premier = LireNombre(partie.left(tiret < 0 ? partie.size() : tiret));
        const std::optional<int> dernier = tiret < 0 ? premier : LireNombre(partie.mid(tiret + 1));
        if (!premier || !dernier || *premier > *dernier)
            return std::nullopt;
        liste.m_plages.emplace_back(*premier, *dernier);
    }
    return liste;
}

std::optional<std::vector<bool>> ListeDeNombres::Parmi(int nombre) const
{
    std::vector<bool> nommes(static_cast<size_t>(nombre));
    for (const auto& [premier, dernier] : m_plages) {
        if (premier < 1 || dernier > nombre)
            return std::nullopt;
        std::fill(nommes.begin() + premier - 1, nommes.begin() + dernier, true);
    }
    return nommes;
}
