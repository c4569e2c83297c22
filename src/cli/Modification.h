// Commands that change a catalogue: the first argument is loaded, changed and written as the second.
#pragma once

#include "cli/Commandes.h"

#include <functional>

class Categorie;

/// The options that all of them have.
QList<OptionConnue> OptionsDeModification();

/// Loads, has `changer` do its work and writes, in the form of the first argument unless the option "format" asks for
/// another one. Where `changer` does not answer Fait, nothing is written and that is the end. Whatever can be found
/// wrong with the arguments without the catalogue is to be refused before.
Statut ModifierCatalogue(const LigneDeCommande& ligne, const std::function<Statut(Categorie&)>& changer);
