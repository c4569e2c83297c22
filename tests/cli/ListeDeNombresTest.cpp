#include "cli/ListeDeNombres.h"

#include <gtest/gtest.h>

namespace {

std::optional<std::vector<bool>> Nommes(const QString& texte, int nombre)
{
    const std::optional<ListeDeNombres> liste = ListeDeNombres::Lire(texte);
    return liste ? liste->Parmi(nombre) : std::nullopt;
}

} // namespace

TEST(ListeDeNombres, IsASet)
{
    EXPECT_EQ(Nommes("2", 3), std::vector<bool>({false, true, false}));
    EXPECT_EQ(Nommes("1,3", 3), std::vector<bool>({true, false, true}));
    EXPECT_EQ(Nommes("3,1,1-1", 3), std::vector<bool>({true, false, true}));
    EXPECT_EQ(Nommes("2-4,3", 5), std::vector<bool>({false, true, true, true, false}));
}

TEST(ListeDeNombres, NamesNothingThatIsNotThere)
{
    EXPECT_TRUE(ListeDeNombres::Lire("0"));
    EXPECT_FALSE(Nommes("0", 3));
    EXPECT_FALSE(Nommes("4", 3));
    EXPECT_FALSE(Nommes("1-4", 3));
    EXPECT_FALSE(Nommes("1-2147483647", 3));
}

TEST(ListeDeNombres, IsNothingElse)
{
    for (const char* texte :
         {"", ",", "1,", "a", "1;2", "3-1", "-", "1-", "-1", "1-2-3", " 1", "+1", "1.5", "99999999999", "\xD9\xA1"})
        EXPECT_FALSE(ListeDeNombres::Lire(QString::fromUtf8(texte))) << texte;
}
