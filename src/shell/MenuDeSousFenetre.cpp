#include "shell/MenuDeSousFenetre.h"

#include <QAction>
#include <QCoreApplication>
#include <QMdiSubWindow>
#include <QMenu>

#include <array>

void TraduireMenuDeSousFenetre(QMdiSubWindow& cadre)
{
    static constexpr std::array Textes{
        QT_TRANSLATE_NOOP("QMdiSubWindow", "&Restore"),  QT_TRANSLATE_NOOP("QMdiSubWindow", "&Move"),
        QT_TRANSLATE_NOOP("QMdiSubWindow", "&Size"),     QT_TRANSLATE_NOOP("QMdiSubWindow", "Mi&nimize"),
        QT_TRANSLATE_NOOP("QMdiSubWindow", "Ma&ximize"), QT_TRANSLATE_NOOP("QMdiSubWindow", "Stay on &Top"),
        QT_TRANSLATE_NOOP("QMdiSubWindow", "&Close")};
    QList<QAction*> items = cadre.systemMenu() ? cadre.systemMenu()->actions() : QList<QAction*>();
    items.removeIf([](const QAction* item) { return item->isSeparator(); });
    for (qsizetype i = 0; i < items.size() && items.size() == std::ssize(Textes); ++i)
        items[i]->setText(QCoreApplication::translate("QMdiSubWindow", Textes.at(static_cast<size_t>(i))));
}
