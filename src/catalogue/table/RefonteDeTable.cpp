#include "catalogue/table/RefonteDeTable.h"

#include "catalogue/table/Annoncer.h"
#include "catalogue/table/MyLV.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <tuple>
#include <utility>

using stockage::Cellule;
using stockage::Codage;
using stockage::Drapeau;

namespace {

/// Whether a field of a line can hold it.
bool TientDansUnChamp(const Cellule& cellule)
{
    return std::none_of(cellule.debut, cellule.debut + cellule.taille,
                        [](char c) { return c == '|' || c == '\n' || c == '\r'; });
}

} // namespace

void RefonteDeTable::Liberation::operator()(char* octets) const
{
    std::free(octets);
}

RefonteDeTable::RefonteDeTable(MyLV& table, Codage codage, Travail travail)
    : m_table(table), m_generation(table.Generation()), m_travail(std::move(travail)), m_codage(codage),
      m_refs(table.m_refs.size()), m_longueurs(table.m_refs.size()), m_drapeaux(table.m_refs.size())
{
    // Entries that have no slice yet are as wide as the table.
    const int colonnes = table.ColonnesSource() > 0 ? table.ColonnesSource() : table.ColumnHeaders.Count();
    m_cellules.assign(static_cast<size_t>(std::max(colonnes, 1)), Cellule{"", 0, codage, true});
    m_travail(m_cellules);
    m_colonnes = static_cast<int>(m_cellules.size());
    FairePlace(table.TexteSource().taille);
}

RefonteDeTable::~RefonteDeTable()
{
    for (size_t rang = 0; m_octetsEnBlocs > 0 && rang < m_refs.size(); ++rang) {
        if (m_drapeaux[rang] & Drapeau::EnBloc)
            stockage::LibererBloc(reinterpret_cast<char*>(m_refs[rang]));
    }
}

bool RefonteDeTable::EstIntacte() const
{
    return m_table.Generation() == m_generation;
}

bool RefonteDeTable::Avancer(int nombre)
{
    if (!EstIntacte())
        return false;
    const std::vector<uint32_t>& ordre = m_table.m_ordre;
    const int fin = static_cast<int>(std::min<qint64>(qint64(m_fait) + nombre, m_table.ListItems.Count()));
    for (; m_fait < fin; ++m_fait) {
        const auto position = static_cast<size_t>(m_fait);
        stockage::Annoncer(position, ordre, m_table.m_refs, m_table.m_longueurs, m_table.m_drapeaux,
                           m_table.m_source.octets.get());
        Refaire(ordre[position]);
    }
    return m_fait < m_table.ListItems.Count();
}

void RefonteDeTable::Refaire(uint32_t rang)
{
    const stockage::EntreeStockee entree = m_table.StockageDuRang(rang);
    const Cellule image = entree.LireSurPlace(m_cellules);
    m_travail(m_cellules);
    const size_t avant = m_place;
    // What lies in a line fits into one; what was edited need not.
    if (EnTranche(rang, image, !entree.EstTranche()))
        return;
    m_place = avant;
    EnBloc(rang, image);
}

/// Writes the entry as a slice: a line's fields, with the image behind all cells. False when it can be none.
bool RefonteDeTable::EnTranche(uint32_t rang, const Cellule& image, bool verifier)
{
    const auto colonnes = static_cast<size_t>(m_colonnes);
    const bool entiere = m_cellules.size() == colonnes;
    if (m_cellules.size() > colonnes || (!entiere && image.taille > 0))
        return false;
    const auto tient = [&](const Cellule& cellule) {
        return cellule.existe && (!verifier || TientDansUnChamp(cellule)) && Ajouter(cellule);
    };
    const size_t debut = m_place;
    for (const Cellule& cellule : m_cellules) {
        if (!tient(cellule))
            return false;
        m_octets.get()[m_place++] = '|';
    }
    if (!entiere)
        --m_place; // nothing follows
    else if (image.taille > 0 && !tient(image))
        return false;
    const size_t longueur = m_place - debut;
    if (longueur > std::numeric_limits<uint32_t>::max())
        return false;
    m_refs[rang] = debut;
    m_longueurs[rang] = static_cast<uint32_t>(longueur);
    m_drapeaux[rang] = entiere ? Drapeau::Reguliere : 0;
    return true;
}

/// Appends a field, with room for the "|" behind it. False when the encoding lacks something of it.
bool RefonteDeTable::Ajouter(const Cellule& cellule)
{
    const char* octets = cellule.debut;
    size_t taille = cellule.taille;
    if (cellule.codage != m_codage && !cellule.EstAscii()) {
        if (m_codage != Codage::Utf8)
            return false;
        m_tampon.resize(0);
        cellule.AjouterEnUtf8(m_tampon);
        octets = m_tampon.constData();
        taille = static_cast<size_t>(m_tampon.size());
    }
    if (m_place + taille + 1 > m_taille)
        FairePlace(m_place + taille + 1);
    std::memcpy(m_octets.get() + m_place, octets, taille);
    m_place += taille;
    return true;
}

void RefonteDeTable::EnBloc(uint32_t rang, const Cellule& image)
{
    char* bloc = stockage::NouveauBloc(m_cellules, image);
    m_refs[rang] = reinterpret_cast<uint64_t>(bloc);
    m_drapeaux[rang] = Drapeau::EnBloc;
    m_octetsEnBlocs += stockage::TailleBloc(bloc);
}

/// By halves of what there is: it is soon enough, and large ones grow without being copied.
void RefonteDeTable::FairePlace(size_t octets)
{
    const size_t taille = std::max(octets, m_taille + m_taille / 2) + 1;
    auto* neuf = static_cast<char*>(std::realloc(m_octets.get(), taille));
    if (!neuf)
        throw std::bad_alloc();
    Tenir(neuf);
    m_taille = taille;
}

/// What realloc gave in place of the bytes there were.
void RefonteDeTable::Tenir(char* octets)
{
    std::ignore = m_octets.release();
    m_octets.reset(octets);
}

bool RefonteDeTable::Poser()
{
    if (!EstIntacte() || m_fait < m_table.ListItems.Count())
        return false;
    if (char* juste = static_cast<char*>(std::realloc(m_octets.get(), m_place + 1)))
        Tenir(juste);
    std::shared_ptr<char[]> octets = std::move(m_octets);

    for (uint32_t rang = 0; rang < m_table.m_refs.size(); ++rang) {
        m_table.LibererBloc(rang);
        uint8_t& drapeaux = m_table.m_drapeaux[rang]; // the user may have selected entries meanwhile
        drapeaux = static_cast<uint8_t>((drapeaux & ~Drapeau::Reguliere) | m_drapeaux[rang]);
    }
    m_table.m_source = {std::move(octets), m_place, m_codage, m_colonnes};
    m_table.m_refs = std::move(m_refs);
    m_table.m_longueurs = std::move(m_longueurs);
    m_table.m_octetsEnBlocs = std::exchange(m_octetsEnBlocs, 0);
    m_table.m_places.clear();
    m_table.ChangePlage(1, m_table.ListItems.Count(), &ChangementsTable::valeurs);
    return true;
}
