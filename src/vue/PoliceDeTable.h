// The look of a document's table, as the user set it.
#pragma once

#include <QColor>
#include <QFont>

#include <optional>

/// The font of the settings FontName, FontSize, FontBold, FontItalic. A family that is not installed gives way to the
/// desktop's own; so does the size, as long as the default size is set with it.
QFont PoliceDeTable();

/// The colour of FontColor (blue, green, red from the highest byte); nothing for 0, which is the theme's text colour.
std::optional<QColor> CouleurDeTable();
