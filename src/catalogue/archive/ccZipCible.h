// The archive file that is being written; for the files of ccZip alone.
#pragma once

#include "catalogue/archive/ccZipRelais.h"

#include <zip.h>

#include <cstdint>

class PlaceDuFichier;

namespace zipinterne {

/// A new archive that is written where it will stand. There must be nothing yet, and what was begun goes again unless
/// it comes to its end. `volume`: how many bytes to make room for at once, about. `place` and `relais` outlive what is
/// returned. Null when it cannot be had.
zip_source_t* CreerCible(PlaceDuFichier& place, uint64_t volume, Relais& relais);

} // namespace zipinterne
