#include "output/PlumeExport.h"

#include "platform/PageDeCode.h"

#include <algorithm>
#include <string_view>

using stockage::Cellule;
using stockage::Codage;

namespace {

void AjouterPourUnePage(QByteArray& sortie, const QString& texte)
{
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const QChar unite = texte[i];
        if (const int octet = PageDeCode::OctetDe(unite.unicode()); octet >= 0) {
            sortie += static_cast<char>(octet);
            continue;
        }
        char32_t caractere = unite.isSurrogate() ? char16_t(QChar::ReplacementCharacter) : unite.unicode();
        if (unite.isHighSurrogate() && i + 1 < texte.size() && texte[i + 1].isLowSurrogate())
            caractere = QChar::surrogateToUcs4(unite, texte[++i]);
        sortie += "&#" + QByteArray::number(static_cast<uint>(caractere)) + ';';
    }
}

} // namespace

void PlumeExport::Blancs(qsizetype nombre)
{
    static constexpr std::string_view blancs = "                                                                ";
    for (auto reste = static_cast<size_t>(std::max<qsizetype>(nombre, 0)); reste > 0;) {
        const size_t morceau = std::min(reste, blancs.size());
        Octets(blancs.data(), morceau);
        reste -= morceau;
    }
}

QByteArrayView PlumeExport::EnOctets(const QString& texte)
{
    m_octets.resize(0);
    switch (m_jeu) {
    case JeuExport::HuitBits:
        m_octets = PageDeCode::VersOctets(texte);
        m_manque = m_manque || !PageDeCode::EstRepresentable(texte);
        break;
    case JeuExport::Page:
        AjouterPourUnePage(m_octets, texte);
        break;
    case JeuExport::Utf8:
        m_octets = texte.toUtf8();
        break;
    }
    return m_octets;
}

QByteArrayView PlumeExport::EnOctets(const Cellule& cellule)
{
    const bool dansLeJeu = (cellule.codage == Codage::Utf8) == (m_jeu == JeuExport::Utf8);
    if (!cellule.existe || dansLeJeu || cellule.EstAscii())
        return cellule.octets();
    if (m_jeu != JeuExport::Utf8)
        return EnOctets(cellule.Texte());
    m_octets.resize(0);
    cellule.AjouterEnUtf8(m_octets);
    return m_octets;
}
