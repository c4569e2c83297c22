#include "vue/PlusLarge.h"

namespace {

constexpr double ParCrenage = 1.25;

} // namespace

PlusLarge::PlusLarge(const QFontMetrics& mesures, int colonnes)
    : m_mesures(mesures), m_autreSigne(mesures.maxWidth()), m_largeurs(static_cast<size_t>(colonnes))
{
    for (size_t i = 0; i < m_signes.size(); ++i)
        m_signes[i] = mesures.horizontalAdvance(QChar(static_cast<char16_t>(i)));
}

void PlusLarge::Voir(int colonne, const QString& texte)
{
    int& largeur = m_largeurs[static_cast<size_t>(colonne - 1)];
    if (Estimation(texte) * ParCrenage > largeur)
        largeur = qMax(largeur, m_mesures.horizontalAdvance(texte));
}

double PlusLarge::Estimation(QStringView texte) const
{
    double somme = 0;
    for (const QChar signe : texte) {
        const size_t code = signe.unicode();
        somme += code < m_signes.size() ? m_signes[code] : m_autreSigne;
    }
    return somme;
}
