// Saving: a folder with whatever names, sizes and kinds of files is written into an archive, twice and, after changes
// behind the program's back, once more; each time all that was not complained about comes out of it as it lies there.
//
// An input is a byte that says which door is taken, a document's save (even) or the archive's own, and a list of steps,
// each of a byte that says what, a byte for the length of a name and the name, and two bytes for a number; see Etape.
#include "Commun.h"

#include "catalogue/archive/ccZip.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/EcritureQrt.h"
#include "catalogue/texte/ExtraireArchive.h"
#include "platform/Plateforme.h"

#include <QCoreApplication>
#include <QStringDecoder>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Files by the bytes of their names.
using Fichiers = std::map<std::string, QByteArray>;

struct Etape
{
    enum class Genre { Petit, Repete, Bruit, Dossier, Lien, LienPerdu, LienDur, Tube, Beaucoup, Nombre };
    enum class Retouche { Allonger, MemeDate, Supprimer, Renommer, Nombre };

    uint8_t code = 0;
    std::string nom;
    unsigned nombre = 0;

    bool APres() const { return code & 0x80; } ///< once the folder was saved
    Genre LeGenre() const { return static_cast<Genre>(code % static_cast<int>(Genre::Nombre)); }
    Retouche LaRetouche() const { return static_cast<Retouche>(code % static_cast<int>(Retouche::Nombre)); }
};

std::vector<Etape> Decoder(const uint8_t* octets, size_t taille)
{
    constexpr size_t auPlus = 24;
    std::vector<Etape> etapes;
    size_t i = 0;
    const auto octet = [&]() -> uint8_t { return i < taille ? octets[i++] : uint8_t(0); };
    while (i < taille && etapes.size() < auPlus) {
        Etape etape;
        etape.code = octet();
        for (size_t reste = octet(); reste > 0 && i < taille; --reste) {
            const auto c = static_cast<char>(octet());
            etape.nom += c == '\0' || c == '/' ? '_' : c; // the two that no file system takes
        }
        if (etape.nom.empty() || etape.nom == "." || etape.nom == "..")
            etape.nom = "sans nom";
        etape.nombre = octet();
        etape.nombre = etape.nombre << 8 | octet();
        etapes.push_back(etape);
    }
    return etapes;
}

QByteArray Bruit(unsigned graine, qsizetype taille)
{
    QByteArray octets(taille, '\0');
    uint32_t x = graine * 2654435761U + 1;
    for (char& c : octets) {
        x ^= x << 13;
        x ^= x >> 17;
        x ^= x << 5;
        c = static_cast<char>(x);
    }
    return octets;
}

void EcrireBrut(const fs::path& chemin, const QByteArray& octets)
{
    const int fichier = open(chemin.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0644);
    if (fichier < 0)
        return; // a folder has the name, or a link that leads nowhere
    Verifier(write(fichier, octets.constData(), static_cast<size_t>(octets.size())) == octets.size(), "no room");
    close(fichier);
}

/// The folder of a document, filled as an input says.
class Dossier
{
public:
    explicit Dossier(fs::path lieu) : m_lieu(std::move(lieu)) {}

    void Faire(const Etape& etape);
    void Retoucher(const Etape& etape);
    /// All plain files, and what links lead to, whose names are text.
    Fichiers Lire() const;
    /// Whether nothing of it may be refused.
    bool EstOrdinaire() const;

private:
    void FaireBeaucoup(const Etape& etape);

    fs::path m_lieu;
    std::string m_dernier;
};

void Dossier::Faire(const Etape& etape)
{
    std::error_code erreur;
    const fs::path chemin = m_lieu / etape.nom;
    if (fs::exists(fs::symlink_status(chemin, erreur)) || etape.nom.size() > 255)
        return;
    switch (etape.LeGenre()) {
    case Etape::Genre::Petit:
        EcrireBrut(chemin, QByteArray::number(etape.nombre).left(static_cast<qsizetype>(etape.nombre % 7)));
        break;
    case Etape::Genre::Repete:
        EcrireBrut(chemin, QByteArray("abcd").repeated(static_cast<qsizetype>(etape.nombre)));
        break;
    case Etape::Genre::Bruit:
        EcrireBrut(chemin, Bruit(etape.nombre, static_cast<qsizetype>(etape.nombre) * 2));
        break;
    case Etape::Genre::Dossier:
        fs::create_directory(chemin, erreur);
        EcrireBrut(chemin / "dedans", "x");
        break;
    case Etape::Genre::Lien:
        fs::create_symlink(m_dernier.empty() ? "." : m_dernier, chemin, erreur);
        break;
    case Etape::Genre::LienPerdu:
        fs::create_symlink("nulle part", chemin, erreur);
        break;
    case Etape::Genre::LienDur:
        fs::create_hard_link(m_lieu / m_dernier, chemin, erreur);
        break;
    case Etape::Genre::Tube:
        mkfifo(chemin.c_str(), 0644);
        break;
    default:
        FaireBeaucoup(etape);
        return;
    }
    m_dernier = etape.nom;
}

