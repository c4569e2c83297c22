// One process plays both ends of a meeting: the test listens in its event loop, and asks from a thread.
#pragma once

#include "platform/RendezvousLocal.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDir>
#include <QDirIterator>
#include <QLocalSocket>
#include <QTest>

#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>
#include <functional>
#include <future>
#include <memory>

inline const QString Titre = QStringLiteral("Zelvane");

class RendezvousLocalTest : public testing::Test
{
protected:
    RendezvousLocalTest()
    {
        m_delais.client = std::chrono::seconds(30); // the tests of patience have their own
    }

    /// The process that is found.
    void Ecouter()
    {
        m_publies = 0;
        m_ecoute = std::make_unique<RendezvousLocal>(m_lieu, QString(), m_delais);
        m_ecoute->Servir({[this](const QString& texte) { m_recus += texte; },
                          [this](const QString& jeton) { m_montres += jeton; }, [this] { ++m_fermes; }});
        ASSERT_EQ(m_ecoute->Chercher(Titre, [this] { ++m_publies; }), 0);
        ASSERT_EQ(m_publies, 1);
        ASSERT_NE(Prise(), "");
    }

    /// Runs the other end, which waits without an event loop, while this one serves.
    void Demander(const std::function<void(RendezvousLocal&)>& quoi)
    {
        const std::future<void> fil = EnFil(quoi);
        EXPECT_TRUE(QTest::qWaitFor([&] { return EstFini(fil); }, 30000));
        fil.wait();
    }

    /// The future's end waits for the thread.
    std::future<void> EnFil(const std::function<void(RendezvousLocal&)>& quoi)
    {
        return std::async(std::launch::async, [this, quoi] {
            RendezvousLocal autre(m_lieu, "jeton 1", m_delais);
            quoi(autre);
        });
    }
    static bool EstFini(const std::future<void>& fil, std::chrono::milliseconds delai = {})
    {
        return fil.wait_for(delai) == std::future_status::ready;
    }

    bool Envoyer(const QString& texte)
    {
        bool envoye = false;
        Demander([&](RendezvousLocal& autre) {
            EXPECT_EQ(autre.Chercher(Titre, [] { ADD_FAILURE() << "counts as first"; }), getpid());
            envoye = autre.Envoyer(getpid(), texte);
        });
        return envoye;
    }

    /// The socket's file; empty when there is none.
    QString Prise() const
    {
        QDirIterator fichiers(m_lieu.dossier, {"instance"}, QDir::Files | QDir::System, QDirIterator::Subdirectories);
        return fichiers.hasNext() ? fichiers.next() : QString();
    }

    /// A client that knows the socket only.
    std::unique_ptr<QLocalSocket> Client() const
    {
        auto prise = std::make_unique<QLocalSocket>();
        prise->connectToServer(Prise());
        EXPECT_TRUE(prise->waitForConnected(5000));
        return prise;
    }

    static bool EstRenvoye(QLocalSocket& prise)
    {
        return QTest::qWaitFor([&] { return prise.state() == QLocalSocket::UnconnectedState; }, 10000);
    }

    DossierDeTest m_dossier;
    RendezvousLocal::Lieu m_lieu{m_dossier.Chemin(), ":7"};
    RendezvousLocal::Delais m_delais;
    std::unique_ptr<RendezvousLocal> m_ecoute;
    QStringList m_recus;
    QStringList m_montres;
    int m_fermes = 0;
    int m_publies = 0;
};
