#include "shell/InstanceClass.h"

#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

const QPair<QString, QString> Hwnd{"hwndinstance", "hwnd"};

class InstanceClassTest : public testing::Test
{
protected:
    /// Another instance runs and has published its handle.
    void LaisserTourner(qint32 poignee)
    {
        m_rendezvous.autre = {poignee, "Zelvane"};
        m_reglages.deposees.insert(Hwnd, QString::number(poignee));
    }

    ProprietaireInstance Proprietaire()
    {
        return {[this](const QString& jeton) { m_proprietaire += "montrer <" + jeton + ">"; },
                [this] { m_proprietaire += "fermer"; }, [this] { m_proprietaire += "finir"; }};
    }

    RendezvousEnMemoire& m_rendezvous = PlateformeDeTest::Courante().rendezvous;
    ReglagesEnMemoire& m_reglages = PlateformeDeTest::Courante().reglages;
    QStringList m_proprietaire;
    QStringList m_recus;
};

TEST_F(InstanceClassTest, KnowsNobodyAtFirst)
{
    const InstanceClass instance;

    EXPECT_EQ(instance.CommandLine, "");
    EXPECT_EQ(instance.ActionCmd, ActionInstance::Rien);
    EXPECT_LT(instance.PrevHwnd(), 1);
    EXPECT_EQ(InstanceModule::APrevenir(), nullptr);
    EXPECT_EQ(InstanceModule::Poignee(), 0);
}

TEST_F(InstanceClassTest, IsTheFirstWhenNobodyElseRunsAndPublishesItsHandle)
{
    InstanceClass instance;
    instance.InitClass(Proprietaire());

    EXPECT_FALSE(instance.PrevInstace());

    EXPECT_LT(instance.PrevHwnd(), 1);
    EXPECT_EQ(m_rendezvous.titreTrouve, "Zelvane");
    EXPECT_EQ(m_reglages.valeurs.value(Hwnd), "4711");
    EXPECT_EQ(InstanceModule::Poignee(), 4711);
}

TEST_F(InstanceClassTest, StoresItsHandleAtOnceSoThatTheNextStartReadsIt)
{
    InstanceClass instance;
    instance.InitClass(Proprietaire());

    instance.PrevInstace();

    EXPECT_EQ(m_reglages.deposees.value(Hwnd), "4711");
}

TEST_F(InstanceClassTest, RewritesTheHandleOfAnEarlierFirstInstance)
{
    m_reglages.valeurs.insert(Hwnd, "99");
    InstanceClass instance;
    instance.InitClass(Proprietaire());

    EXPECT_FALSE(instance.PrevInstace());

    EXPECT_EQ(m_reglages.valeurs.value(Hwnd), "4711");
}

TEST_F(InstanceClassTest, FindsTheOtherInstanceAndReadsWhereItTakesTexts)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.InitClass(Proprietaire());

    EXPECT_TRUE(instance.PrevInstace());

    EXPECT_EQ(instance.PrevHwnd(), 12);
    EXPECT_EQ(instance.PrevTextHwnd(), 12);
    EXPECT_EQ(m_reglages.deposees.value(Hwnd), "12") << "the setting stays that of the first instance";
    EXPECT_EQ(m_rendezvous.titreTrouve, "");
}

TEST_F(InstanceClassTest, ReadsTheSettingAsTheFirstHasStoredItSinceThisProcessStarted)
{
    m_reglages.valeurs.insert(Hwnd, "99");
    LaisserTourner(12);
    InstanceClass instance;

    instance.PrevInstace();

    EXPECT_EQ(instance.PrevTextHwnd(), 12);
}

TEST_F(InstanceClassTest, NeverFindsItself)
{
    InstanceClass instance;
    instance.InitClass(Proprietaire());
    instance.PrevInstace();

    EXPECT_FALSE(instance.PrevInstace());

    EXPECT_LT(instance.PrevHwnd(), 1);
}

TEST_F(InstanceClassTest, ForgetsAnInstanceThatHasGoneWhenItLooksAgain)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.InitClass(Proprietaire());
    EXPECT_TRUE(instance.PrevInstace());

    m_rendezvous.autre.reset();

    EXPECT_FALSE(instance.PrevInstace());
    EXPECT_LT(instance.PrevHwnd(), 1);
    EXPECT_FALSE(instance.SowPrev());
}

TEST_F(InstanceClassTest, IsTheFirstAmongInstancesOfAnotherTitle)
{
    for (const char* titre : {"zelvane", "Zelvane ", "Zelvane v2", "Zelvan", ""}) {
        m_rendezvous.autre = {12, titre};
        InstanceClass instance;
        instance.InitClass(Proprietaire());

        EXPECT_FALSE(instance.PrevInstace()) << titre;
    }
}

TEST_F(InstanceClassTest, LooksUnderTheTitleThatItWasGiven)
{
    m_rendezvous.autre = {12, "Autre titre"};
    InstanceClass instance("Autre titre");

    EXPECT_TRUE(instance.PrevInstace());
}

