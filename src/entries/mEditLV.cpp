#include "entries/mEditLV.h"

bool EditerEntrees(FenetreDocument& /*fenetre*/, bool /*multiAutorise*/, bool /*navigation*/)
{
    return false;
}

bool AjouterEntree(FenetreDocument& /*fenetre*/)
{
    return false;
}

void SupprimerEntrees(FenetreDocument& /*fenetre*/) {}

void VoirEntree(MyLV& /*table*/, int /*index*/, const QString& /*tmpFolder*/) {}
