// zelvane-cli lend and return.
#pragma once

#include "cli/Commandes.h"

/// `options`: those that all commands have which open a catalogue.
QList<Commande> CommandesPret(const QList<OptionConnue>& options);
