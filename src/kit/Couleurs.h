// The colours of the program's windows, light or dark.
#pragma once

#include <QPalette>

/// Dark windows for a style that draws with the palette alone. Texts can be read on what they stand on: contrasts are
/// 4.5 : 1 or more.
QPalette PaletteSombre();
/// A palette whose windows are dark.
bool EstSombre(const QPalette& palette);

/// How well one colour stands out on the other, from 1 for the same one to 21, as the guidelines for readable pages
/// compute it. Texts need 4.5, what is drawn 3.
double Contraste(const QColor& a, const QColor& b);
/// `encre`, made lighter as far as texts need it where `fond` is dark. On a light ground it stays as it is.
QColor EncreLisible(const QColor& encre, const QColor& fond);

/// Gives the program dark colours or takes them away again. Where the desktop's own colours are dark they stay.
void MettreCouleurs(bool sombre);
