// Order of the entries.
#include "catalogue/table/Annoncer.h"
#include "catalogue/table/Collation.h"
#include "catalogue/table/MyLV.h"
#include "catalogue/table/TriPassager.h"

#include <algorithm>

namespace {

using Rangs = std::vector<uint32_t>::const_iterator;

/// As std::upper_bound, quick where the place is near the first one: of many entries each is placed behind the last.
template<class Avant> Rangs PremiereApres(Rangs premiere, Rangs fin, uint32_t rang, Avant avant)
{
    std::ptrdiff_t pas = 1;
    while (fin - premiere >= pas && !avant(rang, premiere[pas - 1])) {
        premiere += pas;
        pas *= 2;
    }
    return std::upper_bound(premiere, premiere + std::min(pas, fin - premiere), rang, avant);
}

} // namespace

int MyLV::Position(uint32_t rang) const
{
    if (!m_positionsValides) {
        m_positions.resize(m_refs.size());
        for (uint32_t position = 0; position < m_ordre.size(); ++position)
            m_positions[m_ordre[position]] = position;
        m_positionsValides = true;
    }
    return static_cast<int>(m_positions[rang]) + 1;
}

void MyLV::OrdreChange()
{
    m_positionsValides = false;
    m_cles.OrdreChange();
    Change(&ChangementsTable::lignes);
}

void MyLV::SetSorted(bool trie)
{
    m_trie = trie;
    ++m_generation;
    if (trie)
        Ordonner();
}

bool MyLV::SetSortKey(int cle)
{
    if (cle < 0)
        return false;
    m_cleDeTri = cle;
    ++m_generation;
    if (m_trie)
        Ordonner();
    return true;
}

bool MyLV::SetSortOrder(int sens)
{
    if (sens != 0 && sens != 1)
        return false;
    m_sensDeTri = sens;
    ++m_generation;
    if (m_trie)
        Ordonner();
    return true;
}

void MyLV::SuivreColonnes(const std::function<int(int)>& nouveau)
{
    const int cle = nouveau(m_cleDeTri);
    m_cleDeTri = std::max(cle, 0);
    if (cle < 0) {
        m_trie = false;
        m_sensDeTri = 0;
    }
    // The marker speaks of the sort that the user asked for: of those that pass the first one made knows it.
    bool perdu = cle < 0;
    for (TriPassager* tri : m_trisPassagers)
        perdu = !tri->SuivreColonnes(nouveau);
    for (int i = 1; perdu && i <= ColumnHeaders.Count(); ++i)
        ColumnHeaders(i).SetIcon(QString());
    ++m_generation;
}

bool MyLV::OrdrePossible() const
{
    return m_cleDeTri < ColumnHeaders.Count() && m_ordre.size() > 1;
}

void MyLV::Ordonner()
{
    m_aPlacer.clear();
    if (!OrdrePossible())
        return;

    // Files are mostly stored in their order: looking costs less than sorting.
    Collation& collation = Collation::Francaise();
    const int sens = m_sensDeTri == 0 ? 1 : -1;
    const char* const octets = m_source.octets.get();
    stockage::Cellule precedente = Cellule(m_ordre[0], m_cleDeTri);
    size_t i = 1;
    for (; i < m_ordre.size(); ++i) {
        stockage::Annoncer(i, m_ordre, m_refs, m_longueurs, m_drapeaux, octets);
        const stockage::Cellule cellule = Cellule(m_ordre[i], m_cleDeTri);
        if (collation.Comparer(precedente, cellule) * sens > 0)
            break;
        precedente = cellule;
    }
    if (i == m_ordre.size())
        return;

    ClesDeTri cles(m_ordre.size());
    for (size_t position = 0; position < m_ordre.size(); ++position) {
        stockage::Annoncer(position, m_ordre, m_refs, m_longueurs, m_drapeaux, octets);
        cles.Ajouter(Cellule(m_ordre[position], m_cleDeTri));
    }
    std::vector<uint32_t> ordre = cles.Ordre(m_sensDeTri == 1);
    for (uint32_t& place : ordre)
        place = m_ordre[place];
    m_ordre = std::move(ordre);
    OrdreChange();
}

void MyLV::PlacerAjouts()
{
    std::vector<uint32_t> aPlacer = std::exchange(m_aPlacer, {});
    if (aPlacer.empty() || !m_trie || !OrdrePossible())
        return;

    // The entries that stood keep their order, whatever was written into them since: only the new ones move.
    std::vector<bool> nouvelles(m_refs.size());
    for (const uint32_t rang : aPlacer)
        nouvelles[rang] = true;
    std::vector<uint32_t> anciennes;
    anciennes.reserve(m_ordre.size());
    std::copy_if(m_ordre.begin(), m_ordre.end(), std::back_inserter(anciennes),
                 [&](uint32_t rang) { return !nouvelles[rang]; });

    ClesDeTri cles(aPlacer.size());
    for (const uint32_t rang : aPlacer)
        cles.Ajouter(Cellule(rang, m_cleDeTri));

    Collation& collation = Collation::Francaise();
    const int sens = m_sensDeTri == 0 ? 1 : -1;
    const auto avant = [&](uint32_t a, uint32_t b) {
        return collation.Comparer(Cellule(a, m_cleDeTri), Cellule(b, m_cleDeTri)) * sens < 0;
    };
    std::vector<uint32_t> ordre;
    ordre.reserve(m_ordre.size());
    auto ancienne = anciennes.cbegin();
    for (const uint32_t place : cles.Ordre(m_sensDeTri == 1)) {
        const uint32_t rang = aPlacer[place];
        const auto suite = PremiereApres(ancienne, anciennes.cend(), rang, avant);
        ordre.insert(ordre.end(), ancienne, suite);
        ordre.push_back(rang);
        ancienne = suite;
    }
    ordre.insert(ordre.end(), ancienne, anciennes.cend());
    m_ordre = std::move(ordre);
    OrdreChange();
}

AjoutsDansTable::AjoutsDansTable(MyLV& table) : m_table(table)
{
    ++m_table.m_ajoutsOuverts;
}

AjoutsDansTable::~AjoutsDansTable()
{
    if (--m_table.m_ajoutsOuverts == 0)
        m_table.PlacerAjouts();
}
