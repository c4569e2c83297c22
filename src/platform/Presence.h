// Whether a file is there, where a disk that answers with an error must not pass for one without the file.
#pragma once

#include <QString>

/// False only where the file system says that nothing lies at the path, links followed. It is true as well where
/// looking failed: who then reads or replaces the file meets the error itself.
bool PeutExister(const QString& chemin);

/// Whether an errno of a look at a path says that nothing lies there, and not that looking failed.
bool EstAbsence(int erreur);
