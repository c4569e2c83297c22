// Stands in for the file dialogs: a queue of prepared answers that records what each dialog was asked to show.
#pragma once

#include "base/DialogueFichier.h"

#include <QList>

/// Installs itself as the presenter. A dialog without a prepared answer fails the test, and so does an answer left
/// over.
class FileDeFichiers : public PresentateurFichiers
{
public:
    FileDeFichiers();
    ~FileDeFichiers() override;

    /// The next dialog is answered with these files and the 1-based type.
    void Preparer(const QStringList& fichiers, int type);
    void PreparerAnnulation() { m_reponses.append(std::nullopt); }
    void PreparerDossier(const QString& dossier) { Preparer({dossier}, 1); }

    const QList<DemandeFichier>& Demandes() const { return m_demandes; }

    std::optional<ReponseFichier> Ouvrir(const DemandeFichier& demande) override { return Repondre(demande); }
    std::optional<ReponseFichier> Enregistrer(const DemandeFichier& demande) override { return Repondre(demande); }
    QString Dossier(const QString& depart, const QString& titre) override;

private:
    std::optional<ReponseFichier> Repondre(const DemandeFichier& demande);

    PresentateurFichiers* m_precedent;
    QList<std::optional<ReponseFichier>> m_reponses;
    QList<DemandeFichier> m_demandes;
};
