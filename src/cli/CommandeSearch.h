// zelvane-cli search: the entries that contain a text.
#pragma once

#include "cli/Commandes.h"

Statut ExecuterSearch(const LigneDeCommande& ligne);
