// Makes the cells of all entries of a table anew, as tools on columns do.
#pragma once

#include "catalogue/table/MyLVStockage.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class MyLV;

/// The table stays as it is until all is done, and then takes the new cells at once: who looks at it meanwhile finds
/// the old ones, whole. Events may be let through, also such as change the table: nothing comes of the work then. The
/// table outlives this object.
class RefonteDeTable
{
public:
    /// Changes the cells of one entry, from the first (Text) to the last one written. What it points them to stays
    /// until it is called again, and a text that it adds holds no "|" and no line break. It is called once with empty
    /// cells first: how many become of all cells of an entry is seen by that.
    using Travail = std::function<void(std::vector<stockage::Cellule>& cellules)>;

    /// `codage`: the encoding of the new cells. UTF-8 holds any text; the table's own costs less.
    RefonteDeTable(MyLV& table, stockage::Codage codage, Travail travail);
    ~RefonteDeTable();
    RefonteDeTable(const RefonteDeTable&) = delete;
    RefonteDeTable& operator=(const RefonteDeTable&) = delete;

    /// Goes on by that many entries, in display order. False once all are done.
    bool Avancer(int nombre);
    /// How many are.
    int Fait() const { return m_fait; }
    /// Gives the table its new cells, once all are done. False, with the table left alone, when it was changed
    /// meanwhile.
    bool Poser();

private:
    struct Liberation
    {
        void operator()(char* octets) const;
    };

    bool EstIntacte() const;
    void Refaire(uint32_t rang);
    bool EnTranche(uint32_t rang, const stockage::Cellule& image, bool verifier);
    bool Ajouter(const stockage::Cellule& cellule);
    void EnBloc(uint32_t rang, const stockage::Cellule& image);
    void FairePlace(size_t octets);
    void Tenir(char* octets);

    MyLV& m_table;
    uint64_t m_generation;
    Travail m_travail;
    stockage::Codage m_codage;
    int m_colonnes;
    int m_fait = 0;

    std::unique_ptr<char[], Liberation> m_octets;
    size_t m_taille = 0;
    size_t m_place = 0;
    std::vector<uint64_t> m_refs;
    std::vector<uint32_t> m_longueurs;
    std::vector<uint8_t> m_drapeaux; // those of the storage alone
    size_t m_octetsEnBlocs = 0;

    std::vector<stockage::Cellule> m_cellules; // of the entry at hand
    QByteArray m_tampon;
};
