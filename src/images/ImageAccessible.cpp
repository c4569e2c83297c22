#include "images/ImageAccessible.h"

#include "extensions/langue/modLang.h"
#include "images/PanneauImage.h"

using namespace Qt::StringLiterals;

ImageAccessible::ImageAccessible(PanneauImage& panneau, QAccessible::Role role)
    : QAccessibleWidget(&panneau, role), m_panneau(panneau)
{
}

void* ImageAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ImageInterface)
        return static_cast<QAccessibleImageInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString ImageAccessible::text(QAccessible::Text quoi) const
{
    const QString texte = QAccessibleWidget::text(quoi);
    if (quoi != QAccessible::Description || !texte.isEmpty() || !m_panneau.Image().isNull())
        return texte;
    return LangMsg(u"msgSansImage"_s, u"sans image"_s);
}

QString ImageAccessible::imageDescription() const
{
    return text(QAccessible::Description);
}

QSize ImageAccessible::imageSize() const
{
    return m_panneau.Image().deviceIndependentSize().toSize();
}

QPoint ImageAccessible::imagePosition() const
{
    QRect place(QPoint(), imageSize());
    place.moveCenter(rect().center());
    return place.topLeft();
}
