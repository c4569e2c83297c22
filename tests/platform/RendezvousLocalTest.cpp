// One process plays both ends: the test listens in its event loop, and asks from a thread.
#include "platform/RendezvousLocal.h"

#include "platform/TrameRendezvous.h"
#include "platform/VerrouDossier.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <unistd.h>
#include <vector>

using namespace std::chrono_literals;

namespace {

const QString Titre = QStringLiteral("Zelvane");

/// A variable of the environment, for one test.
class Variable
{
public:
    Variable(const char* nom, const QByteArray& valeur)
        : m_nom(nom), m_avant(qgetenv(nom)), m_etait(qEnvironmentVariableIsSet(nom))
    {
        valeur.isNull() ? qunsetenv(nom) : qputenv(nom, valeur);
    }
    ~Variable() { m_etait ? qputenv(m_nom, m_avant) : qunsetenv(m_nom); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_nom;
    QByteArray m_avant;
    bool m_etait;
};

class RendezvousLocalTest : public testing::Test
{
protected:
    RendezvousLocalTest()
    {
        m_delais.client = 30s; // the tests of patience have their own
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
        const std::unique_ptr<QThread> fil = EnFil(quoi);
        EXPECT_TRUE(QTest::qWaitFor([&] { return fil->isFinished(); }, 30000));
        fil->wait();
    }

