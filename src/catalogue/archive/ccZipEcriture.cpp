// Writing: a new archive is built where it will stand, an old one is added to beside its place and put there by a
// rename; what was written is listed again.
#include "catalogue/archive/ccZipCible.h"
#include "catalogue/archive/ccZipInterne.h"

#include "base/Evenements.h"
#include "catalogue/archive/FichierProvisoire.h"
#include "catalogue/archive/PlaceDuFichier.h"
#include "platform/NomsSysteme.h"
#include "platform/PageDeCode.h"
#include "platform/Presence.h"

#include <QElapsedTimer>
#include <QFile>

namespace zipinterne {

namespace {

constexpr qsizetype PlusLongCommentaire = 4096;

ResultatZip ResultatEcriture(const zip_error_t& erreur)
{
    switch (zip_error_code_zip(&erreur)) {
    case ZIP_ER_TMPOPEN:
    case ZIP_ER_RENAME:
        return ZipCreation;
    case ZIP_ER_OPEN:
    case ZIP_ER_READ:
        return ZipLecture;
    case ZIP_ER_MEMORY:
        return ZipMemoire;
    default:
        return ZipEcriture;
    }
}

/// What the directory of the finished archive must say.
struct Attendu
{
    QByteArray nom;
    uint64_t taille;
    friend bool operator==(const Attendu&, const Attendu&) = default;
};

std::vector<Attendu> Inventaire(zip_t* archive)
{
    std::vector<Attendu> inventaire;
    const auto nombre = static_cast<zip_uint64_t>(zip_get_num_entries(archive, 0));
    inventaire.reserve(nombre);
    for (zip_uint64_t i = 0; i < nombre; ++i) {
        zip_stat_t etat;
        if (zip_stat_index(archive, i, 0, &etat) == 0)
            inventaire.push_back({zip_get_name(archive, i, 0), etat.size});
    }
    return inventaire;
}

/// Where the bytes of an entry come from; null when they cannot be had.
struct Provenance
{
    zip_source_t* source;
    int methode; ///< what the library is to do with them
};

Provenance ProvenanceDe(zip_t* archive, Ajout& ajout, int niveau, const OrigineZip* origine, Relais& relais)
{
    constexpr off_t vautLaPeine = off_t(64) << 10;
    constexpr off_t tientEnMemoire = off_t(512) << 20;
    struct stat fichier;
    if (stat(OctetsDuChemin(ajout.fichier).constData(), &fichier) != 0 || !S_ISREG(fichier.st_mode))
        return {nullptr, ZIP_CM_STORE};
    if (niveau == 0 || fichier.st_size == 0)
        return {CreerSourceFichier(archive, ajout, fichier), ZIP_CM_STORE};
    if (zip_source_t* source = origine ? origine->Source(archive, ajout, fichier, niveau, relais) : nullptr)
        return {source, ZIP_CM_DEFAULT};
    if constexpr (ZELVANE_LIBDEFLATE) {
        if (fichier.st_size >= vautLaPeine && fichier.st_size <= tientEnMemoire)
            return {CreerSourceDeflate(archive, ajout, fichier, niveau), ZIP_CM_DEFAULT};
    }
    // Deflate is named on purpose: the library's default method forgets the level.
    return {CreerSourceFichier(archive, ajout, fichier), ZIP_CM_DEFLATE};
}

/// Hands one file to the archive.
ResultatZip Poser(zip_t* archive, Ajout& ajout, int niveau, const OrigineZip* origine, Relais& relais)
{
    const char* nom = ajout.nom.constData();
    // The library cannot replace an entry by one of the same method: it forgets the new level.
    const zip_int64_t ancienne = zip_name_locate(archive, nom, ZIP_FL_ENC_UTF_8);
    if (ancienne >= 0)
        zip_delete(archive, static_cast<zip_uint64_t>(ancienne));
    if (ajout.nom.endsWith('/'))
        return zip_dir_add(archive, nom, ZIP_FL_ENC_UTF_8) >= 0 ? ZipFait : ZipEcriture;

    const auto [source, methode] = ProvenanceDe(archive, ajout, niveau, origine, relais);
    if (!source)
        return ZipLecture;
    const zip_int64_t index = zip_file_add(archive, nom, source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return ZipEcriture;
    }
    const bool accepte = zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), methode,
                                                  static_cast<zip_uint32_t>(niveau)) == 0;
    return accepte ? ZipFait : ZipEcriture;
}

