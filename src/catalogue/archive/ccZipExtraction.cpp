// Extraction into one folder. Nothing of an archive is believed: names lose their folders, files are made anew so that
// no link is followed, sizes are added up before the first byte is written and hold while it is.
#include "catalogue/archive/ccZipDescripteur.h"
#include "catalogue/archive/ccZipInterne.h"

#include "catalogue/archive/NomsTenables.h"
#include "catalogue/archive/mZipDLLProc.h"
#include "platform/NomsSysteme.h"
#include "platform/PageDeCode.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <limits>
#include <span>
#include <utility>

namespace zipinterne {

namespace {

/// An entry that is to be extracted.
struct Choix
{
    zip_stat_t etat;
    QByteArray fichier;     ///< bare name, as the file system writes it
    EtatFichier voulu = {}; ///< the state whose date the file gets; without, it is the entry's
    bool Chiffre() const { return etat.encryption_method != ZIP_EM_NONE; }
};

/// The name of an entry without a mark: the library shows the control characters of its code page as signs.
QString AvecControles(const QString& nom, QByteArrayView brut)
{
    const auto estControle = [](char c) { return static_cast<uchar>(c) < ' '; };
    if (nom.size() != brut.size() || std::ranges::none_of(brut, estControle))
        return nom;
    QString vrai = nom;
    for (qsizetype i = 0; i < brut.size(); ++i) {
        if (estControle(brut[i]))
            vrai[i] = QLatin1Char(brut[i]);
    }
    return vrai;
}

class Extraction
{
public:
    Extraction(zip_t* archive, const LimitesExtraction& limites, QString& infos)
        : m_archive(archive), m_limites(limites), m_infos(infos), m_tampon(TailleTampon)
    {
    }

    ResultatZip Vers(const QString& cible, const std::vector<NomLu>& noms, const QString& masque);
    void Voulus(const QString& cible, const std::vector<Voulu>& voulus);
    QHash<QByteArray, ArchiveConnue::Fichier> PrendreFichiers() { return std::move(m_fichiers); }
    QList<NomRemplace> PrendreRemplaces() { return std::move(m_remplaces); }

private:
    static constexpr size_t TailleTampon = 256 * 1024;

    ResultatZip Choisir(const std::vector<NomLu>& noms, const QString& masque);
    bool EstPossible(const QString& nom, const QByteArray& fichier) const;
    void Renommer(const std::vector<std::pair<size_t, QString>>& impossibles);
    ResultatZip VerifierPlace();
    uint64_t PlaceLibre() const;
    ResultatZip ExtraireUn(const Choix& choix);
    ResultatZip EssayerMotsDePasse(const Choix& choix);
    ResultatZip Essayer(const Choix& choix, const QByteArray* motDePasse);
    void Dater(int sortie, const Choix& choix);
    ResultatZip Copier(zip_file_t* source, int sortie, const Choix& choix);
    ResultatZip EchecDeLecture(zip_error_t& erreur, const Choix& choix);
    void Dire(const QString& nom, const QString& quoi) { m_infos += Ligne(nom, quoi); }
    void Dire(const Choix& choix, const QString& quoi) { Dire(CheminDesOctets(choix.fichier), quoi); }

