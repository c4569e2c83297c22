// Stands in for the message window: a queue of prepared answers that records every text.
#pragma once

#include "base/AfficherMsg.h"

#include <QList>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>

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

    /// Looks on as each message comes up.
    std::function<void()> AChaqueMessage;

    void Preparer(int reponse) { m_reponses.append(reponse); }
    /// The next line of text that is asked for; nothing: it is cancelled.
    void PreparerTexte(const std::optional<QString>& texte) { m_textes.append(texte); }
    void PreparerMotDePasse(const QString& motDePasse) { m_motsDePasse.append(motDePasse); }

    const QList<Affiche>& Affiches() const { return m_affiches; }
    /// Keys of the messages shown, in order; the text where a message has no key.
    QStringList Cles() const;
    /// What lines of text were asked for, and what was proposed, in order.
    const QList<std::pair<QString, QString>>& TextesDemandes() const { return m_textesDemandes; }
    int QuestionsDeMotDePasse() const { return m_questionsDeMotDePasse; }

    int Afficher(const Message& message, int genre, const QString& titre) override;
    QString DemanderMotDePasse(const QString& titre, const QString& invite) override;
    QString SaisirTexte(const QString& libelle, const QString& defaut) override;

private:
    PresentateurMessages* m_precedent;
    QList<int> m_reponses;
    QStringList m_motsDePasse;
    QList<std::optional<QString>> m_textes;
    QList<std::pair<QString, QString>> m_textesDemandes;
    QList<Affiche> m_affiches;
    int m_questionsDeMotDePasse = 0;
};
