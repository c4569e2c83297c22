// What only a document's table has.
#include "VueDeTest.h"

#include "support/Impression.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

class VueTableTest : public VueDeTest
{
protected:
    int Largeur(int colonne) const { return vue.columnWidth(colonne - 1); }
};

} // namespace

TEST_F(VueTableTest, AClickOnATitleIsToldOnceTitlesAreClickable)
{
    Montrer(3);
    QSignalSpy cliquee(&vue, &VueTable::EnteteCliquee);
    const QPoint second(Largeur(1) + 30, 8);
    QTest::mouseClick(vue.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, second);
    EXPECT_EQ(cliquee.count(), 0);
    vue.horizontalHeader()->setSectionsClickable(true);
    QTest::mouseClick(vue.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, second);
    ASSERT_EQ(cliquee.count(), 1);
    EXPECT_EQ(cliquee[0][0].toInt(), 2);
    EXPECT_EQ(table.NombreDeSelectionnees(), 0);
}

TEST_F(VueTableTest, EachOfTwoQuickClicksOnATitleIsTold)
{
    Montrer(3);
    QSignalSpy cliquee(&vue, &VueTable::EnteteCliquee);
    QWidget* titres = vue.horizontalHeader()->viewport();
    const QPoint premier(30, 8);
    QTest::mouseDClick(titres, Qt::LeftButton, Qt::NoModifier, premier);
    EXPECT_EQ(cliquee.count(), 0);
    vue.horizontalHeader()->setSectionsClickable(true);
    QTest::mouseClick(titres, Qt::LeftButton, Qt::NoModifier, premier);
    QTest::mouseDClick(titres, Qt::LeftButton, Qt::NoModifier, premier);
    EXPECT_EQ(cliquee.count(), 2);
}

TEST_F(VueTableTest, KeysOfCommandsAreToldAndGoNoFurther)
{
    Montrer(3);
    QSignalSpy tapee(&vue, &VueTable::ToucheDeCommande);
    using Touche = VueTable::Touche;
    const QList<std::tuple<Qt::Key, Qt::KeyboardModifiers, Touche>> touches = {
        {Qt::Key_Return, Qt::NoModifier, Touche::Editer},
        {Qt::Key_Enter, Qt::KeypadModifier, Touche::Editer},
        {Qt::Key_Return, Qt::ShiftModifier, Touche::Voir},
        {Qt::Key_Delete, Qt::NoModifier, Touche::Supprimer},
        {Qt::Key_Delete, Qt::ControlModifier, Touche::Supprimer},
        {Qt::Key_Delete, Qt::ShiftModifier, Touche::Supprimer},
        {Qt::Key_Plus, Qt::KeypadModifier, Touche::Ajouter},
    };
    for (const auto& [touche, avec, commande] : touches) {
        tapee.clear();
        QKeyEvent appui(QEvent::KeyPress, touche, avec);
        QCoreApplication::sendEvent(&vue, &appui);
        ASSERT_EQ(tapee.count(), 1);
        EXPECT_EQ(tapee[0][0].value<Touche>(), commande);
        EXPECT_TRUE(appui.isAccepted());
    }
}

TEST_F(VueTableTest, InAnEmptyTableEnterIsTakenAndTellsNothing)
{
    Montrer(0);
    QSignalSpy tapee(&vue, &VueTable::ToucheDeCommande);
    QKeyEvent appui(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(&vue, &appui);
    EXPECT_TRUE(appui.isAccepted());
    EXPECT_EQ(tapee.count(), 0);
}

TEST_F(VueTableTest, OtherModifiersMakeOtherKeys)
{
    Montrer(3);
    QSignalSpy tapee(&vue, &VueTable::ToucheDeCommande);
    Taper(Qt::Key_Return, Qt::ControlModifier);
    Taper(Qt::Key_Plus);
    Taper(Qt::Key_Plus, Qt::KeypadModifier | Qt::ShiftModifier);
    EXPECT_EQ(tapee.count(), 0);
}

TEST_F(VueTableTest, ACellIsWholeWhenItsTextIsDrawnToItsEnd)
{
    Montrer(1);
    const QString texte = u"Un titre"_s;
    table.ListItems(1).SetText(texte);
    QCoreApplication::processEvents();
    vue.resizeColumnToContents(0);
    EXPECT_TRUE(vue.EstEntiere(1, 1));
    vue.setColumnWidth(0, vue.columnWidth(0) - 3);
    EXPECT_FALSE(vue.EstEntiere(1, 1));
}
