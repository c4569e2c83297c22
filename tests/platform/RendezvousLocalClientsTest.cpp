// Clients and servers that do not keep to the rules harm nobody.
#include "platform/RendezvousLocalDeTest.h"
#include "platform/TrameRendezvous.h"

#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace std::chrono_literals;

namespace {

TEST_F(RendezvousLocalTest, SendsAwayAClientThatTalksOfSomethingElse)
{
    Ecouter();
    for (const QByteArray& octets :
         {QByteArray("GET / HTTP/1.1\r\n\r\n"), QByteArray(10 << 20, '\xff'), QByteArray(1, '\0'),
          // the mark, an order that there is not; a text of 10 MiB
          QByteArray::fromHex("5A4C5631 00000009 00000000 00000000"),
          QByteArray::fromHex("5A4C5631 00000001 00000000 00A00000")}) {
        const auto client = Client();
        client->write(octets);

        EXPECT_TRUE(EstRenvoye(*client)) << octets.left(16).toHex().toStdString();
        EXPECT_EQ(client->readAll(), "");
    }
    EXPECT_TRUE(Envoyer("/a.qrt"));
    EXPECT_EQ(m_recus, QStringList{"/a.qrt"});
}

TEST_F(RendezvousLocalTest, SendsAwayAClientThatSaysNothing)
{
    m_delais.client = 1000ms;
    Ecouter();
    const auto muet = Client();
    const auto begue = Client();
    begue->write(QByteArray::fromHex("5A4C"));
    begue->flush();

    EXPECT_TRUE(Envoyer("/a.qrt")) << "the others are served meanwhile";

    EXPECT_TRUE(EstRenvoye(*muet));
    EXPECT_TRUE(EstRenvoye(*begue));
}

TEST_F(RendezvousLocalTest, GivesAClientTimeAsLongAsItGoesOn)
{
    m_delais.client = 400ms;
    Ecouter();
    const QByteArray demande = *TrameRendezvous::Coder({OrdreInstance::Texte, getpid(), "/ab.qrt"});

    // A machine that stands still for a moment makes it a client that did not go on: that round tells nothing.
    qint64 plusLong = 0;
    do {
        m_recus.clear();
        plusLong = 0;
        const auto client = Client();
        QElapsedTimer depuis, pause;
        depuis.start();
        for (qsizetype n = 0; n < demande.size(); n += 3) {
            pause.start();
            client->write(demande.mid(n, 3));
            client->flush();
            QTest::qWait(60);
            plusLong = std::max(plusLong, pause.elapsed());
        }
        EXPECT_GT(depuis.elapsed(), 400);
        for (int i = 0; i < 500 && m_recus.isEmpty() && plusLong < 200; ++i)
            QTest::qWait(10);
    } while (m_recus.isEmpty() && plusLong >= 200);

    EXPECT_EQ(m_recus, QStringList{"/ab.qrt"});
}

TEST_F(RendezvousLocalTest, DoesNotBlameAClientForItsOwnBeingBusy)
{
    m_delais.client = 1000ms;
    Ecouter();
    const auto client = Client();
    QTest::qWait(10); // let in, its time runs
    client->write(*TrameRendezvous::Coder({OrdreInstance::Texte, getpid(), "/a.qrt"}));
    client->flush();

    QThread::msleep(1500);

    EXPECT_TRUE(QTest::qWaitFor([this] { return m_recus == QStringList{"/a.qrt"}; }, 5000));
}

TEST_F(RendezvousLocalTest, IsNotFilledUpBySilentClients)
{
    Ecouter();
    std::vector<std::unique_ptr<QLocalSocket>> muets;
    for (int i = 0; i < 40; ++i) {
        muets.push_back(Client());
        QTest::qWait(1);
    }

    EXPECT_TRUE(Envoyer("/a.qrt"));

    EXPECT_TRUE(EstRenvoye(*muets.front())) << "the oldest makes room";
    EXPECT_EQ(muets.back()->state(), QLocalSocket::ConnectedState);
}

TEST_F(RendezvousLocalTest, TakesNoTextOfWhichTheEndIsMissing)
{
    Ecouter();
    const QByteArray demande = *TrameRendezvous::Coder({OrdreInstance::Texte, getpid(), "/a.qrt"});
    auto client = Client();
    client->write(demande.chopped(1));
    client->flush();
    client.reset();

    EXPECT_TRUE(Envoyer("/b.qrt"));

    EXPECT_EQ(m_recus, QStringList{"/b.qrt"});
}

TEST_F(RendezvousLocalTest, TakesTheTextOfAClientThatDoesNotWait)
{
    Ecouter();
    const QByteArray demande = *TrameRendezvous::Coder({OrdreInstance::Texte, getpid(), "/a.qrt"});
    auto client = Client();
    client->write(demande + demande + "encore");
    client->flush();
    client.reset();

    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_recus.isEmpty(); }, 5000));
    EXPECT_TRUE(Envoyer("/b.qrt"));

    EXPECT_EQ(m_recus, (QStringList{"/a.qrt", "/b.qrt"})) << "one request a client";
}

TEST_F(RendezvousLocalTest, DoesNotBelieveAServerThatTalksOfSomethingElse)
{
    Ecouter();
    const QString prise = Prise();
    m_ecoute->Quitter();
    QLocalServer faux;
    ASSERT_TRUE(faux.listen(prise));
    QObject::connect(&faux, &QLocalServer::newConnection, [&] {
        while (QLocalSocket* client = faux.nextPendingConnection())
            client->write("HTTP/1.1 400 Bad Request\r\n");
    });
    m_delais.presence = 200ms;

    Demander([](RendezvousLocal& autre) {
        EXPECT_EQ(autre.Chercher(Titre, [] { ADD_FAILURE() << "takes the place of one who lives"; }), getpid());
        EXPECT_FALSE(autre.Envoyer(getpid(), "/a.qrt"));
    });
}

} // namespace
