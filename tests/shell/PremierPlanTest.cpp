#include "shell/PremierPlan.h"

#include <QDialog>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

TEST(PremierPlan, ActivatesAWindowThatStandsBehind)
{
    QWidget fenetre;
    QWidget devant;
    fenetre.show();
    devant.show();
    devant.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&devant));

    MettreAuPremierPlan(fenetre, "");

    EXPECT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    EXPECT_FALSE(devant.isActiveWindow());
}

TEST(PremierPlan, LeavesTheKeysToADialogThatIsOpen)
{
    QWidget fenetre;
    fenetre.show();
    QDialog dialogue(&fenetre);
    dialogue.setModal(true);
    dialogue.show();
    QWidget devant;
    devant.show();
    devant.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&devant));

    MettreAuPremierPlan(fenetre, "");

    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialogue));
}

TEST(PremierPlan, RestoresAMinimisedWindowAsItWas)
{
    for (const Qt::WindowStates etat : {Qt::WindowStates(Qt::WindowNoState), Qt::WindowStates(Qt::WindowMaximized)}) {
        QWidget fenetre;
        fenetre.setWindowState(etat);
        fenetre.show();
        fenetre.setWindowState(fenetre.windowState() | Qt::WindowMinimized);
        ASSERT_TRUE(fenetre.isMinimized());

        MettreAuPremierPlan(fenetre, "");

        EXPECT_FALSE(fenetre.isMinimized());
        EXPECT_EQ(fenetre.windowState() & Qt::WindowMaximized, etat);
    }
}

TEST(PremierPlan, LeavesNoTokenToOtherPrograms)
{
    QWidget fenetre;
    fenetre.show();
    qunsetenv("XDG_ACTIVATION_TOKEN");

    MettreAuPremierPlan(fenetre, "jeton");

    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

} // namespace
