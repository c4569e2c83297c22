// The sort marker of a title, for who cannot see it.
#pragma once

#include <QString>

/// What the marker "up" or "down" says of the order; empty for any other.
QString TriEnMots(const QString& marque);
