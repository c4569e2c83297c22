// A sink that hands what it takes to a device.
#pragma once

#include "catalogue/texte/PlumeOctets.h"

#include <QIODevice>

class PuitsAppareil : public Puits
{
public:
    /// Not owned; open for writing, and outlives this.
    explicit PuitsAppareil(QIODevice& appareil) : m_appareil(appareil) {}
    bool Recevoir(const char* octets, size_t taille) override
    {
        const auto attendu = static_cast<qint64>(taille);
        return m_appareil.write(octets, attendu) == attendu;
    }

private:
    QIODevice& m_appareil;
};
