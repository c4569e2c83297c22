// The listening end of the rendezvous: takes requests from a local socket without ever waiting for a client.
#pragma once

#include "platform/TrameRendezvous.h"

#include <QByteArray>
#include <QLocalServer>
#include <QLocalSocket>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>
#include <sys/socket.h>

/// Who is at the other end of a socket. Nothing when it is another user's process, or not to be told.
std::optional<pid_t> PairDuMemeUtilisateur(const QLocalSocket& prise);

/// One client: one request, one answer. Deletes itself when the client has gone.
class VisiteRendezvous : public QObject
{
    Q_OBJECT

public:
    /// Takes the socket. A client that says nothing for `patience`, or something else than a request, is sent away.
    VisiteRendezvous(QLocalSocket* prise, std::chrono::milliseconds patience, QObject* parent);

    bool AParle() const { return m_aParle; }
    void Repondre(const ReponseInstance& reponse);
    void Renvoyer();

Q_SIGNALS:
    /// Once. The socket is not in use any more when a slot that is connected as queued runs.
    void Demandee(const DemandeInstance& demande);

private:
    void Lire();
    void PerdrePatience();

    QLocalSocket* m_prise;
    QTimer m_patience;
    QByteArray m_octets;
    bool m_aParle = false;
};

class ServeurRendezvous : public QObject
{
    Q_OBJECT

public:
    /// Called from the event loop for each request, also while an earlier one is still being handled. Texts wait while
    /// a Retenue lives.
    using Traitement = std::function<ReponseInstance(const DemandeInstance&)>;

    ServeurRendezvous(Traitement traitement, std::chrono::milliseconds patience);

    /// Listens at `chemin`, in the place of whatever file stands there. False when that cannot be.
    bool Ecouter(const QString& chemin);
    /// Empty while nobody can connect.
    QString Chemin() const { return m_serveur.isListening() ? m_serveur.fullServerName() : QString(); }
    /// Stops listening and removes the file. Requests that are being handled get their answers.
    void Cesser() { m_serveur.close(); }

private:
    void Accueillir();
    void Recevoir(QLocalSocket* prise);
    void Traiter(const QPointer<VisiteRendezvous>& visite, const DemandeInstance& demande);
    void FairePlace();

    QLocalServer m_serveur;
    Traitement m_traitement;
    std::chrono::milliseconds m_patience;
};
