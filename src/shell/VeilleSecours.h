// Keeps the rescue copies of the open documents as long as it lives, and lets no end of the session or of the process
// take unsaved changes along.
#pragma once

#include "catalogue/FraicheurDesDossiers.h"
#include "platform/SignauxDeFin.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class Cadre;
class QSessionManager;

class VeilleSecours : public QObject
{
public:
    explicit VeilleSecours(Cadre& cadre);

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
    QElapsedTimer m_horloge;
    qint64 m_derniereTouche = 0;
    bool m_finPermise = false;
    SignauxDeFin m_signaux;
};
