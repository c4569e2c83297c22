// What is sent arrives, and who sends it learns so.
#include "platform/RendezvousLocalDeTest.h"
#include "platform/Retenue.h"
#include "platform/TrameRendezvous.h"

#include <QTest>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace std::chrono_literals;

namespace {

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

TEST_F(RendezvousLocalTest, WhileAFileIsReplacedItAnswersAndATextWaits)
{
    Ecouter();
    std::atomic<int> etape = 0;
    bool envoye = false;
    auto retenue = std::make_unique<Retenue>();
    const std::future<void> fil = EnFil([&](RendezvousLocal& autre) {
        EXPECT_EQ(autre.Chercher(Titre, [] { ADD_FAILURE() << "counts as first"; }), getpid());
        EXPECT_TRUE(autre.Montrer(getpid()));
        etape = 1;
        envoye = autre.Envoyer(getpid(), "/a.qrt");
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return etape == 1; }, 30000)) << "is answered as ever";
    QTest::qWait(200); // the text arrives
    EXPECT_EQ(m_recus, QStringList());
    retenue.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return EstFini(fil); }, 30000));
    EXPECT_TRUE(envoye) << "is told so once it is opened";
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
    }).wait();

    EXPECT_EQ(trouve, getpid());
}

} // namespace
