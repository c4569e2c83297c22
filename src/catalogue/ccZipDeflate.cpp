// A file as an archive source that comes deflated, in one go in memory: libdeflate takes less than half the time of the
// library's own stream, which has to do for what is too large, and where there is no libdeflate.
#include "catalogue/ccZipInterne.h"

#include <QFile>

#include <libdeflate.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

namespace zipinterne {

namespace {

/// One file. The library calls it through Commande.
class SourceDeflate
{
public:
    SourceDeflate(const QByteArray& chemin, const struct stat& fichier, int niveau)
        : m_chemin(chemin), m_fichier(fichier), m_niveau(niveau)
    {
        zip_error_init(&m_erreur);
    }
    ~SourceDeflate() { zip_error_fini(&m_erreur); }
    SourceDeflate(const SourceDeflate&) = delete;
    SourceDeflate& operator=(const SourceDeflate&) = delete;

    static zip_int64_t Commande(void* source, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande);

private:
    using Octets = std::unique_ptr<char[]>;

    size_t Taille() const { return static_cast<size_t>(m_fichier.st_size); }
    zip_int64_t Ouvrir();
    zip_int64_t Comprimer(const Octets& clair);
    zip_int64_t Lire(char* vers, uint64_t taille);
    zip_int64_t Echec(int erreur, int cause = 0);
    zip_int64_t Decrire(zip_stat_t& etat) const;
    zip_int64_t Attributs(zip_file_attributes_t& attributs) const;

    QByteArray m_chemin;
    struct stat m_fichier;
    int m_niveau;
    zip_error_t m_erreur;
    Octets m_comprime; ///< while open
    size_t m_longueur = 0;
    size_t m_rendus = 0;
    std::optional<uint32_t> m_crc;
};

zip_int64_t SourceDeflate::Echec(int erreur, int cause)
{
    zip_error_set(&m_erreur, erreur, cause);
    return -1;
}

zip_int64_t SourceDeflate::Ouvrir()
{
    QFile fichier(QFile::decodeName(m_chemin));
    if (!fichier.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Echec(ZIP_ER_OPEN);
    const Octets clair(new (std::nothrow) char[Taille()]);
    if (!clair)
        return Echec(ZIP_ER_MEMORY);
    if (fichier.read(clair.get(), m_fichier.st_size) != m_fichier.st_size)
        return Echec(ZIP_ER_READ);
    return Comprimer(clair);
}

zip_int64_t SourceDeflate::Comprimer(const Octets& clair)
{
    const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compresseur(
        libdeflate_alloc_compressor(m_niveau), libdeflate_free_compressor);
    if (!compresseur)
        return Echec(ZIP_ER_MEMORY);
    const size_t place = libdeflate_deflate_compress_bound(compresseur.get(), Taille());
    m_comprime.reset(new (std::nothrow) char[place]);
    if (!m_comprime)
        return Echec(ZIP_ER_MEMORY);
    m_longueur = libdeflate_deflate_compress(compresseur.get(), clair.get(), Taille(), m_comprime.get(), place);
    if (m_longueur == 0)
        return Echec(ZIP_ER_INTERNAL);
    m_crc = libdeflate_crc32(0, clair.get(), Taille());
    m_rendus = 0;
    return 0;
}

zip_int64_t SourceDeflate::Lire(char* vers, uint64_t taille)
{
    const auto rendus = static_cast<size_t>(std::min<uint64_t>(taille, m_longueur - m_rendus));
    std::memcpy(vers, m_comprime.get() + m_rendus, rendus);
    m_rendus += rendus;
    return static_cast<zip_int64_t>(rendus);
}

zip_int64_t SourceDeflate::Decrire(zip_stat_t& etat) const
{
    zip_stat_init(&etat);
    etat.size = Taille();
    etat.mtime = m_fichier.st_mtime;
    etat.comp_method = ZIP_CM_DEFLATE;
    etat.valid = ZIP_STAT_SIZE | ZIP_STAT_MTIME | ZIP_STAT_COMP_METHOD;
    if (m_crc) {
        etat.crc = *m_crc;
        etat.comp_size = m_longueur;
        etat.valid |= ZIP_STAT_CRC | ZIP_STAT_COMP_SIZE;
    }
    return sizeof(etat);
}

zip_int64_t SourceDeflate::Attributs(zip_file_attributes_t& attributs) const
{
    zip_file_attributes_init(&attributs);
    attributs.valid = ZIP_FILE_ATTRIBUTES_HOST_SYSTEM | ZIP_FILE_ATTRIBUTES_EXTERNAL_FILE_ATTRIBUTES;
    attributs.host_system = ZIP_OPSYS_UNIX;
    attributs.external_file_attributes = static_cast<zip_uint32_t>(m_fichier.st_mode) << 16;
    return sizeof(attributs);
}

zip_int64_t SourceDeflate::Commande(void* source, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande)
{
    auto* moi = static_cast<SourceDeflate*>(source);
    switch (commande) {
    case ZIP_SOURCE_OPEN:
        return moi->Ouvrir();
    case ZIP_SOURCE_READ:
        return moi->Lire(static_cast<char*>(donnees), taille);
    case ZIP_SOURCE_CLOSE:
        moi->m_comprime.reset();
        return 0;
    case ZIP_SOURCE_STAT:
        return moi->Decrire(*static_cast<zip_stat_t*>(donnees));
    case ZIP_SOURCE_GET_FILE_ATTRIBUTES:
        return moi->Attributs(*static_cast<zip_file_attributes_t*>(donnees));
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&moi->m_erreur, donnees, taille);
    case ZIP_SOURCE_FREE:
        delete moi;
        return 0;
    case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_READABLE | ZIP_SOURCE_MAKE_COMMAND_BITMASK(ZIP_SOURCE_SUPPORTS) |
               ZIP_SOURCE_MAKE_COMMAND_BITMASK(ZIP_SOURCE_GET_FILE_ATTRIBUTES);
    default:
        return moi->Echec(ZIP_ER_OPNOTSUPP);
    }
}

} // namespace

zip_source_t* CreerSourceDeflate(zip_t* archive, const QString& chemin, int niveau)
{
    const QByteArray nom = QFile::encodeName(chemin);
    struct stat fichier;
    if (stat(nom.constData(), &fichier) != 0 || !S_ISREG(fichier.st_mode))
        return nullptr;
    auto contexte = std::make_unique<SourceDeflate>(nom, fichier, niveau);
    zip_source_t* source = zip_source_function(archive, SourceDeflate::Commande, contexte.get());
    if (source)
        static_cast<void>(contexte.release()); // the library frees it
    return source;
}

} // namespace zipinterne
