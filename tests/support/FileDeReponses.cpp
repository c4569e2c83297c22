#include "support/FileDeReponses.h"

#include <gtest/gtest.h>

FileDeReponses::FileDeReponses() : m_precedent(InstallerPresentateur(this)) {}

FileDeReponses::~FileDeReponses()
{
    InstallerPresentateur(m_precedent);
    EXPECT_TRUE(m_reponses.isEmpty()) << m_reponses.size() << " prepared answers were never asked for";
    EXPECT_TRUE(m_motsDePasse.isEmpty()) << m_motsDePasse.size() << " prepared passwords were never asked for";
    EXPECT_TRUE(m_textes.isEmpty()) << m_textes.size() << " prepared texts were never asked for";
}

QStringList FileDeReponses::Cles() const
{
    QStringList cles;
    for (const Affiche& affiche : m_affiches)
        cles.append(affiche.message.cle.isEmpty() ? affiche.message.texte : affiche.message.cle);
    return cles;
}

int FileDeReponses::Afficher(const Message& message, int genre, const QString& titre)
{
    m_affiches.append({message, genre, titre});
    if (AChaqueMessage)
        AChaqueMessage();
    if (genre == MsgOk)
        return RepOk;
    if (m_reponses.isEmpty()) {
        ADD_FAILURE() << "a question without a prepared answer: " << message.texte.toStdString();
        return RepAnnuler;
    }
    return m_reponses.takeFirst();
}

QString FileDeReponses::DemanderMotDePasse(const QString&, const QString&)
{
    ++m_questionsDeMotDePasse;
    if (m_motsDePasse.isEmpty()) {
        ADD_FAILURE() << "a password asked for that was not prepared";
        return QString();
    }
    return m_motsDePasse.takeFirst();
}

QString FileDeReponses::SaisirTexte(const QString& libelle, const QString& defaut)
{
    m_textesDemandes.append({libelle, defaut});
    if (m_textes.isEmpty()) {
        ADD_FAILURE() << "a text asked for that was not prepared: " << libelle.toStdString();
        return defaut;
    }
    return m_textes.takeFirst().value_or(defaut);
}
