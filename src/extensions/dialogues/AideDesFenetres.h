// F1 in a dialog: the page of the help that tells of it.
#pragma once

#include <QObject>

/// While this lives, F1 shows the help in every window that has no command of its own for that, as the frame has.
class AideDesFenetres : public QObject
{
public:
    AideDesFenetres();

    /// The page for a window of that object name; the first page for one that none tells of.
    static QString PageDe(const QString& fenetre);

protected:
    bool eventFilter(QObject* objet, QEvent* event) override;
};