/// Names as long as they can be: their list is longer than 64 KiB from 260 on.
void Dossier::FaireBeaucoup(const Etape& etape)
{
    for (unsigned i = 0; i < etape.nombre % 300; ++i) {
        std::string nom = etape.nom + std::to_string(i);
        nom.insert(0, nom.size() < 255 ? 255 - nom.size() : 0, 'n');
        EcrireBrut(m_lieu / nom, QByteArray());
    }
}

void Dossier::Retoucher(const Etape& etape)
{
    std::error_code erreur;
    const Fichiers fichiers = Lire();
    if (fichiers.empty())
        return;
    const auto& [nom, octets] = *std::next(fichiers.begin(), etape.nombre % static_cast<unsigned>(fichiers.size()));
    const fs::path chemin = m_lieu / nom;
    const fs::file_time_type date = fs::last_write_time(chemin, erreur);
    switch (etape.LaRetouche()) {
    case Etape::Retouche::Allonger:
        EcrireBrut(chemin, octets + 'x');
        break;
    case Etape::Retouche::MemeDate: // and of the same size
        EcrireBrut(chemin, QByteArray(octets.size(), 'y'));
        fs::last_write_time(chemin, date, erreur);
        break;
    case Etape::Retouche::Supprimer:
        fs::remove(chemin, erreur);
        break;
    default:
        if (etape.nom.size() <= 255 && !fs::is_directory(m_lieu / etape.nom, erreur))
            fs::rename(chemin, m_lieu / etape.nom, erreur);
    }
}

bool EstTexte(const std::string& nom)
{
    QStringDecoder decodeur(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    static_cast<void>(QString(decodeur(QByteArrayView(nom))));
    return !decodeur.hasError();
}

Fichiers Dossier::Lire() const
{
    Fichiers fichiers;
    for (const fs::directory_entry& entree : fs::directory_iterator(m_lieu)) {
        std::error_code erreur;
        const std::string nom = entree.path().filename();
        if (entree.is_regular_file(erreur) && EstTexte(nom))
            fichiers[nom] = LireOctets(QFile::decodeName(entree.path().c_str()));
    }
    return fichiers;
}

bool Dossier::EstOrdinaire() const
{
    for (const fs::directory_entry& entree : fs::directory_iterator(m_lieu)) {
        std::error_code erreur;
        const std::string nom = entree.path().filename();
        const bool simple = entree.is_regular_file(erreur) || entree.is_directory(erreur);
        const bool imprimable =
            std::ranges::all_of(nom, [](char c) { return static_cast<unsigned char>(c) >= ' ' && c != '\\'; });
        if (!simple || !imprimable || !EstTexte(nom) ||
            (nom.starts_with("Zelvane.") && !entree.is_regular_file(erreur)))
            return false;
    }
    return true;
}

class Atelier
{
public:
    Atelier() : m_lieu(ModeleDeDossier(QStringLiteral("fuzz_zip_ecriture")))
    {
        static int argc = 1;
        static char nom[] = "fuzz_zip_ecriture";
        static char* argv[] = {nom, nullptr};
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_lieu.path())); // nobody's settings
        static QCoreApplication application(argc, argv);
        static PlateformeReelle plateformeReelle;
        plateforme().dossierProgramme = m_lieu.path() + u'/';
    }

    QString Archive() const { return m_lieu.filePath(QStringLiteral("x.qrt")); }
    /// A folder of its own, empty.
    QString Vide(const char* nom) const
    {
        std::error_code erreur;
        const QString chemin = m_lieu.filePath(QString::fromLatin1(nom)) + u'/';
        fs::remove_all(QFile::encodeName(chemin).toStdString(), erreur);
        Verifier(QDir().mkpath(chemin), "no room to work in");
        return chemin;
    }

private:
    QTemporaryDir m_lieu;
};

fs::path Chemin(const QString& dossier)
{
    return QFile::encodeName(dossier).toStdString();
}

/// Later than every time that a file has now, so that one that does not change can be known again.
void LaisserPasserLHeure()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

