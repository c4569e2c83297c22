// Which columns that come in stand against which columns of a category: what a paste, a drop and the pre-recorded texts
// show in frmDragAndDrop, where the user moves the cells of the left.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

/// Rows from the first, as many on both sides.
struct Correspondance
{
    QStringList departs;  ///< the sources: "(1)" and the title, or "<vide>" in the language in force
    QStringList arrivees; ///< the targets: "(1)" and the title, or "<perdu>"

    qsizetype Rangs() const { return departs.size(); }
    /// The number of the source on the left of row `rang` (from 1); 0 for none, also beyond the rows.
    qsizetype Source(qsizetype rang) const;
};

/// Source 1 against target 1, and so on; the shorter side is filled up.
Correspondance Correspondre(const QStringList& sources, const QStringList& cibles);

/// Whether a cell of the left stands for a source: it holds a ")".
bool DesigneUneSource(QStringView cellule);
/// The number between the first character of such a cell and its first ")"; 0 when it is none.
qsizetype NumeroDeSource(QStringView cellule);
