#include "entries/frmDragAndDrop.h"

#include "support/Accessibilite.h"
#include "support/GardeModale.h"
#include "support/PlateformeDeTest.h"
#include "vue/VueDesLignes.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FrmDragAndDropTest : public testing::Test
{
protected:
    FrmDragAndDropTest() { Montrer(Correspondre({"A", "B", "C", "D"}, {"w", "x", "y"})); }

    void Montrer(const Correspondance& rangs)
    {
        form = std::make_unique<frmDragAndDrop>(rangs);
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    VueDesLignes& Vue() const { return *form->findChild<VueDesLignes*>(u"ListView1"_s); }
    QPushButton& Bouton(const char* nom) const { return *form->findChild<QPushButton*>(QString::fromLatin1(nom)); }
    /// Button 1 moves up, button 2 down.
    QToolButton& DeBarre(int numero) const
    {
        auto& barre = *form->findChild<QToolBar*>(u"Toolbar1"_s);
        return *qobject_cast<QToolButton*>(barre.widgetForAction(barre.actions().at(numero - 1)));
    }
    void Monter() const { QTest::mouseClick(&DeBarre(1), Qt::LeftButton); }
    void Descendre() const { QTest::mouseClick(&DeBarre(2), Qt::LeftButton); }
    QPoint Milieu(int ligne, int colonne = 1) const
    {
        return Vue().visualRect(Vue().model()->index(ligne - 1, colonne - 1)).center();
    }
    void Cliquer(int ligne, Qt::KeyboardModifiers avec = Qt::NoModifier) const
    {
        QTest::mouseClick(Vue().viewport(), Qt::LeftButton, avec, Milieu(ligne));
    }
    void Appuyer(int ligne, int colonne = 1) const
    {
        QTest::mousePress(Vue().viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(ligne, colonne));
    }
    void Bouger(const QPoint& point) const
    {
        QMouseEvent event(QEvent::MouseMove, point, Vue().viewport()->mapToGlobal(point), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(Vue().viewport(), &event);
    }
    void Lacher(int ligne, int colonne = 1) const
    {
        QTest::mouseRelease(Vue().viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(ligne, colonne));
    }
    /// What is seen on the left, and the same of what the caller reads; the right stands as it stood.
    QString Departs() const
    {
        QCoreApplication::processEvents();
        QStringList vus;
        for (int i = 0; i < Vue().model()->rowCount(); ++i) {
            vus.append(Vue().model()->index(i, 0).data().toString());
            EXPECT_EQ(Vue().model()->index(i, 1).data().toString(), form->Rangs().arrivees[i]);
        }
        EXPECT_EQ(form->Rangs().departs, vus);
        return vus.join(u' ');
    }
    std::vector<std::pair<int, int>> Choisies() const { return Vue().PlagesChoisies(); }
    static std::vector<std::pair<int, int>> Seule(int ligne) { return {{ligne, ligne}}; }

    std::unique_ptr<frmDragAndDrop> form;
};

} // namespace

// ---- what it shows

TEST_F(FrmDragAndDropTest, ShowsTheRowsInTwoColumns)
{
    EXPECT_EQ(Vue().Colonnes().Count(), 2);
    EXPECT_EQ(Vue().Colonnes()(1).Text(), u"Départ"_s);
    EXPECT_EQ(Vue().Colonnes()(2).Text(), u"Arrivée"_s);
    EXPECT_EQ(Departs(), "(1)A (2)B (3)C (4)D");
    EXPECT_EQ(form->Rangs().arrivees, QStringList({"(1)w", "(2)x", "(3)y", "<perdu>"}));
    EXPECT_FALSE(Vue().horizontalHeader()->sectionsClickable()) << "a sort would tear the rows apart";
    EXPECT_GT(Vue().columnWidth(0) + Vue().columnWidth(1), Vue().viewport()->width() * 3 / 4);
    EXPECT_EQ(Vue().horizontalScrollBar()->maximum(), 0) << "both columns are seen whole";
}

TEST_F(FrmDragAndDropTest, TheControlsHaveTheirTextsAndPictures)
{
    EXPECT_EQ(form->findChild<QLabel*>(u"Label1"_s)->text(),
              u"Reordonnez les colonnes pour que le contenu de la catégorie de départ ce retrouve à la bonne place "
              u"dans la catégorie de destination."_s);
    EXPECT_EQ(DeBarre(1).toolTip(), "Deplacer la colonne vers le haut");
    EXPECT_EQ(DeBarre(1).defaultAction()->objectName(), "up");
    EXPECT_EQ(DeBarre(2).toolTip(), "Deplacer la colonne vers le bas");
    EXPECT_EQ(DeBarre(2).defaultAction()->objectName(), "down");
    EXPECT_EQ(Bouton("btOK").text().remove(u'&'), "Valider");
    EXPECT_EQ(Bouton("btAnnuler").text().remove(u'&'), "Annuler");
    for (const QAbstractButton* bouton :
         {static_cast<QAbstractButton*>(&Bouton("btOK")), static_cast<QAbstractButton*>(&Bouton("btAnnuler")),
          static_cast<QAbstractButton*>(&DeBarre(1)), static_cast<QAbstractButton*>(&DeBarre(2))})
        EXPECT_FALSE(bouton->icon().isNull()) << bouton->text().toStdString();
    EXPECT_TRUE(Bouton("btOK").isDefault());
    EXPECT_EQ(form->focusWidget(), &Vue());
    EXPECT_EQ(ControlesSansNom(*form), QStringList());
}

TEST_F(FrmDragAndDropTest, NothingIsSelectedAtFirst)
{
    EXPECT_TRUE(Choisies().empty());
    Monter();
    Descendre();
    QTest::keyClick(&Vue(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Departs(), "(1)A (2)B (3)C (4)D");
    EXPECT_TRUE(Choisies().empty());
}

// ---- moving

TEST_F(FrmDragAndDropTest, UpAndDownMoveTheLeftCellAndTheSelection)
{
    Cliquer(2);
    Monter();
    EXPECT_EQ(Departs(), "(2)B (1)A (3)C (4)D");
    EXPECT_EQ(Choisies(), Seule(1));
    Descendre();
    Descendre();
    EXPECT_EQ(Departs(), "(1)A (3)C (2)B (4)D");
    EXPECT_EQ(Choisies(), Seule(3));
}

TEST_F(FrmDragAndDropTest, UpOnTheFirstRowAndDownOnTheLastDoNothing)
{
    Cliquer(1);
    Monter();
    EXPECT_EQ(Choisies(), Seule(1));
    Cliquer(4);
    Descendre();
    EXPECT_EQ(Departs(), "(1)A (2)B (3)C (4)D");
    EXPECT_EQ(Choisies(), Seule(4));
}

TEST_F(FrmDragAndDropTest, OfSeveralRowsTheFirstMoves)
{
    Cliquer(2);
    Cliquer(4, Qt::ControlModifier);
    Monter();
    EXPECT_EQ(Departs(), "(2)B (1)A (3)C (4)D");
    EXPECT_EQ(Choisies(), (std::vector<std::pair<int, int>>{{1, 1}, {4, 4}}));
}

TEST_F(FrmDragAndDropTest, TheKeyboardAloneDoes)
{
    QTest::keyClick(&Vue(), Qt::Key_Down);
    EXPECT_EQ(Choisies(), Seule(1)) << "the row with the focus comes first";
    QTest::keyClick(&Vue(), Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(&Vue(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Departs(), "(2)B (3)C (1)A (4)D");
    QTest::keyClick(&Vue(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Departs(), "(2)B (1)A (3)C (4)D");
    QTest::keyClick(&Vue(), Qt::Key_Down);
    EXPECT_EQ(Choisies(), Seule(3)) << "the focus went along";
    QTest::keyClick(&Vue(), Qt::Key_Tab);
    EXPECT_EQ(form->focusWidget(), &DeBarre(1));
    QTest::keyClick(&DeBarre(1), Qt::Key_Space);
    EXPECT_EQ(Departs(), "(2)B (3)C (1)A (4)D");
    QTest::keyClick(&DeBarre(1), Qt::Key_Tab);
    EXPECT_EQ(form->focusWidget(), &DeBarre(2));
    QTest::keyClick(&DeBarre(2), Qt::Key_Tab);
    EXPECT_EQ(form->focusWidget(), &Bouton("btOK"));
    QTest::keyClick(&Bouton("btOK"), Qt::Key_Return);
    EXPECT_TRUE(form->Valide);
}

TEST_F(FrmDragAndDropTest, ALeftCellIsDraggedToAnotherRow)
{
    Appuyer(1);
    Bouger(Milieu(2));
    EXPECT_EQ(Departs(), "(2)B (1)A (3)C (4)D") << "it goes along with the pointer";
    Bouger(Milieu(4));
    Lacher(4);
    EXPECT_EQ(Departs(), "(2)B (3)C (4)D (1)A");
    EXPECT_EQ(Choisies(), Seule(4));
    Appuyer(3);
    Bouger(Milieu(1));
    Lacher(1);
    EXPECT_EQ(Departs(), "(4)D (2)B (3)C (1)A");
    EXPECT_EQ(Choisies(), Seule(1));
    Bouger(Milieu(3));
    EXPECT_EQ(Departs(), "(4)D (2)B (3)C (1)A") << "the button is up";
}

TEST_F(FrmDragAndDropTest, TheRowUnderThePointerIsDraggedWhateverIsSelected)
{
    Cliquer(1);
    Cliquer(3, Qt::ControlModifier);
    Appuyer(3);
    Bouger(Milieu(4));
    Lacher(4);
    EXPECT_EQ(Departs(), "(1)A (2)B (4)D (3)C");
}

TEST_F(FrmDragAndDropTest, EscapeTakesADraggedCellBack)
{
    Appuyer(1);
    Bouger(Milieu(3));
    QTest::keyClick(&Vue(), Qt::Key_Escape);
    EXPECT_EQ(Departs(), "(1)A (2)B (3)C (4)D");
    Bouger(Milieu(4));
    Lacher(4);
    EXPECT_EQ(Departs(), "(1)A (2)B (3)C (4)D");
    EXPECT_EQ(Choisies(), Seule(1));
    EXPECT_TRUE(form->isVisible());
    QTest::keyClick(&Vue(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmDragAndDropTest, RightCellsAreNotDragged)
{
    Appuyer(1, 2);
    Bouger(Milieu(3, 2));
    Lacher(3, 2);
    EXPECT_EQ(Departs(), "(1)A (2)B (3)C (4)D");
    EXPECT_EQ(Choisies(), (std::vector<std::pair<int, int>>{{1, 3}})) << "the pointer selects there";
}

TEST_F(FrmDragAndDropTest, BelowTheListTheRowsScrollByAndTheCellGoesAlong)
{
    QStringList titres;
    for (int i = 1; i <= 100; ++i)
        titres.append(QString::number(i));
    Montrer(Correspondre(titres, titres));
    Appuyer(2);
    Bouger(QPoint(Milieu(2).x(), Vue().viewport()->height() + 10));
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->Rangs().departs.last() == "(2)2"; }));
    EXPECT_EQ(form->Rangs().departs[1], "(3)3");
    EXPECT_EQ(Vue().verticalScrollBar()->value(), Vue().verticalScrollBar()->maximum());
}

// ---- leaving

TEST_F(FrmDragAndDropTest, ValideIsTheButtons)
{
    QTest::mouseClick(&Bouton("btAnnuler"), Qt::LeftButton);
    EXPECT_FALSE(form->Valide);
    EXPECT_FALSE(form->isVisible());
    form->show();
    form->close();
    EXPECT_FALSE(form->Valide);
    form->show();
    QTest::mouseClick(&Bouton("btOK"), Qt::LeftButton);
    EXPECT_TRUE(form->Valide);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmDragAndDropTest, AMillionRowsAreShown)
{
    const QStringList titres(1'000'000, u"t"_s);
    Montrer(Correspondre(titres, {}));
    QTest::keyClick(&Vue(), Qt::Key_End);
    QTest::keyClick(&Vue(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(form->Rangs().departs[999'998], "(1000000)t");
    EXPECT_EQ(form->Rangs().arrivees[999'999], "<perdu>");
}
