// The calls themselves: each does what the system's does, unless it is to fail.
#include "panne_prechargee.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <ctime>

using namespace panne;

namespace {

/// The system's function of a name.
template<class Fonction> Fonction* Vraie(const char* nom)
{
    return reinterpret_cast<Fonction*>(dlsym(RTLD_NEXT, nom));
}
#define VRAIE(fonction) static auto* const vraie = Vraie<decltype(fonction)>(#fonction)

/// The result of a call that fails.
template<class Resultat> Resultat Echouer(int erreur, Resultat resultat)
{
    errno = erreur;
    return resultat;
}

mode_t ModeDe(int drapeaux, va_list& suite)
{
    return (drapeaux & O_CREAT) != 0 || (drapeaux & O_TMPFILE) == O_TMPFILE ? va_arg(suite, mode_t) : 0;
}

} // namespace

#define EXPORTE extern "C" __attribute__((visibility("default")))

/// Whether calls are counted, and fail, from here on.
EXPORTE void PanneArmer(int oui)
{
    Armer(oui != 0);
}

/// Sets the clock forward, or back.
EXPORTE void PanneDecalerHorloge(long secondes)
{
    DecalerHorloge(secondes);
}

// ---- Opening and closing

#define OUVERTURE(fonction)                                                                                            \
    EXPORTE int fonction(const char* chemin, int drapeaux, ...)                                                        \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        va_list suite;                                                                                                 \
        va_start(suite, drapeaux);                                                                                     \
        const mode_t mode = ModeDe(drapeaux, suite);                                                                   \
        va_end(suite);                                                                                                 \
        if (const int erreur = EstSuivi(AT_FDCWD, chemin) ? Compter(Ouvrir, chemin) : 0; erreur > 0)                   \
            return Echouer(erreur, -1);                                                                                \
        return Suivi(AT_FDCWD, chemin, vraie(chemin, drapeaux, mode));                                                 \
    }
OUVERTURE(open)
OUVERTURE(open64)

#define OUVERTURE_A(fonction)                                                                                          \
    EXPORTE int fonction(int dossier, const char* chemin, int drapeaux, ...)                                           \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        va_list suite;                                                                                                 \
        va_start(suite, drapeaux);                                                                                     \
        const mode_t mode = ModeDe(drapeaux, suite);                                                                   \
        va_end(suite);                                                                                                 \
        if (const int erreur = EstSuivi(dossier, chemin) ? Compter(Ouvrir, chemin) : 0; erreur > 0)                    \
            return Echouer(erreur, -1);                                                                                \
        return Suivi(dossier, chemin, vraie(dossier, chemin, drapeaux, mode));                                         \
    }
OUVERTURE_A(openat)
OUVERTURE_A(openat64)

#define CREATION(fonction)                                                                                             \
    EXPORTE int fonction(const char* chemin, mode_t mode)                                                              \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        if (const int erreur = EstSuivi(AT_FDCWD, chemin) ? Compter(Ouvrir, chemin) : 0; erreur > 0)                   \
            return Echouer(erreur, -1);                                                                                \
        return Suivi(AT_FDCWD, chemin, vraie(chemin, mode));                                                           \
    }
CREATION(creat)
CREATION(creat64)

#define OUVERTURE_DE_FLUX(fonction)                                                                                    \
    EXPORTE FILE* fonction(const char* chemin, const char* mode)                                                       \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        if (const int erreur = EstSuivi(AT_FDCWD, chemin) ? Compter(Ouvrir, chemin) : 0; erreur > 0)                   \
            return Echouer(erreur, static_cast<FILE*>(nullptr));                                                       \
        FILE* flux = vraie(chemin, mode);                                                                              \
        if (flux)                                                                                                      \
            Suivi(AT_FDCWD, chemin, fileno(flux));                                                                     \
        return flux;                                                                                                   \
    }
OUVERTURE_DE_FLUX(fopen)
OUVERTURE_DE_FLUX(fopen64)

