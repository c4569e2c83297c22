// The buffer through which texts of any size go out piece by piece.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <vector>

/// Takes the text piece by piece; false when the device refuses.
class Puits
{
public:
    virtual ~Puits() = default;
    virtual bool Recevoir(const char* octets, size_t taille) = 0;
};

/// Collects bytes in one buffer. Once the sink has refused, what comes is dropped.
class PlumeOctets
{
public:
    explicit PlumeOctets(Puits& puits) : m_puits(puits), m_tampon(TailleTampon) {}
    PlumeOctets(const PlumeOctets&) = delete;
    PlumeOctets& operator=(const PlumeOctets&) = delete;

    void Octets(const char* octets, size_t taille)
    {
        if (taille == 0)
            return; // there need not be an address either
        if (taille > m_tampon.size() - m_place) {
            Vider();
            if (taille > m_tampon.size()) {
                m_bon = m_bon && m_puits.Recevoir(octets, taille);
                return;
            }
        }
        std::memcpy(m_tampon.data() + m_place, octets, taille);
        m_place += taille;
    }
    void Ascii(const char* texte) { Octets(texte, std::strlen(texte)); }
    void Nombre(int64_t nombre)
    {
        char chiffres[24];
        Octets(chiffres, static_cast<size_t>(std::to_chars(chiffres, std::end(chiffres), nombre).ptr - chiffres));
    }
    void FinDeLigne() { Octets("\r\n", 2); }

    /// Hands over what was collected; false when the sink has refused anything so far.
    bool Vider()
    {
        m_bon = m_bon && m_puits.Recevoir(m_tampon.data(), m_place);
        m_place = 0;
        return m_bon;
    }
    bool Bon() const { return m_bon; }

private:
    static constexpr size_t TailleTampon = size_t(1) << 18;

    Puits& m_puits;
    std::vector<char> m_tampon;
    size_t m_place = 0;
    bool m_bon = true;
};
