// A picture as assistive technologies see it.
#pragma once

#include <QAccessibleWidget>

class PanneauImage;

class ImageAccessible : public QAccessibleWidget, public QAccessibleImageInterface
{
public:
    explicit ImageAccessible(PanneauImage& panneau, QAccessible::Role role = QAccessible::Graphic);

    void* interface_cast(QAccessible::InterfaceType type) override;
    /// An empty panel says that there is no picture.
    QString text(QAccessible::Text quoi) const override;

    QString imageDescription() const override;
    QSize imageSize() const override;
    QPoint imagePosition() const override;

protected:
    ~ImageAccessible() override = default;

private:
    const PanneauImage& m_panneau;
};
