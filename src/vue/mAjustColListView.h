// The widths of a list's columns, adapted at the user's request. A width alone is no change of a document.
#pragma once

#include <QString>

#include <vector>

class ColumnHeaders;

/// Measures for the columns of a list, in units of 1/1440 inch. The view of the list implements it.
class MesuresDeColonnes
{
public:
    virtual ~MesuresDeColonnes() = default;
    /// The width that each column needs to show the widest of its cells and its title whole. All at once: the entries
    /// are gone through one after the other, however many columns there are.
    virtual std::vector<float> LargeursDuContenu() const = 0;
    /// The width of a title's text in the font of the window around the list.
    virtual float LargeurDuTitre(const QString& titre) const = 0;
};

/// Fits each column to its contents; a title gets room around it.
void AjusterColonnes(ColumnHeaders& colonnes, const MesuresDeColonnes& mesures);

/// Scales all columns of a list with `lignes` rows by one factor, so that together they fill a control of the width
/// `largeur` (1/1440 inch) less the room of its scroll bar. Nothing happens in a list without rows, or when there is
/// nothing to scale.
void RedimensionnerColonnes(ColumnHeaders& colonnes, int lignes, double largeur);
