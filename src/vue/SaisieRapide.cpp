#include "vue/SaisieRapide.h"

#include "catalogue/table/MyLV.h"

#include <QAbstractItemModel>

#include <algorithm>

namespace {

/// Tells most entries apart by their first byte, without making a text of them. Both encodings of cells have ASCII in
/// their lower half.
bool PeutCommencerPar(const stockage::Cellule& cellule, QChar minuscule)
{
    if (!cellule.existe || cellule.taille == 0)
        return false;
    const auto octet = static_cast<unsigned char>(*cellule.debut);
    // The Kelvin sign and the like fold to ASCII letters, so a byte above ASCII is looked at closer.
    if (octet >= 0x80 || minuscule.unicode() >= 0x80)
        return true;
    return QChar(octet).toLower() == minuscule;
}

} // namespace

int ChercherDebut(const MyLV& table, const QString& debut, int apres)
{
    const int nombre = table.ListItems.Count();
    if (debut.isEmpty() || nombre == 0 || table.ColumnHeaders.Count() == 0)
        return 0;
    const QChar initiale = debut.front().toLower();
    for (int pas = 0; pas < nombre; ++pas) {
        const int ligne = (apres + pas) % nombre + 1;
        const stockage::EntreeStockee entree = table.StockageDe(ligne);
        const stockage::Cellule cellule = entree.Champ(0);
        if (PeutCommencerPar(cellule, initiale) && cellule.Texte().startsWith(debut, Qt::CaseInsensitive))
            return ligne;
    }
    return 0;
}

int ChercherDebut(const QAbstractItemModel& liste, const QString& debut, int apres)
{
    const int nombre = liste.rowCount();
    if (debut.isEmpty() || nombre == 0 || liste.columnCount() == 0)
        return 0;
    for (int pas = 0; pas < nombre; ++pas) {
        const int ligne = (apres + pas) % nombre + 1;
        if (liste.index(ligne - 1, 0).data().toString().startsWith(debut, Qt::CaseInsensitive))
            return ligne;
    }
    return 0;
}

int SaisieRapide::Taper(const Recherche& chercher, const QString& lettres, int courante, Instant instant,
                        std::chrono::milliseconds delai)
{
    const bool suite = EnCours(instant, delai);
    m_texte = suite ? m_texte + lettres : lettres;
    m_derniere = instant;
    const bool repetee = m_texte.size() > 1 && std::ranges::all_of(m_texte, [&](QChar c) { return c == m_texte[0]; });
    // A text that grows may still fit the entry it has led to.
    if (suite && courante > 0) {
        if (const int ligne = chercher(m_texte, courante - 1); ligne > 0)
            return ligne;
    }
    if (repetee)
        return chercher(m_texte.left(1), courante);
    return suite ? 0 : chercher(m_texte, courante);
}

bool SaisieRapide::EnCours(Instant instant, std::chrono::milliseconds delai) const
{
    return !m_texte.isEmpty() && instant - m_derniere <= delai;
}
