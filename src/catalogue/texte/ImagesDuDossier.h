// Whether the images that entries name are there, for who takes many entries from a text at once.
#pragma once

#include "catalogue/table/MyLVStockage.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QSet>
#include <QString>

/// Tells which image names are files of the folder, without asking the file system for each entry.
class ImagesDuDossier
{
public:
    /// Names come in `codage`.
    ImagesDuDossier(const QString& dossier, stockage::Codage codage) : m_dossier(dossier), m_codage(codage) {}

    /// The marker of an entry with this image.
    stockage::Icone IconeDe(QByteArrayView nom);

private:
    void LireNoms();
    bool EstFichier(QByteArrayView nom) const;

    QString m_dossier;
    stockage::Codage m_codage;
    bool m_lus = false;
    bool m_illisible = false; ///< the names of the folder cannot be had
    QSet<QByteArray> m_noms;
};

/// The flags of the slice `valeur` in a table whose source has so many columns; the image is the field behind them.
uint8_t DrapeauxDeTranche(QByteArrayView valeur, int colonnes, ImagesDuDossier& images);
