#include "base/AfficherMsg.h"

#include <utility>

namespace {
PresentateurMessages* s_presentateur = nullptr;
}

QString PresentateurMessages::SaisirTexte(const QString& /*libelle*/, const QString& defaut)
{
    return defaut;
}

PresentateurMessages* InstallerPresentateur(PresentateurMessages* presentateur)
{
    return std::exchange(s_presentateur, presentateur);
}

int AfficherMsg(const Message& message, int genre, const QString& titre)
{
    return s_presentateur ? s_presentateur->Afficher(message, genre, titre) : RepAnnuler;
}

QString DemanderMotDePasse(const QString& titre, const QString& invite)
{
    return s_presentateur ? s_presentateur->DemanderMotDePasse(titre, invite) : QString();
}

QString SaisirTexte(const QString& libelle, const QString& defaut)
{
    return s_presentateur ? s_presentateur->SaisirTexte(libelle, defaut) : defaut;
}
