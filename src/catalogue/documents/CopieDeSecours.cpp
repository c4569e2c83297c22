#include "catalogue/documents/CopieDeSecours.h"

#include "base/DossiersTemp.h"
#include "platform/NomsSysteme.h"
#include "platform/PageDeCode.h"
#include "platform/Presence.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <chrono>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int DureeDUnePiece = 8; // milliseconds: half a frame of the screen
constexpr qsizetype TailleDUnePiece = qsizetype(1) << 20;
constexpr int EntreesDUnPas = 256;
constexpr qsizetype TailleEntete = qsizetype(1) << 17; // a name and a path, three bytes for each of theirs

const QByteArray s_debut = QByteArrayLiteral("[Zelvane.secours]\r\n");
const QByteArray s_fin = QByteArrayLiteral("[Fin]\r\n");

/// Nothing when it cannot be told which text of the folder the copy follows.
std::optional<QByteArray> Entete(const Categorie& doc, const QString& nom, bool texte)
{
    const std::optional<QByteArray> base = EmpreinteDuTexte(doc.TmpFolder);
    if (!base)
        return std::nullopt;
    const auto ligne = [](const char* cle, const QByteArray& valeur) { return cle + ('=' + valeur) + "\r\n"; };
    return s_debut + ligne("Nom", nom.toUtf8().toPercentEncoding()) +
           ligne("Chemin", OctetsDuChemin(doc.CheminConnu()).toPercentEncoding()) +
           ligne("Type", doc.FileType.toUtf8().toPercentEncoding()) +
           ligne("Processus", QByteArray::number(QCoreApplication::applicationPid())) +
           (doc.FichierVu ? ligne("Fichier", VersMot(*doc.FichierVu)) : QByteArray()) +
           (doc.SeTait() ? ligne("Tus", "1") : QByteArray()) + ligne("Base", *base) + ligne("Texte", texte ? "1" : "0");
}

