#include "support/FileDeFichiers.h"

#include <gtest/gtest.h>

FileDeFichiers::FileDeFichiers() : m_precedent(InstallerPresentateur(this)) {}

FileDeFichiers::~FileDeFichiers()
{
    InstallerPresentateur(m_precedent);
    EXPECT_TRUE(m_reponses.isEmpty()) << m_reponses.size() << " prepared files were never asked for";
}

void FileDeFichiers::Preparer(const QStringList& fichiers, int type)
{
    m_reponses.append(ReponseFichier{fichiers, type});
}

std::optional<ReponseFichier> FileDeFichiers::Repondre(const DemandeFichier& demande)
{
    m_demandes.append(demande);
    if (m_reponses.isEmpty()) {
        ADD_FAILURE() << "a file dialog without a prepared answer: " << demande.titre.toStdString();
        return std::nullopt;
    }
    return m_reponses.takeFirst();
}

QString FileDeFichiers::Dossier(const QString& depart, const QString& titre)
{
    const auto reponse = Repondre({.titre = titre, .depart = depart, .types = {}});
    return reponse ? reponse->fichiers.value(0) : QString();
}
