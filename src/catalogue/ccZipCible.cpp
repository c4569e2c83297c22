// Where a new archive goes: straight into its place. The library's own way, a file beside it and a rename, needs a
// folder that lets both in, and twice the time where it then copies.
#include "catalogue/ccZipCible.h"

#include "catalogue/ccZipDescripteur.h"

#include <QFile>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <vector>

namespace zipinterne {

namespace {

class Cible
{
public:
    explicit Cible(const QString& chemin) : m_chemin(QFile::encodeName(chemin)) { zip_error_init(&m_erreur); }
    ~Cible()
    {
        Defaire();
        zip_error_fini(&m_erreur);
    }
    Cible(const Cible&) = delete;
    Cible& operator=(const Cible&) = delete;

    static zip_int64_t Commande(void* cible, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande);

private:
    static constexpr size_t TailleTampon = size_t(256) << 10;

    zip_int64_t Echec(int erreur, int cause = 0);
    zip_int64_t Commencer();
    zip_int64_t Ecrire(std::span<const char> octets);
    zip_int64_t Aller(void* ou, zip_uint64_t taille);
    zip_int64_t Valider();
    zip_int64_t Defaire();
    bool Vider();

    QByteArray m_chemin;
    zip_error_t m_erreur;
    Descripteur m_sortie; ///< while writing
    std::vector<char> m_tampon;
    uint64_t m_debut = 0;  ///< where the buffer's first byte belongs
    size_t m_position = 0; ///< in the buffer, where the next byte goes
    uint64_t m_fin = 0;    ///< of all that was written
};

zip_int64_t Cible::Echec(int erreur, int cause)
{
    zip_error_set(&m_erreur, erreur, cause);
    return -1;
}

zip_int64_t Cible::Commencer()
{
    m_sortie = Descripteur(open(m_chemin.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!m_sortie)
        return Echec(ZIP_ER_TMPOPEN, errno);
    m_tampon.reserve(TailleTampon);
    return 0;
}

bool Cible::Vider()
{
    const bool bon =
        lseek(m_sortie.Numero(), static_cast<off_t>(m_debut), SEEK_SET) >= 0 && EcrireTout(m_sortie.Numero(), m_tampon);
    m_debut += m_tampon.size();
    m_position = 0;
    m_tampon.clear();
    return bon;
}

zip_int64_t Cible::Ecrire(std::span<const char> octets)
{
    const size_t taille = octets.size();
    while (!octets.empty()) {
        const size_t n = std::min(octets.size(), TailleTampon - m_position);
        m_tampon.resize(std::max(m_tampon.size(), m_position + n));
        std::copy_n(octets.begin(), n, m_tampon.begin() + static_cast<ptrdiff_t>(m_position));
        m_position += n;
        octets = octets.subspan(n);
        if (m_position == TailleTampon && !Vider())
            return Echec(ZIP_ER_WRITE, errno);
    }
    m_fin = std::max(m_fin, m_debut + m_position);
    return static_cast<zip_int64_t>(taille);
}

/// The library goes back to complete what it wrote ahead of an entry's bytes.
zip_int64_t Cible::Aller(void* ou, zip_uint64_t taille)
{
    const zip_int64_t vers = zip_source_seek_compute_offset(m_debut + m_position, m_fin, ou, taille, &m_erreur);
    if (vers < 0)
        return -1;
    const auto place = static_cast<uint64_t>(vers);
    if (place < m_debut || place > m_debut + m_tampon.size()) {
        if (!Vider())
            return Echec(ZIP_ER_WRITE, errno);
        m_debut = place;
    }
    m_position = static_cast<size_t>(place - m_debut);
    return 0;
}

zip_int64_t Cible::Valider()
{
    const bool bon = Vider();
    if (!m_sortie.Fermer() || !bon) {
        unlink(m_chemin.constData());
        return Echec(ZIP_ER_WRITE, errno);
    }
    return 0;
}

zip_int64_t Cible::Defaire()
{
    if (m_sortie) {
        m_sortie.Fermer();
        unlink(m_chemin.constData());
    }
    return 0;
}

zip_int64_t Cible::Commande(void* cible, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande)
{
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
        return static_cast<zip_int64_t>(moi->m_debut + moi->m_position);
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
}

} // namespace

zip_source_t* CreerCible(const QString& chemin)
{
    auto cible = std::make_unique<Cible>(chemin);
    zip_source_t* source = zip_source_function_create(Cible::Commande, cible.get(), nullptr);
    if (source)
        static_cast<void>(cible.release()); // the library frees it
    return source;
}

} // namespace zipinterne
