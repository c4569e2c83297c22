#include "extensions/dialogues/frmPresent2.h"

#include "support/Impression.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

QTimer& Timer1(const QWidget& form)
{
    return *form.findChild<QTimer*>("Timer1");
}

/// Shows the window modally, does `geste` once it is there, and returns the ticks that it lived.
int TicsDeVie(
    frmPresent2& form, const std::function<void()>& geste = [] {})
{
    int tics = 0;
    QObject::connect(&Timer1(form), &QTimer::timeout, &form, [&tics] { ++tics; });
    QTimer::singleShot(0, &form, geste);
    QTimer::singleShot(5000, &form, [&form] {
        ADD_FAILURE() << "the window did not go";
        form.reject();
    });
    form.exec();
    EXPECT_FALSE(form.isVisible());
    return tics;
}

TEST(FrmPresent2, GoesByItselfAtTheTwentyFirstTick)
{
    frmPresent2 form;
    EXPECT_EQ(TicsDeVie(form), 21);
    EXPECT_FALSE(Timer1(form).isActive());
}

TEST(FrmPresent2, IsModalWhileItIsThere)
{
    frmPresent2 form;
    bool modale = false;
    TicsDeVie(form, [&] { modale = QApplication::activeModalWidget() == &form; });
    EXPECT_TRUE(modale);
}

TEST(FrmPresent2, TicksEveryFiveMilliseconds)
{
    EXPECT_EQ(Timer1(frmPresent2()).interval(), 5);
}

TEST(FrmPresent2, TheTimeBeforeItIsShownDoesNotCount)
{
    frmPresent2 form;
    QTest::qWait(150);
    EXPECT_EQ(TicsDeVie(form), 21);
}

TEST(FrmPresent2, TheUserNeedNotWait)
{
    frmPresent2 form;
    EXPECT_LT(TicsDeVie(form, [&] { QTest::keyClick(&form, Qt::Key_Escape); }), 21);
}

TEST(FrmPresent2, IsTheCircleInsideItsSquare)
{
    const frmPresent2 form;
    ASSERT_EQ(form.logicalDpiX(), 96);
    const QRegion forme = form.mask();
    EXPECT_EQ(forme.boundingRect(), QRect(8, 8, 362, 362));
    EXPECT_TRUE(forme.contains(QPoint(189, 189)));
    EXPECT_TRUE(forme.contains(QPoint(189, 8)));
    EXPECT_FALSE(forme.contains(QPoint(40, 40))) << "a corner of the square";
    EXPECT_FALSE(forme.contains(QPoint(189, 4)));
    EXPECT_TRUE(form.windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST(FrmPresent2, ShowsADiscWithNameAndVersion)
{
    frmPresent2 form;
    EXPECT_EQ(form.findChild<QLabel*>("lblNom")->text(), "Zelvane");
    EXPECT_EQ(form.findChild<QLabel*>("lblVersion")->text(), "Version " ZELVANE_VERSION);
    const QImage image = form.grab().toImage();
    const QColor etiquette = image.pixelColor(189, 189 + 80), disque = image.pixelColor(189, 189 + 130);
    EXPECT_GT(etiquette.red(), etiquette.blue() + 40) << "the label is warm";
    EXPECT_GT(disque.blue(), disque.red() + 40) << "the disc is blue";
}

TEST(FrmPresent2, NameAndVersionStandInsideTheLabel)
{
    frmPresent2 form;
    form.show();
    for (const char* nom : {"lblNom", "lblVersion"}) {
        const auto* texte = form.findChild<QLabel*>(nom);
        const QRect place = texte->fontMetrics().boundingRect(texte->geometry(), Qt::AlignCenter, texte->text());
        const QPoint centre(189, 189);
        for (const QPoint& coin : {place.topLeft(), place.topRight(), place.bottomLeft(), place.bottomRight()})
            EXPECT_LT(QLineF(centre, coin).length(), 181 * 0.51) << nom;
    }
}

} // namespace
