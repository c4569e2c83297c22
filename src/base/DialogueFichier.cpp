#include "base/DialogueFichier.h"

#include <utility>

namespace {
PresentateurFichiers* s_presentateur = nullptr;
}

QList<TypeDeFichier> TypesDuFiltre(const QString& filtre)
{
    const QStringList morceaux = filtre.split(u'|');
    QList<TypeDeFichier> types;
    for (qsizetype i = 0; i + 1 < morceaux.size(); i += 2)
        types.append({morceaux[i], morceaux[i + 1]});
    return types;
}

PresentateurFichiers* InstallerPresentateur(PresentateurFichiers* presentateur)
{
    return std::exchange(s_presentateur, presentateur);
}

std::optional<ReponseFichier> DialogueOuvrir(const DemandeFichier& demande)
{
    return s_presentateur ? s_presentateur->Ouvrir(demande) : std::nullopt;
}

std::optional<ReponseFichier> DialogueEnregistrer(const DemandeFichier& demande)
{
    return s_presentateur ? s_presentateur->Enregistrer(demande) : std::nullopt;
}

QString ChoisirDossier(const QString& depart, const QString& titre)
{
    return s_presentateur ? s_presentateur->Dossier(depart, titre) : QString();
}
