#include "entries/OperationsEntrees.h"
#include "SelectionDeTest.h"

#include "base/Avancement.h"
#include "support/CadreDeTest.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A frame with two windows: operations act on the first one, the second one is in front.
class OperationsEntrees : public testing::Test
{
protected:
    OperationsEntrees() : m_avant(InstallerCadre(&m_cadre))
    {
        doc.TmpFolder = dossier.Chemin();
        MettreColonnes(table, {"Titre", "Artiste", "Genre"});
        AjouterEntrees(table, {{"a", "1", "x"}, {"b", "2", "y"}, {"c", "3", "z"}});
    }
    ~OperationsEntrees() override { InstallerCadre(m_avant); }

    void Modifier(const SaisieEntree& saisie)
    {
        SansAvancement sans;
        ModifierSelection(fenetre, saisie, sans);
    }
    QStringList TextesDesColonnes() const
    {
        QStringList textes;
        for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
            textes.append(table.ColumnHeaders(i).Tag());
        return textes;
    }

    CadreDeTest m_cadre;
    Cadre* m_avant;
    FenetreDeTest& fenetre = dynamic_cast<FenetreDeTest&>(m_cadre.NouvelleFenetre());
    FenetreDeTest& devant = dynamic_cast<FenetreDeTest&>(m_cadre.NouvelleFenetre());
    Categorie& doc = fenetre.myqrt;
    MyLV& table = fenetre.table;
    DossierDeTest dossier;
};

} // namespace

// ---- many entries

TEST_F(OperationsEntrees, ValuesThatWereTypedGoIntoEverySelectedEntry)
{
    Choisir(table, {1, 3});
    Modifier({{"neuf", "", "jazz"}, {}, {}});
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"neuf", "b", "neuf"}));
    EXPECT_EQ(ColonneDe(table, 2), QStringList({"1", "2", "3"})) << "an empty field is no change";
    EXPECT_EQ(ColonneDe(table, 3), QStringList({"jazz", "y", "jazz"}));
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(Choisies(table), QList<int>({1, 3}));
}

TEST_F(OperationsEntrees, CellsThatWereNotTypedStayUnwritten)
{
    table.ListItems.Add(0, "k4", "d");
    Choisir(table, {4});
    Modifier({{"", "4", ""}, {}, {}});
    EXPECT_EQ(table.ListItems(4).ListSubItems(1), u"4"_s);
    EXPECT_EQ(table.ListItems(4).ListSubItems(2), std::nullopt);
}

TEST_F(OperationsEntrees, WithNothingTypedOnlyTheDocumentCountsAsChanged)
{
    Choisir(table, {1, 2});
    table.ListItems(1).SetTag("a.jpg");
    Modifier({{"", "", ""}, {}, {}});
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "b", "c"}));
    EXPECT_EQ(table.ListItems(1).Tag(), "a.jpg") << "an image cannot be taken away from many";
    EXPECT_EQ(Choisies(table), QList<int>({1, 2}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(OperationsEntrees, TheDependantColumnIsOneLikeAnyOther)
{
    doc.dependantcol = 2;
    table.ListItems(2).SetSubItems(1, "1");
    Choisir(table, {1});
    Modifier({{"", "9", ""}, {}, {}});
    EXPECT_EQ(ColonneDe(table, 2), QStringList({"9", "1", "3"}));
}

TEST_F(OperationsEntrees, AnImageGoesToEverySelectedEntryAndIsShownInFront)
{
    const QString fichier = dossier.Ecrire("a.jpg", "image");
    Choisir(table, {1, 2});
    Modifier({{"", "", ""}, {}, "a.jpg"});
    EXPECT_EQ(table.ListItems(1).Tag(), "a.jpg");
    EXPECT_EQ(table.ListItems(2).Tag(), "a.jpg");
    EXPECT_EQ(table.ListItems(3).Tag(), "");
    EXPECT_EQ(table.ListItems(2).SmallIcon(), "ico");
    EXPECT_EQ(table.ListItems(3).SmallIcon(), "noico");
    EXPECT_EQ(devant.image, fichier);
    EXPECT_EQ(fenetre.image, "");
}

TEST_F(OperationsEntrees, AnImageThatHasVanishedMarksTheEntriesAndLeavesThePicture)
{
    devant.image = "avant";
    Choisir(table, {1, 2});
    Modifier({{"", "", ""}, {}, "partie.jpg"});
    EXPECT_EQ(table.ListItems(1).Tag(), "partie.jpg");
    EXPECT_EQ(table.ListItems(1).SmallIcon(), "icoerror");
    EXPECT_EQ(table.ListItems(2).SmallIcon(), "icoerror");
    EXPECT_EQ(devant.image, "avant");
}

TEST_F(OperationsEntrees, TheColumnsTakeTheirTexts)
{
    table.ColumnHeaders(1).SetTag("ancien");
    Modifier({{"", "", ""}, {"", "u|v", "w"}, {}});
    EXPECT_EQ(TextesDesColonnes(), QStringList({"", "u|v", "w"}));
}

TEST_F(OperationsEntrees, ManyEntriesKeepTheirPlacesInASortedTable)
{
    table.SetSorted(true);
    Choisir(table, {1});
    Modifier({{"z", "", ""}, {}, {}});
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"z", "b", "c"}));
    EXPECT_TRUE(table.Sorted());
}

