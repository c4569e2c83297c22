// The clipboard of the desktop session. Needs the application object.
#pragma once

#include "platform/PressePapiers.h"

class PressePapiersBureau : public PressePapiers
{
public:
    std::optional<QString> Texte() const override;
    void Poser(const QString& texte) override;
    void Vider() override;
};
