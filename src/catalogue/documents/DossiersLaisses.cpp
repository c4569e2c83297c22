#include "catalogue/documents/DossiersLaisses.h"

#include "base/AfficherMsg.h"
#include "base/DossiersTemp.h"
#include "base/LieuxTemporaires.h"
#include "base/NomsDuDossier.h"
#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/documents/NouveauDocument.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/TypeFichier.h"
#include "extensions/langue/modLang.h"
#include "kit/ManqueDeMemoire.h"
#include "platform/NomsSysteme.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <limits>
#include <system_error>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

namespace fs = std::filesystem;

constexpr auto ToutContenu = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
constexpr qint64 DebutDuTexte = qint64(1) << 20; // holds the columns of any category

QString CheminDuTexte(const QString& dossier)
{
    return dossier + u"Zelvane.qrt"_s;
}

// ---- Finding

/// Folders of documents, also those of which only the rescue copy is left.
QSet<QString> Candidats()
{
    static const QRegularExpression forme(u"^(cat[0-9]+)(\\.secours~?)?$"_s);
    QSet<QString> dossiers;
    for (const QDir& lieu : LieuxTemporaires()) {
        for (const QString& nom : lieu.entryList(ToutContenu, QDir::Unsorted)) {
            if (const auto trouve = forme.match(nom); trouve.hasMatch())
                dossiers.insert(lieu.filePath(trouve.captured(1)) + u'/');
        }
    }
    return dossiers;
}

bool EstVivant(qint64 processus)
{
    return processus > 0 && processus <= std::numeric_limits<pid_t>::max() &&
           (kill(static_cast<pid_t>(processus), 0) == 0 || errno != ESRCH);
}

