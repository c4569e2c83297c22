#include "catalogue/texte/Dependance.h"

#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Dependance : public testing::Test
{
protected:
    Dependance()
    {
        MettreColonnes(d.table, {"Titre", "Coffret", "Prêté"});
        AjouterEntrees(d.table, {{"Bleu", "coffret 1", "Paul"}});
    }
    QString Valeur(int colonne)
    {
        d.doc.dependantcol = colonne;
        return ValeurDependante(d.doc, d.table.ListItems(1));
    }

    DocumentDeTest d;
};

} // namespace

TEST_F(Dependance, TheValueIsThatOfTheColumnCountedFromOne)
{
    EXPECT_EQ(Valeur(1), "Bleu");
    EXPECT_EQ(Valeur(2), "coffret 1");
    EXPECT_EQ(Valeur(3), "Paul");
}

TEST_F(Dependance, ACellNeverWrittenIsEmpty)
{
    AjouterEntrees(d.table, {{"Rouge"}});
    d.doc.dependantcol = 2;
    EXPECT_EQ(ValeurDependante(d.doc, d.table.ListItems(2)), "");
}

TEST_F(Dependance, ANumberThatNamesNoColumnIsNoDependantColumn)
{
    for (const auto& [colonne, dependante] : {std::pair(-1, false), {0, false}, {1, true}, {3, true}, {4, false}}) {
        d.doc.dependantcol = colonne;
        EXPECT_EQ(EstDependante(d.doc), dependante) << colonne;
    }
}
