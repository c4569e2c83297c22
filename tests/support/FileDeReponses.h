// Stands in for the message window: a queue of prepared answers that records every text.
#pragma once

#include "base/AfficherMsg.h"

#include <QList>
#include <QStringList>

/// Installs itself as the presenter. A message of one button is answered 1 by itself. A question without a prepared
/// answer fails the test, and so does an answer left over at the end.
class FileDeReponses : public PresentateurMessages
{
public:
    FileDeReponses();
    ~FileDeReponses() override;

    struct Affiche
    {
        Message message;
        int genre;
        QString titre;
    };

    void Preparer(int reponse) { m_reponses.append(reponse); }
    void PreparerMotDePasse(const QString& motDePasse) { m_motsDePasse.append(motDePasse); }

    const QList<Affiche>& Affiches() const { return m_affiches; }
    /// Keys of the messages shown, in order; the text where a message has no key.
    QStringList Cles() const;
    int QuestionsDeMotDePasse() const { return m_questionsDeMotDePasse; }

    int Afficher(const Message& message, int genre, const QString& titre) override;
    QString DemanderMotDePasse(const QString& titre, const QString& invite) override;

private:
    PresentateurMessages* m_precedent;
    QList<int> m_reponses;
    QStringList m_motsDePasse;
    QList<Affiche> m_affiches;
    int m_questionsDeMotDePasse = 0;
};
