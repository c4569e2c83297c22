// Takes a text that was dropped on a document's table, after the user has told which column goes where.
#pragma once

#include <QString>

class Cadre;
class FenetreDocument;

/// Nothing happens where the text has no second line, the user cancels, another dialog has his turn, or the window,
/// one of `cadre`, is closed before he has decided.
void DeposerEntrees(Cadre& cadre, FenetreDocument& fenetre, const QString& texte);
