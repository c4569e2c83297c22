// Lengths of the screen: pixels, and the units of 1/1440 inch in which widths are kept.
#pragma once

class QWidget;

/// Pixels of a length on the screen of `widget`; from 0 to what a column can take.
int PixelsDe(const QWidget& widget, double unites);
double UnitesDe(const QWidget& widget, int pixels);
