// The menu in the corner of a document's window.
#pragma once

class QMdiSubWindow;

/// Gives its commands their texts in the language of Qt's translators. Qt fills that menu once, when the window is
/// made.
void TraduireMenuDeSousFenetre(QMdiSubWindow& cadre);