/// Opens the new file for its user alone. What a killed run left there goes, and so does a link.
bool OuvrirPrive(FichierDuDossier& fichier)
{
    QFile& neuf = fichier.Fichier();
    QFile::remove(neuf.fileName());
    return neuf.open(QIODevice::WriteOnly | QIODevice::Unbuffered | QIODevice::NewOnly,
                     QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

bool EcrireOctets(int descripteur, const QByteArray& octets)
{
    for (const char *p = octets.begin(), *fin = octets.end(); p != fin;) {
        const ssize_t ecrits = write(descripteur, p, static_cast<size_t>(fin - p));
        if (ecrits < 0 && errno != EINTR)
            return false;
        p += qMax<ssize_t>(ecrits, 0);
    }
    return true;
}

/// The value of the next line, which is to have this name.
std::optional<QByteArray> LireValeur(QByteArrayView& reste, QByteArrayView cle)
{
    const qsizetype fin = reste.indexOf("\r\n");
    if (fin < 0 || !reste.startsWith(cle) || reste.size() <= cle.size() || reste[cle.size()] != '=')
        return std::nullopt;
    const QByteArray valeur = reste.first(fin).sliced(cle.size() + 1).toByteArray();
    reste = reste.sliced(fin + 2);
    return valeur;
}

bool FinitBien(QFile& fichier)
{
    return fichier.size() > s_fin.size() && fichier.seek(fichier.size() - s_fin.size()) &&
           fichier.read(s_fin.size()) == s_fin;
}

struct Ouverte
{
    IdentiteDeSecours identite;
    qint64 debutDuTexte = 0;
};

std::optional<Ouverte> Lire(QFile& fichier)
{
    const QFileInfo info(fichier.fileName());
    if ((info.exists() && !info.isFile()) || !fichier.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray octets = fichier.read(TailleEntete);
    if (!octets.startsWith(s_debut))
        return std::nullopt;
    QByteArrayView reste = QByteArrayView(octets).sliced(s_debut.size());
    const auto lisible = [](const QByteArray& valeur) {
        return PageDeCode::DeUtf8(QByteArray::fromPercentEncoding(valeur));
    };
    QList<QByteArray> valeurs;
    std::optional<TraceDeFichier> vu;
    bool tus = false;
    for (const char* cle : {"Nom", "Chemin", "Type", "Processus", "Base", "Texte"}) {
        if (qstrcmp(cle, "Base") == 0) { // what need not be there stands before it
            vu = DepuisMot(LireValeur(reste, "Fichier").value_or(QByteArray()));
            tus = LireValeur(reste, "Tus") == "1";
        }
        const std::optional<QByteArray> valeur = LireValeur(reste, cle);
        if (!valeur)
            return std::nullopt;
        valeurs.append(*valeur);
    }
    const bool texte = valeurs[5] == "1";
    if (texte && !FinitBien(fichier))
        return std::nullopt;
    return Ouverte{{lisible(valeurs[0]), CheminDesOctets(QByteArray::fromPercentEncoding(valeurs[1])),
                    lisible(valeurs[2]), valeurs[3].toLongLong(), valeurs[4], texte, tus, vu},
                   octets.size() - reste.size()};
}

} // namespace

std::optional<IdentiteDeSecours> LireIdentite(const QString& fichier)
{
    QFile copie(fichier);
    const std::optional<Ouverte> ouverte = Lire(copie);
    return ouverte ? std::optional(ouverte->identite) : std::nullopt;
}

std::optional<QByteArray> LireTexteDeSecours(const QString& fichier)
{
    QFile copie(fichier);
    const std::optional<Ouverte> ouverte = Lire(copie);
    if (!ouverte || !ouverte->identite.texte || !copie.seek(ouverte->debutDuTexte))
        return std::nullopt;
    QByteArray texte = copie.readAll();
    if (texte.size() != copie.size() - ouverte->debutDuTexte)
        return std::nullopt; // the disk gave a part of it
    texte.chop(s_fin.size());
    return texte;
}

std::optional<QByteArray> EmpreinteDuTexte(const QString& dossier)
{
    const QString chemin = dossier + QStringLiteral("Zelvane.qrt");
    struct stat etat;
    if (stat(OctetsDuChemin(chemin).constData(), &etat) != 0)
        return EstAbsence(errno) ? std::optional(QByteArray()) : std::nullopt;
    if (!S_ISREG(etat.st_mode))
        return QByteArray();
    const qint64 modifie = qint64(etat.st_mtim.tv_sec) * 1000 + etat.st_mtim.tv_nsec / 1'000'000;
    return QByteArray::number(qint64(etat.st_size)) + ':' + QByteArray::number(modifie);
}

bool EcrireIdentite(const Categorie& doc, const QString& nom)
{
    FichierDuDossier fichier(FichierDeSecours(doc.TmpFolder));
    const std::optional<QByteArray> entete = Entete(doc, nom, false);
    return entete && OuvrirPrive(fichier) && fichier.Fichier().write(*entete) == entete->size() && fichier.Valider();
}

EcritureDeSecours::EcritureDeSecours(const Categorie& doc, const QString& nom, std::optional<SaisieEnCours> saisie)
    : m_fichier(FichierDeSecours(doc.TmpFolder)),
      m_redacteur(doc, "2", EntreesEcrites::Toutes, stockage::Codage::Utf8, *this, std::move(saisie))
{
    const std::optional<QByteArray> entete = Entete(doc, nom, true);
    if (!entete || !OuvrirPrive(m_fichier))
        m_etat = Etat::Manquee;
    else
        m_tampon = *entete;
}

EcritureDeSecours::~EcritureDeSecours()
{
    if (m_disque.valid())
        m_disque.wait();
}

bool EcritureDeSecours::Recevoir(const char* octets, size_t taille)
{
    m_tampon.append(octets, static_cast<qsizetype>(taille));
    return true;
}

EcritureDeSecours::Etat EcritureDeSecours::Avancer()
try {
    if (m_etat != Etat::EnCours)
        return m_etat;
    if (DisqueOccupe())
        return m_etat;
    if (m_disque.valid() && !m_disque.get())
        return m_etat = Etat::Manquee;
    if (m_redige)
        return m_etat = m_fichier.Valider() ? Etat::Faite : Etat::Manquee;
    Rediger();
    Confier();
    return m_etat;
} catch (const std::bad_alloc&) {
    return m_etat = Etat::Manquee; // tried again later, as on a full disk
}

bool EcritureDeSecours::DisqueOccupe() const
{
    // A piece that no thread could be had for is written when its result is asked for.
    return m_disque.valid() && m_disque.wait_for(std::chrono::seconds(0)) == std::future_status::timeout;
}

EcritureDeSecours::Etat EcritureDeSecours::Achever()
{
    while (Avancer() == Etat::EnCours) {
        if (m_disque.valid())
            m_disque.wait();
    }
    return m_etat;
}

void EcritureDeSecours::Rediger()
{
    QElapsedTimer duree;
    duree.start();
    while (!m_redige && m_tampon.size() < TailleDUnePiece && !duree.hasExpired(DureeDUnePiece))
        m_redige = !m_redacteur.Avancer(EntreesDUnPas);
    if (m_redige) {
        m_redacteur.Finir();
        m_tampon += s_fin;
    }
}

void EcritureDeSecours::Confier()
{
    // The last piece waits until all lies on the disk: a power cut leaves this copy whole, or the one before.
    // What is handed over is no more than an address: where no thread can be had, it is handed over twice, and bytes
    // that were moved the first time would be missing the second.
    m_piece = std::exchange(m_tampon, {});
    m_disque = std::async(std::launch::async | std::launch::deferred,
                          [descripteur = m_fichier.Fichier().handle(), octets = &m_piece, derniere = m_redige] {
                              return EcrireOctets(descripteur, *octets) && (!derniere || fdatasync(descripteur) == 0);
                          });
}
