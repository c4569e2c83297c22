// Gives the keys back to a window when they were lost with a dialog.
#pragma once

#include <QObject>
#include <QTimer>

/// Some window managers give the keys to the dialog below the one that closes, and when that one goes in the same
/// moment they are lost. While this lives, the window on top gets them when none has them after a dialog.
class RepriseDuFocus : public QObject
{
public:
    RepriseDuFocus();

protected:
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    static void Reprendre();

    QTimer m_delai;
};
