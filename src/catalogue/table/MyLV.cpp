#include "catalogue/table/MyLV.h"

#include "catalogue/table/Collation.h"

#include <algorithm>
#include <cmath>
#include <numeric>

using stockage::Drapeau;

// ---- ColumnHeader

void ColumnHeader::SetText(const QString& texte)
{
    m_texte = texte;
    m_table->Change(&ChangementsTable::colonnes);
}

bool ColumnHeader::SetWidth(float largeur)
{
    if (!std::isfinite(largeur) || largeur < 0)
        return false;
    m_largeur = largeur;
    m_table->Change(&ChangementsTable::colonnes);
    return true;
}

void ColumnHeader::SetTag(const QString& marque)
{
    m_marque = marque;
    ++m_table->m_generation;
}

void ColumnHeader::SetIcon(const QString& icone)
{
    m_icone = icone;
    m_table->Change(&ChangementsTable::colonnes);
}

void ColumnHeader::SetKey(const QString& cle)
{
    m_cle = cle;
}

int ColumnHeader::Index() const
{
    for (int i = 1; i <= m_table->ColumnHeaders.Count(); ++i)
        if (&m_table->ColumnHeaders(i) == this)
            return i;
    return 0;
}

// ---- ColumnHeaders

ColumnHeader& ColumnHeaders::Add(int index, const QString& texte)
{
    auto place = m_colonnes.end();
    if (index >= 1 && index <= Count())
        place = m_colonnes.begin() + (index - 1);
    const auto nouvelle = m_colonnes.insert(place, std::unique_ptr<ColumnHeader>(new ColumnHeader(m_table)));
    (*nouvelle)->m_texte = texte;
    m_table.Change(&ChangementsTable::colonnes);
    return **nouvelle;
}

bool ColumnHeaders::Remove(int index)
{
    if (!Existe(index))
        return false;
    m_colonnes.erase(m_colonnes.begin() + (index - 1));
    m_table.Change(&ChangementsTable::colonnes);
    return true;
}

void ColumnHeaders::Clear()
{
    m_colonnes.clear();
    m_table.Change(&ChangementsTable::colonnes);
}

// ---- MyLV

MyLV::MyLV() = default;

MyLV::~MyLV()
{
    ViderEntrees();
}

bool MyLV::SetView(int mode)
{
    if (mode < 0 || mode > 3)
        return false;
    m_modeDAffichage = mode;
    Change(&ChangementsTable::aspect);
    return true;
}

void MyLV::SetGridLines(bool grille)
{
    m_grille = grille;
    Change(&ChangementsTable::aspect);
}

ListItem MyLV::SelectedItem()
{
    return m_focus ? m_focus : ListItems(1);
}

ListItemLu MyLV::SelectedItem() const
{
    if (m_focus)
        return m_focus;
    return ListItems(1);
}

void MyLV::SetSelectedItem(const ListItem& entree)
{
    if (entree && entree.m_table != this)
        return;
    m_focus = entree;
    Change(&ChangementsTable::selection);
}

int MyLV::NombreDeSelectionnees() const
{
    // A removed entry is never selected, so the flags can be counted as they lie.
    return static_cast<int>(
        std::count_if(m_drapeaux.begin(), m_drapeaux.end(), [](uint8_t d) { return (d & Drapeau::Choisie) != 0; }));
}

int MyLV::PremiereSelection() const
{
    const auto trouve = std::find_if(m_ordre.begin(), m_ordre.end(),
                                     [this](uint32_t rang) { return (m_drapeaux[rang] & Drapeau::Choisie) != 0; });
    return trouve == m_ordre.end() ? 0 : static_cast<int>(trouve - m_ordre.begin()) + 1;
}

void MyLV::Selectionner(int premiere, int derniere, bool choisies)
{
    premiere = std::max(premiere, 1);
    derniere = std::min(derniere, ListItems.Count());
    if (premiere > derniere)
        return;
    for (int position = premiere; position <= derniere; ++position) {
        uint8_t& drapeaux = m_drapeaux[m_ordre[static_cast<size_t>(position - 1)]];
        drapeaux = static_cast<uint8_t>(choisies ? drapeaux | Drapeau::Choisie : drapeaux & ~Drapeau::Choisie);
    }
    ChangePlage(premiere, derniere, &ChangementsTable::selection);
}

bool MyLV::EstSelectionnee(int index) const
{
    return ListItems.Existe(index) && (m_drapeaux[m_ordre[static_cast<size_t>(index - 1)]] & Drapeau::Choisie);
}

size_t MyLV::Memoire() const
{
    return m_source.taille + m_refs.capacity() * sizeof(uint64_t) + m_longueurs.capacity() * sizeof(uint32_t) +
           m_drapeaux.capacity() + (m_ordre.capacity() + m_positions.capacity()) * sizeof(uint32_t) + m_cles.Memoire() +
           m_octetsEnBlocs;
}

void MyLV::Remplir(stockage::Source&& source, stockage::Lignes&& lignes)
{
    ViderEntrees();
    m_source = std::move(source);
    m_refs = std::move(lignes.debuts);
    m_longueurs = std::move(lignes.longueurs);
    m_drapeaux = std::move(lignes.drapeaux);
    for (uint8_t& drapeaux : m_drapeaux)
        drapeaux |= Drapeau::Vivante;
    m_ordre.resize(m_refs.size());
    std::iota(m_ordre.begin(), m_ordre.end(), 0U);
    if (lignes.cles.empty())
        m_cles.Numeroter(static_cast<uint32_t>(m_ordre.size()));
    else
        m_cles.Prendre(std::move(lignes.cles));
    Change(&ChangementsTable::lignes);
    if (m_trie)
        Ordonner();
}

// ---- Observers

void MyLV::Observer(ObservateurTable& observateur) const
{
    PrendreChangements(observateur);
    m_observateurs.push_back(&observateur);
}

void MyLV::NePlusObserver(ObservateurTable& observateur) const
{
    std::erase(m_observateurs, &observateur);
}

ChangementsTable MyLV::PrendreChangements(ObservateurTable& observateur)
{
    observateur.m_averti = false;
    return std::exchange(observateur.m_changements, ChangementsTable());
}

void MyLV::Change(bool ChangementsTable::*quoi)
{
    m_generation += quoi != &ChangementsTable::selection;
    for (ObservateurTable* observateur : m_observateurs) {
        observateur->m_changements.*quoi = true;
        if (!std::exchange(observateur->m_averti, true))
            observateur->TableModifiee();
    }
}

void MyLV::ChangePlage(int premiere, int derniere, bool ChangementsTable::*quoi)
{
    for (ObservateurTable* observateur : m_observateurs) {
        ChangementsTable& c = observateur->m_changements;
        c.premiere = c.premiere == 0 ? premiere : std::min(c.premiere, premiere);
        c.derniere = std::max(c.derniere, derniere);
    }
    Change(quoi);
}

void MyLV::ChangeLigne(uint32_t rang, bool ChangementsTable::*quoi)
{
    // While the positions are not known, finding one would cost a pass over the table: all entries are named then.
    if (m_positionsValides) {
        const int position = static_cast<int>(m_positions[rang]) + 1;
        ChangePlage(position, position, quoi);
    } else {
        ChangePlage(1, ListItems.Count(), quoi);
    }
}
