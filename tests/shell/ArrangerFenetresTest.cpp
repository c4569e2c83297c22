// The windows in the frame: how they are arranged, and how they come by a drop.
#include "CadreEnFenetre.h"

#include <QDropEvent>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

class ArrangerFenetresTest : public CadreEnFenetre
{
protected:
    void Deposer(const QList<QUrl>& adresses)
    {
        QMimeData donnees;
        donnees.setUrls(adresses);
        const QPoint ici = Zone().geometry().center();
        QDragEnterEvent entree(ici, Qt::CopyAction, &donnees, Qt::LeftButton, {});
        QApplication::sendEvent(cadre.get(), &entree);
        if (!entree.isAccepted())
            return;
        QDropEvent depot(ici, Qt::CopyAction, &donnees, Qt::LeftButton, {});
        QApplication::sendEvent(cadre.get(), &depot);
        EXPECT_TRUE(cadre->Documents().empty()) << "files are opened once the drop is over";
        Laisser();
    }
};

} // namespace

TEST_F(ArrangerFenetresTest, TheWindowMenuIsThereWithDocumentsOnly)
{
    Montrer();
    QAction* menu = cadre->findChild<QMenu*>(u"mFenetre"_s)->menuAction();
    EXPECT_FALSE(menu->isVisible());
    Form1& a = Ouvrir(u"a.qrt"_s);
    EXPECT_TRUE(menu->isVisible());
    a.Decharger();
    Laisser();
    EXPECT_FALSE(menu->isVisible());
}

TEST_F(ArrangerFenetresTest, MosaicsShareTheWholeAreaOut)
{
    Montrer();
    const QList<const Form1*> fenetres = {&Ouvrir(u"a.qrt"_s), &Ouvrir(u"b.qrt"_s), &Ouvrir(u"c.qrt"_s)};
    const QRect place(QPoint(), Zone().viewport()->size());
    Menu(u"mMosaiqueHorizontale"_s).trigger();
    QRegion couvert;
    for (int i = 0; i < 3; ++i) {
        const QRect ici = fenetres[i]->parentWidget()->geometry();
        EXPECT_EQ(ici.width(), place.width());
        EXPECT_FALSE(couvert.intersects(ici));
        couvert += ici;
    }
    EXPECT_EQ(couvert, QRegion(place));
    EXPECT_LT(fenetres[0]->parentWidget()->y(), fenetres[2]->parentWidget()->y());

    Menu(u"mMosaiqueVerticale"_s).trigger();
    couvert = QRegion();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(fenetres[i]->parentWidget()->height(), place.height());
        couvert += fenetres[i]->parentWidget()->geometry();
    }
    EXPECT_EQ(couvert, QRegion(place));
    EXPECT_LT(fenetres[0]->parentWidget()->x(), fenetres[2]->parentWidget()->x());
}

TEST_F(ArrangerFenetresTest, AMosaicLeavesReducedWindowsAlone)
{
    EcrireOption(u"SizeForm1"_s, 0);
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    a.parentWidget()->showMinimized();
    Menu(u"mMosaiqueHorizontale"_s).trigger();
    EXPECT_TRUE(a.parentWidget()->isMinimized());
    EXPECT_EQ(b.parentWidget()->size(), Zone().viewport()->size());
}

TEST_F(ArrangerFenetresTest, ACascadeStepsToTheRightAndDown)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    Menu(u"mEnCascade"_s).trigger();
    EXPECT_FALSE(a.parentWidget()->isMaximized());
    EXPECT_NE(a.parentWidget()->pos(), b.parentWidget()->pos());
    EXPECT_GT(b.parentWidget()->x(), a.parentWidget()->x());
    EXPECT_GT(b.parentWidget()->y(), a.parentWidget()->y());
    EXPECT_GT(a.parentWidget()->width(), Zone().width() / 2);
    EXPECT_TRUE(Zone().viewport()->rect().contains(b.parentWidget()->geometry()));
    EXPECT_EQ(cadre->FenetreActive(), &b);
}

TEST_F(ArrangerFenetresTest, AllWindowsAreReducedLinedUpAndRestored)
{
    Montrer();
    const QList<const Form1*> fenetres = {&Ouvrir(u"a.qrt"_s), &Ouvrir(u"b.qrt"_s), &Ouvrir(u"c.qrt"_s)};
    Menu(u"mMinimiserTout"_s).trigger();
    Laisser();
    for (const Form1* fenetre : fenetres) {
        EXPECT_TRUE(fenetre->parentWidget()->isMinimized());
        fenetre->parentWidget()->move(40, 40);
    }
    Menu(u"mArrangeIcones"_s).trigger();
    QRegion couvert;
    for (const Form1* fenetre : fenetres) {
        EXPECT_EQ(fenetre->parentWidget()->geometry().bottom(), Zone().viewport()->rect().bottom());
        EXPECT_FALSE(couvert.intersects(fenetre->parentWidget()->geometry()));
        couvert += fenetre->parentWidget()->geometry();
    }
    Menu(u"mRestaurerTout"_s).trigger();
    for (const Form1* fenetre : fenetres) {
        EXPECT_FALSE(fenetre->parentWidget()->isMinimized());
        EXPECT_FALSE(fenetre->parentWidget()->isMaximized());
    }
}

// ---- Files dropped on the frame

TEST_F(ArrangerFenetresTest, FilesThatAreDroppedOpenAndAreRecent)
{
    Montrer();
    const QString a = Fichier(u"a.qrt"_s), b = Fichier(u"b.qrt"_s);
    Deposer({QUrl::fromLocalFile(a), QUrl::fromLocalFile(b)});
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"b.qrt"_s}));
    EXPECT_EQ(Recent(0).data().toString(), b);
    EXPECT_EQ(Recent(1).data().toString(), a);
}

TEST_F(ArrangerFenetresTest, AFileThatIsNoCatalogueIsToldWhenItIsDropped)
{
    Montrer();
    Deposer({QUrl::fromLocalFile(dossier.Ecrire(u"lettre.txt"_s, "Bonjour"))});
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg50"_s});
}

TEST_F(ArrangerFenetresTest, WhatIsNoFileCannotBeDropped)
{
    Montrer();
    Deposer({QUrl(u"https://example.org/a.qrt"_s)});
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_TRUE(cadre->Documents().empty());
}
