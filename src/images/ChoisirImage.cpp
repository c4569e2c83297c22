#include "images/ChoisirImage.h"

QString ChoisirImage(const QString& /*dossier*/, const QString& /*nomActuel*/)
{
    return {};
}
