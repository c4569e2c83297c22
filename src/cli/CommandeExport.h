// zelvane-cli export: the category in a file of another kind.
#pragma once

#include "cli/Commandes.h"

Statut ExecuterExport(const LigneDeCommande& ligne);

/// The values of the option "as".
QStringList GenresExport();
