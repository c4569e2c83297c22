#include "entries/NouvelleCategorie.h"

void NouvelleCategorie(Cadre& /*cadre*/) {}