TEST_F(InstanceClassTest, DoesNothingByItselfWithAction0)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.InitClass(Proprietaire());
    instance.CommandLine = "/a.qrt";

    EXPECT_TRUE(instance.PrevInstace());

    EXPECT_EQ(m_rendezvous.journal, QStringList());
    EXPECT_EQ(m_proprietaire, QStringList());
    EXPECT_EQ(InstanceModule::APrevenir(), &instance);
}

TEST_F(InstanceClassTest, SendsShowsAndEndsWithAction1)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.InitClass(Proprietaire());
    instance.CommandLine = "/a b.qrt";
    instance.ActionCmd = ActionInstance::PasserLaMain;

    EXPECT_TRUE(instance.PrevInstace());

    EXPECT_EQ(m_rendezvous.journal, (QStringList{"texte </a b.qrt>", "montrer"}));
    EXPECT_EQ(m_proprietaire, QStringList{"finir"});
    EXPECT_EQ(InstanceModule::APrevenir(), nullptr);
}

TEST_F(InstanceClassTest, OnlyShowsAndEndsWithAction1AndNoCommandLine)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.InitClass(Proprietaire());
    instance.ActionCmd = ActionInstance::PasserLaMain;

    EXPECT_TRUE(instance.PrevInstace());

    EXPECT_EQ(m_rendezvous.journal, QStringList{"montrer"});
    EXPECT_EQ(m_proprietaire, QStringList{"finir"});
}

TEST_F(InstanceClassTest, ClosesTheOtherAndTakesItsPlaceWithAction2)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.InitClass(Proprietaire());
    instance.ActionCmd = ActionInstance::Remplacer;

    EXPECT_TRUE(instance.PrevInstace());

    EXPECT_EQ(m_rendezvous.journal, QStringList{"fermer"});
    EXPECT_EQ(m_rendezvous.titreTrouve, "Zelvane");
    EXPECT_EQ(m_reglages.deposees.value(Hwnd), "4711");
    EXPECT_EQ(instance.PrevTextHwnd(), 12) << "read before the setting was taken over";
}

TEST_F(InstanceClassTest, DoesNotActWhenItIsTheFirst)
{
    for (const ActionInstance action : {ActionInstance::PasserLaMain, ActionInstance::Remplacer}) {
        InstanceClass instance;
        instance.InitClass(Proprietaire());
        instance.CommandLine = "/a.qrt";
        instance.ActionCmd = action;

        EXPECT_FALSE(instance.PrevInstace());

        EXPECT_EQ(m_rendezvous.journal, QStringList());
        EXPECT_EQ(m_proprietaire, QStringList());
    }
}

TEST_F(InstanceClassTest, SendsATextAndKeepsItAsItsCommandLine)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.CommandLine = "/ancien.qrt";
    instance.PrevInstace();

    EXPECT_TRUE(instance.SendTexte("/nouveau.qrt"));

    EXPECT_EQ(instance.CommandLine, "/nouveau.qrt");
    EXPECT_EQ(m_rendezvous.journal, QStringList{"texte </nouveau.qrt>"});
}

TEST_F(InstanceClassTest, SendsItsCommandLineForAnEmptyText)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.CommandLine = "/ancien.qrt";
    instance.PrevInstace();

    EXPECT_TRUE(instance.SendTexte(""));

    EXPECT_EQ(m_rendezvous.journal, QStringList{"texte </ancien.qrt>"});
}

TEST_F(InstanceClassTest, SendsNothingWithoutAnyText)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.PrevInstace();

    EXPECT_FALSE(instance.SendTexte(""));

    EXPECT_EQ(m_rendezvous.journal, QStringList());
}

TEST_F(InstanceClassTest, SendsTextsNowhereWhenTheSettingIsOutOfDate)
{
    m_rendezvous.autre = {12, "Zelvane"};
    for (const char* valeur : {"99", "0", "-12", "", "douze"}) {
        m_reglages.deposees.insert(Hwnd, valeur);
        InstanceClass instance;
        EXPECT_TRUE(instance.PrevInstace()) << valeur;

        EXPECT_FALSE(instance.SendTexte("/a.qrt")) << valeur;
        EXPECT_TRUE(instance.SowPrev()) << valeur << ": the window is found all the same";
    }
    EXPECT_FALSE(m_rendezvous.journal.contains("texte </a.qrt>"));
}

TEST_F(InstanceClassTest, SendsTextsToTheInstanceItFoundWhenNoSettingWasEverKept)
{
    m_rendezvous.autre = {12, "Zelvane"};
    InstanceClass instance;
    instance.PrevInstace();

    EXPECT_TRUE(instance.SendTexte("/a.qrt"));

    EXPECT_EQ(instance.PrevTextHwnd(), 12);
}

TEST_F(InstanceClassTest, ShowsTheInstanceItFoundOrTheOneItIsTold)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.PrevInstace();

    EXPECT_TRUE(instance.SowPrev());
    EXPECT_TRUE(instance.SowPrev(12));
    EXPECT_FALSE(instance.SowPrev(13));

    EXPECT_EQ(instance.PrevHwnd(), 13);
    EXPECT_FALSE(instance.SowPrev()) << "the handle that was given stays";
    EXPECT_EQ(m_rendezvous.journal, (QStringList{"montrer", "montrer"}));
}

