#include "catalogue/archive/ccZipDescripteur.h"

#include "platform/NomsSysteme.h"

#include <cerrno>
#include <chrono>
#include <ctime>
#include <thread>

namespace zipinterne {

namespace {

int64_t Nanosecondes(const timespec& date)
{
    constexpr int64_t parSeconde = 1'000'000'000;
    return static_cast<int64_t>(date.tv_sec) * parSeconde + date.tv_nsec;
}

} // namespace

bool EcrireTout(int descripteur, std::span<const char> octets)
{
    while (!octets.empty()) {
        const ssize_t n = write(descripteur, octets.data(), octets.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        octets = octets.subspan(static_cast<size_t>(n));
    }
    return true;
}

bool EcrireA(int descripteur, std::span<const char> octets, uint64_t place)
{
    while (!octets.empty()) {
        const ssize_t n = pwrite(descripteur, octets.data(), octets.size(), static_cast<off_t>(place));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        octets = octets.subspan(static_cast<size_t>(n));
        place += static_cast<uint64_t>(n);
    }
    return true;
}

ssize_t LireSuite(int descripteur, std::span<char> vers)
{
    ssize_t n = 0;
    do
        n = read(descripteur, vers.data(), vers.size());
    while (n < 0 && errno == EINTR);
    return n;
}

ssize_t LireA(int descripteur, std::span<char> vers, uint64_t place)
{
    ssize_t n = 0;
    do
        n = pread(descripteur, vers.data(), vers.size(), static_cast<off_t>(place));
    while (n < 0 && errno == EINTR);
    return n;
}

EtatFichier VersEtat(const struct stat& fichier)
{
    return {fichier.st_dev, fichier.st_ino, static_cast<uint64_t>(fichier.st_size), Nanosecondes(fichier.st_mtim),
            Nanosecondes(fichier.st_ctim)};
}

std::optional<EtatFichier> EtatDe(int descripteur)
{
    struct stat fichier;
    return fstat(descripteur, &fichier) == 0 ? std::optional(VersEtat(fichier)) : std::nullopt;
}

std::optional<EtatFichier> EtatDe(const QString& chemin)
{
    struct stat fichier;
    return stat(OctetsDuChemin(chemin).constData(), &fichier) == 0 ? std::optional(VersEtat(fichier)) : std::nullopt;
}

bool EstPasse(const EtatFichier& etat)
{
    timespec heure;
    return clock_gettime(CLOCK_REALTIME_COARSE, &heure) == 0 && etat.change < Nanosecondes(heure);
}

std::optional<EtatFichier> EtatPasse(const QString& chemin)
{
    using namespace std::chrono_literals;
    constexpr int essais = 30;
    for (int i = 0; i < essais; ++i) {
        const std::optional<EtatFichier> etat = EtatDe(chemin);
        if (!etat || EstPasse(*etat))
            return etat;
        std::this_thread::sleep_for(1ms);
    }
    return std::nullopt; // a disk with a clock of its own
}

} // namespace zipinterne
