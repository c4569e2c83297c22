// zelvane-cli column: changes the columns of a catalogue.
#pragma once

#include "cli/Commandes.h"

/// One command an action: "column add" and so on. `options`: what they have beside those of their own.
QList<Commande> CommandesColumn(const QList<OptionConnue>& options);
