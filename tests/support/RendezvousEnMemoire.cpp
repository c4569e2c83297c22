#include "support/RendezvousEnMemoire.h"

qint32 RendezvousEnMemoire::Chercher(const QString& titre, const std::function<void()>& publier)
{
    if (autre && autre->titre == titre)
        return autre->poignee;
    titreTrouve = titre;
    publier();
    return 0;
}

void RendezvousEnMemoire::PrendreLaPlace(const QString& titre, const std::function<void()>& publier)
{
    titreTrouve = titre;
    publier();
}

void RendezvousEnMemoire::Quitter()
{
    titreTrouve.clear();
    services = {};
}

bool RendezvousEnMemoire::Envoyer(qint32 a, const QString& texte)
{
    return Demander(a, "texte <" + texte + ">");
}

bool RendezvousEnMemoire::Montrer(qint32 a)
{
    return Demander(a, "montrer");
}

bool RendezvousEnMemoire::Fermer(qint32 a)
{
    return Demander(a, "fermer");
}

bool RendezvousEnMemoire::Demander(qint32 a, const QString& quoi)
{
    if (!autre || autre->poignee != a)
        return false;
    journal += quoi;
    return true;
}
