// The dialogs that change the columns of a document, as its commands open them.
#pragma once

class FenetreDocument;

/// Adds, deletes, renames and moves columns, and chooses the dependant one.
void ModifierCategorie(FenetreDocument& fenetre);
/// Merges two columns.
void FusionnerColonnes(FenetreDocument& fenetre);
/// Splits a column in two.
void SeparerColonne(FenetreDocument& fenetre);
/// Copies a column.
void DupliquerColonne(FenetreDocument& fenetre);
