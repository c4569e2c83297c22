// Keeps dialogs inside the screen, and large enough for what they hold.
#pragma once

#include <QObject>

/// While this lives, a dialog that would open larger than the screen, as on a small one at a large scale, opens as
/// large as the screen lets it, so that its buttons can be reached. None becomes smaller than its contents allow: with
/// large letters a text breaks into more lines, and needs more height the narrower it stands.
class DialoguesDansLEcran : public QObject
{
public:
    DialoguesDansLEcran();

protected:
    bool eventFilter(QObject* objet, QEvent* event) override;
};
