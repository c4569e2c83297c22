#include "catalogue/table/MyLV.h"

#include <QList>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

using stockage::Codage;
using stockage::Drapeau;
using stockage::EntreeStockee;

namespace {

EntreeStockee EntreeDe(const QByteArray& tranche, int colonnes)
{
    return {tranche.constData(), static_cast<uint32_t>(tranche.size()), Codage::Cp1252, colonnes, 0};
}

/// "v0|v1|…" with so many fields.
QByteArray Champs(int nombre)
{
    QByteArray tranche;
    for (int i = 0; i < nombre; ++i)
        tranche += (i > 0 ? "|v" : "v") + QByteArray::number(i);
    return tranche;
}

/// A table of one entry. The bytes stay within reach, to be changed behind the table's back.
struct TableDUneTranche
{
    explicit TableDUneTranche(const QByteArray& tranche, int colonnes)
    {
        for (int i = 0; i < colonnes; ++i)
            table.ColumnHeaders.Add();
        Remplir(tranche, colonnes);
    }
    void Remplir(const QByteArray& tranche, int colonnes)
    {
        stockage::Source source;
        source.taille = static_cast<size_t>(tranche.size());
        source.octets = std::make_unique<char[]>(source.taille);
        source.colonnes = colonnes;
        octets = source.octets.get();
        std::memcpy(octets, tranche.constData(), source.taille);
        table.Remplir(std::move(source), {{0}, {static_cast<uint32_t>(tranche.size())}, {0}});
    }

    MyLV table;
    char* octets = nullptr;
};

} // namespace

TEST(VueDEntree, FindsEachFieldInWhateverOrderTheyAreAskedFor)
{
    const QByteArray tranche = "|a||bc|" + Champs(20) + "||";
    const QList<QByteArray> champs = tranche.split('|');
    const int nombre = static_cast<int>(champs.size());
    const EntreeStockee entree = EntreeDe(tranche, 1000);
    for (int avant = 0; avant <= nombre; ++avant) {
        for (int apres = 0; apres <= nombre; ++apres) {
            entree.Champ(avant);
            const stockage::Cellule champ = entree.Champ(apres);
            ASSERT_EQ(champ.existe, apres < nombre) << avant << " then " << apres;
            ASSERT_EQ(champ.octets(), QByteArrayView(champs.value(apres))) << avant << " then " << apres;
        }
    }
}

TEST(VueDEntree, KnowsItsImageWhateverWasReadBefore)
{
    const QByteArray tranche = "a|b|c|image.png|more";
    const EntreeStockee entree = EntreeDe(tranche, 3);
    for (const int champ : {0, 2, 1, 0}) {
        entree.Champ(champ);
        EXPECT_EQ(entree.Image().octets(), QByteArrayView("image.png"));
    }
    EXPECT_FALSE(EntreeDe("a|b|c", 3).Image().existe);
}

// Fields that were passed are not looked at again: their bars may change without being noticed. Reading an entry of
// many columns would cost the square of their number otherwise.

TEST(VueDEntree, LooksForTheNextFieldsFromTheOneAtHand)
{
    QByteArray tranche = Champs(200);
    const EntreeStockee entree = EntreeDe(tranche, 200);
    const auto lire = [&entree](int champ) { return entree.Champ(champ).Texte(); };
    EXPECT_EQ(lire(100), "v100");
    std::fill_n(tranche.data(), 100, 'x');
    EXPECT_EQ(lire(101), "v101");
    EXPECT_EQ(lire(199), "v199");
    EXPECT_EQ(lire(195), "v195");
    EXPECT_EQ(lire(150), "v150");
}

TEST(VueDEntree, LooksForWhatIsMissingOnce)
{
    QByteArray tranche = Champs(3);
    const EntreeStockee entree = EntreeDe(tranche, 1000);
    EXPECT_FALSE(entree.Champ(5).existe);
    tranche.fill('|');
    EXPECT_FALSE(entree.Champ(6).existe);
    EXPECT_FALSE(entree.Champ(999).existe);
}

TEST(VueDEntree, ReadsAllCellsInOnePass)
{
    const QByteArray tranche = Champs(100) + "|image.png";
    const stockage::Rangee rangee = EntreeDe(tranche, 100).Lire();
    ASSERT_EQ(rangee.cellules.size(), 100U);
    for (size_t i = 0; i < 100; ++i)
        EXPECT_EQ(rangee.cellules[i], 'v' + QString::number(i));
    EXPECT_EQ(rangee.image, "image.png");
}

TEST(MyLVLarge, TheCellsBesideTheOneReadLastAreLookedForFromThere)
{
    TableDUneTranche t(Champs(200), 200);
    EXPECT_EQ(t.table.ListItems(1).Valeur(101), "v100");
    std::fill_n(t.octets, 100, 'x');
    EXPECT_EQ(t.table.ListItems(1).Valeur(102), "v101");
    EXPECT_EQ(t.table.ListItems(1).Valeur(90), "v89");
}

TEST(MyLVLarge, NothingIsRememberedOfWhatWasThereBefore)
{
    TableDUneTranche t(Champs(100), 100);
    EXPECT_EQ(t.table.ListItems(1).Valeur(90), "v89");
    t.Remplir("a|b|" + Champs(100), 102);
    EXPECT_EQ(t.table.ListItems(1).Valeur(91), "v88");

    t.table.ListItems(1).SetSubItems(50, "neuf");
    EXPECT_EQ(t.table.ListItems(1).Valeur(51), "neuf");
    EXPECT_EQ(t.table.ListItems(1).Valeur(52), "v49");
}

TEST(BlocAvecCellule, IsTheBlockOfTheEntryWithThatTextInThatCell)
{
    const auto relire = [](const stockage::EntreeStockee& entree, int cellule, const QByteArray& utf8) {
        char* bloc = stockage::BlocAvecCellule(entree, cellule, utf8);
        const stockage::Rangee lue =
            stockage::EntreeStockee(bloc, 0, stockage::Codage::Utf8, 0, stockage::EnBloc).Lire();
        stockage::LibererBloc(bloc);
        return lue;
    };
    const auto attendre = [&relire](const stockage::EntreeStockee& entree) {
        for (int cellule = 0; cellule < 5; ++cellule) {
            stockage::Rangee attendue = entree.Lire();
            if (attendue.cellules.size() <= static_cast<size_t>(cellule))
                attendue.cellules.resize(static_cast<size_t>(cellule) + 1);
            attendue.cellules[static_cast<size_t>(cellule)] = QStringLiteral("neuf é");
            const stockage::Rangee lue = relire(entree, cellule, "neuf \xC3\xA9");
            EXPECT_EQ(lue.cellules, attendue.cellules) << cellule;
            EXPECT_EQ(lue.image, attendue.image) << cellule;
        }
    };
    for (const char* tranche : {"", "a", "a|b", "a|\xE9|c|\xE9.png", "||", "a|b|c|i.png|x|y"}) {
        const QByteArray octets = tranche;
        attendre(EntreeDe(octets, 3));
    }
    char* bloc = stockage::NouveauBloc({{std::nullopt, QStringLiteral("b"), std::nullopt}, QStringLiteral("é.png")});
    attendre(stockage::EntreeStockee(bloc, 0, stockage::Codage::Utf8, 0, stockage::EnBloc));
    stockage::LibererBloc(bloc);
}
