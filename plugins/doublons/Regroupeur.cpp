#include "Regroupeur.h"

#include <QHashFunctions>
#include <QRandomGenerator>

uint64_t Hachage::Melanger(uint64_t x)
{
    x ^= x >> 32;
    x *= 0xd6e8feb86659fd93U;
    x ^= x >> 32;
    x *= 0xd6e8feb86659fd93U;
    return x ^ (x >> 32);
}

Hachage::Hachage()
    : m_graineA(QRandomGenerator::system()->generate64()), m_graineB(QRandomGenerator::system()->generate64())
{
}

Empreinte Hachage::De(const void* octets, size_t nombre) const
{
    return {qHashBits(octets, nombre, static_cast<size_t>(m_graineA)),
            qHashBits(octets, nombre, static_cast<size_t>(m_graineB))};
}

Empreinte Hachage::Joindre(const Empreinte& avant, const Empreinte& suite)
{
    return {Melanger(avant.a * 0x9e3779b97f4a7c15U + suite.a), Melanger(avant.b * 0xc2b2ae3d27d4eb4fU + suite.b)};
}

uint32_t Regroupeur::Numero(const Empreinte& empreinte)
{
    const size_t place = Place(empreinte);
    if (m_places[place] != Aucun)
        return m_places[place];
    const uint32_t numero = Count();
    m_places[place] = numero;
    m_empreintes.push_back(empreinte);
    if (m_empreintes.size() * 2 > m_places.size())
        Agrandir();
    return numero;
}

uint32_t Regroupeur::Chercher(const Empreinte& empreinte) const
{
    return m_places[Place(empreinte)];
}

size_t Regroupeur::Place(const Empreinte& empreinte) const
{
    const size_t masque = m_places.size() - 1;
    size_t place = static_cast<size_t>(Hachage::Melanger(empreinte.a)) & masque;
    while (m_places[place] != Aucun && m_empreintes[m_places[place]] != empreinte)
        place = (place + 1) & masque;
    return place;
}

void Regroupeur::Agrandir()
{
    m_places.assign(m_places.size() * 2, Aucun);
    for (uint32_t numero = 0; numero < Count(); ++numero)
        m_places[Place(m_empreintes[numero])] = numero;
}
