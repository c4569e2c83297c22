#include "base/Fenetres.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

namespace {

/// A frame with windows that note their unloading and then do what a test says.
class Cadre : public FenetresOuvertes
{
public:
    struct Fenetre : FenetreOuverte
    {
        Fenetre(Cadre& c, char n) : cadre(c), nom(n) {}
        void Decharger() override
        {
            cadre.journal += nom;
            if (quand)
                quand();
            else
                cadre.Retirer(this);
        }
        Cadre& cadre;
        char nom;
        std::function<void()> quand;
    };

    Cadre() : m_avant(InstallerFenetres(this)) {}
    ~Cadre() override { InstallerFenetres(m_avant); }
    std::vector<FenetreOuverte*> Fenetres() const override { return ouvertes; }
    void Retirer(FenetreOuverte* fenetre) { std::erase(ouvertes, fenetre); }

    std::string journal;
    Fenetre a{*this, 'a'};
    Fenetre b{*this, 'b'};
    Fenetre c{*this, 'c'};
    std::vector<FenetreOuverte*> ouvertes{&a, &b, &c};

private:
    FenetresOuvertes* m_avant;
};

TEST(ToutFermer, UnloadsEveryWindowInTheOrderOfTheList)
{
    Cadre cadre;

    ToutFermer();

    EXPECT_EQ(cadre.journal, "abc");
    EXPECT_TRUE(cadre.ouvertes.empty());
}

TEST(ToutFermer, GoesOnAfterAWindowThatStays)
{
    Cadre cadre;
    cadre.b.quand = [] {};

    ToutFermer();

    EXPECT_EQ(cadre.journal, "abc");
    EXPECT_EQ(cadre.ouvertes, std::vector<FenetreOuverte*>{&cadre.b});
}

TEST(ToutFermer, PassesAWindowOverThatWentMeanwhile)
{
    Cadre cadre;
    cadre.a.quand = [&] {
        cadre.Retirer(&cadre.a);
        cadre.Retirer(&cadre.b);
    };

    ToutFermer();

    EXPECT_EQ(cadre.journal, "ac");
}

TEST(ToutFermer, LeavesAWindowThatCameMeanwhile)
{
    Cadre cadre;
    cadre.ouvertes = {&cadre.a};
    cadre.a.quand = [&] { cadre.ouvertes = {&cadre.b}; };

    ToutFermer();

    EXPECT_EQ(cadre.journal, "a");
}

TEST(ToutFermer, DoesNothingWithoutAFrame)
{
    FenetresOuvertes* const avant = InstallerFenetres(nullptr);

    ToutFermer();

    EXPECT_EQ(InstallerFenetres(avant), nullptr);
}

} // namespace
