#include "platform/Retenue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QObject>
#include <QSocketNotifier>
#include <QStringList>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>
#include <unistd.h>

namespace {

/// What a save does between two files.
void Souffler()
{
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

void LaisserVenirLesEvenements()
{
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

/// A pipe with something in it, and who listens to it.
class Tube
{
public:
    explicit Tube(QObject* parent = nullptr)
    {
        EXPECT_EQ(pipe(m_bouts), 0);
        EXPECT_EQ(write(m_bouts[1], "x", 1), 1);
        m_guetteur = new QSocketNotifier(m_bouts[0], QSocketNotifier::Read, parent);
        QObject::connect(m_guetteur, &QSocketNotifier::activated, m_guetteur, [this] {
            char octet = 0;
            EXPECT_EQ(read(m_bouts[0], &octet, 1), 1);
            ++entendus;
        });
    }
    ~Tube()
    {
        delete m_guetteur;
        close(m_bouts[0]);
        close(m_bouts[1]);
    }
    Tube(const Tube&) = delete;
    Tube& operator=(const Tube&) = delete;

    QSocketNotifier* Guetteur() const { return m_guetteur; }

    int entendus = 0;

private:
    int m_bouts[2] = {-1, -1};
    QSocketNotifier* m_guetteur;
};

TEST(Retenue, WhatArrivesAtSocketsWaitsUntilItsEnd)
{
    Tube tube;
    auto retenue = std::make_unique<Retenue>();
    Souffler();
    LaisserVenirLesEvenements();
    EXPECT_EQ(tube.entendus, 0) << "whichever way events are let through";
    retenue.reset();
    LaisserVenirLesEvenements();
    EXPECT_EQ(tube.entendus, 1);
}

TEST(Retenue, OneWithinAnotherEndsNothing)
{
    Tube tube;
    auto dehors = std::make_unique<Retenue>();
    {
        const Retenue dedans;
    }
    EXPECT_TRUE(Retenue::EnCours());
    LaisserVenirLesEvenements();
    EXPECT_EQ(tube.entendus, 0);
    dehors.reset();
    EXPECT_FALSE(Retenue::EnCours());
    LaisserVenirLesEvenements();
    EXPECT_EQ(tube.entendus, 1);
}

TEST(Retenue, AnExceptionIsServedWithItsChildren)
{
    QObject serveur;
    auto* prise = new QObject(&serveur);
    Retenue::Excepter(&serveur);
    Tube excepte(prise);
    Tube autre;
    const auto retenue = std::make_unique<Retenue>();
    LaisserVenirLesEvenements();
    EXPECT_EQ(excepte.entendus, 1);
    EXPECT_EQ(autre.entendus, 0);
}

TEST(Retenue, ASocketThatGoesMeanwhileIsNoMatter)
{
    auto tube = std::make_unique<Tube>();
    auto retenue = std::make_unique<Retenue>();
    LaisserVenirLesEvenements();
    EXPECT_FALSE(tube->Guetteur()->isEnabled());
    tube.reset();
    retenue.reset();
    LaisserVenirLesEvenements();
}

TEST(Retenue, ASocketThatWasOffStaysOff)
{
    Tube tube;
    tube.Guetteur()->setEnabled(false);
    auto retenue = std::make_unique<Retenue>();
    LaisserVenirLesEvenements();
    retenue.reset();
    EXPECT_FALSE(tube.Guetteur()->isEnabled());
}

TEST(Retenue, TimersAndQueuedCallsGoOn)
{
    QStringList suite;
    QObject contexte;
    const Retenue retenue;
    QTimer::singleShot(0, &contexte, [&suite] { suite.append("timer"); });
    QMetaObject::invokeMethod(
        &contexte, [&suite] { suite.append("call"); }, Qt::QueuedConnection);
    Souffler();
    suite.sort();
    EXPECT_EQ(suite, QStringList({"call", "timer"}));
}

TEST(Retenue, WithoutOneACallIsMadeAtOnce)
{
    QObject contexte;
    bool fait = false;
    Retenue::Apres(&contexte, [&fait] { fait = true; });
    EXPECT_TRUE(fait);
}

TEST(Retenue, CallsWaitInTheirOrder)
{
    QStringList suite;
    QObject contexte;
    auto retenue = std::make_unique<Retenue>();
    Retenue::Apres(&contexte, [&suite] { suite.append("a"); });
    Retenue::Apres(&contexte, [&suite] { suite.append("b"); });
    LaisserVenirLesEvenements();
    EXPECT_EQ(suite, QStringList());
    retenue.reset();
    EXPECT_EQ(suite, QStringList()) << "from the event loop: whoever held may still be busy";
    Retenue::Apres(&contexte, [&suite] { suite.append("c"); });
    LaisserVenirLesEvenements();
    EXPECT_EQ(suite, QStringList({"a", "b", "c"}));
}

TEST(Retenue, CallsWaitForTheNextOneToo)
{
    int faits = 0;
    QObject contexte;
    auto retenue = std::make_unique<Retenue>();
    Retenue::Apres(&contexte, [&faits] { ++faits; });
    retenue = nullptr;
    retenue = std::make_unique<Retenue>(); // before the event loop is reached
    LaisserVenirLesEvenements();
    EXPECT_EQ(faits, 0);
    retenue.reset();
    LaisserVenirLesEvenements();
    EXPECT_EQ(faits, 1);
}

TEST(Retenue, ACallThatRunsAnEventLoopKeepsNoOtherBack)
{
    QStringList suite;
    QObject contexte;
    {
        const Retenue retenue;
        Retenue::Apres(&contexte, [&suite] {
            LaisserVenirLesEvenements();
            suite.append("a");
        });
        Retenue::Apres(&contexte, [&suite] { suite.append("b"); });
    }
    LaisserVenirLesEvenements();
    EXPECT_EQ(suite, QStringList({"b", "a"}));
}

TEST(Retenue, WhoHasGoneIsNotCalled)
{
    bool fait = false;
    {
        const Retenue retenue;
        QObject contexte;
        Retenue::Apres(&contexte, [&fait] { fait = true; });
    }
    LaisserVenirLesEvenements();
    EXPECT_FALSE(fait);
}

TEST(Retenue, TheEndOfTheProgramWaits)
{
    class Guetteur : public QObject
    {
    public:
        bool eventFilter(QObject* objet, QEvent* event) override
        {
            combien += objet == qApp && event->type() == QEvent::Quit ? 1 : 0;
            return event->type() == QEvent::Quit;
        }
        int combien = 0;
    } guetteur;
    qApp->installEventFilter(&guetteur); // before: it sees what is let through
    auto retenue = std::make_unique<Retenue>();
    QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit));
    LaisserVenirLesEvenements();
    EXPECT_EQ(guetteur.combien, 0);
    retenue.reset();
    LaisserVenirLesEvenements();
    EXPECT_EQ(guetteur.combien, 1);
}

} // namespace
