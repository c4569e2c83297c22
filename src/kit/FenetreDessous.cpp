#include "kit/FenetreDessous.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

QWidget* FenetreDessous()
{
    if (QWidget* active = QApplication::activeWindow())
        return active;
    const QWidgetList fenetres = QApplication::topLevelWidgets();
    const auto visible = std::find_if(fenetres.begin(), fenetres.end(), [](const QWidget* fenetre) {
        return fenetre->isVisible() && fenetre->windowType() == Qt::Window;
    });
    return visible == fenetres.end() ? nullptr : *visible;
}
