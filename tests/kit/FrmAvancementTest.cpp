#include "kit/frmAvancement.h"

#include "support/Accessibilite.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace std::chrono_literals;

namespace {

QWidget* Fenetre()
{
    QWidget* fenetre = QApplication::activeModalWidget();
    return fenetre && fenetre->objectName() == "frmAvancement" ? fenetre : nullptr;
}

} // namespace

TEST(AvancementEnFenetre, AShortOperationShowsNoWindowAndRunsNoEvents)
{
    bool arrive = false;
    QMetaObject::invokeMethod(
        qApp, [&] { arrive = true; }, Qt::QueuedConnection);
    {
        AvancementEnFenetre avancement(1h);
        for (int i = 1; i <= 3 * Avancement::Pas; ++i)
            avancement.Avancer(i, 3 * Avancement::Pas);
        EXPECT_EQ(Fenetre(), nullptr);
        EXPECT_FALSE(arrive);
    }
    QCoreApplication::processEvents();
}

TEST(AvancementEnFenetre, ALongOneShowsHowFarItIsAndLetsEventsRun)
{
    {
        bool arrive = false;
        QMetaObject::invokeMethod(
            qApp, [&] { arrive = true; }, Qt::QueuedConnection);
        AvancementEnFenetre avancement(0ms);
        avancement.Avancer(Avancement::Pas, 5000);
        ASSERT_NE(Fenetre(), nullptr);
        EXPECT_TRUE(Fenetre()->isVisible());
        const auto* barre = Fenetre()->findChild<QProgressBar*>("PB");
        EXPECT_EQ(barre->minimum(), 0);
        EXPECT_EQ(barre->maximum(), 5000);
        EXPECT_EQ(barre->value(), Avancement::Pas);
        EXPECT_EQ(Fenetre()->findChild<QLabel*>("Label1")->text(), "Veuillez patienter....");
        EXPECT_EQ(ControlesSansNom(*Fenetre()), QStringList());
        EXPECT_TRUE(arrive);
    }
    EXPECT_EQ(Fenetre(), nullptr);
}

TEST(AvancementEnFenetre, NeitherEscapeNorTheCloseBoxEndsIt)
{
    AvancementEnFenetre avancement(0ms);
    avancement.Avancer(Avancement::Pas, 5000);
    ASSERT_NE(Fenetre(), nullptr);
    QTest::keyClick(Fenetre(), Qt::Key_Escape);
    ASSERT_NE(Fenetre(), nullptr);
    EXPECT_FALSE(Fenetre()->close());
    EXPECT_NE(Fenetre(), nullptr);
}

TEST(AvancementEnFenetre, WhatMayBeGivenUpHasAButtonThatDoesIt)
{
    for (const auto& geste : std::vector<std::function<void(QWidget&)>>{
             [](QWidget& fenetre) { QTest::mouseClick(fenetre.findChild<QPushButton*>("btAnnuler"), Qt::LeftButton); },
             [](QWidget& fenetre) { QTest::keyClick(&fenetre, Qt::Key_Escape); },
             [](QWidget& fenetre) { fenetre.close(); }}) {
        AvancementEnFenetre avancement(0ms, Abandon::Permis);
        avancement.Signaler(1, 3);
        ASSERT_NE(Fenetre(), nullptr);
        EXPECT_TRUE(Fenetre()->findChild<QPushButton*>("btAnnuler")->isVisible());
        EXPECT_FALSE(avancement.EstAbandonne());
        geste(*Fenetre());
        EXPECT_TRUE(avancement.EstAbandonne());
        EXPECT_NE(Fenetre(), nullptr) << "it stays until the operation has heard of it";
    }
}

TEST(AvancementEnFenetre, WhatMayNotHasNone)
{
    AvancementEnFenetre avancement(0ms);
    avancement.Signaler(1, 3);
    ASSERT_NE(Fenetre(), nullptr);
    EXPECT_FALSE(Fenetre()->findChild<QPushButton*>("btAnnuler")->isVisible());
    QTest::keyClick(Fenetre(), Qt::Key_Escape);
    Fenetre()->close();
    EXPECT_FALSE(avancement.EstAbandonne());
}

TEST(AvancementEnFenetre, AClickElsewhereIsDroppedMeanwhile)
{
    QPushButton bouton("Supprimer");
    int clics = 0;
    QObject::connect(&bouton, &QPushButton::clicked, &bouton, [&] { ++clics; });
    bouton.show();
    {
        AvancementEnFenetre avancement(0ms);
        avancement.Avancer(Avancement::Pas, 5000);
        QTest::mouseClick(bouton.windowHandle(), Qt::LeftButton, Qt::NoModifier, bouton.rect().center());
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(clics, 0);
    QTest::mouseClick(bouton.windowHandle(), Qt::LeftButton, Qt::NoModifier, bouton.rect().center());
    EXPECT_EQ(clics, 1);
}
