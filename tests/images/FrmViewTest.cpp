#include "images/frmView.h"

#include "catalogue/table/MyLV.h"
#include "images/PanneauImage.h"
#include "kit/Couleurs.h"
#include "support/Accessibilite.h"
#include "support/DossierDeTest.h"
#include "support/TableDeTest.h"

#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FrmViewTest : public testing::Test
{
protected:
    FrmViewTest()
    {
        MettreColonnes(table, {"Titre", "Auteur"});
        AjouterEntrees(table, {{"A", "un"}, {"B", "deux"}, {"C", "trois"}});
        form.MyLV = &table;
        form.Dossier = dossier.Chemin();
    }
    void Montrer(int numero)
    {
        form.Numero = numero;
        form.show();
    }
    QPushButton& Bouton(const char* nom) const { return *form.findChild<QPushButton*>(QString::fromLatin1(nom)); }
    void Presser(const char* nom) const { QTest::mouseClick(&Bouton(nom), Qt::LeftButton); }
    QString Titre() const { return form.findChild<QLabel*>("Label1")->text(); }
    QScrollArea& Defilement() const { return *form.findChild<QScrollArea*>("Defilement"); }
    QPlainTextEdit& Text1() const { return *form.findChild<QPlainTextEdit*>("Text1"); }
    PanneauImage& Img() const { return *form.findChild<PanneauImage*>("Img"); }
    QString Actifs() const
    {
        QString actifs;
        for (const char* nom : {"btFirst", "btPrec", "btNext", "btLast"})
            actifs += Bouton(nom).isEnabled() ? u'1' : u'0';
        return actifs;
    }
    void Image(int numero, const QString& nom, QSize taille)
    {
        QImage image(taille, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(dossier.Fichier(nom), "BMP"));
        table.ListItems(numero).SetTag(nom);
    }
    void Rouler(QWidget& sur, int huitiemes)
    {
        const QPointF ici = sur.rect().center();
        QWheelEvent roulette(ici, sur.mapToGlobal(ici), {}, {0, huitiemes}, Qt::NoButton, Qt::NoModifier,
                             Qt::NoScrollPhase, false);
        QApplication::sendEvent(&sur, &roulette);
    }

    DossierDeTest dossier;
    MyLV table;
    frmView form;
};

} // namespace

TEST_F(FrmViewTest, ShowsTheEntryAndItsPlace)
{
    Montrer(2);
    EXPECT_EQ(form.windowTitle(), "(2 / 3)");
    EXPECT_EQ(Titre(), "B");
    EXPECT_EQ(Text1().toPlainText(), "<Auteur>\ndeux\n\n");
    EXPECT_EQ(Text1().font().family(), "Arial");
    EXPECT_TRUE(Text1().isReadOnly());
    EXPECT_TRUE(Img().Image().isNull());
}

