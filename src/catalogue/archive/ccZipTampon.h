// A file that is being written, its end still in memory; for the files of ccZip alone.
#pragma once

#include "catalogue/archive/ccZipDescripteur.h"
#include "catalogue/archive/ccZipRelais.h"

#include <QByteArray>

#include <array>
#include <cstdint>
#include <memory>
#include <span>

namespace zipinterne {

/// Takes bytes in small pieces and gives the system whole blocks, which begin where its own pages do: so it has to
/// touch each page only once. The last blocks wait, so that a writer who goes back a little to complete what it wrote
/// costs nothing either. Places are counted from 0. What returns bool is false on an error, which errno tells.
class Tampon
{
public:
    /// Begins with a new file, open for writing. Throws std::bad_alloc.
    void Commencer(Descripteur sortie);
    bool EstOuvert() const { return bool(m_sortie); }
    /// Bytes so far.
    uint64_t Taille() const { return m_taille; }
    /// Has the disk look for room in one go. What turns out too much is given back at the end; where there is not so
    /// much, or no such service, each write finds its own.
    void Reserver(uint64_t taille);

    /// Writes at a place up to Taille().
    bool Ecrire(uint64_t place, std::span<const char> octets);
    /// The same of a piece of another file. Also false when that file ends before the piece does.
    bool Copier(uint64_t place, const Plage& plage);
    /// Writes what waits and closes the file.
    bool Terminer();
    /// Closes the file as it is.
    void Abandonner() { m_sortie.Fermer(); }

private:
    static constexpr size_t TailleBloc = size_t(256) << 10;
    static constexpr size_t NombreBlocs = 4;

    template<class Remplir> bool Deposer(uint64_t place, uint64_t taille, Remplir remplir);
    template<class Remplir> bool Corriger(uint64_t place, size_t taille, Remplir remplir);
    bool Avancer();

    Descripteur m_sortie;
    std::array<std::unique_ptr<char[]>, NombreBlocs> m_blocs; ///< those that wait, in the order of the file
    uint64_t m_debut = 0;                                     ///< where the first of them belongs
    uint64_t m_taille = 0;
    uint64_t m_reserve = 0;
};

} // namespace zipinterne
