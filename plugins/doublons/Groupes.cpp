#include "Groupes.h"

#include <algorithm>

void Groupes::Ajouter(const std::vector<int>& lignes)
{
    m_lignes.insert(m_lignes.end(), lignes.begin(), lignes.end());
    m_cochees.resize(m_lignes.size(), false);
    m_debuts.push_back(Entrees());
    m_completes.push_back(0);
}

bool Groupes::EstPretee(int groupe, int place) const
{
    const auto ligne = static_cast<size_t>(Ligne(groupe, place) - 1);
    return ligne < m_pretees.size() && m_pretees[ligne];
}

void Groupes::Cocher(int groupe, int place, bool cochee)
{
    const size_t ou = Ou(groupe, place);
    m_nbCoches += int(cochee) - int(m_cochees[ou]);
    m_cochees[ou] = cochee;
}

void Groupes::CocherSauf(Gardee gardee)
{
    for (int groupe = 0; groupe < Count(); ++groupe) {
        const int reste = gardee == Gardee::Premiere ? 0 : Complete(groupe);
        for (int place = 0; place < Taille(groupe); ++place)
            Cocher(groupe, place, place != reste && !EstPretee(groupe, place));
    }
}

void Groupes::ToutDecocher()
{
    std::fill(m_cochees.begin(), m_cochees.end(), false);
    m_nbCoches = 0;
}

int Groupes::NbPreteesCochees() const
{
    int nombre = 0;
    for (int groupe = 0; groupe < Count(); ++groupe) {
        for (int place = 0; place < Taille(groupe); ++place)
            nombre += int(EstCochee(groupe, place) && EstPretee(groupe, place));
    }
    return nombre;
}

int Groupes::GroupesEntiers() const
{
    int nombre = 0;
    for (int groupe = 0; groupe < Count(); ++groupe) {
        int place = 0;
        while (place < Taille(groupe) && EstCochee(groupe, place))
            ++place;
        nombre += int(place == Taille(groupe));
    }
    return nombre;
}

std::vector<int> Groupes::LignesCochees() const
{
    std::vector<int> lignes;
    lignes.reserve(static_cast<size_t>(m_nbCoches));
    for (size_t i = 0; i < m_lignes.size(); ++i) {
        if (m_cochees[i])
            lignes.push_back(m_lignes[i]);
    }
    std::sort(lignes.begin(), lignes.end());
    return lignes;
}

void Groupes::RetirerCochees()
{
    const std::vector<int> parties = LignesCochees();
    const auto avant = [&parties](int ligne) {
        return static_cast<int>(std::lower_bound(parties.begin(), parties.end(), ligne) - parties.begin());
    };
    Groupes reste;
    std::vector<int> lignes;
    for (int groupe = 0; groupe < Count(); ++groupe) {
        lignes.clear();
        int complete = 0;
        for (int place = 0; place < Taille(groupe); ++place) {
            if (EstCochee(groupe, place))
                continue;
            if (place == Complete(groupe))
                complete = static_cast<int>(lignes.size());
            lignes.push_back(Ligne(groupe, place) - avant(Ligne(groupe, place)));
        }
        if (lignes.size() < 2)
            continue;
        reste.Ajouter(lignes);
        reste.NommerComplete(reste.Count() - 1, complete);
    }
    size_t suivante = 0;
    for (size_t i = 0; i < m_pretees.size(); ++i) {
        if (suivante < parties.size() && parties[suivante] == static_cast<int>(i) + 1)
            ++suivante;
        else
            reste.m_pretees.push_back(m_pretees[i]);
    }
    *this = std::move(reste);
}