/// Takes hold of a folder that nobody holds.
std::optional<VerrouDossier> Saisir(const QString& dossier)
{
    const QString chemin = dossier.chopped(1);
    const QFileInfo lieu(chemin);
    if (lieu.isSymLink())
        return std::nullopt;
    if (!lieu.exists()) {
        // A running program's folder may have been taken away under its feet: then its hold cannot be seen.
        const auto identite = LireIdentite(FichierDeSecours(dossier));
        if (identite && EstVivant(identite->processus))
            return std::nullopt;
        QDir().mkdir(chemin, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    } else if (!lieu.isDir() || lieu.ownerId() != geteuid()) {
        return std::nullopt;
    }
    std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(chemin);
    return verrou && verrou->Tient() ? std::move(verrou) : std::nullopt;
}

/// The number behind "Count=" of the entries, read from the text's beginning.
std::optional<qint64> EntreesAnnoncees(const QByteArray& debut)
{
    const qsizetype entete = debut.indexOf("\n[ListItems]");
    const qsizetype egal = entete < 0 ? -1 : debut.indexOf('=', entete);
    const qsizetype fin = egal < 0 ? -1 : debut.indexOf('\n', egal);
    if (fin < 0)
        return std::nullopt;
    bool lisible = false;
    const qint64 nombre = debut.sliced(egal + 1, fin - egal - 1).trimmed().toLongLong(&lisible);
    return lisible ? std::optional(nombre) : std::nullopt;
}

QByteArray DebutDe(const QString& chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.read(DebutDuTexte) : QByteArray();
}

/// Whether the copy holds what the folder's text does not: that has not been written since. A save takes the text out
/// of the copy, so one that still has it is the later one where the folder's cannot be looked at.
bool CopiePlusRecente(const QString& dossier, const IdentiteDeSecours& identite)
{
    const std::optional<QByteArray> empreinte = EmpreinteDuTexte(dossier);
    return identite.texte && (!empreinte || empreinte->isEmpty() || identite.base == *empreinte);
}

/// Whether the document's file stands. A save that was cut short leaves none, or half of an archive.
bool EstEnregistree(const IdentiteDeSecours& identite)
{
    const bool lisible = access(OctetsDuChemin(identite.chemin).constData(), R_OK) == 0;
    return EstFichier(identite.chemin) && (identite.type != u"2" || (lisible && TypeFichier(identite.chemin) == 2));
}

DossierLaisse Decrire(const QString& dossier, VerrouDossier verrou)
{
    const QString nom = QDir(dossier).dirName();
    DossierLaisse laisse;
    laisse.dossier = dossier;
    laisse.nom = nom;
    laisse.verrou = std::move(verrou);
    const QString copie = FichierDeSecours(dossier);
    const std::optional<IdentiteDeSecours> identite = LireIdentite(copie);
    if (identite) {
        laisse.nom = identite->nom.isEmpty() ? nom : identite->nom;
        laisse.chemin = identite->chemin;
        laisse.fichier = identite->fichier;
        laisse.modifie = CopiePlusRecente(dossier, *identite);
        laisse.tus = laisse.modifie && identite->tus;
        laisse.enregistree = EstEnregistree(*identite);
    }
    const QString texte = laisse.modifie ? copie : CheminDuTexte(dossier);
    laisse.entrees = EntreesAnnoncees(DebutDe(texte));
    laisse.date = std::max(QFileInfo(dossier).lastModified(), QFileInfo(texte).lastModified());
    return laisse;
}

/// Whether there is nothing of a category. A folder or a copy that cannot be read may be something.
bool EstVide(const QString& dossier)
{
    const std::optional<QStringList> noms = NomsDuDossier(dossier);
    if (!noms || !noms->isEmpty())
        return false;
    const QString copie = FichierDeSecours(dossier);
    const std::optional<IdentiteDeSecours> identite = LireIdentite(copie);
    return identite ? !identite->texte : QFileInfo(copie).size() == 0;
}

void Effacer(const QString& dossier)
{
    QFile::remove(FichierDeSecours(dossier));
    SupprimerDossier(dossier, true);
}

// ---- Taking over

/// A second name for the same bytes where the file system can do that, else a copy with its time, by which the rescue
/// copy knows the text.
bool PrendreFichier(const fs::path& de, const fs::path& vers)
{
    std::error_code erreur;
    if (!fs::is_symlink(fs::symlink_status(de, erreur))) {
        fs::create_hard_link(de, vers, erreur);
        if (!erreur)
            return true;
    }
    erreur.clear();
    fs::copy_file(de, vers, fs::copy_options::overwrite_existing, erreur);
    if (!erreur)
        fs::last_write_time(vers, fs::last_write_time(de, erreur), erreur);
    return !erreur;
}

/// What a write that was cut short left: the file itself is there, too, or never was whole.
bool EstInacheve(const QString& nom)
{
    return nom.startsWith(u"Zelvane."_s) && nom.endsWith(u'~');
}

/// Brings all files of the folder into another one, where they are found under the same names. A folder in it is
/// nothing of a category.
bool PrendreFichiers(const QString& de, const QString& vers)
{
    std::error_code erreur;
    const fs::path cible = OctetsDuChemin(vers).toStdString();
    for (fs::directory_iterator it(OctetsDuChemin(de).toStdString(), erreur), fin; !erreur && it != fin;
         it.increment(erreur)) {
        const fs::path nom = it->path().filename();
        const bool fichier = it->is_regular_file(erreur);
        if (erreur && erreur != std::errc::no_such_file_or_directory)
            return false;
        if (!fichier || EstInacheve(CheminDesOctets(nom.c_str())))
            continue;
        if (!PrendreFichier(it->path(), cible / nom))
            return false;
    }
    return !erreur;
}

/// What of the document could be read.
enum class Lecture { Rien, TexteEnregistre, Tout };

Lecture Lire(Categorie& doc, const DossierLaisse& laisse)
{
    const QString copie = FichierDeSecours(laisse.dossier);
    const std::optional<IdentiteDeSecours> identite = LireIdentite(copie);
    // A copy that could not be read a moment ago, or cannot now, may be the later one all the same.
    const bool illisible = !identite && QFileInfo(copie).size() > 0;
    const bool modifie = laisse.modifie || (identite && CopiePlusRecente(laisse.dossier, *identite));
    const std::optional<QByteArray> texte = LireTexteDeSecours(copie);
    if (modifie && texte && ChargerTexteExact(doc, *texte))
        return Lecture::Tout;
    if (ChargerDossier(doc))
        return modifie || illisible ? Lecture::TexteEnregistre : Lecture::Tout;
    // The folder's text is later, but spoilt.
    return texte && ChargerTexteExact(doc, *texte) ? Lecture::Tout : Lecture::Rien;
}

QString NomRecupere(const QString& nom)
{
    const QString marque = LangMsg(u"msgSecoursNom"_s, u"%1 (récupéré)"_s).texte;
    const QString suite = marque.section(u"%1"_s, 1);
    return !suite.isEmpty() && nom.endsWith(suite) ? nom : QString(marque).replace(u"%1"_s, nom);
}

void Dire(const QString& cle, const QString& texte, const DossierLaisse& laisse)
{
    AfficherMsg(LangMsg(cle, texte) + (u'\n' + laisse.dossier), MsgOk, laisse.nom);
}

/// Fills the window; false, with a message, when there is nothing to show.
std::optional<Lecture> Remplir(FenetreDocument& fenetre, const DossierLaisse& laisse)
{
    Categorie& doc = fenetre.myqrt;
    if (!PrendreFichiers(laisse.dossier, doc.TmpFolder)) {
        Dire(
            u"msgSecoursCopie"_s,
            u"La catégorie n'a pas pu être récupérée : ses fichiers n'ont pas pu être copiés. Elle est conservée dans le dossier :"_s,
            laisse);
        return std::nullopt;
    }
    const Lecture lecture = Lire(doc, laisse);
    if (lecture == Lecture::Rien) {
        Dire(
            u"msgSecoursIllisible"_s,
            u"La catégorie n'a pas pu être récupérée : ses données sont illisibles. Elle est conservée dans le dossier :"_s,
            laisse);
        return std::nullopt;
    }
    if (lecture == Lecture::TexteEnregistre)
        Dire(
            u"msgSecoursAncien"_s,
            u"Les dernières modifications n'ont pas pu être relues. La catégorie est ouverte telle qu'elle avait été enregistrée ; le reste est conservé dans le dossier :"_s,
            laisse);
    return lecture;
}

/// The rescue copy goes over to the new folder, on one disk in one step, so that there is one at any moment; then the
/// old folder goes.
void Ceder(const DossierLaisse& laisse, const QString& dossier)
{
    std::error_code erreur;
    const fs::path de = OctetsDuChemin(FichierDeSecours(laisse.dossier)).toStdString();
    const fs::path vers = OctetsDuChemin(FichierDeSecours(dossier)).toStdString();
    fs::rename(de, vers, erreur);
    if (erreur && PrendreFichier(de, vers))
        fs::remove(de, erreur);
    SupprimerDossier(laisse.dossier, true);
}

} // namespace

