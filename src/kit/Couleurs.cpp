#include "kit/Couleurs.h"

#include "kit/StyleDesContours.h"

#include <QApplication>
#include <QStyle>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

constexpr int Milieu = 128; // of the lightness of a colour
constexpr double ContrasteDesTextes = 4.5;

double Clarte(const QColor& couleur)
{
    const auto lineaire = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * lineaire(couleur.redF()) + 0.7152 * lineaire(couleur.greenF()) + 0.0722 * lineaire(couleur.blueF());
}

void MettreTextes(QPalette& palette, QPalette::ColorGroup groupe, const QColor& encre)
{
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(groupe, role, encre);
}

} // namespace

QPalette PaletteSombre()
{
    const QColor fenetre(0x2b, 0x2b, 0x2b);
    const QColor feuille(0x1e, 0x1e, 0x1e);
    const QColor bouton(0x3a, 0x3a, 0x3a);
    const QColor encre(0xf0, 0xf0, 0xf0);

    // Edges and shadows follow from the colour of buttons.
    QPalette palette(bouton, fenetre);
    MettreTextes(palette, QPalette::All, encre);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Base, feuille);
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x26));
    palette.setColor(QPalette::ToolTipText, encre);
    palette.setColor(QPalette::ToolTipBase, QColor(0x40, 0x40, 0x40));
    palette.setColor(QPalette::PlaceholderText, QColor(0xa8, 0xa8, 0xa8));
    palette.setColor(QPalette::Highlight, QColor(0x2c, 0x76, 0xcb));
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb4, 0xff));
    palette.setColor(QPalette::LinkVisited, QColor(0xc5, 0x9b, 0xff));
    MettreTextes(palette, QPalette::Disabled, QColor(0xa8, 0xa8, 0xa8));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x3c, 0x3c, 0x3c));
    return palette;
}

bool EstSombre(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < Milieu;
}

double Contraste(const QColor& a, const QColor& b)
{
    constexpr double lueur = 0.05; // of a screen that shows black
    const auto [sombre, claire] = std::minmax({Clarte(a), Clarte(b)});
    return (claire + lueur) / (sombre + lueur);
}

QColor EncreLisible(const QColor& encre, const QColor& fond)
{
    if (fond.lightness() >= Milieu || Contraste(encre, fond) >= ContrasteDesTextes)
        return encre;
    QColor lisible = encre.toHsl();
    while (Contraste(lisible, fond) < ContrasteDesTextes && lisible.lightness() < 255)
        lisible.setHsl(lisible.hslHue(), lisible.hslSaturation(), lisible.lightness() + 1);
    return lisible.toRgb();
}

void MettreCouleurs(bool sombre)
{
    static const QPalette bulles = QToolTip::palette(); // a palette of their own, which is set once
    QApplication::setPalette(QPalette());               // the desktop's again
    const bool changer = sombre && !EstSombre(QApplication::palette());
    if (changer && !dynamic_cast<const StyleDesContours*>(QApplication::style()))
        QApplication::setStyle(new StyleDesContours(QApplication::style()->name()));
    if (changer)
        QApplication::setPalette(PaletteSombre());
    QToolTip::setPalette(changer ? PaletteSombre() : bulles);
}
