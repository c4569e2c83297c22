// The printers that the system's print service has.
#pragma once

#include "platform/Imprimantes.h"

class ImprimantesBureau : public Imprimantes
{
public:
    QStringList Noms() const override;
    QString ParDefaut() const override;
    std::unique_ptr<TravailDImpression> Commencer(const QString& imprimante, const QString& titre) override;
};
