#include "platform/ServeurRendezvous.h"

#include "platform/Retenue.h"

#include <QFile>

#include <unistd.h>
#include <utility>

namespace {

/// Clients that have not said yet what they want. A program that opens more pushes out the oldest of them.
constexpr int MaxVisitesMuettes = 32;

} // namespace

std::optional<pid_t> PairDuMemeUtilisateur(const QLocalSocket& prise)
{
    ucred pair{};
    socklen_t taille = sizeof pair;
    const auto descripteur = static_cast<int>(prise.socketDescriptor());
    if (getsockopt(descripteur, SOL_SOCKET, SO_PEERCRED, &pair, &taille) != 0 || pair.uid != geteuid())
        return std::nullopt;
    return pair.pid;
}

VisiteRendezvous::VisiteRendezvous(QLocalSocket* prise, std::chrono::milliseconds patience, QObject* parent)
    : QObject(parent), m_prise(prise)
{
    m_prise->setParent(this);
    // One byte more than the longest request tells the too long ones; the rest stays with the sender.
    m_prise->setReadBufferSize(TrameRendezvous::TailleMaxDemande + 1);
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    m_patience.start();
    connect(&m_patience, &QTimer::timeout, this, &VisiteRendezvous::PerdrePatience);
    connect(m_prise, &QLocalSocket::readyRead, this, &VisiteRendezvous::Lire);
    connect(m_prise, &QLocalSocket::disconnected, this, &QObject::deleteLater);
}

void VisiteRendezvous::Lire()
{
    if (m_aParle)
        return;
    m_octets += m_prise->readAll();
    DemandeInstance demande;
    switch (TrameRendezvous::Lire(m_octets, demande)) {
    case TrameRendezvous::Etat::Fausse:
        Renvoyer();
        return;
    case TrameRendezvous::Etat::Incomplete:
        m_patience.start();
        return;
    case TrameRendezvous::Etat::Complete:
        m_aParle = true;
        m_patience.stop();
        m_octets.clear();
        Q_EMIT Demandee(demande);
        return;
    }
}

void VisiteRendezvous::PerdrePatience()
{
    // It may be this program that was busy: what the client has said meanwhile still waits in the socket.
    if (!m_prise->waitForReadyRead(0) && !m_aParle)
        Renvoyer();
}

void VisiteRendezvous::Repondre(const ReponseInstance& reponse)
{
    m_prise->write(TrameRendezvous::Coder(reponse));
    m_prise->disconnectFromServer(); // once the answer is out
}

void VisiteRendezvous::Renvoyer()
{
    m_patience.stop();
    m_prise->abort();
    deleteLater();
}

ServeurRendezvous::ServeurRendezvous(Traitement traitement, std::chrono::milliseconds patience)
    : m_traitement(std::move(traitement)), m_patience(patience)
{
    m_serveur.setSocketOptions(QLocalServer::UserAccessOption);
    // Another start is answered at any time; what changes something waits (Traiter).
    Retenue::Excepter(this);
    Retenue::Excepter(&m_serveur);
    connect(&m_serveur, &QLocalServer::newConnection, this, &ServeurRendezvous::Accueillir);
}

bool ServeurRendezvous::Ecouter(const QString& chemin)
{
    m_serveur.close();
    QFile::remove(chemin);
    return m_serveur.listen(chemin);
}

void ServeurRendezvous::Accueillir()
{
    while (QLocalSocket* prise = m_serveur.nextPendingConnection()) {
        if (PairDuMemeUtilisateur(*prise))
            Recevoir(prise);
        else
            delete prise;
    }
}

void ServeurRendezvous::Recevoir(QLocalSocket* prise)
{
    FairePlace();
    auto* visite = new VisiteRendezvous(prise, m_patience, this);
    // Queued: handling a request may run an event loop of its own, in which the client may go. Nothing of its socket
    // may be in use then. The visit may be gone when its turn comes; the request counts all the same.
    connect(
        visite, &VisiteRendezvous::Demandee, this,
        [this, visite = QPointer(visite)](const DemandeInstance& demande) {
            const auto traiter = [this, visite, demande] { Traiter(visite, demande); };
            // A text opens a file: not in the middle of the save of another one.
            if (demande.ordre == OrdreInstance::Texte)
                Retenue::Apres(this, traiter);
            else
                traiter();
        },
        Qt::QueuedConnection);
}

void ServeurRendezvous::Traiter(const QPointer<VisiteRendezvous>& visite, const DemandeInstance& demande)
{
    const Traitement traitement = m_traitement; // a copy: what is called may end this object
    const ReponseInstance reponse = traitement(demande);
    if (visite)
        visite->Repondre(reponse);
}

void ServeurRendezvous::FairePlace()
{
    QList<VisiteRendezvous*> muettes;
    for (VisiteRendezvous* visite : findChildren<VisiteRendezvous*>(Qt::FindDirectChildrenOnly)) {
        if (!visite->AParle())
            muettes.append(visite);
    }
    if (muettes.size() >= MaxVisitesMuettes)
        muettes.first()->Renvoyer();
}
