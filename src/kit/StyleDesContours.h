// The style of the desktop, which draws the edges of fields and boxes lighter on dark windows: styles make them darker
// than the window, and an empty box could not be told from what it stands on.
#pragma once

#include <QProxyStyle>

class StyleDesContours : public QProxyStyle
{
public:
    /// On top of the style of this name.
    explicit StyleDesContours(const QString& style) : QProxyStyle(style) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};
