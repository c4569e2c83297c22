#include "support/CadreDeTest.h"

#include <gtest/gtest.h>

TEST(FenetreActive, IsTheOneOfTheInstalledFrame)
{
    CadreDeTest cadre;
    cadre.NouvelleFenetre();
    FenetreDocument& seconde = cadre.NouvelleFenetre();
    FenetresOuvertes* avant = InstallerFenetres(&cadre);
    EXPECT_EQ(FenetreActive(), &seconde);
    cadre.active = nullptr;
    EXPECT_EQ(FenetreActive(), nullptr);
    InstallerFenetres(avant);
}

TEST(FenetreActive, IsNoneWithoutAFrame)
{
    EXPECT_EQ(FenetreActive(), nullptr);
}
