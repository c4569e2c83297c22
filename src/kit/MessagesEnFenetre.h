// Shows the program's messages and questions in windows.
#pragma once

#include "base/AfficherMsg.h"

/// Installs itself as the presenter for as long as it lives. Each message is a frmMsg of its own, modal, over the
/// window that is active.
class MessagesEnFenetre : public PresentateurMessages
{
public:
    MessagesEnFenetre();
    ~MessagesEnFenetre() override;

    int Afficher(const Message& message, int genre, const QString& titre) override;
    QString DemanderMotDePasse(const QString& titre, const QString& invite) override;
    QString SaisirTexte(const QString& libelle, const QString& defaut) override;

private:
    PresentateurMessages* m_precedent;
};