    std::unique_ptr<QThread> EnFil(const std::function<void(RendezvousLocal&)>& quoi)
    {
        std::unique_ptr<QThread> fil(QThread::create([this, quoi] {
            RendezvousLocal autre(m_lieu, "jeton 1", m_delais);
            quoi(autre);
        }));
        fil->start();
        return fil;
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

TEST_F(RendezvousLocalTest, IsOpenToOneUserOnly)
{
    Ecouter();

    const auto autres =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFile::permissions(Prise()) & autres);
    EXPECT_FALSE(QFile::permissions(QFileInfo(Prise()).path()) & autres);
}

TEST_F(RendezvousLocalTest, LetsTheOtherFindItUnderItsHandle)
{
    Ecouter();

    Demander([](RendezvousLocal& autre) {
        EXPECT_EQ(autre.Chercher(Titre, [] { ADD_FAILURE() << "counts as first"; }), getpid());
    });
}

TEST_F(RendezvousLocalTest, IsFoundUnderExactlyItsTitleAndSession)
{
    Ecouter();

    for (const char* titre : {"zelvane", "Zelvane ", "Zelvane v2", ""}) {
        RendezvousLocal autre(m_lieu);
        EXPECT_EQ(autre.Chercher(titre, [] {}), 0) << titre;
    }
    RendezvousLocal ailleurs({m_lieu.dossier, ":8"});
    EXPECT_EQ(ailleurs.Chercher(Titre, [] {}), 0);
}

TEST_F(RendezvousLocalTest, DoesNotFindItself)
{
    Ecouter();

    EXPECT_EQ(m_ecoute->Chercher(Titre, [this] { ++m_publies; }), 0);

    EXPECT_EQ(m_publies, 2);
    EXPECT_FALSE(m_ecoute->Envoyer(getpid(), "/a.qrt"));
}

TEST_F(RendezvousLocalTest, BringsAnyTextWhole)
{
    const QStringList textes = {"/a b.qrt",
                                "/a\nb\r\n.qrt",
                                QStringLiteral("/a") + QChar(0) + ".qrt",
                                "\"/été 💿.qrt\"",
                                QStringLiteral("/") + QChar(0xDCFF) + ".qrt",
                                QString(QChar(0xFFFD)),
                                " ",
                                QString(TrameRendezvous::TailleMaxTexte / 2, u'é')};
    Ecouter();

    for (const QString& texte : textes)
        EXPECT_TRUE(Envoyer(texte)) << texte.left(50).toStdString();

    EXPECT_EQ(m_recus, textes);
}

TEST_F(RendezvousLocalTest, SendsNoTextThatIsTooLong)
{
    Ecouter();

    EXPECT_FALSE(Envoyer(QString(10 << 20, u'x')));

    EXPECT_EQ(m_recus, QStringList());
    EXPECT_TRUE(Envoyer("/a.qrt"));
}

TEST_F(RendezvousLocalTest, LetsTheSenderWaitUntilTheTextIsHandled)
{
    Ecouter();
    bool traite = false;
    m_ecoute->Servir({[&](const QString&) {
                          QTest::qWait(300); // a message that the user answers
                          traite = true;
                      },
                      {},
                      {}});

    EXPECT_TRUE(Envoyer("/a.qrt"));

    EXPECT_TRUE(traite);
}

TEST_F(RendezvousLocalTest, TakesATextWhileAnotherIsBeingHandled)
{
    Ecouter();
    m_ecoute->Servir({[&](const QString& texte) {
                          if (texte == "/a.qrt") {
                              EXPECT_TRUE(Envoyer("/b.qrt"));
                          }
                          m_recus += texte;
                      },
                      {},
                      {}});

    EXPECT_TRUE(Envoyer("/a.qrt"));

    EXPECT_EQ(m_recus, (QStringList{"/b.qrt", "/a.qrt"}));
}

TEST_F(RendezvousLocalTest, GivesUpOnATextThatTakesTooLong)
{
    m_delais.texte = 100ms;
    Ecouter();
    m_ecoute->Servir({[&](const QString& texte) {
                          QTest::qWait(400);
                          m_recus += texte;
                      },
                      {},
                      {}});

    EXPECT_FALSE(Envoyer("/a.qrt"));

    EXPECT_TRUE(QTest::qWaitFor([&] { return m_recus == QStringList{"/a.qrt"}; }, 10000))
        << "it is handled all the same";
}

TEST_F(RendezvousLocalTest, CanEndWhileItHandlesAText)
{
    Ecouter();
    m_ecoute->Servir({[&](const QString& texte) {
                          m_ecoute.reset();
                          m_recus += texte;
                      },
                      {},
                      {}});

    EXPECT_FALSE(Envoyer("/a.qrt"));

    EXPECT_EQ(m_recus, QStringList{"/a.qrt"});
}

TEST_F(RendezvousLocalTest, TakesNothingThatIsMeantForAnotherHandle)
{
    Ecouter();

    Demander([](RendezvousLocal& autre) {
        autre.Chercher(Titre, [] {});
        for (const qint32 poignee : {0, -1, 1, getpid() + 1}) {
            EXPECT_FALSE(autre.Envoyer(poignee, "/a.qrt"));
            EXPECT_FALSE(autre.Montrer(poignee));
            EXPECT_FALSE(autre.Fermer(poignee));
        }
    });

    QTest::qWait(50);
    EXPECT_EQ(m_recus + m_montres, QStringList());
    EXPECT_EQ(m_fermes, 0);
}

TEST_F(RendezvousLocalTest, BringsTheTokenOfTheStartAlong)
{
    Ecouter();

    Demander([](RendezvousLocal& autre) {
        autre.Chercher(Titre, [] {});
        EXPECT_TRUE(autre.Montrer(getpid()));
    });

    EXPECT_EQ(m_montres, QStringList{"jeton 1"});
}

TEST_F(RendezvousLocalTest, LeavesItsPlaceWhenItIsAskedToClose)
{
    Ecouter();

    Demander([this](RendezvousLocal& autre) {
        autre.Chercher(Titre, [] {});
        EXPECT_TRUE(autre.Fermer(getpid()));
        EXPECT_EQ(Prise(), "");
        autre.PrendreLaPlace(Titre, [this] { ++m_publies; });
        EXPECT_NE(Prise(), "");
    });

    EXPECT_EQ(m_publies, 2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_fermes == 1; }, 5000));
}

TEST_F(RendezvousLocalTest, LeavesAloneTheSocketOfWhoTookItsPlace)
{
    Ecouter();
    Demander([](RendezvousLocal& autre) {
        autre.Chercher(Titre, [] {});
        autre.Fermer(getpid());
    });
    RendezvousLocal suivant(m_lieu);
    suivant.PrendreLaPlace(Titre, [] {});

    m_ecoute.reset();

    EXPECT_NE(Prise(), "");
}

TEST_F(RendezvousLocalTest, IsFoundNoMoreOnceItHasQuit)
{
    Ecouter();

    m_ecoute->Quitter();

    EXPECT_EQ(Prise(), "");
    RendezvousLocal autre(m_lieu);
    EXPECT_EQ(autre.Chercher(Titre, [] {}), 0);
}

TEST_F(RendezvousLocalTest, FindsNobodyToAskAnyMore)
{
    Ecouter();
    Demander([this](RendezvousLocal& autre) {
        autre.Chercher(Titre, [] {});
        QMetaObject::invokeMethod(
            qApp, [this] { m_ecoute->Quitter(); }, Qt::BlockingQueuedConnection);

        EXPECT_FALSE(autre.Envoyer(getpid(), "/a.qrt"));
        EXPECT_FALSE(autre.Montrer(getpid()));
        EXPECT_FALSE(autre.Fermer(getpid()));
    });
}

TEST_F(RendezvousLocalTest, BelievesABusyInstanceToLive)
{
    m_delais.presence = 100ms;
    Ecouter();
    qint32 trouve = 0;

    // Nobody serves while the thread is waited for.
    EnFil([&](RendezvousLocal& autre) {
        trouve = autre.Chercher(Titre, [] { ADD_FAILURE() << "counts as first"; });
    })->wait();

    EXPECT_EQ(trouve, getpid());
}

TEST_F(RendezvousLocalTest, TakesThePlaceOfAnInstanceThatIsLeaving)
{
    Ecouter();
    qint32 trouve = -1;
    const auto fil = EnFil([&](RendezvousLocal& autre) { trouve = autre.Chercher(Titre, [this] { ++m_publies; }); });
    QThread::msleep(100); // it has asked who is there, and is not answered any more

    m_ecoute->Quitter();
    fil->wait();

    EXPECT_EQ(trouve, 0);
    EXPECT_EQ(m_publies, 2);
}

TEST_F(RendezvousLocalTest, WaitsForOneThatIsJustArriving)
{
    Ecouter();
    const QString dossier = QFileInfo(Prise()).path();
    m_ecoute->Quitter();
    std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier);
    const auto fil = EnFil([this](RendezvousLocal& autre) { autre.Chercher(Titre, [this] { ++m_publies; }); });
    EXPECT_FALSE(fil->wait(100));

