// The question about archives that would become unusually large.
#pragma once

#include <QtGlobal>

/// Asks whether an archive of `taille` bytes may unpack to `volume` bytes ("msgVolume"); true at once where that is no
/// more than such files usually hold.
bool AccepterVolume(quint64 volume, quint64 taille);
