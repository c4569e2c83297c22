#include "kit/DialoguesDansLEcran.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QScreen>

namespace {

/// What a window manager puts around a window; it says how much that is only when the window is there.
constexpr QSize Bordure(16, 40);

} // namespace

DialoguesDansLEcran::DialoguesDansLEcran()
{
    QCoreApplication::instance()->installEventFilter(this);
}

/// The event comes before the window itself, and before the dialog takes its place over its parent.
bool DialoguesDansLEcran::eventFilter(QObject* objet, QEvent* event)
{
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        if (auto* dialogue = qobject_cast<QDialog*>(objet); dialogue && dialogue->isWindow()) {
            const QSize place = dialogue->screen()->availableSize() - Bordure;
            dialogue->resize(dialogue->size().boundedTo(place));
        }
    }
    return QObject::eventFilter(objet, event);
}
