// Drags the selected entries of a document out of its table: over another document, or to another program.
#pragma once

class QrtClass;
class VueTable;

/// Returns when the user has let go of them, be it that the window of `document` was closed meanwhile: `vue` shows its
/// table. Nothing happens without a selection, without the left button held, and while something else has the user's
/// turn.
void TirerEntrees(VueTable& vue, const QrtClass& document);
