// Keeps the rescue copies of the open documents as long as it lives, and lets no end of the session or of the process
// take unsaved changes along.
#pragma once

#include "catalogue/documents/FraicheurDesDossiers.h"
#include "platform/SignauxDeFin.h"

#include <QObject>
#include <QTimer>

#include <functional>

class Cadre;
class QSessionManager;

class VeilleSecours : public QObject
{
public:
    /// Milliseconds since some moment, which never go back.
    using Montre = std::function<qint64()>;
    static Montre MontreDuSysteme();

    explicit VeilleSecours(Cadre& cadre, Montre montre = MontreDuSysteme());

    /// Whether the session may end; with `questions` the user is asked about unsaved changes. Those that are given up
    /// are unsaved changes again as soon as the user touches a key: the session goes on then.
    bool FinirLaSession(bool questions);

    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void Battre();
    void Repondre(QSessionManager& session);

    Cadre& m_cadre;
    QTimer m_battement;
    FraicheurDesDossiers m_fraicheur;
    Montre m_montre;
    qint64 m_derniereTouche = 0;
    bool m_finPermise = false;
    SignauxDeFin m_signaux;
};
