// zelvane-cli paste.
#pragma once

#include "cli/Commandes.h"

Commande CommandePaste(const QList<OptionConnue>& options);