TEST_F(InstanceClassTest, ClosesTheInstanceItFoundOrTheOneItIsTold)
{
    LaisserTourner(12);
    InstanceClass instance;
    instance.PrevInstace();

    EXPECT_TRUE(instance.KillPrev());
    EXPECT_TRUE(instance.KillPrev(12));
    EXPECT_FALSE(instance.KillPrev(13));

    EXPECT_EQ(instance.PrevHwnd(), 13);
    EXPECT_EQ(m_rendezvous.journal, (QStringList{"fermer", "fermer"}));
}

TEST_F(InstanceClassTest, ShowsAndClosesNobodyWithoutAHandle)
{
    m_rendezvous.autre = {-5, "x"};
    InstanceClass instance;

    EXPECT_FALSE(instance.SowPrev());
    EXPECT_FALSE(instance.KillPrev());
    EXPECT_FALSE(instance.SowPrev(-5)) << "a handle below 1 names nobody";
    EXPECT_FALSE(instance.KillPrev(-5));

    EXPECT_EQ(m_rendezvous.journal, QStringList());
}

TEST_F(InstanceClassTest, RaisesTheEventForTextsOfOthers)
{
    InstanceClass instance;
    instance.ReceiveOutputs = [this](const QString& texte) { m_recus += texte; };
    instance.InitClass(Proprietaire());
    instance.PrevInstace();

    m_rendezvous.services.recevoir("/a b.qrt");
    m_rendezvous.services.recevoir("");

    EXPECT_EQ(m_recus, (QStringList{"/a b.qrt", ""}));
}

TEST_F(InstanceClassTest, TakesAnEventThatIsSetLater)
{
    InstanceClass instance;
    instance.InitClass(Proprietaire());
    m_rendezvous.services.recevoir("personne");

    instance.ReceiveOutputs = [this](const QString& texte) { m_recus += texte; };
    m_rendezvous.services.recevoir("/a.qrt");

    EXPECT_EQ(m_recus, QStringList{"/a.qrt"});
}

TEST_F(InstanceClassTest, LetsTheEventEndTheObject)
{
    auto instance = std::make_unique<InstanceClass>();
    instance->ReceiveOutputs = [this, &instance](const QString& texte) {
        instance.reset();
        m_recus += texte;
    };
    instance->InitClass(Proprietaire());

    const auto recevoir = m_rendezvous.services.recevoir;
    recevoir("/a.qrt");
    recevoir("/b.qrt");

    EXPECT_EQ(m_recus, QStringList{"/a.qrt"});
}

TEST_F(InstanceClassTest, PassesOnToItsOwnerWhatOthersAsk)
{
    InstanceClass instance;
    instance.InitClass(Proprietaire());

    m_rendezvous.services.montrer("jeton");
    m_rendezvous.services.fermer();

    EXPECT_EQ(m_proprietaire, (QStringList{"montrer <jeton>", "fermer"}));
}

TEST_F(InstanceClassTest, HearsNoMoreOnceItIsReleased)
{
    InstanceClass instance;
    instance.ReceiveOutputs = [this](const QString& texte) { m_recus += texte; };
    instance.InitClass(Proprietaire());
    instance.PrevInstace();
    const auto recevoir = m_rendezvous.services.recevoir;

    instance.Class_Terminate98();
    recevoir("/a.qrt");

    EXPECT_EQ(m_recus, QStringList());
    EXPECT_EQ(m_rendezvous.titreTrouve, "");
    EXPECT_FALSE(m_rendezvous.services.recevoir);
    EXPECT_EQ(InstanceModule::APrevenir(), nullptr);
    EXPECT_EQ(InstanceModule::Poignee(), 0);
    instance.Class_Terminate98(); // once more is no matter
}

TEST_F(InstanceClassTest, IsReleasedAtItsEnd)
{
    {
        InstanceClass instance;
        instance.InitClass(Proprietaire());
        instance.PrevInstace();
    }

    EXPECT_EQ(m_rendezvous.titreTrouve, "");
    EXPECT_EQ(InstanceModule::APrevenir(), nullptr);
}

TEST_F(InstanceClassTest, ReleasesOnlyItself)
{
    InstanceClass premiere;
    premiere.InitClass(Proprietaire());
    premiere.PrevInstace();

    InstanceClass("Zelvane").Class_Terminate98();

    EXPECT_EQ(InstanceModule::APrevenir(), &premiere);
    EXPECT_EQ(m_rendezvous.titreTrouve, "Zelvane");
}

TEST_F(InstanceClassTest, IsAloneInAProgramThatHasNoRendezvous)
{
    plateforme().rendezvous = nullptr;
    InstanceClass instance;
    instance.InitClass(Proprietaire());
    instance.CommandLine = "/a.qrt";

    EXPECT_FALSE(instance.PrevInstace());
    EXPECT_FALSE(instance.SendTexte("/a.qrt"));
    EXPECT_FALSE(instance.SowPrev(12));
    EXPECT_FALSE(instance.KillPrev(12));
    instance.Class_Terminate98();
}

} // namespace
