// Breaks a text into the lines of a cell.
#pragma once

#include <QStringList>

class MesureDeTexte;

/// The lines of `texte` in a cell of `largeur` millimetres; at least one. Lines break at blanks, and a word that is
/// wider than the cell wherever it is full. The first word of a cell has a blank in front of it, and a text that ends
/// on such a wide word ends on an empty line: it is meant.
QStringList CouperTexte(const QString& texte, double largeur, const MesureDeTexte& mesure);
