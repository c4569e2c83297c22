// The archive file that is being written; for the files of ccZip alone.
#pragma once

#include "catalogue/ccZipRelais.h"

#include <QFileDevice>
#include <QString>

#include <zip.h>

#include <cstdint>
#include <optional>

namespace zipinterne {

/// A new archive that is written where it will stand. There must be nothing yet, and what was begun goes again unless
/// it comes to its end. `droits`: who may read and write it; without, the system's usual. `volume`: how many bytes to
/// make room for at once, about. `relais` outlives what is returned. Null when it cannot be had.
zip_source_t* CreerCible(const QString& chemin, std::optional<QFileDevice::Permissions> droits, uint64_t volume,
                         Relais& relais);

} // namespace zipinterne
