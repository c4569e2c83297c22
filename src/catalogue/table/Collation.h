// The order of texts: French collation, case ignored, accents told apart, punctuation counted.
#pragma once

#include "catalogue/table/MyLVStockage.h"

#include <QStringView>

#include <cstdint>
#include <memory>
#include <vector>

/// One collator, made once and kept. For one thread.
class Collation
{
public:
    static Collation& Francaise();
    ~Collation();
    Collation(const Collation&) = delete;
    Collation& operator=(const Collation&) = delete;

    /// Negative, 0 or positive.
    int Comparer(QStringView a, QStringView b) const;
    int Comparer(const stockage::Cellule& a, const stockage::Cellule& b);

    /// Appends the sort key of a cell: bytes whose order is the order of the texts. A missing cell is the empty text.
    void AjouterCle(const stockage::Cellule& cellule, std::vector<uint8_t>& arene);

private:
    Collation();
    struct Prive;
    std::unique_ptr<Prive> m_prive;
};

/// Sort keys of many cells in one arena.
class ClesDeTri
{
public:
    /// Makes room for about `nombre` keys.
    explicit ClesDeTri(size_t nombre);
    void Ajouter(const stockage::Cellule& cellule);
    /// The numbers 0 to n - 1 of the added cells in order; equal ones stay in the order of adding, also when
    /// descending. Once: the keys are gone then.
    std::vector<uint32_t> Ordre(bool descendant);

private:
    /// Eight bytes of a key from `profondeur` on, the first one highest.
    uint64_t Tete(uint32_t numero, uint64_t profondeur) const;

    std::vector<uint8_t> m_arene;
    std::vector<uint64_t> m_fins; // end of each key in the arena
};
