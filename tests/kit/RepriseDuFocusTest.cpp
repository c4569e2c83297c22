// The keys after a dialog: a window of the program has them.
#include "kit/RepriseDuFocus.h"
#include "support/GardeModale.h"

#include <QDialog>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

class RepriseDuFocusTest : public testing::Test
{
protected:
    RepriseDuFocusTest() { m_cadre.show(); }

    /// Opens a dialog, runs `geste` on it once it has the keys, and closes it.
    template<typename Geste> void Ouvrir(QDialog& dialogue, Geste geste)
    {
        const GardeModale garde([&](QWidget& ouvert) {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&ouvert));
            geste(ouvert);
            ouvert.close();
        });
        dialogue.exec();
    }

    RepriseDuFocus m_reprise;
    QWidget m_cadre;
};

} // namespace

TEST_F(RepriseDuFocusTest, TheWindowBelowHasTheKeysAfterADialog)
{
    QDialog dialogue(&m_cadre);
    Ouvrir(dialogue, [](QWidget&) {});
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_cadre, 2000));
}

TEST_F(RepriseDuFocusTest, TheDialogBelowHasTheKeysAfterADialog)
{
    QDialog dessous(&m_cadre);
    Ouvrir(dessous, [this](QWidget& ouvert) {
        QDialog dessus(&ouvert);
        Ouvrir(dessus, [](QWidget&) {});
        EXPECT_TRUE(QTest::qWaitForWindowActive(&ouvert, 2000));
    });
}

TEST_F(RepriseDuFocusTest, AWindowThatGotTheKeysKeepsThem)
{
    QWidget autre;
    autre.show();
    QDialog dialogue(&autre);
    Ouvrir(dialogue, [](QWidget&) {});
    autre.activateWindow();
    QTest::qWait(300);
    EXPECT_TRUE(autre.isActiveWindow());
}
