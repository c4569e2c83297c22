// The look of a document's table, as the user set it.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>

#include <optional>

/// The settings FontName, FontSize, FontBold, FontItalic and FontColor; at first with their defaults.
struct ReglagesDePolice
{
    ReglagesDePolice();
    bool operator==(const ReglagesDePolice&) const = default;

    QString nom;
    double taille;
    bool gras;
    bool italique;
    int couleur; ///< blue, green, red from the highest byte
};

ReglagesDePolice LirePolice();
void EcrirePolice(const ReglagesDePolice& reglages);

/// A family that is not installed gives way to the desktop's own; so does the size, as long as the default size is set
/// with it.
QFont PoliceDe(const ReglagesDePolice& reglages);
/// Nothing for 0, which is the theme's text colour.
std::optional<QColor> CouleurDe(const ReglagesDePolice& reglages);
/// For a label that shows letters as a table does, in the theme that is in force. What cannot be read is made lighter.
QPalette PaletteDExemple(const ReglagesDePolice& reglages);

// What the settings say now.
QFont PoliceDeTable();
std::optional<QColor> CouleurDeTable();
