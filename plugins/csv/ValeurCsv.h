// What a cell of the catalogue can hold of a value.
#pragma once

#include <QString>

/// What was put in the place of characters that no cell can hold.
struct RemplacesCsv
{
    qint64 barres = 0; ///< values with "|", which became "¦"
    qint64 sauts = 0;  ///< values with line breaks, which became blanks
    qint64 nuls = 0;   ///< values with characters 0, which became blanks

    bool Aucun() const { return barres == 0 && sauts == 0 && nuls == 0; }
};

/// Makes the value one that a cell can hold, and counts what that took.
void TenirEnCellule(QString& valeur, RemplacesCsv& remplaces);
/// A title without what none can hold, and without blanks around it.
QString TitreTenable(const QString& titre);

/// Whether the value is a path with the extension of an image.
bool EstCheminDImage(const QString& valeur);
/// The file that a path of the column of images names; `dossier` is that of the table, with its trailing separator.
/// Empty where there is none.
QString FichierDuChemin(const QString& chemin, const QString& dossier);
