// What exports are written with: bytes of the set that the file is in, taken from the table as they are where they may.
#pragma once

#include "catalogue/table/MyLVStockage.h"
#include "catalogue/texte/PlumeOctets.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// The set of a file's characters, and what becomes of one that the 8-bit set lacks.
enum class JeuExport {
    HuitBits, ///< "?" stands for it, and the plume knows (AManque)
    Page,     ///< 8-bit, and a numeric reference stands for it: "&#1046;"
    Utf8,     ///< there is none
};

class PlumeExport : public PlumeOctets
{
public:
    PlumeExport(Puits& puits, JeuExport jeu) : PlumeOctets(puits), m_jeu(jeu) {}

    JeuExport Jeu() const { return m_jeu; }
    void Texte(const QString& texte) { Tous(EnOctets(texte)); }
    void Champ(const stockage::Cellule& cellule) { Tous(EnOctets(cellule)); }
    void Tous(QByteArrayView octets) { Octets(octets.data(), static_cast<size_t>(octets.size())); }
    /// A negative number is none.
    void Blancs(qsizetype nombre);

    /// The bytes in the file's set; they stay until the next call.
    QByteArrayView EnOctets(const QString& texte);
    QByteArrayView EnOctets(const stockage::Cellule& cellule);

    /// A character has come that the 8-bit set lacks.
    bool AManque() const { return m_manque; }

private:
    JeuExport m_jeu;
    QByteArray m_octets;
    bool m_manque = false;
};
