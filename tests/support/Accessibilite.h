// What assistive technology is told of a form.
#pragma once

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QString>
#include <QStringList>
#include <QWidget>

inline QString NomAccessible(QWidget& widget)
{
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
    return face ? face->text(QAccessible::Name) : QString();
}

/// objectNames of the controls that keys can reach and that have no name to be read out.
inline QStringList ControlesSansNom(const QWidget& form)
{
    QStringList sans;
    for (QWidget* controle : form.findChildren<QWidget*>()) {
        // The field within a spin box is read out as the box.
        if (qobject_cast<QAbstractSpinBox*>(controle->parentWidget()))
            continue;
        if (controle->focusPolicy() != Qt::NoFocus && controle->isVisibleTo(&form) &&
            NomAccessible(*controle).isEmpty())
            sans.append(controle->objectName());
    }
    return sans;
}
