#include "catalogue/table/TriPassager.h"

#include "catalogue/table/Annoncer.h"
#include "catalogue/table/MyLV.h"

#include <utility>

namespace {

/// One sort, where each setter of a sorted table would make one.
void Trier(MyLV& table, int cle, int sens)
{
    table.SetSorted(false);
    table.SetSortKey(cle);
    table.SetSortOrder(sens);
    table.SetSorted(true);
}

} // namespace

TriPassager::TriPassager(MyLV& table, int colonne)
    : m_table(table), m_vie(table.Vie()), m_colonne(colonne), m_ancienneCle(table.SortKey()),
      m_ancienSens(table.SortOrder()), m_ancienOrdre(table.m_ordre)
{
    Trier(table, colonne, 0);
    if (m_ancienOrdre == table.m_ordre)
        m_ancienOrdre = {};
    m_generation = table.Generation();
    table.m_trisPassagers.insert(table.m_trisPassagers.begin(), this);
}

TriPassager::~TriPassager()
{
    if (m_vie.expired())
        return;
    std::erase(m_table.m_trisPassagers, this);
    if (AQuelquUnDAutre())
        return;
    if (m_ancienneCle < 0) {
        m_table.SetSorted(false);
        m_table.SetSortKey(0);
        return;
    }
    // What goes back to its place first is sorted no more: it is only looked through.
    if (EstIntacte() && !m_ancienOrdre.empty()) {
        m_table.m_ordre = std::move(m_ancienOrdre);
        m_table.OrdreChange();
    }
    Trier(m_table, m_ancienneCle, m_ancienSens);
}

bool TriPassager::SuivreColonnes(const std::function<int(int)>& nouveau)
{
    m_colonne = m_colonne < 0 ? -1 : nouveau(m_colonne);
    m_ancienneCle = m_ancienneCle < 0 ? -1 : nouveau(m_ancienneCle);
    return m_ancienneCle >= 0;
}

bool TriPassager::EstIntacte() const
{
    return !m_vie.expired() && m_table.Generation() == m_generation;
}

void TriPassager::Annoncer(int position) const
{
    stockage::Annoncer(static_cast<size_t>(position) - 1, m_table.m_ordre, m_table.m_refs, m_table.m_longueurs,
                       m_table.m_drapeaux, m_table.m_source.octets.get());
}

bool TriPassager::AQuelquUnDAutre() const
{
    if (m_colonne < 0)
        return m_table.Sorted();
    return !m_table.Sorted() || m_table.SortKey() != m_colonne || m_table.SortOrder() != 0;
}
