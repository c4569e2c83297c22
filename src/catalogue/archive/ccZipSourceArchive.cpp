#include "catalogue/archive/ccZipSourceArchive.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <utility>

namespace zipinterne {

SourceArchive::SourceArchive(int fichier, uint64_t taille, std::vector<Retouche> retouches)
    : m_fichier(fichier), m_taille(taille), m_retouches(std::move(retouches))
{
    zip_error_init(&m_erreur);
}

zip_int64_t SourceArchive::Lire(std::span<char> vers)
{
    if (m_position < m_debut || m_position >= m_debut + m_tampon.size()) {
        m_tampon.resize(TailleTampon);
        const ssize_t lus = LireA(m_fichier, m_tampon, m_position);
        m_tampon.resize(lus > 0 ? static_cast<size_t>(lus) : 0);
        m_debut = m_position;
        if (lus < 0) {
            zip_error_set(&m_erreur, ZIP_ER_READ, errno);
            return -1;
        }
        Retoucher();
    }
    const std::span<const char> reste = std::span(m_tampon).subspan(static_cast<size_t>(m_position - m_debut));
    const size_t rendus = std::min(vers.size(), reste.size());
    std::copy_n(reste.begin(), rendus, vers.begin());
    m_position += rendus;
    return static_cast<zip_int64_t>(rendus);
}

void SourceArchive::Retoucher()
{
    const uint64_t fin = m_debut + m_tampon.size();
    for (auto retouche = std::ranges::lower_bound(m_retouches, m_debut, {}, &Retouche::place);
         retouche != m_retouches.end() && retouche->place < fin; ++retouche)
        m_tampon[static_cast<size_t>(retouche->place - m_debut)] = retouche->octet;
}

zip_int64_t SourceArchive::Aller(void* ou, zip_uint64_t taille)
{
    const zip_int64_t vers = zip_source_seek_compute_offset(m_position, m_taille, ou, taille, &m_erreur);
    if (vers < 0)
        return -1;
    m_position = static_cast<uint64_t>(vers);
    return 0;
}

zip_int64_t SourceArchive::Decrire(zip_stat_t& etat) const
{
    zip_stat_init(&etat);
    etat.size = m_taille;
    etat.valid = ZIP_STAT_SIZE;
    return sizeof(etat);
}

zip_int64_t SourceArchive::Commande(void* source, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande)
try {
    auto* moi = static_cast<SourceArchive*>(source);
    switch (commande) {
    case ZIP_SOURCE_OPEN:
        moi->m_position = 0;
        return 0;
    case ZIP_SOURCE_READ:
        return moi->Lire({static_cast<char*>(donnees), static_cast<size_t>(taille)});
    case ZIP_SOURCE_CLOSE:
        return 0;
    case ZIP_SOURCE_STAT:
        return moi->Decrire(*static_cast<zip_stat_t*>(donnees));
    case ZIP_SOURCE_SEEK:
        return moi->Aller(donnees, taille);
    case ZIP_SOURCE_TELL:
        return static_cast<zip_int64_t>(moi->m_position);
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&moi->m_erreur, donnees, taille);
    case ZIP_SOURCE_FREE:
        delete moi;
        return 0;
    case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_SEEKABLE;
    default:
        zip_error_set(&moi->m_erreur, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
} catch (const std::bad_alloc&) {
    // Nothing is thrown through the library.
    zip_error_set(&static_cast<SourceArchive*>(source)->m_erreur, ZIP_ER_MEMORY, 0);
    return -1;
}

} // namespace zipinterne
