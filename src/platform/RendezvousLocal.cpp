#include "platform/RendezvousLocal.h"

#include "platform/NomsSysteme.h"
#include "platform/ServeurRendezvous.h"
#include "platform/VerrouDossier.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr int DelaiConnexion = 2000;

/// The folder of one title in one session, made when it is missing. Empty when it cannot be made, or when others than
/// this user have to do with it: the system's folder for temporary files is everybody's.
QString DossierDuTitre(const RendezvousLocal::Lieu& lieu, const QString& titre)
{
    const QByteArray cle = (titre + QChar(0) + lieu.session).toUtf8();
    const QString empreinte =
        QString::fromLatin1(QCryptographicHash::hash(cle, QCryptographicHash::Sha1).toHex().left(12));
    const QString dossier = QStringLiteral("%1/zelvane-%2-%3").arg(lieu.dossier).arg(geteuid()).arg(empreinte);

    const QByteArray chemin = OctetsDuChemin(dossier);
    mkdir(chemin.constData(), S_IRWXU);
    struct stat etat
    {
    };
    const bool bon = lstat(chemin.constData(), &etat) == 0 && S_ISDIR(etat.st_mode) && etat.st_uid == geteuid() &&
                     (etat.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    return bon ? dossier : QString();
}

/// Holds the folder while an instance arrives or leaves. After `delai` the result holds nothing: a process that was
/// stopped in the middle must not keep the program from starting.
VerrouDossier Verrouiller(const QString& dossier, std::chrono::milliseconds delai)
{
    const QDeadlineTimer limite(delai);
    for (;;) {
        std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier);
        if (verrou)
            return std::move(*verrou);
        if (limite.hasExpired())
            return {};
        QThread::msleep(5);
    }
}

enum class Connexion {
    Etablie,
    Personne, ///< no socket, or one whose process has gone
    Refusee,  ///< somebody is there and does not let us in
};

Connexion Connecter(QLocalSocket& prise, const QString& chemin)
{
    prise.connectToServer(chemin);
    if (prise.waitForConnected(DelaiConnexion))
        return PairDuMemeUtilisateur(prise) ? Connexion::Etablie : Connexion::Refusee;
    const bool personne =
        prise.error() == QLocalSocket::ServerNotFoundError || prise.error() == QLocalSocket::ConnectionRefusedError;
    return personne ? Connexion::Personne : Connexion::Refusee;
}

enum class Issue {
    Repondu,
    Rompu, ///< the other end has gone without an answer
    Muet,  ///< no answer in time
};

/// Sends a request and waits for its answer.
Issue Echanger(QLocalSocket& prise, const QByteArray& demande, ReponseInstance& reponse, QDeadlineTimer limite)
{
    const auto reste = [&limite] { return static_cast<int>(std::max<qint64>(limite.remainingTime(), 1)); };
    prise.write(demande);
    QByteArray octets;
    for (;;) {
        octets += prise.readAll();
        const TrameRendezvous::Etat etat = TrameRendezvous::Lire(octets, reponse);
        if (etat == TrameRendezvous::Etat::Complete)
            return Issue::Repondu;
        if (etat == TrameRendezvous::Etat::Fausse || prise.state() != QLocalSocket::ConnectedState)
            return Issue::Rompu;
        if (limite.hasExpired())
            return Issue::Muet;
        if (prise.bytesToWrite() > 0)
            prise.waitForBytesWritten(reste());
        else
            prise.waitForReadyRead(reste());
    }
}

} // namespace

struct RendezvousLocal::Prive
{
    Prive(Lieu leLieu, QString leJeton, Delais lesDelais)
        : lieu(std::move(leLieu)), jeton(std::move(leJeton)), delais(lesDelais),
          serveur([this](const DemandeInstance& demande) { return Traiter(demande); }, delais.client)
    {
    }

    /// Turns to the instances of a title. False when they cannot meet here.
    bool Tourner(const QString& titre);
    QString Prise() const { return dossier + QStringLiteral("/instance"); }
    bool Demander(OrdreInstance ordre, qint32 poignee, const QString& texte, std::chrono::milliseconds delai);
    ReponseInstance Traiter(const DemandeInstance& demande);
    void Cesser();

    Lieu lieu;
    QString jeton;
    Delais delais;
    QString dossier; ///< of the title that was last looked for
    ServicesInstance services;
    ServeurRendezvous serveur;
};

bool RendezvousLocal::Prive::Tourner(const QString& titre)
{
    dossier = DossierDuTitre(lieu, titre);
    if (!serveur.Chemin().isEmpty() && serveur.Chemin() != Prise())
        Cesser();
    return !dossier.isEmpty();
}

bool RendezvousLocal::Prive::Demander(OrdreInstance ordre, qint32 poignee, const QString& texte,
                                      std::chrono::milliseconds delai)
{
    const std::optional<QByteArray> octets = TrameRendezvous::Coder(DemandeInstance{ordre, poignee, texte});
    // Whoever is the one that others find would wait for itself.
    if (!octets || dossier.isEmpty() || !serveur.Chemin().isEmpty())
        return false;
    QLocalSocket prise;
    ReponseInstance reponse;
    return Connecter(prise, Prise()) == Connexion::Etablie &&
           Echanger(prise, *octets, reponse, QDeadlineTimer(delai)) == Issue::Repondu && reponse.faite;
}

