#include "output/EchapperHtml.h"

#include "catalogue/texte/PlumeOctets.h"
#include "platform/PageDeCode.h"

#include <array>
#include <utility>

namespace {

// No capital has one, and neither have "û" and "ü". It is meant.
constexpr std::pair<char16_t, const char*> s_entites[] = {
    {u'à', "&agrave;"}, {u'â', "&acirc;"}, {u'ç', "&ccedil;"}, {u'é', "&eacute;"},
    {u'è', "&egrave;"}, {u'ê', "&ecirc;"}, {u'ë', "&euml;"},   {u'î', "&icirc;"},
    {u'ï', "&iuml;"},   {u'ô', "&ocirc;"}, {u'ù', "&ugrave;"}, {u'œ', "oe"},
};

/// By the byte of the character; null where the byte stands for itself.
const std::array<const char*, 256>& EntitesDesOctets()
{
    static const std::array<const char*, 256> table = [] {
        std::array<const char*, 256> t{};
        for (const auto& [caractere, entite] : s_entites)
            t[static_cast<size_t>(PageDeCode::OctetDe(caractere))] = entite;
        return t;
    }();
    return table;
}

} // namespace

QString EchapperHtml(QString& texte)
{
    for (const auto& [caractere, entite] : s_entites)
        texte.replace(QChar(caractere), QLatin1StringView(entite));
    return texte;
}

void EcrireEchappe(PlumeOctets& plume, QByteArrayView octets)
{
    const auto& entites = EntitesDesOctets();
    const char* debut = octets.begin();
    for (const char* ici = debut; ici != octets.end(); ++ici) {
        const char* entite = entites[static_cast<uchar>(*ici)];
        if (!entite)
            continue;
        plume.Octets(debut, static_cast<size_t>(ici - debut));
        plume.Ascii(entite);
        debut = ici + 1;
    }
    plume.Octets(debut, static_cast<size_t>(octets.end() - debut));
}
