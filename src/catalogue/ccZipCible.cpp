// Where a new archive goes: straight into its place. The library's own way, a file beside it and a rename, needs a
// folder that lets both in, and twice the time where it then copies.
#include "catalogue/ccZipCible.h"

#include "catalogue/ccZipDescripteur.h"

#include <QFile>

#include <fcntl.h>

#include <algorithm>
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
    Cible(const QString& chemin, std::optional<QFileDevice::Permissions> droits, Relais& relais)
        : m_relais(relais), m_chemin(QFile::encodeName(chemin)), m_droits(droits)
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
    static constexpr size_t TailleTampon = size_t(256) << 10;

    zip_int64_t Echec(int erreur, int cause = 0);
    zip_int64_t Commencer();
    zip_int64_t Ecrire(std::span<const char> octets);
    bool Garder(std::span<const char> octets);
    bool Reprendre(const Plage& plage);
    zip_int64_t Aller(void* ou, zip_uint64_t taille);
    bool Repartir(uint64_t place);
    /// Where the next byte goes.
    uint64_t Place() const { return m_debut + m_position; }
    zip_int64_t Valider();
    zip_int64_t Defaire();
    bool Vider();
    bool Remplir();

    Relais& m_relais;
    QByteArray m_chemin;
    std::optional<QFileDevice::Permissions> m_droits;
    zip_error_t m_erreur;
    Descripteur m_sortie;             ///< while writing
    std::unique_ptr<char[]> m_octets; ///< the buffer
    size_t m_taille = 0;              ///< of it, how much is filled
    Plage m_plage;                    ///< of another file; follows the buffer when it is not empty
    uint64_t m_debut = 0;             ///< where the buffer's first byte belongs
    uint64_t m_position = 0;          ///< from there, where the next byte goes
    uint64_t m_fin = 0;               ///< of all that was written
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
    // While it is empty: what others may not read they never could.
    if (m_droits)
        QFile::setPermissions(QFile::decodeName(m_chemin), *m_droits | QFileDevice::WriteOwner);
    m_octets.reset(new (std::nothrow) char[TailleTampon]);
    return m_octets ? 0 : Echec(ZIP_ER_MEMORY);
}

/// Puts what waits into the file.
bool Cible::Vider()
{
    bool bon = lseek(m_sortie.Numero(), static_cast<off_t>(m_debut), SEEK_SET) >= 0;
    m_debut += m_taille + m_plage.taille;
    while (bon && (m_taille > 0 || m_plage.taille > 0)) {
        bon = Remplir() && EcrireTout(m_sortie.Numero(), std::span(m_octets.get(), m_taille));
        m_taille = 0;
    }
    m_plage = Plage();
    m_position = 0;
    return bon;
}

/// Reads of the range what fits behind the buffer's bytes. False also when its file ends before it does.
bool Cible::Remplir()
{
    while (m_plage.taille > 0 && m_taille < TailleTampon) {
        const auto n = static_cast<size_t>(std::min<uint64_t>(m_plage.taille, TailleTampon - m_taille));
        const ssize_t lus = LireA(m_plage.fichier, std::span(m_octets.get() + m_taille, n), m_plage.debut);
        if (lus <= 0)
            return false;
        m_taille += static_cast<size_t>(lus);
        m_plage.debut += static_cast<uint64_t>(lus);
        m_plage.taille -= static_cast<uint64_t>(lus);
    }
    return true;
}

/// Goes on at a place with nothing waiting.
bool Cible::Repartir(uint64_t place)
{
    const bool bon = Vider();
    m_debut = place;
    return bon;
}

zip_int64_t Cible::Ecrire(std::span<const char> octets)
{
    const bool relaye = m_relais.EnRoute();
    const std::optional<Plage> plage = relaye ? m_relais.Recevoir(octets) : std::nullopt;
    if (relaye && !plage)
        return Echec(ZIP_ER_INTERNAL);
    if (plage ? !Reprendre(*plage) : !Garder(octets))
        return Echec(ZIP_ER_WRITE, errno);
    m_fin = std::max(m_fin, Place());
    return static_cast<zip_int64_t>(octets.size());
}

bool Cible::Garder(std::span<const char> octets)
{
    const bool devantLaPlage = m_position + octets.size() <= m_taille;
    if (m_plage.taille > 0 && !devantLaPlage && !Repartir(Place()))
        return false;
    while (!octets.empty()) {
        const size_t n = std::min<size_t>(octets.size(), TailleTampon - m_position);
        std::copy_n(octets.data(), n, m_octets.get() + m_position);
        m_position += n;
        m_taille = std::max<size_t>(m_taille, m_position);
        octets = octets.subspan(n);
        if (m_position == TailleTampon && m_plage.taille == 0 && !Vider())
            return false;
    }
    return true;
}

/// Pieces that follow each other are copied together.
bool Cible::Reprendre(const Plage& plage)
{
    constexpr uint64_t assez = uint64_t(8) << 20;
    const bool alaFin = m_position == m_taille + m_plage.taille;
    const bool suite = m_plage.taille > 0 && m_plage.taille < assez && m_plage.fichier == plage.fichier &&
                       m_plage.debut + m_plage.taille == plage.debut;
    if ((!alaFin || (m_plage.taille > 0 && !suite)) && !Repartir(Place()))
        return false;
    if (m_plage.taille == 0)
        m_plage = Plage{plage.fichier, plage.debut, 0};
    m_plage.taille += plage.taille;
    m_position += plage.taille;
    return true;
}

/// The library goes back to complete what it wrote ahead of an entry's bytes.
zip_int64_t Cible::Aller(void* ou, zip_uint64_t taille)
{
    const zip_int64_t vers = zip_source_seek_compute_offset(Place(), m_fin, ou, taille, &m_erreur);
    if (vers < 0)
        return -1;
    const auto place = static_cast<uint64_t>(vers);
    const bool attend = place >= m_debut && place <= m_debut + m_taille + m_plage.taille;
    if (!attend && !Repartir(place))
        return Echec(ZIP_ER_WRITE, errno);
    m_position = place - m_debut;
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
        return static_cast<zip_int64_t>(moi->Place());
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

zip_source_t* CreerCible(const QString& chemin, std::optional<QFileDevice::Permissions> droits, Relais& relais)
{
    auto cible = std::make_unique<Cible>(chemin, droits, relais);
    zip_source_t* source = zip_source_function_create(Cible::Commande, cible.get(), nullptr);
    if (source)
        static_cast<void>(cible.release()); // the library frees it
    return source;
}

} // namespace zipinterne
