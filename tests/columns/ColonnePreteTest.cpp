#include "columns/ColonnePrete.h"

#include "support/TableDeTest.h"

#include <gtest/gtest.h>

namespace {

/// The number that is found, or what stands for none, and whether there is one.
std::pair<bool, int> Chercher(const QStringList& titres)
{
    DocumentDeTest document;
    MettreColonnes(document.table, titres);
    document.doc.IndexColPrete = 77;
    const bool trouvee = ChercherColPrete(document.doc);
    EXPECT_FALSE(document.doc.IlFautSauver);
    return {trouvee, document.doc.IndexColPrete};
}

} // namespace

TEST(ColonnePrete, IsTheOneOfThatTitleExactly)
{
    EXPECT_EQ(Chercher({"Titre", "Prêté", "Artiste"}), std::pair(true, 2));
    EXPECT_EQ(Chercher({"Prêté"}), std::pair(true, 1));
    EXPECT_EQ(Chercher({"prêté", "Prete", "Prêté "}), std::pair(false, -1));
    EXPECT_EQ(Chercher({}), std::pair(false, -1));
}

TEST(ColonnePrete, OfSeveralTheLastOneIsIt)
{
    EXPECT_EQ(Chercher({"Prêté", "Titre", "Prêté", "Artiste"}), std::pair(true, 3));
}
