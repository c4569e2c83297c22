// How a document window comes into the world, whatever fills it: a file, what a killed run left, or a list of titles.
#pragma once

#include <QString>

#include <functional>

class Cadre;
class FenetreDocument;

/// Makes a window with a folder of its own, the caption `titre` and a tab, and has `remplir` fill it. Where that is
/// false, or memory runs out (which is told), the window goes again and the result is null.
FenetreDocument* NouveauDocument(Cadre& cadre, const QString& titre,
                                 const std::function<bool(FenetreDocument&)>& remplir);
