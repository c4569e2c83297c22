#include "catalogue/archive/ccZip.h"

#include "catalogue/archive/ccZipInterne.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>

using namespace zipinterne;

struct ccZip::Prive
{
    std::optional<EtatFichier> etat; ///< of the archive before it was opened
    ArchiveOuverte lue;
    std::vector<NomLu> noms;

    std::vector<Ajout> ajouts;
    QHash<QByteArray, size_t> ajoutParNom;
    QSet<QString> listes; ///< what Col holds

    /// True when the name is new to the archive.
    bool Prendre(const QString& fichier, const QString& nom);
};

bool ccZip::Prive::Prendre(const QString& fichier, const QString& nom)
{
    const QByteArray octets = nom.toUtf8();
    const auto deja = ajoutParNom.constFind(octets);
    if (deja != ajoutParNom.cend()) {
        ajouts[*deja].fichier = fichier;
        return false;
    }
    ajoutParNom.insert(octets, ajouts.size());
    ajouts.push_back({fichier, octets});
    if (listes.contains(nom))
        return false;
    listes.insert(nom);
    return true;
}

ccZip::ccZip() : m_prive(std::make_unique<Prive>()) {}

ccZip::~ccZip()
{
    Fermer();
}

void ccZip::Init(const QString& chemin)
{
    Fermer();
    m_prive = std::make_unique<Prive>();
    m_nom = chemin;
    m_infos.clear();
    Col.clear();
    Comm.clear();
    Level = NiveauDesCatalogues;
    m_place = nullptr;
    Connue.reset();

    m_prive->etat = EtatPasse(chemin);
    m_prive->lue = OuvrirArchive(chemin);
    zip_t* archive = m_prive->lue.archive.get();
    if (!archive)
        return;
    m_prive->noms = LireNoms(archive, chemin, m_prive->lue.refuses);
    Col.reserve(static_cast<qsizetype>(m_prive->noms.size()));
    for (const NomLu& lu : m_prive->noms)
        Col.append(lu.nom);
    Comm = LireCommentaire(archive);
    m_infos = Comm;
}

QString ccZip::GetFile(int index) const
{
    return index >= 1 && index <= count() ? Col[index - 1] : QString();
}

namespace {

bool Lisible(const QFileInfo& info)
{
    return info.isReadable() && (info.isFile() || (info.isDir() && info.isExecutable()));
}

/// The name of a file in the archive; with its folders, that of a folder ends in "/".
QString NomDans(const QFileInfo& fichier, bool junk)
{
    if (junk)
        return fichier.fileName();
    const QString nom = QDir::cleanPath(fichier.absoluteFilePath()).mid(1);
    return fichier.isDir() ? nom + u'/' : nom;
}

/// The file, or the folder and what it holds.
QStringList Parcourir(const QString& fichier, bool recurse)
{
    QStringList trouves(fichier);
    if (!recurse || !QFileInfo(fichier).isDir())
        return trouves;
    QDirIterator dossier(fichier, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (dossier.hasNext())
        trouves.append(dossier.next());
    return trouves;
}

} // namespace

int ccZip::AddFile(const QString& fichier, int recurse, bool junk)
{
    m_infos.clear();
    if (m_prive->listes.isEmpty())
        m_prive->listes = QSet<QString>(Col.cbegin(), Col.cend());

    int resultat = ZipAvertissement;
    for (const QString& trouve : Parcourir(fichier, recurse != 0)) {
        const QFileInfo info(trouve);
        const bool dossierNu = info.isDir() && junk; // has no place under a bare name; what it holds may have
        if (dossierNu && recurse == 0)
            continue;
        const QString nom = NomDans(info, junk);
        if (!Lisible(info) || !EstNomPossible(nom)) {
            m_infos += Ligne(trouve, QStringLiteral("cannot be read, or not under this name"));
            resultat = ZipLecture;
            continue;
        }
        if (dossierNu)
            continue;
        if (m_prive->Prendre(trouve, nom))
            Col.append(nom);
        if (resultat == ZipAvertissement)
            resultat = ZipFait;
    }
    return resultat;
}

int ccZip::Fermer()
{
    if (m_prive->ajouts.empty())
        return ZipFait;
    m_infos.clear();
    const QByteArray niveau = QByteArray::number(Level).left(1);
    std::vector<Ajout> ajouts = std::move(m_prive->ajouts);
    m_prive = std::make_unique<Prive>();
    const FormeArchive forme{Comm, niveau == "-" ? NiveauDesCatalogues : niveau.toInt(), m_place};
    Ecrit ecrit = Ecrire(m_nom, std::move(ajouts), forme, std::move(m_origine), m_infos);
    Connue = std::move(ecrit.connue);
    return ecrit.resultat;
}

int ccZip::Decompress(const QString& cible, const QString& masque)
{
    m_infos.clear();
    if (cible.isEmpty())
        return ZipAvertissement;
    if (!m_prive->lue.archive) {
        m_infos = Ligne(m_nom, QStringLiteral("not an archive that can be opened"));
        return m_prive->lue.resultat;
    }
    Extrait extrait = Extraire(m_prive->lue.archive.get(), m_prive->noms, cible, masque, Limites, m_infos);
    Connue.reset();
    Remplaces = std::move(extrait.remplaces);
    // Files are those of the archive only if it was the same one all the time. What level it was written with does not
    // show: the usual one.
    if (extrait.resultat <= ZipAvertissement && m_prive->etat && EtatDe(m_nom) == m_prive->etat)
        Connue = std::make_shared<ArchiveConnue>(ArchiveConnue{
            m_nom, *m_prive->etat, NiveauDesCatalogues, std::move(extrait.fichiers), m_prive->lue.refuses.retouches});
    return extrait.resultat;
}
