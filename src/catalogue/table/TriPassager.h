// A table sorted for a while.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class MyLV;

/// As long as it lives, the entries of a table stand in the ascending order of a column. Then the table gets its column
/// and direction of sort back, and its entries the order that they had, as far as that is one by this column; the table
/// is sorted from then on, whether it was before or not.
///
/// Events may be let through meanwhile: a table that has gone is left alone, and so is one that somebody else has
/// sorted. Where columns are moved or go, the sorts stay on theirs; one whose column is gone is not given back.
class TriPassager
{
public:
    /// `colonne` counts from 0.
    TriPassager(MyLV& table, int colonne);
    ~TriPassager();
    TriPassager(const TriPassager&) = delete;
    TriPassager& operator=(const TriPassager&) = delete;

    /// The table is still there, and nothing of it changed since it was sorted.
    bool EstIntacte() const;

    /// To be called for each position (from 1) by who walks through all entries: those that follow come sooner.
    void Annoncer(int position) const;

private:
    friend class MyLV;
    /// False once the column by which the table was sorted before is gone.
    bool SuivreColonnes(const std::function<int(int)>& nouveau);
    bool AQuelquUnDAutre() const;

    MyLV& m_table;
    std::weak_ptr<const void> m_vie;
    int m_colonne; ///< -1 once it is gone, and so below
    int m_ancienneCle;
    int m_ancienSens;
    std::vector<uint32_t> m_ancienOrdre; ///< empty where the entries stood in the column's order already
    uint64_t m_generation;
};
