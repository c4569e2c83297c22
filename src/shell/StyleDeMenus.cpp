#include "shell/StyleDeMenus.h"

#include <QPainter>
#include <QStyleOptionMenuItem>

namespace {

constexpr int Ecart = 4; // pixels between picture and caption

/// The menu of the bar that has both; null for anything else.
const QStyleOptionMenuItem* MenuIllustre(const QStyleOption* option)
{
    const auto* menu = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    return menu && !menu->icon.isNull() && !menu->text.isEmpty() ? menu : nullptr;
}

int Cote(const QStyleOptionMenuItem& menu)
{
    return menu.fontMetrics.height();
}

/// The option without its picture; blanks in front of the caption, which stands in the middle, leave room for it.
QStyleOptionMenuItem SansImage(const QStyleOptionMenuItem& menu)
{
    QStyleOptionMenuItem sans = menu;
    sans.icon = QIcon();
    const int blanc = qMax(menu.fontMetrics.horizontalAdvance(u' '), 1);
    sans.text.prepend(QString((Cote(menu) + Ecart + blanc - 1) / blanc, u' '));
    return sans;
}

} // namespace

void StyleDeMenus::Donner(QWidget& barre)
{
    auto* style = new StyleDeMenus;
    style->setParent(&barre);
    barre.setStyle(style);
}

void StyleDeMenus::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    const QStyleOptionMenuItem* menu = element == CE_MenuBarItem ? MenuIllustre(option) : nullptr;
    if (!menu)
        return QProxyStyle::drawControl(element, option, painter, widget);
    const QStyleOptionMenuItem sans = SansImage(*menu);
    QProxyStyle::drawControl(element, &sans, painter, widget);

    const int largeur = menu->fontMetrics.size(Qt::TextShowMnemonic, sans.text).width();
    QRect place(0, 0, Cote(*menu), Cote(*menu));
    place.moveCenter(menu->rect.center());
    place.moveLeft(menu->rect.center().x() - largeur / 2);
    const bool ouvert = (menu->state & State_Selected) && (menu->state & State_Sunken);
    const QIcon::Mode mode = !(menu->state & State_Enabled) ? QIcon::Disabled
                             : ouvert                       ? QIcon::Selected
                                                            : QIcon::Normal;
    menu->icon.paint(painter, visualRect(menu->direction, menu->rect, place), Qt::AlignCenter, mode);
}

QSize StyleDeMenus::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& taille,
                                     const QWidget* widget) const
{
    const QStyleOptionMenuItem* menu = type == CT_MenuBarItem ? MenuIllustre(option) : nullptr;
    if (!menu)
        return QProxyStyle::sizeFromContents(type, option, taille, widget);
    const QStyleOptionMenuItem sans = SansImage(*menu);
    return QProxyStyle::sizeFromContents(type, &sans, menu->fontMetrics.size(Qt::TextShowMnemonic, sans.text), widget);
}
