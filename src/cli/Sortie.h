// Files that commands write: whole, or not at all.
#pragma once

#include "catalogue/documents/ChargerCatalogue.h"
#include "cli/Commandes.h"

class Categorie;

/// The options "format" and "force" of commands that write a catalogue. `defaut`: what the format is without the
/// option, in words of the help.
QList<OptionConnue> OptionsDeSortie(const QString& defaut);

/// The form that the option "format" asks for, `defaut` without it.
FormeFichier FormeDemandee(const LigneDeCommande& ligne, FormeFichier defaut);

/// Whether a catalogue may be written there: what exists is refused ("msg59") unless the option "force" is given.
bool SortieLibre(const LigneDeCommande& ligne, const QString& sortie);

/// Writes the document, which goes by that name from here on. A file that stands there stays whole until the new one
/// is. What cannot be written is told.
Statut EcrireSortie(const LigneDeCommande& ligne, Categorie& doc, const QString& sortie, FormeFichier forme);
