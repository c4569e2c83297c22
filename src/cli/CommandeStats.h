// zelvane-cli stats: the report on what is lent.
#pragma once

#include "cli/Commandes.h"

Statut ExecuterStats(const LigneDeCommande& ligne);
