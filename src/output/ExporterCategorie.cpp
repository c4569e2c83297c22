#include "output/ExporterCategorie.h"

void ExporterCategorie(Categorie&, bool&) {}
