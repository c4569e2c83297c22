// Who answers the guinea pig's questions: as a user who wants to save, and says everything that was asked.
#pragma once

#include "base/AfficherMsg.h"
#include "base/DialogueFichier.h"

#include <QByteArray>
#include <QString>

/// One line on standard output, at once: the driver acts on it.
void DireLigne(const QByteArray& ligne);

/// Installs itself. Each message is said as "message KEY", or its text where it has no key.
class CobayeReponses : public PresentateurMessages, public PresentateurFichiers
{
public:
    CobayeReponses();
    ~CobayeReponses() override;

    int Lenteur = 0;           ///< milliseconds that a question stands open, with events running
    int ALaFermeture = RepOui; ///< the answer when a document closes with unsaved changes
    QString Cible;             ///< what the next dialog that saves is answered with; empty cancels it
    int TypeDeCible = 2;       ///< 1-based, as in the dialog

    int Afficher(const Message& message, int genre, const QString& titre) override;
    QString DemanderMotDePasse(const QString& titre, const QString& invite) override;
    std::optional<ReponseFichier> Ouvrir(const DemandeFichier& demande) override;
    std::optional<ReponseFichier> Enregistrer(const DemandeFichier& demande) override;
    QString Dossier(const QString& /*depart*/, const QString& /*titre*/) override { return {}; }

private:
    void Patienter() const;

    PresentateurMessages* m_messagesAvant;
    PresentateurFichiers* m_fichiersAvant;
};