    verrou.reset();

    EXPECT_TRUE(fil->wait(5000));
    EXPECT_EQ(m_publies, 2);
}

TEST_F(RendezvousLocalTest, StartsAllTheSameWhenSomebodyIsStuckWhileArriving)
{
    Ecouter();
    const QString dossier = QFileInfo(Prise()).path();
    m_ecoute->Quitter();
    std::optional<VerrouDossier> verrou = VerrouDossier::Prendre(dossier);
    m_delais.verrou = 50ms;

    RendezvousLocal autre(m_lieu, QString(), m_delais);

    EXPECT_EQ(autre.Chercher(Titre, [this] { ++m_publies; }), 0);
    EXPECT_EQ(m_publies, 2);
    verrou.reset(); // or the end waits for it
}

TEST_F(RendezvousLocalTest, TakesOverAFileThatNobodyListensAt)
{
    Ecouter();
    const QString prise = Prise();
    m_ecoute->Quitter();
    QFile fichier(prise);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.close();

    Ecouter();

    EXPECT_TRUE(Envoyer("/a.qrt"));
}

TEST_F(RendezvousLocalTest, CountsAsFirstWhereItCannotListen)
{
    const QString absent = m_dossier.Fichier("absent");
    const QString tropLong = m_dossier.Fichier(QString(120, u'x'));
    QDir().mkpath(tropLong);
    for (const QString& dossier : {absent, tropLong}) {
        RendezvousLocal seul({dossier, ":7"});
        int publies = 0;

        EXPECT_EQ(seul.Chercher(Titre, [&] { ++publies; }), 0);
        seul.PrendreLaPlace(Titre, [&] { ++publies; });

        EXPECT_EQ(publies, 2);
        EXPECT_FALSE(seul.Envoyer(1, "/a.qrt"));
        seul.Quitter();
    }
}

