// Where a new archive goes: straight into its place. The library's own way, a file beside it and a rename, needs a
// folder that lets both in, and twice the time where it then copies.
#include "catalogue/archive/ccZipCible.h"

#include "catalogue/archive/PlaceDuFichier.h"
#include "catalogue/archive/ccZipTampon.h"

#include <cerrno>
#include <memory>
#include <new>
#include <optional>
#include <utility>

namespace zipinterne {

namespace {

class Cible
{
public:
    Cible(PlaceDuFichier& place, uint64_t volume, Relais& relais) : m_place(place), m_relais(relais), m_volume(volume)
    {
        zip_error_init(&m_erreur);
    }
    ~Cible()
    {
        Defaire();
        zip_error_fini(&m_erreur);
    }
    Cible(const Cible&) = delete;
    Cible& operator=(const Cible&) = delete;

    static zip_int64_t Commande(void* cible, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande);

private:
    zip_int64_t Echec(int erreur, int cause = 0);
    zip_int64_t Commencer();
    zip_int64_t Ecrire(std::span<const char> octets);
    zip_int64_t Aller(void* ou, zip_uint64_t taille);
    zip_int64_t Valider();
    zip_int64_t Defaire();

    PlaceDuFichier& m_place;
    Relais& m_relais;
    uint64_t m_volume;
    zip_error_t m_erreur;
    Tampon m_sortie;         ///< open while writing
    uint64_t m_position = 0; ///< where the next byte goes
};

zip_int64_t Cible::Echec(int erreur, int cause)
{
    zip_error_set(&m_erreur, erreur, cause);
    return -1;
}

zip_int64_t Cible::Commencer()
try {
    m_position = 0;
    std::optional<Descripteur> neuf = m_place.Creer();
    if (!neuf)
        return Echec(ZIP_ER_TMPOPEN, errno);
    m_sortie.Commencer(std::move(*neuf));
    m_sortie.Reserver(m_volume);
    return 0;
} catch (const std::bad_alloc&) {
    m_place.Retirer();
    return Echec(ZIP_ER_MEMORY);
}

zip_int64_t Cible::Ecrire(std::span<const char> octets)
{
    const bool relaye = m_relais.EnRoute();
    const std::optional<Plage> plage = relaye ? m_relais.Recevoir(octets) : std::nullopt;
    if (relaye && !plage)
        return Echec(ZIP_ER_INTERNAL);
    if (plage ? !m_sortie.Copier(m_position, *plage) : !m_sortie.Ecrire(m_position, octets))
        return Echec(ZIP_ER_WRITE, errno);
    m_position += octets.size();
    return static_cast<zip_int64_t>(octets.size());
}

/// The library goes back to complete what it wrote ahead of an entry's bytes.
zip_int64_t Cible::Aller(void* ou, zip_uint64_t taille)
{
    const zip_int64_t vers = zip_source_seek_compute_offset(m_position, m_sortie.Taille(), ou, taille, &m_erreur);
    if (vers < 0)
        return -1;
    m_position = static_cast<uint64_t>(vers);
    return 0;
}

zip_int64_t Cible::Valider()
{
    if (!m_sortie.Terminer()) {
        const int cause = errno;
        m_place.Retirer();
        return Echec(ZIP_ER_WRITE, cause);
    }
    return 0;
}

zip_int64_t Cible::Defaire()
{
    if (m_sortie.EstOuvert()) {
        m_sortie.Abandonner();
        m_place.Retirer();
    }
    return 0;
}

zip_int64_t Cible::Commande(void* cible, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande)
try {
    auto* moi = static_cast<Cible*>(cible);
    switch (commande) {
    case ZIP_SOURCE_STAT: // there is nothing yet
        return moi->Echec(ZIP_ER_READ, ENOENT);
    case ZIP_SOURCE_BEGIN_WRITE:
        return moi->Commencer();
    case ZIP_SOURCE_WRITE:
        return moi->Ecrire({static_cast<const char*>(donnees), static_cast<size_t>(taille)});
    case ZIP_SOURCE_SEEK_WRITE:
        return moi->Aller(donnees, taille);
    case ZIP_SOURCE_TELL_WRITE:
        return static_cast<zip_int64_t>(moi->m_position);
    case ZIP_SOURCE_COMMIT_WRITE:
        return moi->Valider();
    case ZIP_SOURCE_ROLLBACK_WRITE:
    case ZIP_SOURCE_REMOVE:
        return moi->Defaire();
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&moi->m_erreur, donnees, taille);
    case ZIP_SOURCE_FREE:
        delete moi;
        return 0;
    case ZIP_SOURCE_SUPPORTS: // reading is named because the library opens nothing else
        return ZIP_SOURCE_SUPPORTS_WRITABLE;
    default:
        return moi->Echec(ZIP_ER_OPNOTSUPP);
    }
} catch (const std::bad_alloc&) {
    // Nothing is thrown through the library.
    return static_cast<Cible*>(cible)->Echec(ZIP_ER_MEMORY);
}

} // namespace

zip_source_t* CreerCible(PlaceDuFichier& place, uint64_t volume, Relais& relais)
{
    auto cible = std::make_unique<Cible>(place, volume, relais);
    zip_source_t* source = zip_source_function_create(Cible::Commande, cible.get(), nullptr);
    if (source)
        static_cast<void>(cible.release()); // the library frees it
    return source;
}

} // namespace zipinterne