QByteArray OctetsDuCommentaire(const QString& commentaire)
{
    const qsizetype zero = commentaire.indexOf(QChar(0));
    return PageDeCode::VersOctets(commentaire.left(zero < 0 ? commentaire.size() : zero)).left(PlusLongCommentaire);
}

/// The library writes no comment but ASCII and UTF-8, so one in the code page goes in behind it: the comment is the end
/// of the file.
bool PoserCommentaire(const QString& chemin, const QByteArray& octets)
{
    QFile fichier;
    return OuvrirParChemin(fichier, chemin, QIODevice::ReadWrite | QIODevice::ExistingOnly) &&
           fichier.seek(fichier.size() - octets.size()) && fichier.write(octets) == octets.size() && fichier.flush();
}

/// Lists the archive as it lies on the disk. Sums were taken of the bytes as they were read, and every write was
/// checked: reading all of it again would take half as long as writing and find only a broken disk.
bool EstComplet(const QString& chemin, const std::vector<Attendu>& attendus, const QByteArray& commentaire)
{
    const ArchiveOuverte ecrite = OuvrirArchive(chemin);
    return ecrite.archive && Inventaire(ecrite.archive.get()) == attendus &&
           (commentaire.isEmpty() || LireCommentaire(ecrite.archive.get()) == PageDeCode::VersTexte(commentaire));
}

/// The copy of an old archive.
Archive OuvrirCopie(const QString& chemin)
{
    return Archive(zip_open(OctetsDuChemin(chemin).constData(), 0, nullptr));
}

/// A new archive, which will take about `volume` bytes (0: not known).
Archive OuvrirNeuve(PlaceDuFichier& place, uint64_t volume, Relais& relais)
{
    zip_source_t* cible = CreerCible(place, volume, relais);
    Archive archive(cible ? zip_open_from_source(cible, ZIP_CREATE, nullptr) : nullptr);
    if (!archive && cible)
        zip_source_free(cible);
    return archive;
}

/// Keeps windows alive while an archive is being written.
class Respiration
{
public:
    explicit Respiration(zip_t* archive)
    {
        constexpr double pas = 0.0005; // of the whole
        zip_register_progress_callback_with_state(archive, pas, Avance, nullptr, this);
        m_depuis.start();
    }

private:
    static void Avance(zip_t*, double, void* moi) { static_cast<Respiration*>(moi)->Souffler(); }
    void Souffler()
    {
        constexpr qint64 intervalle = 50; // milliseconds
        if (m_depuis.elapsed() < intervalle)
            return;
        LaisserPasserEvenements();
        m_depuis.start();
    }

    QElapsedTimer m_depuis;
};

class Ecrivain
{
public:
    Ecrivain(const FormeArchive& forme, QString& infos)
        : m_commentaire(OctetsDuCommentaire(forme.commentaire)), m_niveau(forme.niveau), m_infos(infos)
    {
    }
    /// Writes a new archive; on failure it is gone again.
    ResultatZip Construire(PlaceDuFichier& place, std::vector<Ajout>& ajouts, const OrigineZip* origine);
    /// Adds to an archive; on failure it is as it was.
    ResultatZip Completer(const QString& chemin, std::vector<Ajout>& ajouts);

private:
    ResultatZip Remplir(Archive archive, const QString& chemin, std::vector<Ajout>& ajouts, const OrigineZip* origine);
    ResultatZip Clore(Archive archive, const QString& chemin);

    QByteArray m_commentaire;
    int m_niveau;
    QString& m_infos;
    Relais m_relais;
};

ResultatZip Ecrivain::Construire(PlaceDuFichier& place, std::vector<Ajout>& ajouts, const OrigineZip* origine)
{
    AttendreFermetures();
    m_relais = Relais();
    Archive archive = OuvrirNeuve(place, origine ? origine->Taille() : 0, m_relais);
    if (!archive)
        return ZipCreation;
    const ResultatZip resultat = Remplir(std::move(archive), place.Chemin(), ajouts, origine);
    if (resultat != ZipFait)
        place.Retirer();
    return resultat;
}

