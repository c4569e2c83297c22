// A document's table: sorting, counts, clicks and keys.
#include "Form1EnFenetre.h"

#include "support/GardeModale.h"

#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

TEST_F(Form1Test, AClickOnTheSortedTitleTurnsTheOrderAndMarksIt)
{
    const Form1& fenetre = Ouvrir();
    CliquerTitre(fenetre, 1);
    EXPECT_EQ(Titres(fenetre), QStringList({"Takk", "Dummy", "Abbey Road"}));
    EXPECT_EQ(fenetre.myqrt.MyLV->ColumnHeaders(1).Icon(), "up");
    EXPECT_TRUE(fenetre.myqrt.IlFautSauver);
    EXPECT_FALSE(fenetre.ListView1().model()->headerData(0, Qt::Horizontal, Qt::DecorationRole).isNull());
    EXPECT_EQ(fenetre.ListView1().model()->index(0, 0).data().toString(), "Takk");

    CliquerTitre(fenetre, 1);
    EXPECT_EQ(Titres(fenetre), QStringList({"Abbey Road", "Dummy", "Takk"}));
    EXPECT_EQ(fenetre.myqrt.MyLV->ColumnHeaders(1).Icon(), "down");
    reponses.Preparer(RepNon);
    dynamic_cast<Form1&>(*cadre.Documents()[0]).Decharger();
}

TEST_F(Form1Test, RefreshingPutsAChangedEntryInItsPlaceAndShowsIt)
{
    QList<QByteArray> entrees;
    for (int i = 100; i < 300; ++i)
        entrees.append("Titre " + QByteArray::number(i) + "|");
    Form1& fenetre = Ouvrir(u"longue.qrt"_s, entrees);
    CliquerEntree(fenetre, 1);
    fenetre.myqrt.MyLV->ListItems(1).SetText(u"Z"_s);
    EXPECT_EQ(Titres(fenetre).first(), "Z");
    Commande(fenetre, u"mActualiser"_s).trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(Titres(fenetre).last(), "Z");
    EXPECT_TRUE(fenetre.ListView1().viewport()->rect().contains(Milieu(fenetre, 200)));
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

// ---- counts, clicks and keys

TEST_F(Form1Test, AClickOnAnEntryCountsIt)
{
    const Form1& fenetre = Ouvrir();
    CliquerEntree(fenetre, 2);
    EXPECT_EQ(Panneau(fenetre, 1), u"3 entrée(s)"_s);
    EXPECT_EQ(Panneau(fenetre, 2), u"1 selectionnée(s)"_s);
}

TEST_F(Form1Test, ADoubleClickShowsTheOneSelectedEntry)
{
    const Form1& fenetre = Ouvrir();
    const FermeModales ouvertes;
    CliquerEntree(fenetre, 2);
    QTest::mouseDClick(fenetre.ListView1().viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(fenetre, 2));
    EXPECT_EQ(ouvertes.fenetres, QStringList{u"frmView"_s});
}

TEST_F(Form1Test, ADoubleClickAmongSeveralSelectedEntriesShowsNone)
{
    const Form1& fenetre = Ouvrir();
    const QSignalSpy voir(&Commande(fenetre, u"mVoir"_s), &QAction::triggered);
    fenetre.ListView1().selectAll();
    QTest::mouseDClick(fenetre.ListView1().viewport(), Qt::LeftButton, Qt::ControlModifier, Milieu(fenetre, 2));
    EXPECT_EQ(voir.count(), 0);
}

TEST_F(Form1Test, KeysOfCommandsOpenTheirWindows)
{
    const Form1& fenetre = Ouvrir();
    const QList<std::tuple<Qt::Key, Qt::KeyboardModifiers, QString>> touches = {
        {Qt::Key_Return, Qt::NoModifier, u"frmEditEntree"_s},   {Qt::Key_Enter, Qt::KeypadModifier, u"frmEditEntree"_s},
        {Qt::Key_Return, Qt::ShiftModifier, u"frmView"_s},      {Qt::Key_Delete, Qt::NoModifier, u"frmSuppr"_s},
        {Qt::Key_Plus, Qt::KeypadModifier, u"frmEditEntree"_s},
    };
    CliquerEntree(fenetre, 1);
    for (const auto& [touche, avec, nom] : touches) {
        const FermeModales ouvertes;
        QTest::keyClick(&fenetre.ListView1(), touche, avec);
        EXPECT_EQ(ouvertes.fenetres, QStringList{nom}) << int(touche);
    }
}

TEST_F(Form1Test, ShiftAndEnterShowTheEntryWithTheFocusWhicheverIsSelected)
{
    const Form1& fenetre = Ouvrir();
    CliquerEntree(fenetre, 1);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Down, Qt::ControlModifier);
    ASSERT_EQ(Panneau(fenetre, 2), u"1 selectionnée(s)"_s);
    const GardeModale garde([](QWidget& form) {
        EXPECT_EQ(form.objectName(), "frmView");
        EXPECT_EQ(form.windowTitle(), "(2 / 3)");
        form.close();
    });
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Return, Qt::ShiftModifier);
}

