// Keeps the rescue copies of the open documents as long as it lives, and lets no end of the session or of the process
// take unsaved changes along.
#pragma once

#include "catalogue/documents/FraicheurDesDossiers.h"
#include "platform/SignauxDeFin.h"

#include <QObject>
#include <QTimer>

#include <functional>

class Cadre;

class VeilleSecours : public QObject
{
public:
    /// Milliseconds since some moment, which never go back.
    using Montre = std::function<qint64()>;
    static Montre MontreDuSysteme();

    explicit VeilleSecours(Cadre& cadre, Montre montre = MontreDuSysteme());
    ~VeilleSecours() override;

    /// Whether the session may end; with `questions` the user is asked about unsaved changes. Those that are given up
    /// are unsaved changes again as soon as the user touches a key: the session goes on then.
    bool FinirLaSession(bool questions);

    /// Answers the desktop that ends the session. `Session` is QSessionManager, which the desktop alone can make.
    template<class Session> void Repondre(Session& session);

    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void Battre();
    void AvantLaFin() const;

    Cadre& m_cadre;
    QTimer m_battement;
    FraicheurDesDossiers m_fraicheur;
    Montre m_montre;
    qint64 m_derniereTouche = 0;
    bool m_finPermise = false;
    SignauxDeFin m_signaux;
};

/// The desktop waits for the user's answers until it is told that there are no more questions.
template<class Session> void VeilleSecours::Repondre(Session& session)
{
    const bool questions = session.allowsInteraction();
    const bool permise = FinirLaSession(questions);
    if (questions)
        session.release();
    if (!permise)
        session.cancel();
}