TEST_F(FrmViewTest, ButtonsHaveTheirHintsAndNames)
{
    Montrer(2);
    EXPECT_EQ(Bouton("btFirst").toolTip(), "Premier");
    EXPECT_EQ(Bouton("btLast").toolTip(), "Dernier");
    EXPECT_EQ(Bouton("btAnnuler").toolTip(), "Fermer cette fenetre");
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

TEST_F(FrmViewTest, ButtonsWalkThroughTheTable)
{
    Montrer(1);
    EXPECT_EQ(Actifs(), "0011");
    Presser("btNext");
    EXPECT_EQ(Titre(), "B");
    EXPECT_EQ(Actifs(), "1111");
    Presser("btLast");
    EXPECT_EQ(Titre(), "C");
    EXPECT_EQ(form.windowTitle(), "(3 / 3)");
    EXPECT_EQ(Actifs(), "1100");
    Presser("btPrec");
    EXPECT_EQ(Titre(), "B");
    Presser("btFirst");
    EXPECT_EQ(Titre(), "A");
    EXPECT_EQ(Actifs(), "0011");
}

TEST_F(FrmViewTest, OneEntryLeavesNowhereToGo)
{
    table.ListItems.Retirer({2, 3});
    Montrer(1);
    EXPECT_EQ(form.windowTitle(), "(1 / 1)");
    EXPECT_EQ(Actifs(), "0000");
}

TEST_F(FrmViewTest, TheTablesOrderCounts)
{
    table.SetSorted(true);
    table.SetSortOrder(1);
    Montrer(1);
    EXPECT_EQ(Titre(), "C");
    Presser("btNext");
    EXPECT_EQ(Titre(), "B");
}

TEST_F(FrmViewTest, PositionsBeyondSixteenBitsAreShownToo)
{
    for (int i = 4; i <= 40000; ++i)
        table.ListItems.Add(0, u"k%1"_s.arg(i), QString::number(i));
    Montrer(32767);
    Presser("btNext");
    EXPECT_EQ(form.windowTitle(), "(32768 / 40000)");
    EXPECT_EQ(Titre(), "32768");
    Presser("btLast");
    EXPECT_EQ(form.Numero, 40000);
}

TEST_F(FrmViewTest, TheImageIsShownBesideTheText)
{
    Image(1, "a.bmp", {40, 30});
    Montrer(1);
    EXPECT_EQ(Img().Image().size(), QSize(40, 30));
    Presser("btNext");
    EXPECT_TRUE(Img().Image().isNull()) << "an entry without an image";
}

TEST_F(FrmViewTest, AnImageThatCannotBeShownLeavesThePanelEmpty)
{
    Image(1, "a.bmp", {40, 30});
    table.ListItems(2).SetTag("absente.bmp");
    dossier.Ecrire("cassee.bmp", "BM no more");
    table.ListItems(3).SetTag("cassee.bmp");
    Montrer(1);
    EXPECT_FALSE(Img().Image().isNull());
    Presser("btNext");
    EXPECT_TRUE(Img().Image().isNull()) << "missing";
    Presser("btFirst");
    Presser("btLast");
    EXPECT_TRUE(Img().Image().isNull()) << "broken";
}

TEST_F(FrmViewTest, AnImageOutsideTheFolderIsNotOpened)
{
    Image(1, "cat1.bmp", {40, 30});
    form.Dossier = dossier.Fichier("vide/");
    table.ListItems(1).SetTag("../cat1.bmp");
    Montrer(1);
    EXPECT_TRUE(Img().Image().isNull());
}

TEST_F(FrmViewTest, TheFocusIsOnTheButtonThatClosesAndItsKeysWalk)
{
    Montrer(2);
    QPushButton& annuler = Bouton("btAnnuler");
    EXPECT_EQ(form.focusWidget(), &annuler);
    QTest::keyClick(&annuler, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Titre(), "C");
    QTest::keyClick(&annuler, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Titre(), "C") << "at the end";
    QTest::keyClick(&annuler, Qt::Key_B, Qt::ControlModifier);
    QTest::keyClick(&annuler, Qt::Key_B, Qt::ControlModifier);
    QTest::keyClick(&annuler, Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(Titre(), "A") << "at the beginning";
    QTest::keyClick(&annuler, Qt::Key_N);
    QTest::keyClick(&annuler, Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Titre(), "A") << "other letters do nothing";
}

TEST_F(FrmViewTest, ArrowsAndPagesWalkToo)
{
    Montrer(1);
    QPushButton& annuler = Bouton("btAnnuler");
    const QList<std::pair<Qt::Key, QString>> chemin{{Qt::Key_Right, "B"},    {Qt::Key_Down, "C"},  {Qt::Key_Left, "B"},
                                                    {Qt::Key_Up, "A"},       {Qt::Key_End, "C"},   {Qt::Key_Home, "A"},
                                                    {Qt::Key_PageDown, "B"}, {Qt::Key_PageUp, "A"}};
    for (const auto& [touche, titre] : chemin) {
        QTest::keyClick(&annuler, touche);
        EXPECT_EQ(Titre(), titre);
    }
}

TEST_F(FrmViewTest, AButtonAtTheEndOfItsWayGivesTheFocusToTheOneThatCloses)
{
    Montrer(2);
    Bouton("btNext").setFocus();
    QTest::keyClick(&Bouton("btNext"), Qt::Key_Space);
    EXPECT_EQ(Titre(), "C");
    EXPECT_EQ(form.focusWidget(), &Bouton("btAnnuler"));
}

TEST_F(FrmViewTest, TheWheelWalksOverThePictureOnly)
{
    Montrer(1);
    Rouler(Img(), -120);
    EXPECT_EQ(Titre(), "B");
    Rouler(Img(), -60);
    EXPECT_EQ(Titre(), "B") << "half a step";
    Rouler(Img(), -60);
    EXPECT_EQ(Titre(), "C");
    Rouler(Img(), 240);
    EXPECT_EQ(Titre(), "A");
    Rouler(*Text1().viewport(), -120);
    EXPECT_EQ(Titre(), "A") << "the text scrolls";
}

TEST_F(FrmViewTest, ComingBackToTheFrontRedraws)
{
    Montrer(1);
    table.ListItems(1).SetText("Z");
    QEvent retour(QEvent::WindowActivate);
    QApplication::sendEvent(&form, &retour);
    EXPECT_EQ(Titre(), "Z");
}

TEST_F(FrmViewTest, WhatTheReaderMarkedSurvivesARedraw)
{
    Montrer(1);
    Text1().selectAll();
    form.Redraw();
    EXPECT_TRUE(Text1().textCursor().hasSelection());
}

TEST_F(FrmViewTest, TheDecorationIsAsWideAsTheForm)
{
    Montrer(1);
    form.resize(911, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.findChild<QFrame*>("Degrade")->width(), 911);
}

TEST_F(FrmViewTest, TheDecorationFadesIntoTheWindowAlsoOnceThatTurnedDark)
{
    Montrer(1);
    const auto fin = [this] {
        QCoreApplication::processEvents();
        return form.grab().toImage().pixelColor(form.width() - 1, 2);
    };
    MettreCouleurs(true);
    const QColor sombre = fin();
    MettreCouleurs(false);
    EXPECT_LT(sombre.lightness(), 80);
    EXPECT_GT(fin().lightness(), 200);
}

TEST_F(FrmViewTest, TheButtonEscapeAndEnterClose)
{
    Montrer(1);
    Presser("btAnnuler");
    EXPECT_FALSE(form.isVisible());
    form.show();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    form.show();
    QTest::keyClick(&Bouton("btAnnuler"), Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmViewTest, ALongTitleIsReadWholeAndDoesNotFillTheWindow)
{
    const QString titres[] = {u"mot "_s.repeated(500) + u"dernier"_s, QString(3000, u'x'), u"ligne\n"_s.repeated(40)};
    for (const QString& titre : titres) {
        form.hide();
        table.ListItems(1).SetText(titre);
        Montrer(1);
        QCoreApplication::processEvents();
        const auto* label = form.findChild<QLabel*>("Label1");
        QString texte = Titre();
        EXPECT_EQ(texte.remove(QChar(u'\u200B')), titre);
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << "nothing of it is cut off";
        EXPECT_LE(label->minimumSizeHint().width(), Defilement().viewport()->width());
        EXPECT_LT(Defilement().height(), 200);
        EXPECT_LT(form.height(), 700);

        Bouton("btAnnuler").setFocus();
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(form.focusWidget(), &Defilement());
        for (int i = 0; i < 100; ++i)
            QTest::keyClick(form.focusWidget(), Qt::Key_PageDown);
        EXPECT_EQ(Defilement().viewport()->rect().bottom(), label->geometry().bottom()) << "keys lead to its end";
        EXPECT_EQ(form.Numero, 1);
        EXPECT_EQ(ControlesSansNom(form), QStringList());
    }
}

TEST_F(FrmViewTest, ATitleGetsMoreLinesInANarrowerWindow)
{
    table.ListItems(1).SetText(u"mot "_s.repeated(30));
    Montrer(1);
    form.resize(1200, form.height());
    QCoreApplication::processEvents();
    const int large = Defilement().height();
    form.resize(500, form.height());
    QCoreApplication::processEvents();
    EXPECT_GT(Defilement().height(), large);
}

TEST_F(FrmViewTest, ATitleThatIsSeenWholeIsNoStopOfTab)
{
    Montrer(1);
    EXPECT_EQ(Defilement().verticalScrollBar()->maximum(), 0);
    QTest::keyClick(&Bouton("btAnnuler"), Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget(), &Text1());
}

TEST_F(FrmViewTest, EachTitleIsReadFromItsBeginning)
{
    table.ListItems(1).SetText(u"mot "_s.repeated(500));
    table.ListItems(2).SetText(u"autre "_s.repeated(500));
    Montrer(1);
    QCoreApplication::processEvents();
    Defilement().setFocus();
    QTest::keyClick(&Defilement(), Qt::Key_PageDown);
    const int lu = Defilement().verticalScrollBar()->value();
    EXPECT_GT(lu, 0);
    form.Redraw();
    EXPECT_EQ(Defilement().verticalScrollBar()->value(), lu) << "the same one stays where it is";
    Presser("btNext");
    EXPECT_EQ(Defilement().verticalScrollBar()->value(), 0);
    Defilement().setFocus();
    Rouler(Img(), -120);
    EXPECT_EQ(Titre(), "C");
    EXPECT_EQ(form.focusWidget(), &Bouton("btAnnuler")) << "a short one has nothing to scroll";
}

TEST_F(FrmViewTest, AnEndlessTitleDoesNotFillTheWindow)
{
    table.ListItems(1).SetText(QString(200000, u'x'));
    Montrer(1);
    EXPECT_LT(form.height(), 700);
}

TEST_F(FrmViewTest, AnEmptyTableShowsNothing)
{
    table.ListItems.Clear();
    Montrer(1);
    EXPECT_EQ(Titre(), "");
    EXPECT_EQ(Text1().toPlainText(), "");
}