TEST_F(Form1Test, APlusThatIsTypedIsNoCommand)
{
    const Form1& fenetre = Ouvrir();
    const QSignalSpy lancee(&Commande(fenetre, u"mEntree"_s), &QAction::triggered);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Plus);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Plus, Qt::KeypadModifier | Qt::ControlModifier);
    EXPECT_EQ(lancee.count(), 0);
}

TEST_F(Form1Test, AnyKeyReleasedRefreshesTheCounts)
{
    const Form1& fenetre = Ouvrir();
    fenetre.findChild<QLabel*>(u"StatusBar1_1"_s)->setText(u"?"_s);
    QTest::keyRelease(&fenetre.ListView1(), Qt::Key_F8);
    EXPECT_EQ(Panneau(fenetre, 1), u"3 entrée(s)"_s);
}

TEST_F(Form1Test, TheRightButtonPopsUpTheMenuOfTheSelectionAndRefreshesTheCounts)
{
    const Form1& fenetre = Ouvrir();
    CliquerEntree(fenetre, 1, Qt::RightButton);
    EXPECT_EQ(MenuSurgi(), "MenuClickDroit");
    EXPECT_EQ(Panneau(fenetre, 2), u"1 selectionnée(s)"_s);
}

TEST_F(Form1Test, WithNothingSelectedTheMenuIsTheShorterOne)
{
    const Form1& fenetre = Ouvrir();
    QWidget& vide = *fenetre.ListView1().viewport();
    CliquerEntree(fenetre, 1);
    QTest::mouseClick(&vide, Qt::RightButton, Qt::NoModifier, vide.rect().bottomLeft() + QPoint(20, -10));
    EXPECT_EQ(MenuSurgi(), "MenuClickDroit3");
    EXPECT_EQ(Panneau(fenetre, 2), u"0 selectionnée(s)"_s) << "the click below the entries takes the selection away";
}

TEST_F(Form1Test, SeveralSelectedEntriesKeepTheMenuOfOne)
{
    const Form1& fenetre = Ouvrir();
    fenetre.ListView1().selectAll();
    CliquerEntree(fenetre, 2, Qt::RightButton);
    EXPECT_EQ(MenuSurgi(), "MenuClickDroit");
    EXPECT_EQ(Panneau(fenetre, 2), u"3 selectionnée(s)"_s);
}

TEST_F(Form1Test, AKeyPopsUpTheMenuAtTheEntryWithTheFocus)
{
    const Form1& fenetre = Ouvrir();
    CliquerEntree(fenetre, 2);
    const QPoint place = fenetre.ListView1().viewport()->mapToGlobal(Milieu(fenetre, 2));
    QContextMenuEvent touche(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(&fenetre.ListView1(), &touche);
    ASSERT_TRUE(QApplication::activePopupWidget());
    EXPECT_LE((QApplication::activePopupWidget()->pos() - place).manhattanLength(), 4);
    EXPECT_EQ(MenuSurgi(), "MenuClickDroit");
}

TEST_F(Form1Test, ShiftAndF10PopUpTheMenuToo)
{
    const Form1& fenetre = Ouvrir();
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_F10);
    EXPECT_EQ(MenuSurgi(), "");
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(MenuSurgi(), "MenuClickDroit3");
}

TEST_F(Form1Test, AKeyPopsUpTheMenuInsideTheTableWhenTheFocusIsScrolledAway)
{
    QList<QByteArray> entrees;
    for (int i = 100; i < 300; ++i)
        entrees.append("Titre " + QByteArray::number(i) + "|");
    const Form1& fenetre = Ouvrir(u"longue.qrt"_s, entrees);
    CliquerEntree(fenetre, 1);
    fenetre.ListView1().scrollToBottom();
    QContextMenuEvent touche(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(&fenetre.ListView1(), &touche);
    ASSERT_TRUE(QApplication::activePopupWidget());
    const QWidget& vue = *fenetre.ListView1().viewport();
    EXPECT_TRUE(vue.rect().contains(vue.mapFromGlobal(QApplication::activePopupWidget()->pos())));
    EXPECT_EQ(MenuSurgi(), "MenuClickDroit");
}

TEST_F(Form1Test, TheSocketOfADocumentIsNeverOpened)
{
    const Form1& document = Ouvrir();
    EXPECT_EQ(document.findChild<QTcpSocket*>(u"wck_http"_s), document.wck_http);
    EXPECT_EQ(document.wck_http->state(), QAbstractSocket::UnconnectedState);
}
