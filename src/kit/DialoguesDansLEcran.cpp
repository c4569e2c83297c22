#include "kit/DialoguesDansLEcran.h"

#include "kit/PlaceDeFenetre.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QLayout>

namespace {

/// Qt keeps a window from becoming smaller than what it holds, but counts a text that breaks into lines as if it never
/// did.
void GarderLaHauteur(QDialog& dialogue)
{
    const QLayout* contenu = dialogue.layout();
    if (!contenu || !contenu->hasHeightForWidth() || dialogue.minimumHeight() == dialogue.maximumHeight())
        return;
    dialogue.setMinimumHeight(contenu->totalMinimumHeightForWidth(dialogue.width()));
}

void RamenerDansLEcran(QDialog& dialogue)
{
    dialogue.resize(dialogue.size().boundedTo(PlaceDansLEcran(dialogue)));
}

} // namespace

DialoguesDansLEcran::DialoguesDansLEcran()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool DialoguesDansLEcran::eventFilter(QObject* objet, QEvent* event)
{
    const QEvent::Type genre = event->type();
    if (genre != QEvent::Show && genre != QEvent::Resize && genre != QEvent::LayoutRequest)
        return QObject::eventFilter(objet, event);
    if (auto* dialogue = qobject_cast<QDialog*>(objet); dialogue && dialogue->isWindow()) {
        // The event comes before the window itself, and before the dialog takes its place over its parent.
        if (genre == QEvent::Show && !event->spontaneous())
            RamenerDansLEcran(*dialogue);
        GarderLaHauteur(*dialogue);
    }
    return QObject::eventFilter(objet, event);
}
