// Words of a text that are wider than the place for them: a path without blanks, say, in a message. Labels break lines
// between words only, and would cut such a word off or grow with it.
#pragma once

#include <QString>

class QFontMetrics;

/// Pixels of the widest part of `texte` that is never broken.
int LargeurDuPlusLongMot(const QString& texte, const QFontMetrics& mesures);

/// `texte`, in which every part that is wider than `largeur` pixels and would not be broken can be, behind each of its
/// characters (by zero width spaces). A text without such a part stays as it is.
QString CouperMotsLongs(const QString& texte, const QFontMetrics& mesures, int largeur);
