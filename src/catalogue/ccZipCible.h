// The archive file that is being written; for the files of ccZip alone.
#pragma once

#include "catalogue/ccZipRelais.h"

#include <QString>

#include <zip.h>

namespace zipinterne {

/// A new archive that is written where it will stand. There must be nothing yet, and what was begun goes again unless
/// it comes to its end. `relais` outlives it. Null when it cannot be had.
zip_source_t* CreerCible(const QString& chemin, Relais& relais);

} // namespace zipinterne