TEST_F(OperationsEntrees, EditingManyTellsHowFarItHasCome)
{
    while (table.ListItems.Count() < 2 * Avancement::Pas)
        AjouterEntrees(table, {{"x"}});
    Choisir(table, {1});
    struct : Avancement
    {
        int appels = 0;
        void Dire(int, int total) override
        {
            ++appels;
            EXPECT_EQ(total, 2 * Pas);
        }
    } avancement;
    ModifierSelection(fenetre, {{"neuf", "", ""}, {}, {}}, avancement);
    EXPECT_EQ(avancement.appels, 2);
}

// ---- one more entry

TEST_F(OperationsEntrees, ANewEntryStandsLastWithAllItsValues)
{
    InscrireEntree(fenetre, {{"d", "", "jazz"}, {}, {}});
    const ListItem entree = table.ListItems(4);
    EXPECT_EQ(entree.Valeurs(), QStringList({"d", "", "jazz"}));
    EXPECT_EQ(entree.Key(), "k4");
    EXPECT_EQ(entree.Tag(), "");
    EXPECT_EQ(entree.SmallIcon(), "noico");
    EXPECT_EQ(entree.ListSubItems(1), QString()) << "an empty cell is written too";
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(OperationsEntrees, ANewEntryAloneIsSelectedHasTheFocusAndIsSeen)
{
    Choisir(table, {1, 2});
    InscrireEntree(fenetre, {{"d", "", ""}, {}, {}});
    EXPECT_EQ(Choisies(table), QList<int>({4}));
    EXPECT_EQ(table.SelectedItem(), table.ListItems(4));
    EXPECT_EQ(fenetre.ligneVisible, 4);
}

TEST_F(OperationsEntrees, ASortedTableIsUnsortedByANewEntry)
{
    table.SetSorted(true);
    InscrireEntree(fenetre, {{"A", "", ""}, {}, {}});
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "b", "c", "A"}));
    EXPECT_FALSE(table.Sorted());
}

TEST_F(OperationsEntrees, GapsInTheKeysAreClosedFirst)
{
    table.ListItems.Remove(1);
    ASSERT_EQ(ClesDe(table), QStringList({"k2", "k3"}));
    InscrireEntree(fenetre, {{"d", "", ""}, {}, {}});
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2", "k3"}));
}

TEST_F(OperationsEntrees, AnEmptyTableTakesItsFirstEntry)
{
    table.ListItems.Clear();
    InscrireEntree(fenetre, {{"", "", "z"}, {}, {}});
    EXPECT_EQ(table.ListItems(1).Valeurs(), QStringList({"", "", "z"}));
    EXPECT_EQ(table.ListItems(1).Key(), "k1");
}

TEST_F(OperationsEntrees, TheImageOfANewEntryIsShownInFront)
{
    const QString fichier = dossier.Ecrire("a.jpg", "image");
    InscrireEntree(fenetre, {{"d", "", ""}, {}, "a.jpg"});
    EXPECT_EQ(table.ListItems(4).Tag(), "a.jpg");
    EXPECT_EQ(table.ListItems(4).SmallIcon(), "ico");
    EXPECT_EQ(devant.image, fichier);
}

TEST_F(OperationsEntrees, WithoutAnImageThePictureInFrontIsCleared)
{
    devant.image = "avant";
    InscrireEntree(fenetre, {{"d", "", ""}, {}, {}});
    EXPECT_EQ(devant.image, "");
}

TEST_F(OperationsEntrees, AMissingImageMarksTheNewEntryAndClearsThePicture)
{
    devant.image = "avant";
    InscrireEntree(fenetre, {{"d", "", ""}, {}, "partie.jpg"});
    EXPECT_EQ(table.ListItems(4).Tag(), "partie.jpg");
    EXPECT_EQ(table.ListItems(4).SmallIcon(), "icoerror");
    EXPECT_EQ(devant.image, "");
}

TEST_F(OperationsEntrees, ANewEntryWritesTheTextsOfTheColumns)
{
    InscrireEntree(fenetre, {{"d", "", ""}, {"u|v", "", "w"}, {}});
    EXPECT_EQ(TextesDesColonnes(), QStringList({"u|v", "", "w"}));
}

TEST_F(OperationsEntrees, WithoutAFrameThereIsNoPictureToShow)
{
    Cadre* cadre = InstallerCadre(nullptr);
    InscrireEntree(fenetre, {{"d", "", ""}, {}, {}});
    InstallerCadre(cadre);
    EXPECT_EQ(table.ListItems.Count(), 4);
}

// ---- selection

TEST_F(OperationsEntrees, ToutDeselectionnerLeavesNoEntrySelected)
{
    Choisir(table, {1, 2, 3});
    ToutDeselectionner(table);
    EXPECT_EQ(Choisies(table), QList<int>());
    EXPECT_EQ(table.SelectedItem(), table.ListItems(1)) << "the focus stays";
}
