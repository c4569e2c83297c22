#include "output/Statistiques.h"

#include "platform/NomsSysteme.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

namespace {

class Statistiques : public testing::Test
{
protected:
    Statistiques()
    {
        d.doc.SetCheminReel("/ailleurs/été.qrt");
        MettreColonnes(d.table, {"Titre", "Cycle", "Prêté"});
        d.doc.IndexColPrete = 3;
    }

    void Preter(const QString& cycle, const QString& pret) { AjouterEntrees(d.table, {{"titre", cycle, pret}}); }

    /// What stands behind the head and the totals, which are these.
    QByteArray Emprunteurs(int entrees, int pretees) const
    {
        const QByteArray rapport = RapportDesPrets(d.doc).toUtf8();
        const QByteArray debut =
            Lignes({"Zelvane v2.2 by Morvenal", "^^^^^^^^^^^^^^", "___________________________________", "été.qrt",
                    "___________________________________", "", "[Total]",
                    "  Nombre d'entrées(sans dépendance):" + QByteArray::number(entrees),
                    "  Nombre d'entrées pretées(dépendance):" + QByteArray::number(pretees), ""});
        EXPECT_TRUE(rapport.startsWith(debut)) << rapport.toStdString();
        return rapport.sliced(std::min(debut.size(), rapport.size()));
    }

    static QByteArray Bloc(const QByteArray& nom, int nombre, const QByteArray& ancien, const QByteArray& recent)
    {
        return Lignes({"[" + nom + "]", "  Nb entrées prêtées(dépendance):" + QByteArray::number(nombre),
                       "  Date plus vieux prêt:" + ancien, "  Date du plus récent:" + recent});
    }

    DocumentDeTest d;
};

} // namespace

TEST_F(Statistiques, WithoutALoanThereAreTheHeadAndTheTotals)
{
    EXPECT_EQ(Emprunteurs(0, 0), "");
    Preter("a", "");
    EXPECT_EQ(Emprunteurs(1, 0), "");
}

TEST_F(Statistiques, BorrowersStandInTheOrderInWhichTheyAppear)
{
    Preter("", "Zoé - 01/02/2026");
    Preter("", "");
    Preter("", "Éric - 03/04/2026");
    Preter("", "Zoé - 05/06/2026");
    Preter("", "zoé - 07/08/2026");
    EXPECT_EQ(Emprunteurs(5, 4), Bloc("Zoé", 2, "01/02/2026", "05/06/2026") +
                                     Bloc("Éric", 1, "03/04/2026", "03/04/2026") +
                                     Bloc("zoé", 1, "07/08/2026", "07/08/2026"));
}

TEST_F(Statistiques, DatesCompareAsYearMonthAndDay)
{
    Preter("", "Zoé - 02/12/2025");
    Preter("", "Zoé - 03/01/2026");
    Preter("", "Zoé - 31/12/2024");
    Preter("", "Zoé - 01/02/2026");
    Preter("", "Zoé - 15/01/2026");
    EXPECT_EQ(Emprunteurs(5, 5), Bloc("Zoé", 5, "31/12/2024", "01/02/2026"));
}

TEST_F(Statistiques, OfEqualDatesTheFirstStays)
{
    Preter("", "Zoé - 1/1/11");
    Preter("", "Zoé - 11/1/1"); // the same key, "1111"
    EXPECT_EQ(Emprunteurs(2, 2), Bloc("Zoé", 2, "1/1/11", "1/1/11"));
}

TEST_F(Statistiques, DatesOfAnotherFormCompareAsTheirPartsCome)
{
    Preter("", "Zoé - été");
    Preter("", "Zoé - 2026-02-01");
    Preter("", "Zoé - 02/2026/x/y");
    EXPECT_EQ(Emprunteurs(3, 3), Bloc("Zoé", 3, "2026-02-01", "été"));
    EXPECT_EQ(CmpDate("01/02/2026"), "20260201");
    EXPECT_EQ(CmpDate("02/2026/x/y"), "x202602");
    EXPECT_EQ(CmpDate("02/2026"), "202602");
    EXPECT_EQ(CmpDate("été"), "été");
    EXPECT_EQ(CmpDate(""), "");
}

TEST_F(Statistiques, ALoanWithoutADateCountsAndLeavesTheDatesAlone)
{
    Preter("", "Zoé");
    EXPECT_EQ(Emprunteurs(1, 1), Bloc("Zoé", 1, "", ""));
    Preter("", "Zoé - 01/02/2026");
    Preter("", "Zoé");
    Preter("", "Zoé - ");
    Preter("", "Zoé-Anne");
    EXPECT_EQ(Emprunteurs(5, 5), Bloc("Zoé", 4, "01/02/2026", "01/02/2026") + Bloc("Zoé-Anne", 1, "", ""));
}

