#include "kit/Couleurs.h"

#include <QApplication>
#include <QToolTip>

#include <gtest/gtest.h>

#include <utility>

namespace {

class Couleurs : public testing::Test
{
protected:
    ~Couleurs() override { MettreCouleurs(false); }
};

} // namespace

TEST_F(Couleurs, TheContrastIsTheOneOfTheGuidelines)
{
    EXPECT_DOUBLE_EQ(Contraste(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(Contraste(Qt::white, Qt::black), 21);
    EXPECT_DOUBLE_EQ(Contraste(Qt::red, Qt::red), 1);
    EXPECT_NEAR(Contraste(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
    EXPECT_NEAR(Contraste(Qt::red, Qt::white), 4.00, 0.005);
    EXPECT_NEAR(Contraste(Qt::blue, Qt::white), 8.59, 0.005);
}

TEST_F(Couleurs, AnInkIsMadeLighterOnlyWhereItCannotBeRead)
{
    const QColor nuit(0x1e, 0x1e, 0x1e);
    const QColor jaune(0xff, 0xe0, 0x40);
    EXPECT_EQ(EncreLisible(jaune, nuit), jaune);
    EXPECT_EQ(EncreLisible(jaune, Qt::white), jaune) << "a light ground is what the colour was chosen on";
    const QColor bleu(0, 0, 0x80);
    const QColor lisible = EncreLisible(bleu, nuit);
    EXPECT_GE(Contraste(lisible, nuit), 4.5);
    EXPECT_LT(Contraste(lisible, nuit), 5) << "no lighter than it needs to be";
    EXPECT_EQ(lisible.hslHue(), bleu.hslHue());
    EXPECT_EQ(EncreLisible(bleu, Qt::white), bleu);
    EXPECT_GE(Contraste(EncreLisible(QColor(1, 1, 1), nuit), nuit), 4.5);
}

TEST_F(Couleurs, DarkTextsCanBeReadOnWhatTheyStandOn)
{
    const QPalette sombre = PaletteSombre();
    // Icons are drawn with the ink of texts, wherever they stand.
    for (const auto& [encre, fond] : {std::pair(QPalette::WindowText, QPalette::Window),
                                      {QPalette::Text, QPalette::Base},
                                      {QPalette::Text, QPalette::AlternateBase},
                                      {QPalette::Text, QPalette::Window},
                                      {QPalette::Text, QPalette::Button},
                                      {QPalette::WindowText, QPalette::Base},
                                      {QPalette::ButtonText, QPalette::Button},
                                      {QPalette::ButtonText, QPalette::Window},
                                      {QPalette::HighlightedText, QPalette::Highlight},
                                      {QPalette::ToolTipText, QPalette::ToolTipBase},
                                      {QPalette::PlaceholderText, QPalette::Base},
                                      {QPalette::PlaceholderText, QPalette::AlternateBase},
                                      {QPalette::Link, QPalette::Base},
                                      {QPalette::Link, QPalette::Window},
                                      {QPalette::Link, QPalette::ToolTipBase},
                                      {QPalette::LinkVisited, QPalette::Base},
                                      {QPalette::LinkVisited, QPalette::Window},
                                      {QPalette::BrightText, QPalette::Window}}) {
        for (const QPalette::ColorGroup groupe : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            EXPECT_GE(Contraste(sombre.color(groupe, encre), sombre.color(groupe, fond)), 4.5)
                << "group " << groupe << ", role " << encre << " on " << fond;
    }
    EXPECT_TRUE(EstSombre(sombre));
}

TEST_F(Couleurs, TheFrameOfTheFocusCanBeSeen)
{
    const QPalette sombre = PaletteSombre();
    for (const QPalette::ColorRole fond : {QPalette::Base, QPalette::AlternateBase, QPalette::Window})
        EXPECT_GE(Contraste(sombre.color(QPalette::Highlight), sombre.color(fond)), 3.0) << fond;
}

TEST_F(Couleurs, WhatIsDisabledLooksSo)
{
    const QPalette sombre = PaletteSombre();
    for (const QPalette::ColorRole encre : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        EXPECT_NE(sombre.color(QPalette::Disabled, encre), sombre.color(QPalette::Active, encre)) << encre;
}

TEST_F(Couleurs, TurnDarkAndBack)
{
    const QPalette avant = QApplication::palette();
    const QPalette bulles = QToolTip::palette();
    ASSERT_FALSE(EstSombre(avant)) << "the platform of the tests is light";
    MettreCouleurs(true);
    EXPECT_TRUE(EstSombre(QApplication::palette()));
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase), PaletteSombre().color(QPalette::ToolTipBase));
    MettreCouleurs(true);
    EXPECT_TRUE(EstSombre(QApplication::palette()));
    MettreCouleurs(false);
    EXPECT_EQ(QApplication::palette(), avant);
    EXPECT_EQ(QToolTip::palette(), bulles);
}
