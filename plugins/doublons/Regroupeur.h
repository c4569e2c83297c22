// Numbers texts, or rows of numbers, so that equal ones get the same number. Each is known by 128 bits of its hash,
// which starts anew with every search: no file can be made to deceive it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

struct Empreinte
{
    uint64_t a = 0;
    uint64_t b = 0;
    bool operator==(const Empreinte&) const = default;
};

/// Makes the hashes of one search.
class Hachage
{
public:
    Hachage();
    Empreinte De(const void* octets, size_t nombre) const;
    /// That of `avant` and what follows it.
    static Empreinte Joindre(const Empreinte& avant, const Empreinte& suite);
    /// Spreads what differs over all bits.
    static uint64_t Melanger(uint64_t x);
    uint64_t Graine() const { return m_graineA; }

private:
    uint64_t m_graineA;
    uint64_t m_graineB;
};

class Regroupeur
{
public:
    static constexpr uint32_t Aucun = UINT32_MAX;

    /// The number of what has this hash: that of the first call with it, which were 0, 1, 2 ...
    uint32_t Numero(const Empreinte& empreinte);
    /// The same for one that may not be there: Aucun.
    uint32_t Chercher(const Empreinte& empreinte) const;
    uint32_t Count() const { return static_cast<uint32_t>(m_empreintes.size()); }

private:
    size_t Place(const Empreinte& empreinte) const;
    void Agrandir();

    std::vector<Empreinte> m_empreintes;
    std::vector<uint32_t> m_places = std::vector<uint32_t>(64, Aucun); // a power of two of them, half empty at least
};
