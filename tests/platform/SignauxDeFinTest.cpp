#include "platform/SignauxDeFin.h"
#include "platform/Retenue.h"
#include "support/DossierDeTest.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// How a child process ends that does this.
int EtatFinal(const std::function<void()>& action)
{
    const pid_t enfant = fork();
    if (enfant == 0) {
        action();
        _exit(0);
    }
    int etat = 0;
    EXPECT_EQ(waitpid(enfant, &etat, 0), enfant);
    return etat;
}

void LaisserVenirLesEvenements()
{
    for (int i = 0; i < 100; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

class SignauxDeFinTest : public testing::TestWithParam<int>
{
protected:
    DossierDeTest dossier;
};

TEST_P(SignauxDeFinTest, CallsFromTheEventLoopAndThenEndsTheProcess)
{
    const int etat = EtatFinal([this] {
        const SignauxDeFin signaux([this] { dossier.Ecrire("called", "x"); });
        raise(GetParam());
        if (dossier.Existe("called"))
            _exit(1);
        LaisserVenirLesEvenements();
    });
    ASSERT_TRUE(WIFSIGNALED(etat));
    EXPECT_EQ(WTERMSIG(etat), GetParam());
    EXPECT_TRUE(dossier.Existe("called"));
}

TEST_P(SignauxDeFinTest, ASecondOneCutsNothingShort)
{
    const int etat = EtatFinal([this] {
        const SignauxDeFin signaux([this] {
            raise(GetParam());
            dossier.Ecrire("called", dossier.Existe("called") ? "twice" : "x");
        });
        raise(GetParam());
        raise(GetParam());
        LaisserVenirLesEvenements();
    });
    ASSERT_TRUE(WIFSIGNALED(etat));
    EXPECT_EQ(WTERMSIG(etat), GetParam());
    EXPECT_EQ(dossier.Lire("called"), "x");
}

TEST_P(SignauxDeFinTest, WhileAFileIsReplacedTheyWait)
{
    const int etat = EtatFinal([this] {
        const SignauxDeFin signaux([this] { dossier.Ecrire("called", dossier.Existe("whole") ? "x" : "early"); });
        {
            const Retenue retenue;
            raise(GetParam());
            raise(GetParam());
            LaisserVenirLesEvenements();
            dossier.Ecrire("whole", "x");
        }
        LaisserVenirLesEvenements();
    });
    ASSERT_TRUE(WIFSIGNALED(etat));
    EXPECT_EQ(WTERMSIG(etat), GetParam());
    EXPECT_EQ(dossier.Lire("called"), "x");
}

TEST_P(SignauxDeFinTest, OneThatIsIgnoredStaysSo)
{
    const int etat = EtatFinal([this] {
        std::signal(GetParam(), SIG_IGN);
        const SignauxDeFin signaux([this] { dossier.Ecrire("called", "x"); });
        raise(GetParam());
        LaisserVenirLesEvenements();
    });
    EXPECT_TRUE(WIFEXITED(etat));
    EXPECT_FALSE(dossier.Existe("called"));
}

TEST_P(SignauxDeFinTest, AfterItsLifeTheyEndTheProcessAsEver)
{
    const int etat = EtatFinal([this] {
        {
            const SignauxDeFin signaux([this] { dossier.Ecrire("called", "x"); });
        }
        raise(GetParam());
    });
    EXPECT_TRUE(WIFSIGNALED(etat));
    EXPECT_FALSE(dossier.Existe("called"));
}

INSTANTIATE_TEST_SUITE_P(Signaux, SignauxDeFinTest, testing::Values(SIGINT, SIGTERM, SIGHUP));

} // namespace
