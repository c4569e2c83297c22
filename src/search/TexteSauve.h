// The text of a category as it was last saved, mapped where it lies in the document's folder: no copy of it is made.
#pragma once

#include "catalogue/table/MyLVStockage.h"

#include <QByteArrayView>
#include <QFile>
#include <QString>

class TexteSauve
{
public:
    enum class Etat {
        Lu,
        Absent,    ///< there is no such file
        Illisible, ///< it is there, or the exact text beside it is, and cannot be read
    };

    /// The exact text where it is there and not stale, else the 8-bit text.
    explicit TexteSauve(const QString& dossier);

    Etat Issue() const { return m_etat; }
    /// Empty unless it was read. Valid as long as this object is.
    QByteArrayView Octets() const { return m_octets; }
    stockage::Codage Codage() const { return m_codage; }

private:
    Etat LireHuitBits(const QString& dossier);
    Etat LireExact(const QString& dossier);

    QFile m_huitBits;
    QFile m_exact;
    QByteArrayView m_octets;
    stockage::Codage m_codage = stockage::Codage::Cp1252;
    Etat m_etat;
};
