// Draws a menu bar whose menus may have a picture beside their caption; styles show one or the other.
#pragma once

#include <QProxyStyle>

class StyleDeMenus : public QProxyStyle
{
    Q_OBJECT

public:
    /// Becomes the style of `barre`, and goes with it. Everything else is drawn as the application's style does.
    static void Donner(QWidget& barre);

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& taille,
                           const QWidget* widget) const override;
};
