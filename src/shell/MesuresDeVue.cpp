#include "shell/MesuresDeVue.h"

#include "shell/DelegueEntrees.h"
#include "shell/ModeleTable.h"
#include "shell/VueTable.h"

#include <array>

namespace {

/// Finds the widest of many texts without laying out each: what a sum of character widths puts far below the widest
/// so far is not measured. Kerning moves a text's width by less than that.
class PlusLarge
{
public:
    explicit PlusLarge(const QFontMetrics& mesures) : m_mesures(mesures)
    {
        for (size_t i = 0; i < m_signes.size(); ++i)
            m_signes[i] = mesures.horizontalAdvance(QChar(static_cast<char16_t>(i)));
    }

    void Voir(const QString& texte)
    {
        if (Estimation(texte) * ParCrenage > m_largeur)
            m_largeur = qMax(m_largeur, m_mesures.horizontalAdvance(texte));
    }
    int Largeur() const { return m_largeur; }

private:
    static constexpr double ParCrenage = 1.25;

    double Estimation(QStringView texte) const
    {
        double somme = 0;
        for (const QChar signe : texte) {
            const size_t code = signe.unicode();
            somme += code < m_signes.size() ? m_signes[code] : m_mesures.maxWidth();
        }
        return somme;
    }

    const QFontMetrics& m_mesures;
    std::array<int, 256> m_signes{};
    int m_largeur = 0;
};

} // namespace

MesuresDeVue::MesuresDeVue(const VueTable& vue, const QWidget& fenetre)
    : m_vue(vue), m_cellules(vue.fontMetrics()), m_titres(fenetre.fontMetrics())
{
}

float MesuresDeVue::LargeurDuContenu(int colonne) const
{
    const MyLV& table = m_vue.Modele().Table();
    PlusLarge plusLarge(m_cellules);
    for (int ligne = 1; ligne <= table.ListItems.Count(); ++ligne)
        plusLarge.Voir(table.ListItems(ligne).Valeur(colonne));
    // A pixel more than the text takes: a width is rounded on its way to the screen.
    const int cellules = plusLarge.Largeur() + DelegueEntrees::AutourDuTexte(colonne) + 1;
    const int titre = m_cellules.horizontalAdvance(table.ColumnHeaders(colonne).Text());
    return static_cast<float>(m_vue.UnitesDe(qMax(cellules, titre)));
}

float MesuresDeVue::LargeurDuTitre(const QString& titre) const
{
    return static_cast<float>(m_vue.UnitesDe(m_titres.horizontalAdvance(titre)));
}
