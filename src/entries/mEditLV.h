// The operations on the entries of a document that a user starts from its window: edit, add, delete, look at.
#pragma once

#include "entries/OperationsEntrees.h"

#include <QString>

class FenetreDocument;
class MyLV;

/// Edits the selected entries in the editor; several of them at once when `multiAutorise` allows it, otherwise the
/// entry with the focus. `navigation` gives the editor its buttons for the previous and the next entry. Returns the
/// editor's flag that says whether the document has unsaved changes; false with nothing selected, or when the user does
/// not want to edit many. An entry beyond position 32767 is not edited alone: nothing opens then.
bool EditerEntrees(FenetreDocument& fenetre, bool multiAutorise, bool navigation);
/// Adds one entry, typed in the editor. True when the editor was closed with its validating button.
bool AjouterEntree(FenetreDocument& fenetre);
/// Lets the user delete the selected entries after a review, and numbers the keys anew.
void SupprimerEntrees(FenetreDocument& fenetre);
/// Shows the entry at position `index` large; nothing for a position outside the table.
void VoirEntree(MyLV& table, int index, const QString& tmpFolder);