ResultatZip Ecrivain::Completer(const QString& chemin, std::vector<Ajout>& ajouts)
{
    Archive archive = OuvrirCopie(chemin);
    return archive ? Remplir(std::move(archive), chemin, ajouts, nullptr) : ZipFormat;
}

ResultatZip Ecrivain::Remplir(Archive archive, const QString& chemin, std::vector<Ajout>& ajouts,
                              const OrigineZip* origine)
{
    for (Ajout& ajout : ajouts) {
        ajout.etat.reset();
        const ResultatZip pose = Poser(archive.get(), ajout, m_niveau, origine, m_relais);
        if (pose != ZipFait) {
            m_infos += Ligne(ajout.fichier, Texte(*zip_get_error(archive.get())));
            return pose;
        }
    }
    return Clore(std::move(archive), chemin);
}

ResultatZip Ecrivain::Clore(Archive archive, const QString& chemin)
{
    const auto longueur = static_cast<zip_uint16_t>(m_commentaire.size());
    const bool ascii =
        m_commentaire.isEmpty() || zip_set_archive_comment(archive.get(), m_commentaire.constData(), longueur) == 0;
    if (!ascii)
        zip_set_archive_comment(archive.get(), QByteArray(longueur, '?').constData(), longueur);

    const std::vector<Attendu> attendus = Inventaire(archive.get());
    const Respiration respiration(archive.get());
    if (zip_close(archive.get()) != 0) {
        m_infos += Ligne(chemin, Texte(*zip_get_error(archive.get())));
        return ResultatEcriture(*zip_get_error(archive.get()));
    }
    static_cast<void>(archive.release()); // closed
    const bool complet =
        (ascii || PoserCommentaire(chemin, m_commentaire)) && EstComplet(chemin, attendus, m_commentaire);
    return complet ? ZipFait : ZipEcriture;
}

/// What is to be known of a new archive.
std::shared_ptr<ArchiveConnue> Connaitre(const QString& chemin, const std::vector<Ajout>& ajouts, int niveau)
{
    const std::optional<EtatFichier> ecrite = EtatDe(chemin), passee = EtatPasse(chemin);
    if (!ecrite || ecrite != passee)
        return nullptr;
    auto connue = std::make_shared<ArchiveConnue>(ArchiveConnue{chemin, *passee, niveau, {}, {}});
    connue->fichiers.reserve(static_cast<qsizetype>(ajouts.size()));
    for (size_t i = 0; i < ajouts.size(); ++i)
        connue->fichiers.insert(ajouts[i].nom,
                                {i, ajouts[i].etat.value_or(EtatFichier()), ajouts[i].etat && ajouts[i].sur});
    return connue;
}

} // namespace

Ecrit Ecrire(const QString& chemin, std::vector<Ajout> ajouts, const FormeArchive& forme, Origine origine,
             QString& infos)
{
    Ecrivain ecrivain(forme, infos);
    // Where the caller has made the place free, what has come there since is somebody else's.
    if (!forme.place && PeutExister(chemin)) {
        const FichierProvisoire provisoire(chemin);
        if (!CopierParChemin(chemin, provisoire.Chemin()))
            return {ZipCreation, nullptr};
        const ResultatZip resultat = ecrivain.Completer(provisoire.Chemin(), ajouts);
        if (resultat != ZipFait)
            return {resultat, nullptr};
        return {provisoire.Deposer() ? ZipFait : ZipCreation, nullptr};
    }
    PlaceDuFichier sienne(chemin);
    PlaceDuFichier& place = forme.place ? *forme.place : sienne;
    ResultatZip resultat = ecrivain.Construire(place, ajouts, origine.get());
    if (origine && !place.EstPerdue() && (resultat != ZipFait || !origine->EstIntacte())) {
        // Somebody wrote to the old archive, or it takes the place that the new one needs: all comes from the folder.
        place.Retirer();
        origine.reset();
        resultat = ecrivain.Construire(place, ajouts, nullptr);
    }
    return {resultat, resultat == ZipFait ? Connaitre(chemin, ajouts, forme.niveau) : nullptr};
}

} // namespace zipinterne