std::vector<DossierLaisse> ChercherLaisses()
{
    std::vector<DossierLaisse> laisses;
    for (const QString& dossier : Candidats()) {
        std::optional<VerrouDossier> verrou = Saisir(dossier);
        if (!verrou)
            continue;
        QFile::remove(FichierDeSecours(dossier) + u'~');
        if (EstVide(dossier))
            Effacer(dossier);
        else if (auto laisse = AvecMemoire<std::optional<DossierLaisse>>(
                     [&] { return Decrire(dossier, std::move(*verrou)); }, std::nullopt))
            laisses.push_back(std::move(*laisse));
    }
    std::ranges::sort(laisses, [](const auto& a, const auto& b) { return a.date > b.date; });
    return laisses;
}

bool OuvrirLaisse(Cadre& cadre, const DossierLaisse& laisse)
{
    std::optional<Lecture> lecture;
    FenetreDocument* fenetre = NouveauDocument(cadre, NomRecupere(laisse.nom), [&](FenetreDocument& neuve) {
        neuve.myqrt.CheminAvantSecours = laisse.chemin;
        neuve.myqrt.FichierVu = laisse.fichier;
        lecture = Remplir(neuve, laisse);
        return lecture.has_value();
    });
    if (!fenetre)
        return false;
    Categorie& doc = fenetre->myqrt;
    if (lecture == Lecture::Tout)
        Ceder(laisse, doc.TmpFolder);
    // It has no file until the user gives it one: also while the comments are read, or the rescue copy would go.
    doc.IlFautSauver = true;
    MontrerDocument(*fenetre);
    doc.IlFautSauver = true;
    return true;
}

void JeterLaisse(const DossierLaisse& laisse)
{
    Effacer(laisse.dossier);
}