EXPORTE int close(int descripteur)
{
    VRAIE(close);
    // The descriptor is gone also where an error is told.
    const int erreur = Compter(Fermer, descripteur);
    Suivre(descripteur, false);
    const int resultat = vraie(descripteur);
    return erreur > 0 ? Echouer(erreur, -1) : resultat;
}

EXPORTE int fclose(FILE* flux)
{
    VRAIE(fclose);
    const int descripteur = fileno(flux);
    const int erreur = Compter(Fermer, descripteur);
    Suivre(descripteur, false);
    const int resultat = vraie(flux);
    return erreur > 0 ? Echouer(erreur, EOF) : resultat;
}

EXPORTE int dup(int descripteur)
{
    VRAIE(dup);
    const int double_ = vraie(descripteur);
    Suivre(double_, EstSuivi(descripteur));
    return double_;
}

// ---- Reading and writing

EXPORTE ssize_t read(int descripteur, void* vers, size_t n)
{
    VRAIE(read);
    return Permis(Compter(Lire, descripteur), n) ? vraie(descripteur, vers, n) : -1;
}

#define LECTURE_A(fonction, place_t)                                                                                   \
    EXPORTE ssize_t fonction(int descripteur, void* vers, size_t n, place_t place)                                     \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        return Permis(Compter(LireA, descripteur), n) ? vraie(descripteur, vers, n, place) : -1;                       \
    }
LECTURE_A(pread, off_t)
LECTURE_A(pread64, off64_t)

EXPORTE size_t fread(void* vers, size_t taille, size_t n, FILE* flux)
{
    VRAIE(fread);
    if (const int erreur = Compter(LireFlux, fileno(flux)); erreur > 0) {
        flux->_flags |= _IO_ERR_SEEN;
        return Echouer(erreur, size_t(0));
    }
    return vraie(vers, taille, n, flux);
}

EXPORTE ssize_t write(int descripteur, const void* octets, size_t n)
{
    VRAIE(write);
    Ralentir(descripteur);
    return Permis(Compter(Ecrire, descripteur), n) ? vraie(descripteur, octets, n) : -1;
}

#define ECRITURE_A(fonction, place_t)                                                                                  \
    EXPORTE ssize_t fonction(int descripteur, const void* octets, size_t n, place_t place)                             \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        Ralentir(descripteur);                                                                                         \
        return Permis(Compter(EcrireA, descripteur), n) ? vraie(descripteur, octets, n, place) : -1;                   \
    }
ECRITURE_A(pwrite, off_t)
ECRITURE_A(pwrite64, off64_t)

EXPORTE ssize_t writev(int descripteur, const iovec* morceaux, int nombre)
{
    VRAIE(writev);
    const int erreur = Compter(EcrireEnsemble, descripteur);
    if (erreur > 0)
        return Echouer(erreur, ssize_t(-1));
    return vraie(descripteur, morceaux, erreur == Court && nombre > 1 ? 1 : nombre);
}

EXPORTE size_t fwrite(const void* octets, size_t taille, size_t n, FILE* flux)
{
    VRAIE(fwrite);
    if (const int erreur = Compter(EcrireFlux, fileno(flux)); erreur > 0) {
        flux->_flags |= _IO_ERR_SEEN;
        return Echouer(erreur, size_t(0));
    }
    return vraie(octets, taille, n, flux);
}

// ---- From one file into another

EXPORTE ssize_t copy_file_range(int de, off64_t* placeDe, int vers, off64_t* placeVers, size_t n, unsigned drapeaux)
{
    VRAIE(copy_file_range);
    Ralentir(vers);
    return Permis(Compter(Copier, vers), n) ? vraie(de, placeDe, vers, placeVers, n, drapeaux) : -1;
}

