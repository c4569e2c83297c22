// A library to be preloaded into a program under test. It counts the calls that the program makes for files below given
// folders, and lets the n-th of one kind fail, or all from there on. Counts lie in a shared file, so that they are
// there however the program ends. Without PANNE_DOSSIERS it changes nothing.
//
//   PANNE_DOSSIERS  folders, full paths, separated by ":"
//   PANNE_COMPTES   file of counts (see Comptes), of the right size already
//   PANNE_GENRE     kind of call, as in s_genres
//   PANNE_RANG      which one fails, from 1
//   PANNE_ERREUR    an errno by name; COURT: half of the bytes are read or written; COUPE: the same, and the next call
//                   of the kind fails, as on a disk that is full or bad from there on; ARRET: the process stops there,
//                   as by SIGSTOP, and nothing fails
//   PANNE_SUITE     1: all later ones fail, too
//   PANNE_LENTEUR   microseconds that each write takes longer
//   PANNE_ARMEE     0: nothing is counted before PanneArmer(1)
#include "panne_prechargee.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace panne {

namespace {

constexpr std::array<const char*, NombreDeGenres> s_genres = {
    "open",  "read",  "pread",  "fread",   "write",   "pwrite",    "writev",    "fwrite",
    "fsync", "close", "rename", "unlink",  "rmdir",   "ftruncate", "fallocate", "mkdir",
    "link",  "copy",  "flock",  "opendir", "readdir", "chmod",     "utimens",   "stat"};

struct Comptes
{
    std::array<std::atomic<uint64_t>, NombreDeGenres> appels;
    std::atomic<uint64_t> pannes;
    std::array<char, 1024> chemin; ///< what the first call that failed was for
};

constexpr int PlusGrandDescripteur = 4096;

struct Etat
{
    std::array<char, 8192> dossiers{};
    Comptes* comptes = nullptr;
    int genre = -1;
    uint64_t rang = 0;
    int erreur = 0;
    bool suite = false;
    useconds_t lenteur = 0;
    std::atomic<bool> armee{true};
    std::atomic<int64_t> decalage{0}; ///< seconds that the clock is ahead
    std::array<std::atomic<bool>, PlusGrandDescripteur> suivis{};
};

int ErreurDe(const char* nom)
{
    struct Nommee
    {
        const char* nom;
        int valeur;
    };
    constexpr std::array<Nommee, 11> erreurs = {{{"ENOSPC", ENOSPC},
                                                 {"EIO", EIO},
                                                 {"EACCES", EACCES},
                                                 {"EINTR", EINTR},
                                                 {"EROFS", EROFS},
                                                 {"EMFILE", EMFILE},
                                                 {"ENOLCK", ENOLCK},
                                                 {"EOPNOTSUPP", EOPNOTSUPP},
                                                 {"COURT", Court},
                                                 {"COUPE", Coupe},
                                                 {"ARRET", Arret}}};
    for (const auto& [connu, valeur] : erreurs) {
        if (std::strcmp(nom, connu) == 0)
            return valeur;
    }
    std::abort(); // a test that asks for what there is not must not pass
}

int GenreDe(const char* nom)
{
    for (size_t i = 0; i < s_genres.size(); ++i) {
        if (std::strcmp(nom, s_genres.at(i)) == 0)
            return static_cast<int>(i);
    }
    std::abort();
}

Comptes* OuvrirComptes(const char* fichier)
{
    const auto descripteur = static_cast<int>(syscall(SYS_openat, AT_FDCWD, fichier, O_RDWR | O_CLOEXEC, 0));
    if (descripteur < 0)
        std::abort();
    void* place = mmap(nullptr, sizeof(Comptes), PROT_READ | PROT_WRITE, MAP_SHARED, descripteur, 0);
    syscall(SYS_close, descripteur);
    if (place == MAP_FAILED)
        std::abort();
    return static_cast<Comptes*>(place);
}

void LireEnvironnement(Etat& etat)
{
    const char* dossiers = getenv("PANNE_DOSSIERS");
    if (!dossiers)
        return;
    std::strncpy(etat.dossiers.data(), dossiers, etat.dossiers.size() - 1);
    if (const char* fichier = getenv("PANNE_COMPTES"))
        etat.comptes = OuvrirComptes(fichier);
    if (const char* genre = getenv("PANNE_GENRE"))
        etat.genre = GenreDe(genre);
    if (const char* rang = getenv("PANNE_RANG"))
        etat.rang = std::strtoull(rang, nullptr, 10);
    if (const char* erreur = getenv("PANNE_ERREUR"))
        etat.erreur = ErreurDe(erreur);
    const char* suite = getenv("PANNE_SUITE");
    etat.suite = suite && *suite == '1';
    if (const char* lenteur = getenv("PANNE_LENTEUR"))
        etat.lenteur = static_cast<useconds_t>(std::strtoul(lenteur, nullptr, 10));
    const char* armee = getenv("PANNE_ARMEE");
    etat.armee = !armee || *armee != '0';
}

Etat& LEtat()
{
    // Other libraries open files before this one's own objects are made.
    static Etat* etat = [] {
        alignas(Etat) static std::array<char, sizeof(Etat)> place;
        auto* neuf = new (place.data()) Etat;
        LireEnvironnement(*neuf);
        return neuf;
    }();
    return *etat;
}

bool EstSuiviChemin(const char* chemin)
{
    for (const char* p = LEtat().dossiers.data(); *p;) {
        const char* fin = strchrnul(p, ':');
        const auto n = static_cast<size_t>(fin - p);
        if (n > 0 && std::strncmp(chemin, p, n) == 0 && (chemin[n] == 0 || chemin[n] == '/'))
            return true;
        p = *fin ? fin + 1 : fin;
    }
    return false;
}

using Chemin = std::array<char, PATH_MAX>;

/// The path behind a descriptor.
bool CheminDe(int descripteur, Chemin& chemin)
{
    std::array<char, 64> lien;
    std::snprintf(lien.data(), lien.size(), "/proc/self/fd/%d", descripteur);
    const long n = syscall(SYS_readlinkat, AT_FDCWD, lien.data(), chemin.data(), chemin.size() - 1);
    chemin.at(n > 0 ? static_cast<size_t>(n) : 0) = 0;
    return n > 0;
}

bool EstLecture(Genre genre)
{
    return genre == Lire || genre == LireA || genre == LireFlux;
}

} // namespace

