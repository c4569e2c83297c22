#include "ColonneOds.h"

#include "TexteUtf8.h"

#include <algorithm>

namespace {

constexpr int ChiffresAuPlus = 11;
constexpr int DecimalesAuPlus = 2;
constexpr qsizetype LargeurLaMoindre = 4;
constexpr qsizetype LargeurLaPlusGrande = 60;

constexpr QByteArrayView CelluleVide("<table:table-cell/>");
constexpr QByteArrayView DebutDeTexte("<table:table-cell office:value-type=\"string\">");
constexpr QByteArrayView DebutDeNombre("<table:table-cell office:value-type=\"float\" office:value=\"");
constexpr QByteArrayView FinDeValeur("\">");
constexpr QByteArrayView FinDeCellule("</table:table-cell>");

bool EstChiffre(QChar c)
{
    return c >= u'0' && c <= u'9';
}

qsizetype ChiffresDe(QStringView texte)
{
    return std::find_if_not(texte.begin(), texte.end(), EstChiffre) - texte.begin();
}

void AjouterTexte(QByteArray& sortie, QStringView valeur)
{
    if (valeur.isEmpty()) {
        sortie += CelluleVide;
        return;
    }
    sortie += DebutDeTexte;
    AjouterParagraphes(sortie, valeur);
    sortie += FinDeCellule;
}

int64_t OctetsDuTexte(QStringView valeur)
{
    return valeur.isEmpty() ? CelluleVide.size()
                            : DebutDeTexte.size() + OctetsDesParagraphes(valeur) + FinDeCellule.size();
}

void AjouterNombre(QByteArray& sortie, QStringView valeur)
{
    sortie += DebutDeNombre;
    const qsizetype debut = sortie.size();
    AjouterXml(sortie, valeur);
    std::replace(sortie.begin() + debut, sortie.end(), ',', '.');
    sortie += FinDeValeur;
    AjouterParagraphes(sortie, valeur);
    sortie += FinDeCellule;
}

} // namespace

std::optional<int> DecimalesDe(QStringView valeur)
{
    const bool negatif = valeur.startsWith(u'-');
    const QStringView absolu = valeur.sliced(negatif ? 1 : 0);
    const qsizetype entiers = ChiffresDe(absolu);
    if (entiers == 0 || (entiers > 1 && absolu[0] == u'0'))
        return std::nullopt;
    const QStringView reste = absolu.sliced(entiers);
    const bool aVirgule = reste.startsWith(u'.') || reste.startsWith(u',');
    const qsizetype decimales = aVirgule ? ChiffresDe(reste.sliced(1)) : 0;
    if (reste.size() != (aVirgule ? decimales + 1 : 0) || (aVirgule && decimales == 0) || decimales > DecimalesAuPlus ||
        entiers + decimales > ChiffresAuPlus)
        return std::nullopt;
    // A number has no negative zero.
    if (negatif && std::none_of(absolu.begin(), absolu.end(), [](QChar c) { return c >= u'1' && c <= u'9'; }))
        return std::nullopt;
    return static_cast<int>(decimales);
}

ColonneOds::ColonneOds(QStringView titre) : m_largeur(titre.size()) {}

void ColonneOds::Voir(QStringView valeur)
{
    m_octets += OctetsDuTexte(valeur);
    if (valeur.isEmpty())
        return;
    m_vide = false;
    m_largeur = std::max(m_largeur, valeur.size());
    if (!m_pareils)
        return;
    const auto decimales = DecimalesDe(valeur);
    m_pareils = decimales && (m_nombres == 0 || decimales == m_decimales);
    m_decimales = decimales;
    ++m_nombres;
    m_chiffres += valeur.size();
}

int ColonneOds::Largeur() const
{
    return static_cast<int>(std::clamp(m_largeur, LargeurLaMoindre, LargeurLaPlusGrande));
}

void ColonneOds::AjouterCellule(QByteArray& sortie, QStringView valeur) const
{
    if (EnNombres() && !valeur.isEmpty())
        AjouterNombre(sortie, valeur);
    else
        AjouterTexte(sortie, valeur);
}

int64_t ColonneOds::Octets() const
{
    if (!EnNombres())
        return m_octets;
    return m_octets + m_nombres * (DebutDeNombre.size() + FinDeValeur.size() - DebutDeTexte.size()) + m_chiffres;
}
