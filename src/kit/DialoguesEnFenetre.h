// Shows the system's file dialogs, or Qt's where the system has none.
#pragma once

#include "base/DialogueFichier.h"

/// Installs itself as the presenter for as long as it lives. Each dialog is modal, over the window that is active.
class DialoguesEnFenetre : public PresentateurFichiers
{
public:
    DialoguesEnFenetre();
    ~DialoguesEnFenetre() override;

    std::optional<ReponseFichier> Ouvrir(const DemandeFichier& demande) override;
    std::optional<ReponseFichier> Enregistrer(const DemandeFichier& demande) override;
    QString Dossier(const QString& depart, const QString& titre) override;

private:
    PresentateurFichiers* m_precedent;
};
