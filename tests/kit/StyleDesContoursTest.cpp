#include "kit/Couleurs.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QProxyStyle>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

class StyleDesContoursTest : public testing::Test
{
protected:
    StyleDesContoursTest()
    {
        for (QWidget* controle : std::initializer_list<QWidget*>{autre, boite, ronde, champ})
            fenetre.layout()->addWidget(controle);
        fenetre.show();
        fenetre.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&fenetre));
        autre->setFocus();
    }
    ~StyleDesContoursTest() override { Mettre(false); }

    static void Mettre(bool sombre)
    {
        MettreCouleurs(sombre);
        QCoreApplication::processEvents();
    }
    /// How well the edge at the left of a control stands out from the window.
    double Bord(const QWidget& controle)
    {
        const QImage image = fenetre.grab().toImage();
        const QRect place = controle.geometry();
        double mieux = 1;
        for (int x = place.left() - 1; x < place.left() + 4; ++x)
            mieux = std::max(
                mieux, Contraste(image.pixelColor(x, place.center().y()), fenetre.palette().color(QPalette::Window)));
        return mieux;
    }

    QWidget fenetre;
    QVBoxLayout* disposition = new QVBoxLayout(&fenetre);
    QLineEdit* autre = new QLineEdit;
    QCheckBox* boite = new QCheckBox;
    QRadioButton* ronde = new QRadioButton;
    QLineEdit* champ = new QLineEdit;
};

} // namespace

TEST_F(StyleDesContoursTest, EmptyBoxesAndFieldsCanBeSeenOnDarkWindows)
{
    Mettre(true);
    for (const QWidget* controle : std::initializer_list<QWidget*>{boite, ronde, champ})
        EXPECT_GE(Bord(*controle), 3) << controle->metaObject()->className();
}

TEST_F(StyleDesContoursTest, WhatIsDisabledHasAFainterEdge)
{
    Mettre(true);
    const double avant = Bord(*boite);
    boite->setEnabled(false);
    EXPECT_LT(Bord(*boite), avant);
    EXPECT_GT(Bord(*boite), 1.5);
}

TEST_F(StyleDesContoursTest, LightWindowsAreDrawnAsBefore)
{
    const auto dessin = [this] {
        QCoreApplication::processEvents();
        return fenetre.grab().toImage();
    };
    Mettre(true);
    Mettre(false);
    const QImage claire = dessin();
    auto* style = dynamic_cast<QProxyStyle*>(QApplication::style());
    ASSERT_TRUE(style);
    for (QWidget* controle : std::initializer_list<QWidget*>{boite, ronde, champ})
        controle->setStyle(style->baseStyle());
    EXPECT_EQ(dessin(), claire);
    Mettre(true);
    const QImage sansContours = dessin();
    for (QWidget* controle : std::initializer_list<QWidget*>{boite, ronde, champ})
        controle->setStyle(nullptr);
    EXPECT_NE(dessin(), sansContours);
}