    zip_t* m_archive;
    const LimitesExtraction& m_limites;
    QString& m_infos;
    std::vector<char> m_tampon;
    std::optional<Descripteur> m_dossier;
    std::vector<Choix> m_choisis;
    std::vector<QByteArray> m_extraits;
    QList<NomRemplace> m_remplaces;
    qsizetype m_octetsDUnNom = 0; ///< at most
    QHash<QByteArray, ArchiveConnue::Fichier> m_fichiers;
    std::optional<QByteArray> m_motDePasse; ///< the last one that fitted
    uint64_t m_reserve = 0;                 ///< what the disk keeps free
    uint64_t m_ecritsDepuisControle = 0;
};

ResultatZip Extraction::Vers(const QString& cible, const std::vector<NomLu>& noms, const QString& masque)
{
    m_dossier.emplace(open(OctetsDuChemin(cible).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!*m_dossier) {
        Dire(cible, QStringLiteral("not a folder"));
        return ZipDisque;
    }
    const long octets = fpathconf(m_dossier->Numero(), _PC_NAME_MAX);
    m_octetsDUnNom = octets > 0 ? octets : NAME_MAX;
    const ResultatZip choisi = Choisir(noms, masque);
    if (choisi > ZipAvertissement)
        return choisi;
    ResultatZip resultat = VerifierPlace();
    for (auto choix = m_choisis.cbegin(); resultat == ZipFait && choix != m_choisis.cend(); ++choix)
        resultat = ExtraireUn(*choix);
    if (resultat == ZipFait)
        return choisi;
    // Half a catalogue must not pass for a whole one.
    for (const QByteArray& fichier : m_extraits)
        unlinkat(m_dossier->Numero(), fichier.constData(), 0);
    return resultat;
}

void Extraction::Voulus(const QString& cible, const std::vector<Voulu>& voulus)
{
    m_dossier.emplace(open(OctetsDuChemin(cible).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!*m_dossier)
        return;
    for (const Voulu& voulu : voulus) {
        Choix choix{{}, voulu.fichier, voulu.etat};
        if (zip_stat_index(m_archive, voulu.index, 0, &choix.etat) == 0 && !choix.Chiffre())
            m_choisis.push_back(choix);
    }
    if (VerifierPlace() != ZipFait)
        return;
    for (const Choix& choix : m_choisis) {
        if (ExtraireUn(choix) != ZipFait)
            m_fichiers.remove(choix.fichier);
    }
}

/// The result is a warning when entries are passed over that are not mere folders.
ResultatZip Extraction::Choisir(const std::vector<NomLu>& noms, const QString& masque)
{
    ResultatZip resultat = noms.empty() ? ZipAvertissement : ZipFait;
    bool trouve = masque.isEmpty();
    std::vector<std::pair<size_t, QString>> impossibles;
    for (size_t i = 0; i < noms.size(); ++i) {
        const auto& [lu, coupe] = noms[i];
        const QString nom = AvecControles(lu, zip_get_name(m_archive, i, ZIP_FL_ENC_RAW));
        if (!masque.isEmpty() && !CorrespondAuMasque(nom, masque))
            continue;
        trouve = true;
        const QString nu = NomNu(nom);
        if (!coupe && nu.isEmpty() && !nom.isEmpty())
            continue; // a folder
        if (coupe || nu.isEmpty() || nu == u"." || nu == u"..") {
            Dire(nom, QStringLiteral("not a name for a file, passed over"));
            resultat = ZipAvertissement;
            continue;
        }
        Choix choix{{}, OctetsDuChemin(nu)};
        if (zip_stat_index(m_archive, i, 0, &choix.etat) != 0)
            return ZipFormat;
        if (!EstPossible(nu, choix.fichier))
            impossibles.emplace_back(m_choisis.size(), nu);
        m_choisis.push_back(choix);
    }
    if (!impossibles.empty()) {
        Renommer(impossibles);
        resultat = ZipAvertissement;
    }
    return trouve ? resultat : ZipAucunFichier;
}

/// Whether a file of the folder can have the name, and an entry of the next archive too.
bool Extraction::EstPossible(const QString& nom, const QByteArray& fichier) const
{
    return fichier.size() <= m_octetsDUnNom && EstNomPossible(nom);
}

/// Gives entries other names for the folder; those of one name get one.
void Extraction::Renommer(const std::vector<std::pair<size_t, QString>>& impossibles)
{
    constexpr qsizetype pourDesSuffixes = 15; // what the program sets before and behind the names of images
    NomsDistincts noms(m_octetsDUnNom - pourDesSuffixes);
    for (const Choix& choix : m_choisis)
        noms.Prendre(PageDeCode::DeUtf8(choix.fichier));
    QHash<QString, QByteArray> donnes;
    for (const auto& [i, nom] : impossibles) {
        QByteArray& fichier = donnes[nom];
        if (fichier.isEmpty()) {
            fichier = OctetsDuChemin(noms.Donner(nom));
            m_remplaces.append({nom, PageDeCode::DeUtf8(fichier)});
        }
        m_choisis[i].fichier = fichier;
        Dire(nom, QStringLiteral("not a name for a file, extracted as ") + CheminDesOctets(fichier));
    }
}

uint64_t Extraction::PlaceLibre() const
{
    if (m_limites.placeLibre)
        return *m_limites.placeLibre;
    struct statvfs disque;
    if (fstatvfs(m_dossier->Numero(), &disque) != 0)
        return std::numeric_limits<uint64_t>::max();
    return static_cast<uint64_t>(disque.f_bavail) * disque.f_frsize;
}

/// Compares what the entries say they will take, in whole blocks, with the limits. Copier holds them to it.
ResultatZip Extraction::VerifierPlace()
{
    constexpr uint64_t plusGrandeReserve = uint64_t(64) << 20;
    constexpr uint64_t bloc = 4096;
    uint64_t somme = 0;
    uint64_t volume = 0;
    for (const Choix& choix : m_choisis) {
        if (choix.etat.size > m_limites.parEntree) {
            Dire(choix, QStringLiteral("too large"));
            return ZipTropGrand;
        }
        volume += choix.etat.size;
        somme += (choix.etat.size + bloc - 1) / bloc * bloc;
    }
    const uint64_t libre = PlaceLibre();
    m_reserve = std::min(libre / 16, plusGrandeReserve);
    if (somme > libre - m_reserve) {
        Dire(QStringLiteral("the disk"), QStringLiteral("not enough free space"));
        return ZipDisque;
    }
    return !m_limites.accepter || m_limites.accepter(volume) ? ZipFait : ZipAbandon;
}

ResultatZip Extraction::ExtraireUn(const Choix& choix)
{
    if (!zip_compression_method_supported(choix.etat.comp_method, 0) ||
        (choix.Chiffre() && !zip_encryption_method_supported(choix.etat.encryption_method, 0))) {
        Dire(choix, QStringLiteral("unknown compression or encryption"));
        return ZipMethode;
    }
    const ResultatZip resultat = choix.Chiffre() ? EssayerMotsDePasse(choix) : Essayer(choix, nullptr);
    if (resultat == ZipFait)
        m_extraits.push_back(choix.fichier);
    return resultat;
}

/// The password that fitted before goes first; a new one is asked for three times at most.
ResultatZip Extraction::EssayerMotsDePasse(const Choix& choix)
{
    constexpr int questions = 3;
    if (m_motDePasse) {
        const ResultatZip resultat = Essayer(choix, &*m_motDePasse);
        if (resultat != ZipMotDePasse)
            return resultat;
    }
    for (int i = 0; i < questions; ++i) {
        const std::optional<QString> reponse = QuestionMotDePasse();
        if (!reponse)
            return ZipMotDePasse;
        for (const QByteArray& octets : OctetsDuMotDePasse(*reponse)) {
            const ResultatZip resultat = Essayer(choix, &octets);
            if (resultat == ZipFait)
                m_motDePasse = octets;
            if (resultat != ZipMotDePasse)
                return resultat;
        }
    }
    return ZipMotDePasse;
}

ResultatZip Extraction::Essayer(const Choix& choix, const QByteArray* motDePasse)
{
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> source(
        zip_fopen_index_encrypted(m_archive, choix.etat.index, 0, motDePasse ? motDePasse->constData() : nullptr),
        zip_fclose);
    if (!source)
        return EchecDeLecture(*zip_get_error(m_archive), choix);

    const int dossier = m_dossier->Numero();
    const char* nom = choix.fichier.constData();
    unlinkat(dossier, nom, 0);
    m_fichiers.remove(choix.fichier);
    Descripteur sortie(openat(dossier, nom, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (!sortie) {
        Dire(choix, QStringLiteral("cannot be created"));
        return ZipDisque;
    }
    ResultatZip resultat = Copier(source.get(), sortie.Numero(), choix);
    Dater(sortie.Numero(), choix);
    if (!sortie.Fermer() && resultat == ZipFait)
        resultat = ZipDisque;
    if (resultat != ZipFait)
        unlinkat(dossier, nom, 0);
    return resultat;
}

/// Gives the file its date. It is an old one, so that every later write shows in it, and the file can be known
/// again from here on.
void Extraction::Dater(int sortie, const Choix& choix)
{
    constexpr int64_t parSeconde = 1'000'000'000;
    const int64_t modifie = choix.voulu.modifie;
    // That nobody has read it for so long would be no true date: there are programs that delete such files.
    const timespec dates[2] = {{0, UTIME_NOW},
                               choix.voulu == EtatFichier() ? timespec{choix.etat.mtime, 0}
                                                            : timespec{modifie / parSeconde, modifie % parSeconde}};
    const bool datee = futimens(sortie, dates) == 0;
    const std::optional<EtatFichier> etat = EtatDe(sortie);
    m_fichiers.insert(choix.fichier, {choix.etat.index, etat.value_or(EtatFichier()), datee && etat});
}

/// Writes an entry's bytes, never more than it announces.
ResultatZip Extraction::Copier(zip_file_t* source, int sortie, const Choix& choix)
{
    constexpr uint64_t controle = uint64_t(64) << 20;
    const ResultatZip mensonge = choix.Chiffre() ? ZipMotDePasse : ZipDonnees;
    uint64_t total = 0;
    for (;;) {
        const zip_int64_t n = zip_fread(source, m_tampon.data(), m_tampon.size());
        if (n < 0)
            return EchecDeLecture(*zip_file_get_error(source), choix);
        if (n == 0)
            break;
        const auto lus = static_cast<size_t>(n);
        total += lus;
        if (total > choix.etat.size)
            break;
        if (!EcrireTout(sortie, std::span(m_tampon).first(lus))) {
            Dire(choix, QStringLiteral("cannot be written"));
            return ZipDisque;
        }
        m_ecritsDepuisControle += lus;
        if (m_ecritsDepuisControle > controle) {
            m_ecritsDepuisControle = 0;
            if (PlaceLibre() < m_reserve)
                return ZipDisque; // others are filling the disk too
        }
    }
    // The library checks the sum of what it read, but not the size, and nothing of an entry without data.
    if (total == choix.etat.size && (total > 0 || choix.etat.crc == 0))
        return ZipFait;
    Dire(choix, QStringLiteral("not of the size that it announces"));
    return mensonge;
}

/// A wrong password passes the one byte that tests it once in 256 times; it shows as damaged data then.
ResultatZip Extraction::EchecDeLecture(zip_error_t& erreur, const Choix& choix)
{
    Dire(choix, Texte(erreur));
    const bool contradiction = zip_error_code_zip(&erreur) == ZIP_ER_INCONS;
    const ResultatZip resultat = contradiction ? ZipDonnees : ResultatLecture(erreur);
    const bool donnees = resultat == ZipDonnees || resultat == ZipTronque;
    return donnees && choix.Chiffre() ? ZipMotDePasse : resultat;
}

} // namespace

Extrait Extraire(zip_t* archive, const std::vector<NomLu>& noms, const QString& cible, const QString& masque,
                 const LimitesExtraction& limites, QString& infos)
{
    Extraction extraction(archive, limites, infos);
    const ResultatZip resultat = extraction.Vers(cible, noms, masque);
    return {resultat, extraction.PrendreFichiers(), extraction.PrendreRemplaces()};
}

QHash<QByteArray, ArchiveConnue::Fichier> ExtraireVoulus(zip_t* archive, const std::vector<Voulu>& voulus,
                                                         const QString& cible)
{
    const LimitesExtraction limites;
    QString infos;
    Extraction extraction(archive, limites, infos);
    extraction.Voulus(cible, voulus);
    return extraction.PrendreFichiers();
}

} // namespace zipinterne
