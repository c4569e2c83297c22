// File descriptors, and the states of the files behind them; for the files of ccZip alone.
#pragma once

#include "catalogue/archive/ccZipReprise.h"

#include <sys/stat.h>
#include <unistd.h>

#include <span>
#include <utility>

namespace zipinterne {

/// A file descriptor that closes itself.
class Descripteur
{
public:
    explicit Descripteur(int numero = -1) : m_numero(numero) {}
    ~Descripteur() { Fermer(); }
    Descripteur(Descripteur&& autre) noexcept : m_numero(std::exchange(autre.m_numero, -1)) {}
    Descripteur& operator=(Descripteur&& autre) noexcept
    {
        std::swap(m_numero, autre.m_numero);
        return *this;
    }

    explicit operator bool() const { return m_numero >= 0; }
    int Numero() const { return m_numero; }
    /// False when the system found a late write error.
    bool Fermer() { return m_numero < 0 || close(std::exchange(m_numero, -1)) == 0; }

private:
    int m_numero;
};

/// Writes all of the bytes, behind what was written before.
bool EcrireTout(int descripteur, std::span<const char> octets);
/// Writes all of the bytes at a place, counted from 0.
bool EcrireA(int descripteur, std::span<const char> octets, uint64_t place);
/// Reads what comes next: how much, 0 at the end, negative on an error.
ssize_t LireSuite(int descripteur, std::span<char> vers);
/// Reads at a place, counted from 0; as LireSuite.
ssize_t LireA(int descripteur, std::span<char> vers, uint64_t place);

EtatFichier VersEtat(const struct stat& fichier);
std::optional<EtatFichier> EtatDe(int descripteur);
std::optional<EtatFichier> EtatDe(const QString& chemin);
/// Whether a later write would show: not while the clock of file times still stands where the last change was.
bool EstPasse(const EtatFichier& etat);
/// The state of a file, once a later write will show; waits some milliseconds where it was written a moment ago.
std::optional<EtatFichier> EtatPasse(const QString& chemin);

} // namespace zipinterne
