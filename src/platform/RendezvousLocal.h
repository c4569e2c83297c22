// The rendezvous on a local socket, open to one user and found within one session.
#pragma once

#include "platform/Rendezvous.h"

#include <QString>

#include <chrono>
#include <memory>

/// Only the process that is found needs a running event loop; asking another one waits without one.
class RendezvousLocal : public Rendezvous
{
public:
    /// Where the socket lies. Instances meet when both are the same.
    struct Lieu
    {
        QString dossier; ///< a folder that exists
        QString session; ///< what tells the sessions of one user apart

        /// $XDG_RUNTIME_DIR, or the system's folder for temporary files where there is none; the session is told by
        /// its display, which every program of the session knows.
        static Lieu DuSysteme();
    };

    struct Delais
    {
        std::chrono::milliseconds verrou{5000};   ///< for others that are just arriving or leaving
        std::chrono::milliseconds presence{5000}; ///< until an instance that is there but busy is believed to live
        std::chrono::milliseconds ordre{5000};    ///< for Montrer and Fermer
        std::chrono::milliseconds texte{60000};   ///< for Envoyer
        std::chrono::milliseconds client{5000};   ///< how long a client may say nothing
    };

    /// `jeton` goes along with Montrer.
    explicit RendezvousLocal(Lieu lieu, QString jeton = QString());
    RendezvousLocal(Lieu lieu, QString jeton, Delais delais);
    ~RendezvousLocal() override;
    RendezvousLocal(const RendezvousLocal&) = delete;
    RendezvousLocal& operator=(const RendezvousLocal&) = delete;

    /// What the desktop gave to this start for coming to the front; empty when nothing. To be read before the
    /// QApplication is made, which may take it away.
    static QString JetonDuLancement();

    qint32 Poignee() const override;
    void Servir(ServicesInstance services) override;
    qint32 Chercher(const QString& titre, const std::function<void()>& publier) override;
    void PrendreLaPlace(const QString& titre, const std::function<void()>& publier) override;
    void Quitter() override;
    bool Envoyer(qint32 poignee, const QString& texte) override;
    bool Montrer(qint32 poignee) override;
    bool Fermer(qint32 poignee) override;

private:
    struct Prive;
    std::unique_ptr<Prive> m_prive;
};
