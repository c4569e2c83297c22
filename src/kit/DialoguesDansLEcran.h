// Keeps dialogs inside the screen.
#pragma once

#include <QObject>

/// While this lives, a dialog that would open larger than the screen, as on a small one at a large scale, opens as
/// large as the screen lets it, so that its buttons can be reached. None becomes smaller than its contents allow.
class DialoguesDansLEcran : public QObject
{
public:
    DialoguesDansLEcran();

protected:
    bool eventFilter(QObject* objet, QEvent* event) override;
};