TEST_F(RendezvousLocalTest, DoesNotMeetInAFolderThatIsOpenToOthers)
{
    Ecouter();
    const QString dossier = QFileInfo(Prise()).path();
    m_ecoute->Quitter();
    QFile::setPermissions(dossier, QFile::permissions(dossier) | QFile::WriteOther);

    RendezvousLocal autre(m_lieu);

    EXPECT_EQ(autre.Chercher(Titre, [] {}), 0);
    EXPECT_EQ(Prise(), "");
}

TEST_F(RendezvousLocalTest, DoesNotMeetBehindALink)
{
    Ecouter();
    const QString dossier = QFileInfo(Prise()).path();
    m_ecoute->Quitter();
    ASSERT_TRUE(QDir().rename(dossier, m_dossier.Fichier("ailleurs")));
    ASSERT_TRUE(QFile::link(m_dossier.Fichier("ailleurs"), dossier));

    RendezvousLocal autre(m_lieu);

    EXPECT_EQ(autre.Chercher(Titre, [] {}), 0);
    EXPECT_EQ(Prise(), "");
}

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
    m_delais.client = 100ms;
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
    const auto client = Client();

    QElapsedTimer montre;
    montre.start();
    for (qsizetype n = 0; n < demande.size(); n += 3) {
        client->write(demande.mid(n, 3));
        client->flush();
        QTest::qWait(60);
    }

    EXPECT_GT(montre.elapsed(), 400);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_recus == QStringList{"/ab.qrt"}; }, 5000));
}

TEST_F(RendezvousLocalTest, DoesNotBlameAClientForItsOwnBeingBusy)
{
    m_delais.client = 50ms;
    Ecouter();
    const auto client = Client();
    QTest::qWait(10); // let in, its time runs
    client->write(*TrameRendezvous::Coder({OrdreInstance::Texte, getpid(), "/a.qrt"}));
    client->flush();

    QThread::msleep(200);

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

TEST_F(RendezvousLocalTest, LiesInTheFolderOfTheSession)
{
    const Variable dossier("XDG_RUNTIME_DIR", m_dossier.Chemin().toUtf8());

    EXPECT_EQ(RendezvousLocal::Lieu::DuSysteme().dossier, m_dossier.Chemin());
}

TEST_F(RendezvousLocalTest, LiesInTheTemporaryFolderWhereTheSessionHasNone)
{
    for (const QByteArray& valeur : {QByteArray(), QByteArray("relatif"), m_dossier.Fichier("absent").toUtf8()}) {
        const Variable dossier("XDG_RUNTIME_DIR", valeur);
        EXPECT_EQ(RendezvousLocal::Lieu::DuSysteme().dossier, QDir::tempPath());
    }
}

TEST_F(RendezvousLocalTest, TellsSessionsByTheirDisplay)
{
    struct Cas
    {
        QByteArray wayland, x11, session;
    };
    for (const auto& [wayland, x11, session] :
         {Cas{"wayland-1", ":0", "wayland-1"}, Cas{QByteArray(), ":0", ":0"}, Cas{"", ":0.0", ":0"},
          Cas{"", "hote.example:10.0", "hote.example:10"}, Cas{QByteArray(), QByteArray(), ""}}) {
        const Variable w("WAYLAND_DISPLAY", wayland);
        const Variable x("DISPLAY", x11);
        EXPECT_EQ(RendezvousLocal::Lieu::DuSysteme().session, session);
    }
}

TEST_F(RendezvousLocalTest, ReadsTheTokenThatTheDesktopGave)
{
    const Variable x11("DESKTOP_STARTUP_ID", "x11_TIME12");
    {
        const Variable wayland("XDG_ACTIVATION_TOKEN", "wl");
        EXPECT_EQ(RendezvousLocal::JetonDuLancement(), "wl");
    }
    const Variable wayland("XDG_ACTIVATION_TOKEN", QByteArray());
    EXPECT_EQ(RendezvousLocal::JetonDuLancement(), "x11_TIME12");
    const Variable rien("DESKTOP_STARTUP_ID", QByteArray());
    EXPECT_EQ(RendezvousLocal::JetonDuLancement(), "");
}

} // namespace
