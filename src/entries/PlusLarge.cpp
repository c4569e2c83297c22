#include "entries/PlusLarge.h"

namespace {

constexpr double ParCrenage = 1.25;

} // namespace

PlusLarge::PlusLarge(const QFontMetrics& mesures) : m_mesures(mesures)
{
    for (size_t i = 0; i < m_signes.size(); ++i)
        m_signes[i] = mesures.horizontalAdvance(QChar(static_cast<char16_t>(i)));
}

void PlusLarge::Voir(const QString& texte)
{
    if (Estimation(texte) * ParCrenage > m_largeur)
        m_largeur = qMax(m_largeur, m_mesures.horizontalAdvance(texte));
}

double PlusLarge::Estimation(QStringView texte) const
{
    double somme = 0;
    for (const QChar signe : texte) {
        const size_t code = signe.unicode();
        somme += code < m_signes.size() ? m_signes[code] : m_mesures.maxWidth();
    }
    return somme;
}
