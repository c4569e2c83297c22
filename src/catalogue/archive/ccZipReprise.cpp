#include "catalogue/archive/ccZipReprise.h"

#include "catalogue/archive/ccZipInterne.h"
#include "catalogue/archive/ccZipRelais.h"
#include "catalogue/archive/ccZipSource.h"
#include "catalogue/archive/ccZipSourceArchive.h"
#include "platform/NomsSysteme.h"

#include <fcntl.h>

#include <algorithm>
#include <future>
#include <memory>
#include <system_error>
#include <vector>

namespace zipinterne {

namespace {

/// Compressed bytes as they lie in an archive. The first ones are read, which tells where they stand; the others are
/// sent ahead to the archive that is being written.
class SourceReprise : public SourceFichier
{
public:
    /// `brute`: the library's source of the same bytes, which becomes the object's.
    SourceReprise(Ajout& ajout, const struct stat& fichier, zip_source_t* brute, const zip_stat_t& etat,
                  const SourceArchive& archive, Relais& relais)
        : SourceFichier(ajout, fichier), m_brute(brute), m_etat(etat), m_archive(archive), m_relais(relais)
    {
    }
    ~SourceReprise() override { zip_source_free(m_brute); }

protected:
    zip_int64_t Ouvrir() override
    {
        m_rendus = 0;
        return zip_source_open(m_brute) == 0 ? 0 : Echec(ZIP_ER_OPEN);
    }
    zip_int64_t Lire(std::span<char> vers) override;
    void Fermer() override { zip_source_close(m_brute); }
    void Completer(zip_stat_t& etat) const override
    {
        etat.comp_method = m_etat.comp_method;
        etat.comp_size = m_etat.comp_size;
        etat.crc = m_etat.crc;
        etat.valid |= ZIP_STAT_COMP_METHOD | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC;
    }

private:
    zip_source_t* m_brute;
    zip_stat_t m_etat;
    const SourceArchive& m_archive;
    Relais& m_relais;
    uint64_t m_debut = 0; ///< where the bytes stand in the archive
    uint64_t m_rendus = 0;
};

zip_int64_t SourceReprise::Lire(std::span<char> vers)
{
    if (m_rendus == 0) { // as much as there is room for: what is left of a buffer is asked for at once, and not sent
        const zip_int64_t lus = zip_source_read(m_brute, vers.data(), vers.size());
        if (lus < 0)
            return Echec(ZIP_ER_READ);
        m_rendus = static_cast<uint64_t>(lus);
        m_debut = m_archive.Position() - m_rendus;
        return lus;
    }
    const uint64_t suite = std::min<uint64_t>(vers.size(), m_etat.comp_size - m_rendus);
    const Plage plage{m_archive.Fichier(), m_debut + m_rendus, suite};
    if (suite > 0 && !m_relais.Envoyer(vers.first(static_cast<size_t>(suite)), plage))
        return Echec(ZIP_ER_INTERNAL);
    m_rendus += suite;
    return static_cast<zip_int64_t>(suite);
}

} // namespace

} // namespace zipinterne

using namespace zipinterne;

void FermerOrigine::operator()(OrigineZip* origine) const
{
    delete origine;
}

namespace {

std::future<void>& Fermeture()
{
    static std::future<void> fermeture; // its end waits for the thread
    return fermeture;
}

} // namespace

OrigineZip::~OrigineZip()
{
    // When its name is gone, the system now lets go of all that the archive held. The user need not wait for that.
    m_archive.reset();
    AttendreFermetures();
    try {
        Fermeture() = std::async(std::launch::async, [fichier = std::move(m_fichier)]() mutable { fichier.Fermer(); });
    } catch (const std::system_error&) {
        // No thread is to be had: the file was closed with what was to run in it.
    }
}

void zipinterne::AttendreFermetures()
{
    if (Fermeture().valid())
        Fermeture().get();
}

Origine OuvrirOrigine(std::shared_ptr<const ArchiveConnue> connue)
{
    if (!connue || connue->fichiers.isEmpty())
        return nullptr;
    Descripteur fichier(open(OctetsDuChemin(connue->chemin).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!fichier || EtatDe(fichier.Numero()) != connue->etat)
        return nullptr;
    auto [archive, lue] =
        LireDepuis(std::make_unique<SourceArchive>(fichier.Numero(), connue->etat.taille, connue->retouches));
    if (!archive)
        return nullptr;
    return Origine(new OrigineZip(std::move(connue), std::move(fichier), std::move(archive), *lue));
}

zip_source_t* OrigineZip::Source(zip_t* archive, Ajout& ajout, const struct stat& fichier, int niveau,
                                 Relais& relais) const
{
    const auto connu = m_connue->fichiers.constFind(ajout.nom);
    if (niveau != m_connue->niveau || connu == m_connue->fichiers.cend() || !connu->sur ||
        connu->etat != VersEtat(fichier))
        return nullptr;
    zip_stat_t etat;
    if (zip_stat_index(m_archive.get(), connu->index, 0, &etat) != 0)
        return nullptr;
    const bool reprenable =
        etat.comp_method == ZIP_CM_DEFLATE && etat.encryption_method == ZIP_EM_NONE && etat.size == connu->etat.taille;
    if (!reprenable)
        return nullptr;
    zip_source_t* brute = zip_source_zip(archive, m_archive.get(), connu->index, ZIP_FL_COMPRESSED, 0, -1);
    if (!brute)
        return nullptr;
    ajout.etat = connu->etat;
    ajout.sur = true;
    return SourceFichier::Donner(archive, std::make_unique<SourceReprise>(ajout, fichier, brute, etat, m_lue, relais));
}

bool OrigineZip::EstIntacte() const
{
    // The time of the last change is no help here: the deletion of the name is one.
    std::optional<EtatFichier> etat = EtatDe(m_fichier.Numero());
    if (etat)
        etat->change = m_connue->etat.change;
    return etat == m_connue->etat;
}

QSet<QByteArray> RapporterFichiers(const std::shared_ptr<ArchiveConnue>& connue, const QList<QByteArray>& noms,
                                   const QString& dossier)
{
    QSet<QByteArray> rapportes;
    const Origine origine = noms.isEmpty() ? nullptr : OuvrirOrigine(connue);
    if (!origine)
        return rapportes;
    std::vector<Voulu> voulus;
    for (const QByteArray& nom : noms) {
        const ArchiveConnue::Fichier fichier = connue->fichiers.value(nom);
        voulus.push_back({fichier.index, nom, fichier.etat});
    }
    const auto extraits = ExtraireVoulus(origine->Lue(), voulus, dossier);
    for (auto it = extraits.cbegin(); it != extraits.cend(); ++it) {
        connue->fichiers.insert(it.key(), it.value());
        rapportes.insert(it.key());
    }
    return rapportes;
}