/// What is in the archive is what lies in the folder; and all of that is in it, unless `plainte`.
void Comparer(const Atelier& atelier, const Fichiers& attendus, bool plainte)
{
    const QString lus = atelier.Vide("lus");
    Categorie doc;
    doc.SetCheminReel(atelier.Archive());
    doc.TmpFolder = lus;
    if (!QFile::exists(atelier.Archive())) {
        Verifier(plainte, "there is no archive, and no complaint");
        return;
    }
    Verifier(ExtraireArchive(doc), "what was written cannot be read");
    const Fichiers trouves = Dossier(Chemin(lus)).Lire();
    for (const auto& [nom, octets] : trouves) {
        const auto attendu = attendus.find(nom);
        Verifier(attendu != attendus.end(), "a file that was not there");
        Verifier(attendu->second == octets, "a file with other bytes");
    }
    Verifier(plainte || trouves.size() == attendus.size(), "a file is gone without a complaint");
}

void Enregistrer(const Atelier& atelier, Categorie& doc, const Dossier& dossier)
{
    const QByteArray ancienne = QFile::exists(atelier.Archive()) ? LireOctets(atelier.Archive()) : QByteArray();
    const bool ordinaire = dossier.EstOrdinaire();
    const CompteurDeMessages compteur;
    const bool ecrit = EcrireFichier(doc, false);
    const bool plainte = !ecrit || doc.GardeDossier() || compteur.messages > 0;
    Verifier(!plainte || !ordinaire, "a folder of ordinary files is refused");
    if (ecrit)
        Comparer(atelier, dossier.Lire(), plainte);
    else
        Verifier(!QFile::exists(atelier.Archive()) || LireOctets(atelier.Archive()) == ancienne,
                 "a refused save changed the archive");
}

/// Adds all files to the archive, a new one or the one that is there. `pris`: what is in it, and will be.
void Ajouter(const Atelier& atelier, const QString& dossier, int niveau, Fichiers& pris)
{
    ccZip zip;
    zip.Init(atelier.Archive());
    zip.Level = niveau;
    zip.Comm = QStringLiteral("Écouté");
    for (const auto& [nom, octets] : Dossier(Chemin(dossier)).Lire()) {
        if (zip.AddFile(dossier + QFile::decodeName(nom.c_str()), 0, true) == ZipFait)
            pris[nom] = octets;
    }
    Verifier(zip.Fermer() == ZipFait, "what was taken cannot be written");
    Verifier(zip.Col.size() == static_cast<qsizetype>(pris.size()), "the list of what was taken is another one");
}

void EssayerArchive(const Atelier& atelier, const std::vector<Etape>& etapes)
{
    const QString chemin = atelier.Vide("dossier");
    Dossier dossier(Chemin(chemin));
    const int niveau = etapes.empty() ? 0 : static_cast<int>(etapes.front().nombre % 10);
    Fichiers pris;
    QFile::remove(atelier.Archive());
    for (const bool apres : {false, true}) {
        for (const Etape& etape : etapes) {
            if (etape.APres() == apres)
                apres ? dossier.Retoucher(etape) : dossier.Faire(etape);
        }
        Ajouter(atelier, chemin, niveau, pris);
        Comparer(atelier, pris, pris.empty());
    }
}

void EssayerDocument(const Atelier& atelier, const std::vector<Etape>& etapes)
{
    const QString chemin = atelier.Vide("dossier");
    Dossier dossier(Chemin(chemin));
    for (const Etape& etape : etapes) {
        if (!etape.APres())
            dossier.Faire(etape);
    }
    Categorie doc;
    MyLV& table = doc.Table;
    doc.TmpFolder = chemin;
    doc.SetCheminReel(atelier.Archive());
    QFile::remove(atelier.Archive());
    table.ColumnHeaders.Add(0, QStringLiteral("Titre"));
    table.ListItems.Add(0, QStringLiteral("k1"), QStringLiteral("\u041f"));

    LaisserPasserLHeure();
    Enregistrer(atelier, doc, dossier);
    Enregistrer(atelier, doc, dossier); // bytes are taken over
    for (const Etape& etape : etapes) {
        if (etape.APres())
            dossier.Retoucher(etape);
    }
    Enregistrer(atelier, doc, dossier);
    if (!QFile::exists(atelier.Archive()))
        return;

    // Opened from the archive, a save takes all over from there.
    const CompteurDeMessages compteur;
    doc.TmpFolder = atelier.Vide("rouvert");
    Verifier(ExtraireArchive(doc), "what was written cannot be opened");
    LaisserPasserLHeure();
    Enregistrer(atelier, doc, Dossier(Chemin(doc.TmpFolder)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    static const Atelier atelier;
    if (taille == 0)
        return 0;
    const std::vector<Etape> etapes = Decoder(octets + 1, taille - 1);
    if (octets[0] % 2 == 0)
        EssayerDocument(atelier, etapes);
    else
        EssayerArchive(atelier, etapes);
    return 0;
}
