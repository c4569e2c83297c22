#include "vue/LignesChoisies.h"

#include "vue/ModeleTable.h"

#include <QMetaObject>

#include <algorithm>

// ---- of a table

int ChoixDansTable::Count() const
{
    return m_modele.Table().ListItems.Count();
}

bool ChoixDansTable::EstChoisie(int ligne) const
{
    return m_modele.Table().EstSelectionnee(ligne);
}

int ChoixDansTable::NombreDeChoisies() const
{
    return m_modele.Table().NombreDeSelectionnees();
}

int ChoixDansTable::PremiereChoisie() const
{
    return m_modele.Table().PremiereSelection();
}

int ChoixDansTable::FinDePlage(int ligne) const
{
    const MyLV& table = m_modele.Table();
    while (table.EstSelectionnee(ligne + 1))
        ++ligne;
    return ligne;
}

void ChoixDansTable::Choisir(int premiere, int derniere, bool choisies)
{
    m_modele.Table().Selectionner(premiere, derniere, choisies);
}

int ChoixDansTable::Courante() const
{
    const ListItemLu entree = m_modele.Table().SelectedItem();
    return entree ? entree.Index() : 0;
}

void ChoixDansTable::SetCourante(int ligne)
{
    if (!m_modele.Rafraichit())
        m_modele.Table().SetSelectedItem(m_modele.Table().ListItems(ligne));
}

// ---- of a list

void ChoixDansListe::Vider(int lignes)
{
    m_choisies.assign(static_cast<size_t>(lignes), false);
    m_courante = 0;
    Annoncer();
}

void ChoixDansListe::SuivreOrdre(const std::vector<int>& avant)
{
    std::vector<bool> choisies(avant.size());
    std::transform(avant.begin(), avant.end(), choisies.begin(), [this](int ligne) { return EstChoisie(ligne); });
    m_choisies = std::move(choisies);
    const auto focus = std::ranges::find(avant, m_courante);
    m_courante = focus == avant.end() ? 0 : static_cast<int>(focus - avant.begin()) + 1;
    Annoncer();
}

bool ChoixDansListe::EstChoisie(int ligne) const
{
    return ligne >= 1 && ligne <= Count() && m_choisies[static_cast<size_t>(ligne - 1)];
}

int ChoixDansListe::NombreDeChoisies() const
{
    return static_cast<int>(std::count(m_choisies.begin(), m_choisies.end(), true));
}

int ChoixDansListe::PremiereChoisie() const
{
    const auto premiere = std::find(m_choisies.begin(), m_choisies.end(), true);
    return premiere == m_choisies.end() ? 0 : static_cast<int>(premiere - m_choisies.begin()) + 1;
}

int ChoixDansListe::FinDePlage(int ligne) const
{
    return static_cast<int>(std::find(m_choisies.begin() + ligne, m_choisies.end(), false) - m_choisies.begin());
}

void ChoixDansListe::Choisir(int premiere, int derniere, bool choisies)
{
    premiere = std::max(premiere, 1);
    derniere = std::min(derniere, Count());
    if (premiere > derniere)
        return;
    std::fill(m_choisies.begin() + (premiere - 1), m_choisies.begin() + derniere, choisies);
    Annoncer();
}

void ChoixDansListe::Annoncer()
{
    if (m_enAttente)
        return;
    m_enAttente = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_enAttente = false;
            emit Change();
        },
        Qt::QueuedConnection);
}