bool EstSuivi(int dossier, const char* chemin)
{
    if (!chemin || LEtat().dossiers[0] == 0)
        return false;
    if (*chemin == '/')
        return EstSuiviChemin(chemin);
    Chemin base;
    if (dossier == AT_FDCWD ? syscall(SYS_getcwd, base.data(), base.size()) <= 0 : !CheminDe(dossier, base))
        return false;
    Chemin entier;
    const int n = std::snprintf(entier.data(), entier.size(), "%s/%s", base.data(), chemin);
    return n > 0 && EstSuiviChemin(entier.data());
}

bool EstSuivi(int descripteur)
{
    return descripteur >= 0 && descripteur < PlusGrandDescripteur &&
           LEtat().suivis.at(static_cast<size_t>(descripteur));
}

void Suivre(int descripteur, bool oui)
{
    if (descripteur >= 0 && descripteur < PlusGrandDescripteur)
        LEtat().suivis.at(static_cast<size_t>(descripteur)) = oui;
}

int Compter(Genre genre, const char* chemin)
{
    Etat& etat = LEtat();
    if (!etat.armee || !etat.comptes)
        return 0;
    const uint64_t rang = ++etat.comptes->appels.at(genre);
    const bool deuxTemps = etat.erreur == Coupe;
    if (etat.genre != genre || etat.erreur == 0 || rang < etat.rang ||
        (rang > etat.rang && !etat.suite && !(deuxTemps && rang == etat.rang + 1)))
        return 0;
    if (etat.comptes->pannes++ == 0)
        std::strncpy(etat.comptes->chemin.data(), chemin, etat.comptes->chemin.size() - 1);
    if (deuxTemps && rang == etat.rang)
        return Court;
    if (etat.erreur == Arret) {
        kill(getpid(), SIGSTOP);
        return 0;
    }
    return deuxTemps ? (EstLecture(genre) ? EIO : ENOSPC) : etat.erreur;
}

int Compter(Genre genre, int descripteur)
{
    Chemin chemin;
    if (!EstSuivi(descripteur) || !CheminDe(descripteur, chemin))
        return 0;
    return Compter(genre, chemin.data());
}

void Ralentir(int descripteur)
{
    if (LEtat().lenteur > 0 && EstSuivi(descripteur))
        usleep(LEtat().lenteur);
}

bool Permis(int erreur, size_t& n)
{
    if (erreur > 0) {
        errno = erreur;
        return false;
    }
    if (erreur == Court && n > 1)
        n /= 2;
    return true;
}

int Suivi(int dossier, const char* chemin, int descripteur)
{
    if (descripteur >= 0)
        Suivre(descripteur, EstSuivi(dossier, chemin));
    return descripteur;
}

void Armer(bool oui)
{
    LEtat().armee = oui;
}

void DecalerHorloge(long secondes)
{
    LEtat().decalage = secondes;
}

long Decalage()
{
    return LEtat().decalage;
}

} // namespace panne
