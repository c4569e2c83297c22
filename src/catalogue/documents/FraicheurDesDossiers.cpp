#include "catalogue/documents/FraicheurDesDossiers.h"

#include "base/DossiersTemp.h"
#include "base/NomsDuDossier.h"
#include "catalogue/archive/ccZipDescripteur.h"
#include "catalogue/documents/Cadre.h"
#include "platform/NomsSysteme.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>

using zipinterne::VersEtat;

namespace {

constexpr int DureeDUnePiece = 4; // milliseconds

/// The folder as DossiersTempTenus spells it; empty for none.
QString Cle(const QString& dossier)
{
    return dossier.isEmpty() ? QString() : QDir::cleanPath(QFileInfo(dossier).absoluteFilePath()) + u'/';
}

Categorie* DocumentDe(const Cadre& cadre, const QString& dossier)
{
    for (FenetreDocument* fenetre : cadre.Documents()) {
        if (Cle(fenetre->myqrt.TmpFolder) == dossier)
            return &fenetre->myqrt;
    }
    return nullptr;
}

struct Etats
{
    EtatFichier avant;
    EtatFichier apres;
};

/// Dates the last access to a file or folder, unless that is not old at `heure`. Returns what it was before and after.
std::optional<Etats> Rafraichir(const QString& chemin, qint64 heure)
{
    constexpr qint64 parSeconde = 1000;
    constexpr timespec dates[2] = {{0, UTIME_NOW}, {0, UTIME_OMIT}};
    const QByteArray nom = OctetsDuChemin(chemin);
    struct stat avant, apres;
    if (lstat(nom.constData(), &avant) != 0 || !(S_ISREG(avant.st_mode) || S_ISDIR(avant.st_mode)))
        return std::nullopt;
    if (std::abs(heure - avant.st_atim.tv_sec * parSeconde) < FraicheurDesDossiers::Intervalle)
        return std::nullopt;
    if (utimensat(AT_FDCWD, nom.constData(), dates, AT_SYMLINK_NOFOLLOW) != 0 || lstat(nom.constData(), &apres) != 0)
        return std::nullopt;
    return Etats{VersEtat(avant), VersEtat(apres)};
}

/// A file that was the known one just before, and has changed in nothing else since, is still known.
void Reconnaitre(ArchiveConnue& archive, const QByteArray& nom, Etats etats)
{
    const auto connu = archive.fichiers.find(nom);
    if (connu == archive.fichiers.end() || connu->etat != etats.avant)
        return;
    etats.avant.change = etats.apres.change;
    if (etats.avant == etats.apres)
        connu->etat = etats.apres;
}

} // namespace

void FraicheurDesDossiers::Commencer(const Cadre& cadre)
{
    m_dossiers = DossiersTempTenus();
    for (FenetreDocument* fenetre : cadre.Documents())
        m_dossiers.append(Cle(fenetre->myqrt.TmpFolder));
    m_dossiers.removeAll(QString());
    m_dossiers.removeDuplicates();
    m_commence = false;
}

bool FraicheurDesDossiers::Avancer(const Cadre& cadre, qint64 heure)
{
    if (m_dossiers.isEmpty()) {
        if (m_derniere && std::abs(heure - *m_derniere) < Intervalle)
            return false;
        m_derniere = heure;
        Commencer(cadre);
    }
    QElapsedTimer duree;
    duree.start();
    while (!m_dossiers.isEmpty()) {
        const QString dossier = m_dossiers.last();
        Categorie* doc = DocumentDe(cadre, dossier);
        if (doc && doc->EnEcriture)
            return false;
        if (!m_commence) {
            m_noms = NomsDuDossier(dossier).value_or(QStringList());
            m_commence = true;
        }
        while (!m_noms.isEmpty()) {
            if (duree.hasExpired(DureeDUnePiece))
                return true;
            const QString nom = m_noms.takeLast();
            const std::optional<Etats> etats = Rafraichir(dossier + nom, heure);
            if (etats && doc && doc->Archive)
                Reconnaitre(*doc->Archive, OctetsDuChemin(nom), *etats);
        }
        Rafraichir(dossier.chopped(1), heure);
        Rafraichir(FichierDeSecours(dossier), heure);
        m_dossiers.removeLast();
        m_commence = false;
    }
    return false;
}