#define ENVOI(fonction, place_t)                                                                                       \
    EXPORTE ssize_t fonction(int vers, int de, place_t* place, size_t n)                                               \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        Ralentir(vers);                                                                                                \
        return Permis(Compter(Copier, vers), n) ? vraie(vers, de, place, n) : -1;                                      \
    }
ENVOI(sendfile, off_t)
ENVOI(sendfile64, off64_t)

EXPORTE int ioctl(int descripteur, unsigned long demande, ...)
{
    VRAIE(ioctl);
    va_list suite;
    va_start(suite, demande);
    void* argument = va_arg(suite, void*);
    va_end(suite);
    if (demande == FICLONE)
        if (const int erreur = Compter(Copier, descripteur); erreur > 0)
            return Echouer(erreur, -1);
    return vraie(descripteur, demande, argument);
}

// ---- What has a descriptor

#define SUR_DESCRIPTEUR(genre, fonction, parametres, arguments)                                                        \
    EXPORTE int fonction parametres                                                                                    \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        Ralentir(descripteur);                                                                                         \
        if (const int erreur = Compter(genre, descripteur); erreur > 0)                                                \
            return Echouer(erreur, -1);                                                                                \
        return vraie arguments;                                                                                        \
    }
SUR_DESCRIPTEUR(Forcer, fsync, (int descripteur), (descripteur))
SUR_DESCRIPTEUR(Forcer, fdatasync, (int descripteur), (descripteur))
SUR_DESCRIPTEUR(Couper, ftruncate, (int descripteur, off_t taille), (descripteur, taille))
SUR_DESCRIPTEUR(Couper, ftruncate64, (int descripteur, off64_t taille), (descripteur, taille))
SUR_DESCRIPTEUR(Reserver, fallocate, (int descripteur, int mode, off_t de, off_t n), (descripteur, mode, de, n))
SUR_DESCRIPTEUR(Reserver, fallocate64, (int descripteur, int mode, off64_t de, off64_t n), (descripteur, mode, de, n))
SUR_DESCRIPTEUR(Verrouiller, flock, (int descripteur, int operation), (descripteur, operation))
SUR_DESCRIPTEUR(Droits, fchmod, (int descripteur, mode_t mode), (descripteur, mode))
SUR_DESCRIPTEUR(Dates, futimens, (int descripteur, const timespec dates[2]), (descripteur, dates))

// ---- What has a path

#define SUR_CHEMIN(genre, fonction, dossier, parametres, arguments)                                                    \
    EXPORTE int fonction parametres                                                                                    \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        if (const int erreur = EstSuivi(dossier, chemin) ? Compter(genre, chemin) : 0; erreur > 0)                     \
            return Echouer(erreur, -1);                                                                                \
        return vraie arguments;                                                                                        \
    }
SUR_CHEMIN(Supprimer, unlink, AT_FDCWD, (const char* chemin), (chemin))
SUR_CHEMIN(Supprimer, remove, AT_FDCWD, (const char* chemin), (chemin))
SUR_CHEMIN(Supprimer, unlinkat, de, (int de, const char* chemin, int drapeaux), (de, chemin, drapeaux))
SUR_CHEMIN(SupprimerDossier, rmdir, AT_FDCWD, (const char* chemin), (chemin))
SUR_CHEMIN(Renommer, rename, AT_FDCWD, (const char* chemin, const char* vers), (chemin, vers))
SUR_CHEMIN(Renommer, renameat, de, (int de, const char* chemin, int a, const char* vers), (de, chemin, a, vers))
SUR_CHEMIN(Renommer, renameat2, de, (int de, const char* chemin, int a, const char* vers, unsigned drapeaux),
           (de, chemin, a, vers, drapeaux))
SUR_CHEMIN(Lier, link, AT_FDCWD, (const char* chemin, const char* vers), (chemin, vers))
SUR_CHEMIN(Lier, linkat, de, (int de, const char* chemin, int a, const char* vers, int drapeaux),
           (de, chemin, a, vers, drapeaux))
