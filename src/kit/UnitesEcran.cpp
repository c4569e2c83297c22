#include "kit/UnitesEcran.h"

#include <QWidget>

#include <algorithm>

namespace {

constexpr double UnitesParPouce = 1440;
constexpr double LargeurMax = 100'000; // pixels; beyond it a header takes no width

} // namespace

int PixelsDe(const QWidget& widget, double unites)
{
    return qRound(std::clamp(unites * widget.logicalDpiX() / UnitesParPouce, 0.0, LargeurMax));
}

double UnitesDe(const QWidget& widget, int pixels)
{
    return pixels * UnitesParPouce / widget.logicalDpiX();
}
