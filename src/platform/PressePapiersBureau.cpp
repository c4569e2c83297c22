#include "platform/PressePapiersBureau.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

std::optional<QString> PressePapiersBureau::Texte() const
{
    const QMimeData* contenu = QGuiApplication::clipboard()->mimeData();
    return contenu && contenu->hasText() ? std::optional(contenu->text()) : std::nullopt;
}

void PressePapiersBureau::Poser(const QString& texte)
{
    QGuiApplication::clipboard()->setText(texte);
}

void PressePapiersBureau::Vider()
{
    QGuiApplication::clipboard()->clear();
}
