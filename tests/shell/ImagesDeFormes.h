// Pictures of forms, for people to look at: kept in the folder that POLICES_IMAGES names, if it names one. With
// POLICES_SOMBRE set, they are those of a dark desktop.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <QString>
#include <QWidget>

inline void GarderImage(QWidget& form, const QString& nom)
{
    if (const QByteArray dossier = qgetenv("POLICES_IMAGES"); !dossier.isEmpty())
        form.grab().save(QString::fromLocal8Bit(dossier) + u'/' + nom + QStringLiteral(".png"));
}

inline void AssombrirSIlLeFaut()
{
    if (qEnvironmentVariableIsSet("POLICES_SOMBRE"))
        QGuiApplication::setPalette(QPalette(QColor(45, 45, 48), QColor(45, 45, 48)));
}
