#include "ModeleDeGroupes.h"

#include "VueDeGroupes.h"

#include <QAbstractItemModelTester>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

Groupes UnGroupe(int taille, int groupes = 1)
{
    Groupes tous;
    std::vector<int> lignes(static_cast<size_t>(taille));
    for (int groupe = 0; groupe < groupes; ++groupe) {
        std::iota(lignes.begin(), lignes.end(), groupe * taille + 1);
        tous.Ajouter(lignes);
    }
    return tous;
}

class ModeleDeGroupesTest : public testing::Test
{
protected:
    ModeleDeGroupesTest() { controle.setUseFetchMore(false); }

    ModeleDeGroupes modele{{u"Titre"_s, u"Artiste"_s}, [this](int ligne) {
                               ++lectures;
                               return QStringList{u"t%1"_s.arg(ligne), QString(400, u'a')};
                           }};
    QAbstractItemModelTester controle{&modele, QAbstractItemModelTester::FailureReportingMode::Fatal};
    int lectures = 0;
};

} // namespace

TEST_F(ModeleDeGroupesTest, GroupsHaveTheirSizeAndTheValuesOfTheirFirst)
{
    modele.Montrer(UnGroupe(3, 2));
    ASSERT_EQ(modele.rowCount(), 2);
    const QModelIndex groupe = modele.index(1, 0);
    EXPECT_EQ(groupe.data().toString(), u"Groupe 2 : 3 entrées"_s);
    EXPECT_EQ(modele.index(1, 1).data().toString(), "t4");
    EXPECT_FALSE(groupe.data(Qt::CheckStateRole).isValid());
    const QModelIndex entree = modele.index(2, 0, groupe);
    EXPECT_EQ(entree.data().toString(), "6");
    EXPECT_EQ(entree.siblingAtColumn(1).data().toString(), "t6");
    EXPECT_EQ(entree.parent(), groupe);
    EXPECT_EQ(modele.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), u"Entrée"_s);
    EXPECT_EQ(modele.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "Artiste");
}

TEST_F(ModeleDeGroupesTest, LongCellsAreCutAndRowsAreReadOnce)
{
    modele.Montrer(UnGroupe(3));
    lectures = 0;
    const QModelIndex entree = modele.index(2, 2, modele.index(0, 0));
    EXPECT_EQ(entree.data().toString(), QString(ModeleDeGroupes::LettresMax, u'a') + u'…');
    EXPECT_EQ(entree.siblingAtColumn(1).data().toString(), "t3");
    EXPECT_EQ(lectures, 1);
}

TEST_F(ModeleDeGroupesTest, MarksAreSetAndTold)
{
    modele.Montrer(UnGroupe(3));
    int dits = 0;
    QObject::connect(&modele, &ModeleDeGroupes::CochesChangees, [&dits] { ++dits; });
    const QModelIndex entree = modele.index(2, 0, modele.index(0, 0));
    EXPECT_TRUE(modele.setData(entree, Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(entree.data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(modele.LesGroupes().LignesCochees(), std::vector<int>({3}));
    modele.Basculer(entree.siblingAtColumn(2));
    EXPECT_EQ(modele.LesGroupes().NbCoches(), 0);
    modele.Basculer(modele.index(0, 0));
    EXPECT_EQ(modele.LesGroupes().NbCoches(), 0);
    EXPECT_EQ(dits, 2);
}

TEST_F(ModeleDeGroupesTest, AMillionEntriesAreHandedOverBitByBit)
{
    modele.Montrer(UnGroupe(1000000));
    const QModelIndex groupe = modele.index(0, 0);
    EXPECT_EQ(modele.rowCount(groupe), ModeleDeGroupes::Tranche);
    ASSERT_TRUE(modele.AEncore(groupe));
    modele.Etendre(groupe);
    EXPECT_EQ(modele.rowCount(groupe), 2 * ModeleDeGroupes::Tranche);
    modele.CocherSauf(::Groupes::Gardee::Premiere);
    EXPECT_EQ(modele.LesGroupes().NbCoches(), 999999) << "also those that are not shown yet";
    EXPECT_LT(lectures, 100);
}

TEST_F(ModeleDeGroupesTest, TheViewGetsMoreBeforeItsUserComesToTheEnd)
{
    VueDeGroupes vue;
    vue.resize(400, 300);
    vue.setModel(&modele);
    vue.show();
    modele.Montrer(UnGroupe(1000, 3));
    QTest::qWait(0);
    const QModelIndex premier = modele.index(0, 0);
    EXPECT_TRUE(vue.isExpanded(premier));
    EXPECT_EQ(modele.rowCount(premier), ModeleDeGroupes::Tranche) << "its end is not seen";
    vue.setCurrentIndex(modele.index(0, 0, premier));
    // Down through all of the first group, as a user goes; the second one is reached only after its last entry.
    int pas = 0;
    while (vue.currentIndex().parent() == premier && ++pas < 2000) {
        QTest::keyClick(&vue, Qt::Key_Down);
        QTest::qWait(0);
    }
    EXPECT_EQ(pas, 1000);
    EXPECT_EQ(modele.rowCount(modele.index(2, 0)), ModeleDeGroupes::Tranche);
}

TEST_F(ModeleDeGroupesTest, TheViewGetsTheGroupsThatFollow)
{
    VueDeGroupes vue;
    vue.resize(400, 300);
    vue.setModel(&modele);
    vue.show();
    modele.Montrer(UnGroupe(2, 1000));
    QTest::qWait(0);
    EXPECT_EQ(modele.rowCount(), ModeleDeGroupes::Tranche);
    for (int i = 0; i < 10; ++i) {
        vue.verticalScrollBar()->setValue(vue.verticalScrollBar()->maximum());
        QTest::qWait(0);
    }
    EXPECT_EQ(modele.rowCount(), 1000);
    EXPECT_TRUE(vue.isExpanded(modele.index(999, 0)));
}

TEST_F(ModeleDeGroupesTest, TheSpaceBarMarksFromEveryColumn)
{
    VueDeGroupes vue;
    vue.setModel(&modele);
    vue.show();
    modele.Montrer(UnGroupe(3));
    vue.setCurrentIndex(modele.index(1, 2, modele.index(0, 0)));
    QTest::keyClick(&vue, Qt::Key_Space);
    EXPECT_EQ(modele.LesGroupes().LignesCochees(), std::vector<int>({2}));
    QTest::keyClick(&vue, Qt::Key_Space);
    EXPECT_EQ(modele.LesGroupes().NbCoches(), 0);
}
