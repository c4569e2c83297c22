// A file as an archive source; for the files of ccZip alone.
#pragma once

#include "catalogue/archive/ccZipDescripteur.h"
#include "catalogue/archive/ccZipInterne.h"

#include <zip.h>

namespace zipinterne {

/// A file as it stands. It notes in its Ajout in what state the file was read. The library calls it through Commande.
class SourceFichier
{
public:
    SourceFichier(Ajout& ajout, const struct stat& fichier) : m_fichier(fichier), m_ajout(ajout)
    {
        zip_error_init(&m_erreur);
    }
    virtual ~SourceFichier() { zip_error_fini(&m_erreur); }
    SourceFichier(const SourceFichier&) = delete;
    SourceFichier& operator=(const SourceFichier&) = delete;

    /// The library's source, which owns the object; null when it cannot be had.
    static zip_source_t* Donner(zip_t* archive, std::unique_ptr<SourceFichier> source);

protected:
    virtual zip_int64_t Ouvrir();
    virtual zip_int64_t Lire(std::span<char> vers);
    virtual void Fermer() { m_entree.Fermer(); }
    /// What is known of the bytes beyond size and date.
    virtual void Completer(zip_stat_t& /*etat*/) const {}

    zip_int64_t Echec(int erreur);
    /// To be called when all was read: keeps the state, unless the file was written to meanwhile.
    void NoterEtat();

    Descripteur m_entree; ///< while open
    struct stat m_fichier;

private:
    static zip_int64_t Commande(void* source, void* donnees, zip_uint64_t taille, zip_source_cmd_t commande);
    zip_int64_t Decrire(zip_stat_t& etat) const;
    zip_int64_t Attributs(zip_file_attributes_t& attributs) const;

    Ajout& m_ajout;
    zip_error_t m_erreur;
};

} // namespace zipinterne
