// Programs started through the desktop's own associations.
#pragma once

#include "platform/Programmes.h"

class ProgrammesBureau : public Programmes
{
public:
    bool OuvrirFichier(const QString& chemin) override;
    bool OuvrirAdresse(const QString& adresse) override;
};