TEST_F(Statistiques, TheDateEndsWhereTheNextSeparatorStands)
{
    Preter("", "Zoé - 01/02/2026 - abîmé");
    Preter("", " - 03/02/2026");
    EXPECT_EQ(Emprunteurs(2, 2), Bloc("Zoé", 1, "01/02/2026", "01/02/2026") + Bloc("", 1, "03/02/2026", "03/02/2026"));
}

TEST_F(Statistiques, EntriesWithTheSameDependantValueAreOneLoanOfABorrower)
{
    d.doc.dependantcol = 2;
    Preter("Fondation", "Zoé - 01/02/2026");
    Preter("Fondation", "Zoé - 03/02/2026");
    Preter("fondation", "Zoé - 02/02/2026");
    Preter("Fondation", "Éric - 01/02/2026");
    Preter("", "Éric - 01/02/2026");
    Preter("", "Éric - 01/02/2026");
    EXPECT_EQ(Emprunteurs(6, 4),
              Bloc("Zoé", 2, "01/02/2026", "03/02/2026") + Bloc("Éric", 2, "01/02/2026", "01/02/2026"));
    d.doc.dependantcol = 0;
    EXPECT_EQ(Emprunteurs(6, 6),
              Bloc("Zoé", 3, "01/02/2026", "03/02/2026") + Bloc("Éric", 3, "01/02/2026", "01/02/2026"));
    d.doc.dependantcol = 99;
    EXPECT_EQ(Emprunteurs(6, 6),
              Bloc("Zoé", 3, "01/02/2026", "03/02/2026") + Bloc("Éric", 3, "01/02/2026", "01/02/2026"))
        << "a number of no column is none";
}

TEST_F(Statistiques, TheFirstColumnMayBeThatOfLoansAndTheDependantOne)
{
    d.doc.IndexColPrete = 1;
    AjouterEntrees(d.table, {{"Zoé - 01/02/2026"}});
    EXPECT_EQ(Emprunteurs(1, 1), Bloc("Zoé", 1, "01/02/2026", "01/02/2026"));
    d.doc.IndexColPrete = 3;
    d.doc.dependantcol = 1;
    Preter("", "Éric - 01/02/2026");
    Preter("", "Éric - 01/02/2026");
    EXPECT_EQ(Emprunteurs(3, 1), Bloc("Éric", 1, "01/02/2026", "01/02/2026"));
}

TEST_F(Statistiques, WithoutALoanColumnNothingIsLent)
{
    Preter("", "Zoé - 01/02/2026");
    d.doc.IndexColPrete = -1;
    EXPECT_EQ(Emprunteurs(1, 0), "");
}

TEST_F(Statistiques, EntriesOfTheFileAreReadAsTheyLie)
{
    TexteDeCatalogue texte;
    texte.colonnes = {"Titre|1000|", "Cycle|1000|", "Prêté|600|"};
    texte.entrees = {"a|x|Éric - 01/02/2026|", "b|x|Éric - 03/02/2026|", "court"};
    d.Charger(texte.Texte());
    d.doc.dependantcol = 2;
    d.table.ListItems(1).SetText("b"); // one is typed, the other is not
    EXPECT_EQ(Emprunteurs(3, 1), Bloc("Éric", 1, "01/02/2026", "03/02/2026"));
}

TEST_F(Statistiques, ThereIsRoomForAHundredAndOneBorrowersAndTheLastLineTellsOfMore)
{
    QByteArray blocs;
    for (int i = 1; i <= 101; ++i) {
        const QString nom = QString("Nom %1").arg(i);
        Preter(nom, nom + " - 01/02/2026");
        blocs += Bloc(nom.toUtf8(), 1, "01/02/2026", "01/02/2026");
    }
    EXPECT_EQ(Emprunteurs(101, 101), blocs);
    Preter("a", "Trop - 01/02/2026");
    Preter("b", "Trop - 01/02/2026");
    EXPECT_EQ(Emprunteurs(103, 103), blocs + "Emprunteurs qui n'ont pas trouvé place dans ce rapport : 1\r\n");
    Preter("b", "Trop encore - 01/02/2026");
    d.doc.dependantcol = 2;
    Preter("b", "Trop - 01/02/2026");
    EXPECT_EQ(Emprunteurs(105, 104), blocs + "Emprunteurs qui n'ont pas trouvé place dans ce rapport : 2\r\n");
}

TEST_F(Statistiques, AFileNameThatIsNoUtf8IsReadable)
{
    d.doc.SetCheminReel(CheminDesOctets("/\xE9t\xE9.qrt"));
    EXPECT_EQ(Emprunteurs(0, 0), "");
}
