#include "catalogue/archive/ccZipSource.h"

#include "platform/NomsSysteme.h"

#include <fcntl.h>

#include <new>

namespace zipinterne {

zip_int64_t SourceFichier::Echec(int erreur)
{
    zip_error_set(&m_erreur, erreur, 0);
    return -1;
}

zip_int64_t SourceFichier::Ouvrir()
{
    m_entree = Descripteur(open(OctetsDuChemin(m_ajout.fichier).constData(), O_RDONLY | O_CLOEXEC));
    if (!m_entree || fstat(m_entree.Numero(), &m_fichier) != 0 || !S_ISREG(m_fichier.st_mode))
        return Echec(ZIP_ER_OPEN);
    return 0;
}

zip_int64_t SourceFichier::Lire(std::span<char> vers)
{
    const ssize_t lus = LireSuite(m_entree.Numero(), vers);
    if (lus == 0)
        NoterEtat();
    return lus < 0 ? Echec(ZIP_ER_READ) : lus;
}

void SourceFichier::NoterEtat()
{
    const std::optional<EtatFichier> etat = EtatDe(m_entree.Numero());
    if (!etat || *etat != VersEtat(m_fichier))
        return;
    m_ajout.etat = etat;
    m_ajout.sur = EstPasse(*etat);
}

zip_int64_t SourceFichier::Decrire(zip_stat_t& etat) const
{
    zip_stat_init(&etat);
    etat.size = static_cast<zip_uint64_t>(m_fichier.st_size);
    etat.mtime = m_fichier.st_mtime;
    etat.valid = ZIP_STAT_SIZE | ZIP_STAT_MTIME;
    Completer(etat);
    return sizeof(etat);
}

zip_int64_t SourceFichier::Attributs(zip_file_attributes_t& attributs) const
{
    zip_file_attributes_init(&attributs);
    attributs.valid = ZIP_FILE_ATTRIBUTES_HOST_SYSTEM | ZIP_FILE_ATTRIBUTES_EXTERNAL_FILE_ATTRIBUTES;
    attributs.host_system = ZIP_OPSYS_UNIX;
    attributs.external_file_attributes = static_cast<zip_uint32_t>(m_fichier.st_mode) << 16;
    return sizeof(attributs);
}

zip_int64_t SourceFichier::Commande(void* source, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande)
try {
    auto* moi = static_cast<SourceFichier*>(source);
    switch (commande) {
    case ZIP_SOURCE_OPEN:
        return moi->Ouvrir();
    case ZIP_SOURCE_READ:
        return moi->Lire({static_cast<char*>(donnees), static_cast<size_t>(taille)});
    case ZIP_SOURCE_CLOSE:
        moi->Fermer();
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
} catch (const std::bad_alloc&) {
    // Nothing is thrown through the library.
    return static_cast<SourceFichier*>(source)->Echec(ZIP_ER_MEMORY);
}

zip_source_t* SourceFichier::Donner(zip_t* archive, std::unique_ptr<SourceFichier> source)
{
    zip_source_t* donnee = zip_source_function(archive, Commande, source.get());
    if (donnee)
        static_cast<void>(source.release()); // the library frees it
    return donnee;
}

zip_source_t* CreerSourceFichier(zip_t* archive, Ajout& ajout, const struct stat& fichier)
{
    return SourceFichier::Donner(archive, std::make_unique<SourceFichier>(ajout, fichier));
}

} // namespace zipinterne
