// An archive as the library reads it from an open file; for the files of ccZip alone.
#pragma once

#include "catalogue/archive/ccZipDescripteur.h"

#include <zip.h>

#include <cstdint>
#include <span>
#include <vector>

namespace zipinterne {

/// An archive for reading, in pieces: the library asks for smaller ones and seeks ahead of each.
class SourceArchive
{
public:
    /// The file is not owned. `retouches`: the lowest place first.
    SourceArchive(int fichier, uint64_t taille, std::vector<Retouche> retouches = {});
    ~SourceArchive() { zip_error_fini(&m_erreur); }
    SourceArchive(const SourceArchive&) = delete;
    SourceArchive& operator=(const SourceArchive&) = delete;

    /// The file goes with the object from here on.
    void Prendre(Descripteur fichier) { m_pris = std::move(fichier); }

    static zip_int64_t Commande(void* source, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande);
    int Fichier() const { return m_fichier; }
    uint64_t Position() const { return m_position; }

private:
    static constexpr size_t TailleTampon = size_t(9) << 10; // of an entry, its head and first bytes are read here

    zip_int64_t Lire(std::span<char> vers);
    void Retoucher();
    zip_int64_t Aller(void* ou, zip_uint64_t taille);
    zip_int64_t Decrire(zip_stat_t& etat) const;

    int m_fichier;
    Descripteur m_pris;
    uint64_t m_taille;
    std::vector<Retouche> m_retouches;
    zip_error_t m_erreur;
    std::vector<char> m_tampon;
    uint64_t m_debut = 0; ///< where the buffer's first byte stands
    uint64_t m_position = 0;
};

} // namespace zipinterne
