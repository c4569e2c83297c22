#include "shell/IconesDeMenu.h"

#include "kit/Icones.h"

#include <QAction>
#include <QMenu>

void DonnerIcones(const QObject& form)
{
    const auto donner = [](auto* porteur) {
        if (const QString cle = porteur->property("icone").toString(); !cle.isEmpty())
            porteur->setIcon(Icone(cle));
    };
    for (QAction* item : form.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly))
        donner(item);
    for (QMenu* menu : form.findChildren<QMenu*>())
        donner(menu);
}
