// Groups of entries that are equal or nearly equal, and which of their entries are checked. Rows of the table count
// from 1, groups and the places in them from 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class Groupes
{
public:
    /// Adds a group of at least two rows, in the order of the table. `complete` is the place of the one that is kept as
    /// the most complete.
    void Ajouter(const std::vector<int>& lignes);
    void NommerComplete(int groupe, int place) { m_completes[static_cast<size_t>(groupe)] = place; }
    /// Marks what stands in these rows as lent: a mark a row of the table, the first one at [0].
    void MarquerPretees(std::vector<bool> pretees) { m_pretees = std::move(pretees); }

    int Count() const { return static_cast<int>(m_debuts.size()) - 1; }
    /// Of all groups together.
    int Entrees() const { return static_cast<int>(m_lignes.size()); }
    int Taille(int groupe) const { return Debut(groupe + 1) - Debut(groupe); }
    int Ligne(int groupe, int place) const { return m_lignes[Ou(groupe, place)]; }
    int Complete(int groupe) const { return m_completes[static_cast<size_t>(groupe)]; }
    bool EstPretee(int groupe, int place) const;

    bool EstCochee(int groupe, int place) const { return m_cochees[Ou(groupe, place)]; }
    void Cocher(int groupe, int place, bool cochee);
    enum class Gardee { Premiere, Complete };
    /// Checks all of each group but one, and but those that are lent.
    void CocherSauf(Gardee gardee);
    void ToutDecocher();

    int NbCoches() const { return m_nbCoches; }
    int NbPreteesCochees() const;
    /// How many groups would lose all of their entries.
    int GroupesEntiers() const;
    /// The rows that are checked, in ascending order.
    std::vector<int> LignesCochees() const;

    /// Follows the table, from which the checked rows were removed: a group of which less than two are left goes.
    void RetirerCochees();

private:
    int Debut(int groupe) const { return m_debuts[static_cast<size_t>(groupe)]; }
    size_t Ou(int groupe, int place) const { return static_cast<size_t>(Debut(groupe) + place); }

    std::vector<int> m_lignes;
    std::vector<int> m_debuts{0};
    std::vector<int> m_completes;
    std::vector<bool> m_cochees;
    std::vector<bool> m_pretees;
    int m_nbCoches = 0;
};
