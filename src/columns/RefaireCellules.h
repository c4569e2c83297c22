// Column tools change the cells of all entries of a document: what they share.
#pragma once

#include "catalogue/table/RefonteDeTable.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

class Avancement;
class QrtClass;

using Cellules = std::vector<stockage::Cellule>;

/// Changes the cells of every entry, in display order. `debuter` gives what does it to one entry, anew for each try:
/// an operation that events cut through begins once more. `encodage` is the encoding of the cells to be.
void RefaireCellules(QrtClass& doc, stockage::Codage encodage, const std::function<RefonteDeTable::Travail()>& debuter,
                     Avancement& avancement);

/// The cell i of an entry, from 0; the empty one when there is none.
stockage::Cellule CelluleDe(const Cellules& cellules, int i);
/// Writes the cell i. Those before it that were never written stay so.
void EcrireCellule(Cellules& cellules, int i, const stockage::Cellule& cellule);
/// Takes the cell i out: those behind it move one to the left, also where this one was never written.
void RetirerCellule(Cellules& cellules, int i);
/// Puts a cell in at i: those from there on move one to the right.
void InsererCellule(Cellules& cellules, int i, const stockage::Cellule& cellule);

/// A text that was typed, in both encodings of cells.
class TexteTape
{
public:
    explicit TexteTape(const QString& texte);

    /// An encoding for the cells of `doc` in which the text can stand beside them.
    stockage::Codage EncodagePour(const QrtClass& doc) const;
    /// The text in the encoding; nothing when that lacks one of its characters.
    const QByteArray* Octets(stockage::Codage encodage) const;

private:
    QByteArray m_cp1252;
    QByteArray m_utf8;
    bool m_representable;
};
