#include "output/MiseEnPages.h"

#include "catalogue/table/MyLV.h"
#include "output/CouperTexte.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double BasDePage = 270;     // mm on paper
constexpr double RemonteeDeSuite = 2; // mm on the sheet, of a row that goes on

} // namespace

uint32_t PagesComposees::Police(const PoliceDePage& police)
{
    const auto trouvee = std::ranges::find(polices, police);
    if (trouvee == polices.end()) {
        polices.push_back(police);
        return static_cast<uint32_t>(polices.size() - 1);
    }
    return static_cast<uint32_t>(trouvee - polices.begin());
}

MiseEnPages::MiseEnPages(const MyLV& table, Feuille feuille, const QString& nomDePolice, bool selection,
                         MesureDeTexte& mesure)
    : m_table(table), m_feuille(std::move(feuille)), m_police{nomDePolice, m_feuille.policeDeLV1.taille, false},
      m_selection(selection), m_mesure(mesure), m_y(m_feuille.hautDeLV1), m_lignes(m_feuille.colonnes.size())
{
    CommencerPage();
    if (m_feuille.iconeMontree) {
        const QRectF& icone = m_feuille.Icone;
        const double x = m_feuille.EchelleX(), y = m_feuille.EchelleY();
        Pages.pages.back().image = {icone.x() * x, icone.y() * y, icone.width() * x, icone.height() * y};
    }
    ImprimerTitres();
    m_lignesFaites = 0; // titles do not go on, however long they are
}

void MiseEnPages::CommencerPage()
{
    Pages.pages.emplace_back();
    ImprimerLibelle(m_feuille.NomCat);
    m_feuille.Page.texte = QString::number(Pages.pages.size());
    ImprimerLibelle(m_feuille.Page);
}

/// Labels grow with the paper; what stands in the cells has the size of the sheet, which is small. It is meant.
void MiseEnPages::ImprimerLibelle(const Feuille::Libelle& libelle)
{
    PoliceDePage police = libelle.police;
    police.taille *= m_feuille.EchelleY();
    Pages.pages.back().EcrireTexte(libelle.gauche * m_feuille.EchelleX(), libelle.haut * m_feuille.EchelleY(),
                                   libelle.texte, Pages.Police(police));
}

bool MiseEnPages::Avancer(int rangees)
{
    for (; rangees > 0 && m_entree <= m_table.ListItems.Count(); --rangees) {
        if (!m_selection || m_table.EstSelectionnee(m_entree))
            ImprimerRangee();
        else
            ++m_entree;
    }
    return m_entree <= m_table.ListItems.Count();
}

/// On the first page alone.
void MiseEnPages::ImprimerTitres()
{
    PoliceDePage police = m_feuille.policeDeLV1;
    police.gras = true;
    double x = m_feuille.gaucheDeLV1;
    for (const Feuille::Colonne& colonne : m_feuille.colonnes) {
        if (colonne.largeur <= 0)
            continue;
        m_hauteur = ImprimerCellule(Couper(colonne.titre, colonne.largeur, police), x, m_hauteur).hauteur;
        x += colonne.largeur;
    }
    ImprimerBoites();
}

void MiseEnPages::ImprimerBoites()
{
    double x = m_feuille.gaucheDeLV1 * m_feuille.EchelleX();
    for (const Feuille::Colonne& colonne : m_feuille.colonnes) {
        if (colonne.largeur <= 0)
            continue;
        const double largeur = colonne.largeur * m_feuille.EchelleX();
        Pages.pages.back().boites.push_back({static_cast<float>(x), static_cast<float>(m_y * m_feuille.EchelleY()),
                                             static_cast<float>(largeur), static_cast<float>(m_hauteur)});
        x += largeur;
    }
}

void MiseEnPages::ImprimerRangee()
{
    m_y += m_hauteur / m_feuille.EchelleY();
    m_hauteur = 0;
    int deborde = -1;
    double x = m_feuille.gaucheDeLV1;
    const ListItemLu entree = m_table.ListItems(m_entree);
    for (size_t j = 0; j < m_feuille.colonnes.size(); ++j) {
        const double largeur = m_feuille.colonnes[j].largeur;
        if (largeur <= 0)
            continue;
        if (m_suites.empty())
            m_lignes[j] = Couper(entree.Valeur(static_cast<int>(j) + 1), largeur, m_police);
        const Cellule cellule = ImprimerCellule(m_lignes[j], x, m_hauteur);
        m_hauteur = cellule.hauteur;
        if (cellule.deborde >= 0)
            deborde = cellule.deborde;
        x += largeur;
    }
    ImprimerBoites();
    if (deborde >= 0) {
        PoursuivreRangee(deborde);
        return;
    }
    ++m_entree;
    m_premiere = 0;
    m_suites.clear();
    m_lignesFaites = 0;
}

/// The lines of this page are counted from the one that came first on it, so that on a third page some come again, and
/// below the height that the row had here. It is meant; where the same pages would come for ever, what follows comes.
void MiseEnPages::PoursuivreRangee(int deborde)
{
    const Suite suite{deborde + 1, m_hauteur};
    const bool deja = std::ranges::find(m_suites, suite) != m_suites.end();
    m_premiere = deja ? m_lignesFaites : suite.premiere;
    m_suites.push_back(suite);
    CommencerPage();
    m_y = m_feuille.hautDeLV1 - RemonteeDeSuite;
}

MiseEnPages::Lignes MiseEnPages::Couper(const QString& texte, double largeur, const PoliceDePage& police)
{
    m_mesure.Choisir(police);
    return {CouperTexte(texte, m_feuille.EchelleX() * largeur, m_mesure), Pages.Police(police), m_mesure.Hauteur()};
}

MiseEnPages::Cellule MiseEnPages::ImprimerCellule(const Lignes& coupees, double x, double hauteur)
{
    const QStringList& lignes = coupees.textes;
    const double hauteurDeLigne = coupees.hauteur;
    double yy = m_feuille.EchelleY() * m_y;
    int imprimees = 0;
    int deborde = -1;
    for (qsizetype k = m_premiere; k < lignes.size() && deborde < 0; ++k) {
        Pages.pages.back().EcrireTexte(m_feuille.EchelleX() * x, yy, lignes[k], coupees.police);
        yy += hauteurDeLigne;
        ++imprimees;
        if (yy > BasDePage) {
            deborde = static_cast<int>(k) - m_premiere;
            m_lignesFaites = std::max(m_lignesFaites, static_cast<int>(k) + 1);
        }
    }
    return {std::max(hauteur, hauteurDeLigne * imprimees), deborde};
}
