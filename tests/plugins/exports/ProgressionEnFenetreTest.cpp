#include "ProgressionEnFenetre.h"

#include "support/Accessibilite.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QProgressDialog* Fenetre()
{
    for (QWidget* fenetre : QApplication::topLevelWidgets()) {
        if (auto* dialogue = qobject_cast<QProgressDialog*>(fenetre))
            return dialogue;
    }
    return nullptr;
}

/// Runs once, when the window lets events through.
void AuxEvenements(std::function<void()> acte)
{
    QMetaObject::invokeMethod(qApp, std::move(acte), Qt::QueuedConnection);
}

} // namespace

TEST(ProgressionEnFenetre, ShowsNothingForAMoment)
{
    ProgressionEnFenetre progression(1h);
    bool evenements = false;
    AuxEvenements([&] { evenements = true; });
    EXPECT_TRUE(progression.Avancer(1, 2));
    EXPECT_EQ(Fenetre(), nullptr);
    EXPECT_FALSE(evenements) << "the document cannot change meanwhile";
    QCoreApplication::processEvents();
}

TEST(ProgressionEnFenetre, BlocksTheWindowUnderItAndTellsHowFarItIs)
{
    QWidget document;
    document.show();
    QApplication::setActiveWindow(&document);
    {
        ProgressionEnFenetre progression(0ms);
        bool evenements = false;
        AuxEvenements([&] { evenements = true; });
        EXPECT_TRUE(progression.Avancer(30, 120));
        EXPECT_TRUE(evenements);
        QProgressDialog* fenetre = Fenetre();
        ASSERT_NE(fenetre, nullptr);
        EXPECT_TRUE(fenetre->isVisible());
        EXPECT_EQ(fenetre->parentWidget(), &document);
        EXPECT_EQ(fenetre->windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(fenetre->windowTitle(), "Exportation");
        EXPECT_EQ(fenetre->labelText(), u"Le fichier est en cours d'écriture."_s);
        EXPECT_EQ(fenetre->findChild<QPushButton*>()->text(), "&Annuler");
        EXPECT_EQ(ControlesSansNom(*fenetre), QStringList());
        EXPECT_EQ(NomAccessible(*fenetre->findChild<QProgressBar*>()), "Avancement");
        EXPECT_EQ(fenetre->value() * 4, fenetre->maximum());
    }
    EXPECT_EQ(Fenetre(), nullptr);
}

TEST(ProgressionEnFenetre, StaysAtTheLastStep)
{
    ProgressionEnFenetre progression(0ms);
    EXPECT_TRUE(progression.Avancer(5'000'000'000, 5'000'000'000));
    ASSERT_NE(Fenetre(), nullptr);
    EXPECT_TRUE(Fenetre()->isVisible()) << "the disk is still busy";
}

TEST(ProgressionEnFenetre, FitsASmallScreenInLargeLetters)
{
    const QFont avant = QApplication::font();
    QFont grande = avant;
    grande.setPointSize(18);
    QApplication::setFont(grande);
    {
        ProgressionEnFenetre progression(0ms);
        progression.Avancer(1, 2);
        QProgressDialog* fenetre = Fenetre();
        ASSERT_NE(fenetre, nullptr);
        EXPECT_LE(fenetre->width(), 1024);
        EXPECT_LE(fenetre->height(), 600);
        const auto* texte = fenetre->findChild<QLabel*>();
        EXPECT_GE(texte->width(), texte->sizeHint().width()) << "nothing is cut off";
    }
    QApplication::setFont(avant);
}

TEST(ProgressionEnFenetre, TheButtonGivesUp)
{
    ProgressionEnFenetre progression(0ms);
    AuxEvenements([] { QTest::mouseClick(Fenetre()->findChild<QPushButton*>(), Qt::LeftButton); });
    EXPECT_FALSE(progression.Avancer(1, 2));
}

TEST(ProgressionEnFenetre, EscapeGivesUp)
{
    ProgressionEnFenetre progression(0ms);
    AuxEvenements([] {
        Fenetre()->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Fenetre()));
        QTest::keyClick(Fenetre(), Qt::Key_Escape);
    });
    EXPECT_FALSE(progression.Avancer(1, 2));
}

TEST(ProgressionEnFenetre, ClosingGivesUp)
{
    ProgressionEnFenetre progression(0ms);
    AuxEvenements([] { Fenetre()->close(); });
    EXPECT_FALSE(progression.Avancer(1, 2));
}

TEST(ProgressionEnFenetre, GivesUpWhereTheWindowUnderItGoes)
{
    auto document = std::make_unique<QWidget>();
    document->show();
    QApplication::setActiveWindow(document.get());
    ProgressionEnFenetre progression(0ms);
    AuxEvenements([&] { document.reset(); });
    EXPECT_FALSE(progression.Avancer(1, 2));
}
