// Tells the form of a catalogue file.
#pragma once

#include <QString>

/// 0: not a catalogue file; 1: bare text file; 2: archive that holds "Zelvane.qrt". Shows "trap" and returns 0 when
/// the file cannot be read.
int TypeFichier(const QString& chemin);
