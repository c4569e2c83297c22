// zelvane-cli compare: the entries of each of two categories that the other one lacks.
#pragma once

#include "cli/Commandes.h"

Statut ExecuterCompare(const LigneDeCommande& ligne);
