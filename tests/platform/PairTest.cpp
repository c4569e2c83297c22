#include "platform/ServeurRendezvous.h"
#include "support/DossierDeTest.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

class PairTest : public testing::Test
{
protected:
    PairTest()
    {
        EXPECT_TRUE(m_serveur.listen(m_dossier.Fichier("prise")));
        m_client.connectToServer(m_dossier.Fichier("prise"));
        EXPECT_TRUE(m_client.waitForConnected(5000));
        EXPECT_TRUE(m_serveur.waitForNewConnection(5000));
    }

    DossierDeTest m_dossier;
    QLocalServer m_serveur;
    QLocalSocket m_client;
};

TEST_F(PairTest, KnowsTheProcessAtEitherEnd)
{
    EXPECT_EQ(PairDuMemeUtilisateur(m_client), getpid());
    EXPECT_EQ(PairDuMemeUtilisateur(*m_serveur.nextPendingConnection()), getpid());
}

TEST_F(PairTest, KnowsNobodyOnASocketThatIsNotConnected)
{
    EXPECT_EQ(PairDuMemeUtilisateur(QLocalSocket()), std::nullopt);
}

TEST_F(PairTest, DoesNotKnowAnotherUser)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be two users";
    ASSERT_EQ(seteuid(65534), 0);
    const auto pair = PairDuMemeUtilisateur(m_client);
    ASSERT_EQ(seteuid(0), 0);

    EXPECT_EQ(pair, std::nullopt);
}

} // namespace
