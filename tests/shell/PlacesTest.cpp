// Where the frame lies.
#include "shell/CadreEnFenetre.h"

#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

class Places : public CadreEnFenetre
{
protected:
    Places() { QApplication::setQuitOnLastWindowClosed(false); }

    /// Ends the program and starts it again.
    void Rouvrir()
    {
        cadre->close();
        Laisser();
        cadre.reset();
        Montrer();
        Laisser();
    }
    QRect Ecran() const { return cadre->screen()->availableGeometry(); }
};

} // namespace

TEST_F(Places, TheFirstTimeTheFrameLeavesRoomForItsBorder)
{
    Montrer();
    EXPECT_LE(cadre->width(), Ecran().width() - 16);
    EXPECT_LE(cadre->height(), Ecran().height() - 40);
}

TEST_F(Places, TheFrameComesBackWhereItWas)
{
    Montrer();
    cadre->setGeometry(40, 60, 620, 430);
    Rouvrir();
    EXPECT_EQ(cadre->geometry(), QRect(40, 60, 620, 430));
    EXPECT_FALSE(cadre->isMaximized());
}

TEST_F(Places, AMaximisedFrameComesBackSoAndKnowsItsOtherSize)
{
    Montrer();
    cadre->setGeometry(40, 60, 620, 430);
    Laisser();
    cadre->showMaximized();
    Laisser();
    Rouvrir();
    EXPECT_TRUE(cadre->isMaximized());
    cadre->showNormal();
    Laisser();
    EXPECT_EQ(cadre->size(), QSize(620, 430));
}

TEST_F(Places, APlaceOnNoScreenIsBroughtBackOntoOne)
{
    Montrer();
    cadre->setGeometry(5000, 4000, 620, 430);
    Rouvrir();
    EXPECT_TRUE(Ecran().contains(cadre->geometry())) << cadre->x() << ' ' << cadre->y();
    EXPECT_EQ(cadre->size(), QSize(620, 430));
}

TEST_F(Places, AFrameLargerThanTheScreenIsMadeSmaller)
{
    Montrer();
    cadre->setGeometry(0, 0, 3000, 2000);
    Rouvrir();
    EXPECT_TRUE(Ecran().contains(cadre->geometry()));
}

TEST_F(Places, WhatIsNoPlaceChangesNothing)
{
    Montrer();
    const QSize taille = cadre->size();
    cadre.reset();
    EcrireOption(Options::PlaceDuCadre, u"n'importe quoi"_s);
    Montrer();
    EXPECT_EQ(cadre->size(), taille);
}