ReponseInstance RendezvousLocal::Prive::Traiter(const DemandeInstance& demande)
{
    const auto poignee = static_cast<qint32>(QCoreApplication::applicationPid());
    if (demande.ordre == OrdreInstance::Presence)
        return {true, poignee};
    if (demande.destinataire != poignee)
        return {false, poignee};

    // Copies: what is called may end this object.
    const ServicesInstance offerts = services;
    switch (demande.ordre) {
    case OrdreInstance::Presence:
        break;
    case OrdreInstance::Texte:
        if (offerts.recevoir)
            offerts.recevoir(demande.texte);
        return {static_cast<bool>(offerts.recevoir), poignee};
    case OrdreInstance::Montrer:
        if (offerts.montrer)
            offerts.montrer(demande.texte);
        return {static_cast<bool>(offerts.montrer), poignee};
    case OrdreInstance::Fermer:
        // The place is free when the answer arrives; the closing itself may take as long as the user thinks.
        Cesser();
        if (offerts.fermer)
            QTimer::singleShot(0, offerts.fermer);
        return {static_cast<bool>(offerts.fermer), poignee};
    }
    return {false, poignee};
}

void RendezvousLocal::Prive::Cesser()
{
    if (serveur.Chemin().isEmpty())
        return;
    // Held: who arrives between the closing of the socket and the removal of its file would lose the new file.
    const VerrouDossier verrou = Verrouiller(QFileInfo(serveur.Chemin()).path(), 1s);
    serveur.Cesser();
}

RendezvousLocal::Lieu RendezvousLocal::Lieu::DuSysteme()
{
    QString dossier = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!QDir::isAbsolutePath(dossier) || !QFileInfo(dossier).isDir())
        dossier = QDir::tempPath();
    QString session = qEnvironmentVariable("WAYLAND_DISPLAY");
    if (session.isEmpty()) {
        // ":0" and ":0.0" are one display.
        const QString ecran = qEnvironmentVariable("DISPLAY");
        const qsizetype point = ecran.indexOf(u'.', ecran.lastIndexOf(u':') + 1);
        session = ecran.left(point);
    }
    return {dossier, session};
}

RendezvousLocal::RendezvousLocal(Lieu lieu, QString jeton)
    : RendezvousLocal(std::move(lieu), std::move(jeton), Delais())
{
}

RendezvousLocal::RendezvousLocal(Lieu lieu, QString jeton, Delais delais)
    : m_prive(std::make_unique<Prive>(std::move(lieu), std::move(jeton), delais))
{
}

RendezvousLocal::~RendezvousLocal()
{
    Quitter();
}

QString RendezvousLocal::JetonDuLancement()
{
    const QString jeton = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return jeton.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : jeton;
}

qint32 RendezvousLocal::Poignee() const
{
    return static_cast<qint32>(QCoreApplication::applicationPid());
}

void RendezvousLocal::Servir(ServicesInstance services)
{
    m_prive->services = std::move(services);
}

qint32 RendezvousLocal::Chercher(const QString& titre, const std::function<void()>& publier)
{
    if (!m_prive->Tourner(titre) || m_prive->serveur.Chemin() == m_prive->Prise()) {
        publier();
        return 0;
    }
    const QByteArray question = *TrameRendezvous::Coder(DemandeInstance{});
    const QDeadlineTimer limite(m_prive->delais.presence);
    for (;;) {
        QLocalSocket prise;
        {
            const VerrouDossier verrou = Verrouiller(m_prive->dossier, m_prive->delais.verrou);
            const Connexion connexion = Connecter(prise, m_prive->Prise());
            if (connexion == Connexion::Personne)
                m_prive->serveur.Ecouter(m_prive->Prise());
            if (connexion != Connexion::Etablie) {
                publier();
                return 0;
            }
        }
        const auto pid = static_cast<qint32>(PairDuMemeUtilisateur(prise).value_or(0));
        ReponseInstance reponse;
        const Issue issue = Echanger(prise, question, reponse, limite);
        if (issue == Issue::Repondu)
            return reponse.poignee;
        // Busy, with a large file say. One that breaks off is leaving: the next look finds its place free.
        if (issue == Issue::Muet || limite.hasExpired())
            return std::max(pid, 1);
        QThread::msleep(10);
    }
}

void RendezvousLocal::PrendreLaPlace(const QString& titre, const std::function<void()>& publier)
{
    if (m_prive->Tourner(titre)) {
        const VerrouDossier verrou = Verrouiller(m_prive->dossier, m_prive->delais.verrou);
        m_prive->serveur.Ecouter(m_prive->Prise());
        publier();
        return;
    }
    publier();
}

void RendezvousLocal::Quitter()
{
    m_prive->services = {};
    m_prive->Cesser();
}

bool RendezvousLocal::Envoyer(qint32 poignee, const QString& texte)
{
    return m_prive->Demander(OrdreInstance::Texte, poignee, texte, m_prive->delais.texte);
}

bool RendezvousLocal::Montrer(qint32 poignee)
{
    return m_prive->Demander(OrdreInstance::Montrer, poignee, m_prive->jeton, m_prive->delais.ordre);
}

bool RendezvousLocal::Fermer(qint32 poignee)
{
    return m_prive->Demander(OrdreInstance::Fermer, poignee, QString(), m_prive->delais.ordre);
}
