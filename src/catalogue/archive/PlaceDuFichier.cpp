#include "catalogue/archive/PlaceDuFichier.h"

#include "platform/NomsSysteme.h"
#include "platform/Presence.h"

#include <QDir>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>
#include <utility>

using zipinterne::Descripteur;

namespace {

bool EstLeMeme(const struct stat& un, const struct stat& autre)
{
    return un.st_dev == autre.st_dev && un.st_ino == autre.st_ino;
}

/// What lies at a path.
struct Constat
{
    std::optional<struct stat> etat;
    bool sure = true; ///< false: it could not be looked at, and there may be anything
};

Constat EtatAu(const QByteArray& chemin)
{
    struct stat etat;
    if (lstat(chemin.constData(), &etat) == 0)
        return {etat};
    return {std::nullopt, EstAbsence(errno)};
}

std::optional<struct stat> EtatDerriere(const Descripteur& descripteur)
{
    struct stat etat;
    return descripteur && fstat(descripteur.Numero(), &etat) == 0 ? std::optional(etat) : std::nullopt;
}

enum class Verrou { Pris, Refuse, Inconnu };

Verrou Verrouiller(const Descripteur& descripteur)
{
    if (flock(descripteur.Numero(), LOCK_EX | LOCK_NB) == 0)
        return Verrou::Pris;
    return errno == EWOULDBLOCK ? Verrou::Refuse : Verrou::Inconnu;
}

/// Some file systems lock nothing that is open for reading alone.
Descripteur OuvrirPourTenir(const QByteArray& chemin)
{
    constexpr int communs = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    Descripteur ouvert(open(chemin.constData(), O_RDWR | communs));
    return ouvert ? std::move(ouvert) : Descripteur(open(chemin.constData(), O_RDONLY | communs));
}

} // namespace

QString CibleDesLiens(const QString& chemin)
{
    constexpr int plusLongueChaine = 40; // as the system's own
    QString cible = chemin;
    for (int i = 0; i < plusLongueChaine; ++i) {
        if (!EstLien(cible))
            return cible;
        std::error_code erreur;
        const QString suite =
            CheminDesOctets(std::filesystem::read_symlink(OctetsDuChemin(cible).toStdString(), erreur).c_str());
        cible = QDir::isAbsolutePath(suite) ? suite : DossierDuChemin(cible) + u'/' + suite;
    }
    return chemin;
}

PlaceDuFichier::PlaceDuFichier(const QString& chemin) : m_chemin(chemin), m_octets(OctetsDuChemin(chemin)) {}

PlaceDuFichier::~PlaceDuFichier()
{
    if (m_reserve)
        Retirer();
}

bool PlaceDuFichier::Prendre()
{
    // The file may be replaced between its opening and the lock; the new one is tried then.
    constexpr int essais = 10;
    for (int i = 0; i < essais; ++i) {
        const Constat la = EtatAu(m_octets);
        if (!la.sure)
            return false;
        m_ancien = la.etat;
        if (!m_ancien || !S_ISREG(m_ancien->st_mode))
            return true;
        if (Saisir())
            return true;
        if (m_perdue)
            return false;
    }
    return false;
}

bool PlaceDuFichier::Saisir()
{
    m_verrou = OuvrirPourTenir(m_octets);
    if (!m_verrou)
        return errno != ENOENT && errno != ELOOP; // not to be read, and yet to be replaced
    const Verrou verrou = Verrouiller(m_verrou);
    m_perdue = verrou == Verrou::Refuse;
    if (m_perdue)
        return false;
    const std::optional<struct stat> tenu = EtatDerriere(m_verrou), la = EtatAu(m_octets).etat;
    m_ancien = tenu;
    return tenu && la && EstLeMeme(*tenu, *la);
}

bool PlaceDuFichier::SupprimerAncien()
{
    const auto [la, sure] = EtatAu(m_octets);
    if (!la)
        return sure;
    const bool pris = m_ancien && S_ISREG(m_ancien->st_mode) && EstLeMeme(*m_ancien, *la);
    m_perdue = !pris && S_ISREG(la->st_mode);
    return pris && unlink(m_octets.constData()) == 0;
}

bool PlaceDuFichier::Reserver()
{
    m_reserve = Creer();
    return m_reserve.has_value();
}

std::optional<Descripteur> PlaceDuFichier::Creer()
{
    if (m_reserve)
        return std::exchange(m_reserve, std::nullopt);
    Descripteur neuf(open(m_octets.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!neuf) {
        m_perdue = m_perdue || errno == EEXIST;
        return std::nullopt;
    }
    m_neuf = Descripteur(fcntl(neuf.Numero(), F_DUPFD_CLOEXEC, 0));
    if (!m_neuf) {
        const int cause = errno;
        unlink(m_octets.constData());
        errno = cause;
        return std::nullopt;
    }
    // Between its making and its locking another program may have taken it for the old one: it is that one's to delete.
    m_perdue = Verrouiller(m_neuf) == Verrou::Refuse || !EstEnPlace();
    if (m_perdue) {
        m_neuf.Fermer();
        errno = EEXIST;
        return std::nullopt;
    }
    // The new one holds the place now. Whoever lets go of the old file last waits until the disk has its room back:
    // that is for the thread that closes old archives.
    m_verrou.Fermer();
    // While it is empty: what others may not read they never could.
    if (m_ancien && S_ISREG(m_ancien->st_mode))
        TransmettreDroits(neuf.Numero(), *m_ancien);
    return neuf;
}

bool PlaceDuFichier::EstEnPlace() const
{
    const std::optional<struct stat> fait = EtatDerriere(m_neuf);
    if (!fait)
        return false;
    const auto [la, sure] = EtatAu(m_octets);
    return la ? EstLeMeme(*fait, *la) : !sure && fait->st_nlink > 0;
}

void PlaceDuFichier::Retirer()
{
    m_perdue = EstPerdue();
    if (EstEnPlace())
        unlink(m_octets.constData());
    m_reserve.reset();
    m_neuf.Fermer();
}

bool PlaceDuFichier::EstPerdue() const
{
    if (m_perdue)
        return true;
    const std::optional<struct stat> la = m_neuf ? EtatAu(m_octets).etat : std::nullopt;
    return la && S_ISREG(la->st_mode) && !EstEnPlace();
}

void TransmettreDroits(int neuf, const struct stat& ancien)
{
    if (fchown(neuf, ancien.st_uid, ancien.st_gid) != 0)
        static_cast<void>(fchown(neuf, static_cast<uid_t>(-1), ancien.st_gid) != 0);
    static_cast<void>(fchmod(neuf, (ancien.st_mode & 0777U) | S_IWUSR) != 0);
}
