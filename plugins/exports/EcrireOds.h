// A category as an OpenDocument spreadsheet: what it holds is told in docs/exports.md.
#pragma once

#include "ContenuOds.h"

/// Writes the package, whose bytes depend on the table alone. It takes its place when it is whole; what was there
/// before stays where the result is another one than Fin::Faite.
Fin EcrireOds(const TableExportee& contenu, const TitresOds& titres, const QString& chemin, Progression& progression,
              LimitesOds limites = {});
