#include "catalogue/documents/FichierRecent.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "support/Impression.h"

#include <gtest/gtest.h>

#include <map>

namespace {

void Mettre(const QStringList& recents)
{
    for (int i = 0; i < 5; ++i)
        EcrireOption(QStringLiteral("FRecent%1").arg(i + 1), recents.value(i));
}

QStringList Recents()
{
    QStringList recents;
    for (int i = 1; i <= 5; ++i)
        recents.append(LireOption(QStringLiteral("FRecent%1").arg(i), {}).toString());
    return recents;
}

struct Menu : MenuRecents
{
    std::map<int, QString> items;
    bool barre = false;
    void MettreRecent(int index, const QString& chemin) override { items[index] = chemin; }
    void MontrerBarRecent(bool visible) override { barre = visible; }
};

} // namespace

TEST(FichierRecent, TheFirstPathOfAFreshInstallationStandsOnTop)
{
    AjouterRecent("a");
    EXPECT_EQ(Recents(), QStringList({"a", "", "", "", ""}));
}

TEST(FichierRecent, OpeningTheTopOneChangesNothing)
{
    Mettre({"a", "b", "c", "d", "e"});
    AjouterRecent("a");
    EXPECT_EQ(Recents(), QStringList({"a", "b", "c", "d", "e"}));
}

TEST(FichierRecent, ANewPathMovesAllDownAndTheFifthIsLost)
{
    Mettre({"a", "b", "c", "d", "e"});
    AjouterRecent("neuf");
    EXPECT_EQ(Recents(), QStringList({"neuf", "a", "b", "c", "d"}));
}

TEST(FichierRecent, AKnownPathComesToTheTopAndThoseBehindItStay)
{
    Mettre({"a", "b", "c", "d", "e"});
    AjouterRecent("c");
    EXPECT_EQ(Recents(), QStringList({"c", "a", "b", "d", "e"}));
    AjouterRecent("d");
    EXPECT_EQ(Recents(), QStringList({"d", "c", "a", "b", "e"}));
}

TEST(FichierRecent, ThePathInTheFifthPlaceIsOverwrittenAndStandsOnTopOnce)
{
    Mettre({"a", "b", "c", "d", "e"});
    AjouterRecent("e");
    EXPECT_EQ(Recents(), QStringList({"e", "a", "b", "c", "d"}));
}

TEST(FichierRecent, AFewPathsMoveDownWithoutLosingOne)
{
    for (const char* chemin : {"a", "b", "c"})
        AjouterRecent(chemin);
    EXPECT_EQ(Recents(), QStringList({"c", "b", "a", "", ""}));
    AjouterRecent("a");
    EXPECT_EQ(Recents(), QStringList({"a", "c", "b", "", ""}));
}

TEST(FichierRecent, PathsAreComparedWithCase)
{
    Mettre({"x", "a"});
    AjouterRecent("A");
    EXPECT_EQ(Recents(), QStringList({"A", "x", "a", "", ""}));
}

TEST(FichierRecent, RemovingMovesUpWhatStandsBehind)
{
    Mettre({"a", "b", "c", "d", "e"});
    RetirerRecent("b");
    EXPECT_EQ(Recents(), QStringList({"a", "c", "d", "e", ""}));
    RetirerRecent("inconnu");
    EXPECT_EQ(Recents(), QStringList({"a", "c", "d", "e", ""}));
    RetirerRecent("a");
    EXPECT_EQ(Recents(), QStringList({"c", "d", "e", "", ""}));
}

TEST(FichierRecent, TheFifthPathIsRemovedToo)
{
    Mettre({"a", "b", "c", "d", "e"});
    RetirerRecent("E");
    EXPECT_EQ(Recents(), QStringList({"a", "b", "c", "d", "e"})) << "another path";
    RetirerRecent("e");
    EXPECT_EQ(Recents(), QStringList({"a", "b", "c", "d", ""}));
}

TEST(FichierRecent, OfTwoEqualPathsTheLowerOneIsRemoved)
{
    Mettre({"a", "b", "c", "b", "e"});
    RetirerRecent("b");
    EXPECT_EQ(Recents(), QStringList({"a", "b", "c", "e", ""}));
}

TEST(FichierRecent, AMenuShowsEverySlotByItself)
{
    Mettre({"a", "", "c"});
    Menu menu;
    MajMenuRecents(menu);
    EXPECT_EQ(menu.items, (std::map<int, QString>{{0, "a"}, {1, ""}, {2, "c"}, {3, ""}, {4, ""}}));
    EXPECT_TRUE(menu.barre);
    Mettre({});
    MajMenuRecents(menu);
    EXPECT_FALSE(menu.barre);
}
