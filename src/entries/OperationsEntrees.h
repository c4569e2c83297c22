// What the operations on the entries of a document do to its table, once the user has typed: edit many entries, add
// one.
#pragma once

#include <QString>
#include <QStringList>

class Avancement;
class FenetreDocument;
class MyLV;

/// What the editor gathered, one element a column.
struct SaisieEntree
{
    QStringList valeurs;
    QStringList textes; ///< the pre-recorded texts, see SaisieDEntree.h
    QString image;      ///< bare file name, or empty
};

/// Writes the values that are not empty, and the image unless it is empty, into every selected entry: many entries
/// together cannot be blanked. The columns take their pre-recorded texts, and the window in front shows the image. The
/// document has changed then, also when nothing was typed.
void ModifierSelection(FenetreDocument& fenetre, const SaisieEntree& saisie, Avancement& avancement);

/// Adds an entry behind all others; the table is unsorted from then on. The entry alone is selected, has the focus and
/// is brought into view, and the window in front shows its image, or none. Keys are renumbered before.
void InscrireEntree(FenetreDocument& fenetre, const SaisieEntree& saisie);

/// Sets Selected of every entry to false.
void ToutDeselectionner(MyLV& table);
