// Makes the document of a new category.
#pragma once

#include <QStringList>

class Cadre;
class FenetreDocument;

/// Opens a window with an empty table under the columns `titres` and the loan column behind them, unnamed and not
/// saved; null where memory runs out, which is told. `dependante`: the dependant column, from 1 among `titres`; 0 for
/// none. An empty title makes no column; none holds "|" or a line break.
FenetreDocument* CreerCategorie(Cadre& cadre, const QStringList& titres, int dependante);
