#include "kit/StyleDesContours.h"

#include "kit/Couleurs.h"

#include <QPainter>
#include <QStyleOption>

namespace {

const QColor Contour(0x94, 0x94, 0x94);
const QColor ContourInactif(0x60, 0x60, 0x60);

/// What has the focus has an edge of its own.
bool ALeFocus(const QStyleOption& option)
{
    return option.state & QStyle::State_HasFocus;
}

} // namespace

void StyleDesContours::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                     const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool champ = element == PE_PanelLineEdit;
    const bool ronde = element == PE_IndicatorRadioButton;
    if (!(champ || ronde || element == PE_IndicatorCheckBox) || !EstSombre(option->palette) || ALeFocus(*option))
        return;
    // A field inside another control has no edge.
    if (const auto* cadre = qstyleoption_cast<const QStyleOptionFrame*>(option);
        champ && cadre && cadre->lineWidth <= 0)
        return;
    const QRectF bord = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(option->state & State_Enabled ? Contour : ContourInactif);
    if (ronde)
        painter->drawEllipse(bord);
    else
        painter->drawRoundedRect(bord, champ ? 2 : 0, champ ? 2 : 0);
    painter->restore();
}
