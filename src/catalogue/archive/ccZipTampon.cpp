#include "catalogue/archive/ccZipTampon.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace zipinterne {

void Tampon::Commencer(Descripteur sortie)
{
    for (std::unique_ptr<char[]>& bloc : m_blocs)
        bloc = std::make_unique_for_overwrite<char[]>(TailleBloc);
    m_debut = m_taille = m_reserve = 0;
    m_sortie = std::move(sortie);
}

void Tampon::Reserver(uint64_t taille)
{
    // The file's size stays what was written: a file that was cut off shows as such.
    if (taille > 0 && fallocate(m_sortie.Numero(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(taille)) == 0)
        m_reserve = taille;
}

/// Writes the first block, which becomes the last one, empty.
bool Tampon::Avancer()
{
    const auto n = static_cast<size_t>(std::min<uint64_t>(TailleBloc, m_taille - m_debut));
    const bool bon = EcrireA(m_sortie.Numero(), std::span<const char>(m_blocs.front().get(), n), m_debut);
    std::rotate(m_blocs.begin(), m_blocs.begin() + 1, m_blocs.end());
    m_debut += n;
    return bon;
}

/// Changes bytes that wait no more.
template<class Remplir> bool Tampon::Corriger(uint64_t place, size_t taille, Remplir remplir)
{
    const auto octets = std::make_unique_for_overwrite<char[]>(taille);
    const std::span<char> tous(octets.get(), taille);
    return remplir(tous) && EcrireA(m_sortie.Numero(), tous, place);
}

/// `remplir` is given the room for so many bytes, piece by piece.
template<class Remplir> bool Tampon::Deposer(uint64_t place, uint64_t taille, Remplir remplir)
{
    if (place > m_taille) {
        errno = EINVAL;
        return false;
    }
    while (taille > 0) {
        uint64_t n = 0;
        bool bon = true;
        if (place < m_debut) {
            n = std::min<uint64_t>({taille, m_debut - place, TailleBloc});
            bon = Corriger(place, static_cast<size_t>(n), remplir);
        } else if (place - m_debut == NombreBlocs * TailleBloc) {
            bon = Avancer();
        } else {
            const uint64_t dedans = (place - m_debut) % TailleBloc;
            char* bloc = m_blocs.at((place - m_debut) / TailleBloc).get();
            n = std::min<uint64_t>(taille, TailleBloc - dedans);
            bon = remplir(std::span<char>(bloc + dedans, static_cast<size_t>(n)));
        }
        if (!bon)
            return false;
        place += n;
        taille -= n;
        m_taille = std::max(m_taille, place);
    }
    return true;
}

bool Tampon::Ecrire(uint64_t place, std::span<const char> octets)
{
    return Deposer(place, octets.size(), [&octets](std::span<char> vers) {
        std::copy_n(octets.data(), vers.size(), vers.data());
        octets = octets.subspan(vers.size());
        return true;
    });
}

bool Tampon::Copier(uint64_t place, const Plage& plage)
{
    return Deposer(place, plage.taille, [fichier = plage.fichier, de = plage.debut](std::span<char> vers) mutable {
        while (!vers.empty()) {
            const ssize_t lus = LireA(fichier, vers, de);
            if (lus == 0)
                errno = EIO; // the file has become shorter
            if (lus <= 0)
                return false;
            vers = vers.subspan(static_cast<size_t>(lus));
            de += static_cast<uint64_t>(lus);
        }
        return true;
    });
}

bool Tampon::Terminer()
{
    bool bon = true;
    while (bon && m_debut < m_taille)
        bon = Avancer();
    if (bon && m_reserve > m_taille)
        bon = ftruncate(m_sortie.Numero(), static_cast<off_t>(m_taille)) == 0;
    return m_sortie.Fermer() && bon;
}

} // namespace zipinterne