SUR_CHEMIN(CreerDossier, mkdir, AT_FDCWD, (const char* chemin, mode_t mode), (chemin, mode))
SUR_CHEMIN(CreerDossier, mkdirat, de, (int de, const char* chemin, mode_t mode), (de, chemin, mode))
SUR_CHEMIN(Droits, chmod, AT_FDCWD, (const char* chemin, mode_t mode), (chemin, mode))
SUR_CHEMIN(Droits, fchmodat, de, (int de, const char* chemin, mode_t mode, int drapeaux), (de, chemin, mode, drapeaux))
SUR_CHEMIN(Dates, utimensat, de, (int de, const char* chemin, const timespec dates[2], int drapeaux),
           (de, chemin, dates, drapeaux))
SUR_CHEMIN(Regarder, stat, AT_FDCWD, (const char* chemin, struct stat* etat), (chemin, etat))
SUR_CHEMIN(Regarder, stat64, AT_FDCWD, (const char* chemin, struct stat64* etat), (chemin, etat))
SUR_CHEMIN(Regarder, lstat, AT_FDCWD, (const char* chemin, struct stat* etat), (chemin, etat))
SUR_CHEMIN(Regarder, lstat64, AT_FDCWD, (const char* chemin, struct stat64* etat), (chemin, etat))
SUR_CHEMIN(Regarder, statx, de, (int de, const char* chemin, int drapeaux, unsigned masque, struct statx* etat),
           (de, chemin, drapeaux, masque, etat))

EXPORTE char* mkdtemp(char* modele)
{
    VRAIE(mkdtemp);
    if (const int erreur = EstSuivi(AT_FDCWD, modele) ? Compter(CreerDossier, modele) : 0; erreur > 0)
        return Echouer(erreur, static_cast<char*>(nullptr));
    return vraie(modele);
}

// ---- Folders

EXPORTE DIR* opendir(const char* chemin)
{
    VRAIE(opendir);
    if (const int erreur = EstSuivi(AT_FDCWD, chemin) ? Compter(OuvrirDossier, chemin) : 0; erreur > 0)
        return Echouer(erreur, static_cast<DIR*>(nullptr));
    DIR* dossier = vraie(chemin);
    if (dossier)
        Suivi(AT_FDCWD, chemin, dirfd(dossier));
    return dossier;
}

#define LECTURE_DE_DOSSIER(fonction, entree_t)                                                                         \
    EXPORTE entree_t* fonction(DIR* dossier)                                                                           \
    {                                                                                                                  \
        VRAIE(fonction);                                                                                               \
        if (const int erreur = Compter(LireDossier, dirfd(dossier)); erreur > 0)                                       \
            return Echouer(erreur, static_cast<entree_t*>(nullptr));                                                   \
        return vraie(dossier);                                                                                         \
    }
LECTURE_DE_DOSSIER(readdir, dirent)
LECTURE_DE_DOSSIER(readdir64, dirent64)

EXPORTE int closedir(DIR* dossier)
{
    VRAIE(closedir);
    Suivre(dirfd(dossier), false);
    return vraie(dossier);
}

// ---- The clock

EXPORTE int clock_gettime(clockid_t horloge, timespec* heure)
{
    VRAIE(clock_gettime);
    const int resultat = vraie(horloge, heure);
    if (resultat == 0 && (horloge == CLOCK_REALTIME || horloge == CLOCK_REALTIME_COARSE))
        heure->tv_sec += Decalage();
    return resultat;
}

EXPORTE int gettimeofday(timeval* heure, void* zone)
{
    VRAIE(gettimeofday);
    const int resultat = vraie(heure, zone);
    if (resultat == 0)
        heure->tv_sec += Decalage();
    return resultat;
}

EXPORTE time_t time(time_t* vers)
{
    timespec heure;
    clock_gettime(CLOCK_REALTIME, &heure);
    if (vers)
        *vers = heure.tv_sec;
    return heure.tv_sec;
}
