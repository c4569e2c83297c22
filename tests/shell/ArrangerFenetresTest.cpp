// The windows in the frame: how they are arranged, and how they come by a drop.
#include "CadreEnFenetre.h"

#include "platform/NomsSysteme.h"
#include "shell/ArrangerFenetres.h"

#include <QDropEvent>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

class ArrangerFenetresTest : public CadreEnFenetre
{
protected:
    /// Drops files on a control of the frame.
    void Deposer(const QList<QUrl>& adresses, QWidget& cible)
    {
        QMimeData donnees;
        donnees.setUrls(adresses);
        const QPoint ici = cible.rect().center();
        QDragEnterEvent entree(ici, Qt::CopyAction, &donnees, Qt::LeftButton, {});
        QApplication::sendEvent(&cible, &entree);
        if (!entree.isAccepted())
            return;
        const size_t avant = cadre->Documents().size();
        QDropEvent depot(ici, Qt::CopyAction, &donnees, Qt::LeftButton, {});
        QApplication::sendEvent(&cible, &depot);
        EXPECT_EQ(cadre->Documents().size(), avant) << "files are opened once the drop is over";
        Laisser();
    }
    void Deposer(const QList<QUrl>& adresses) { Deposer(adresses, *cadre); }
    /// Whether the window is the one in front, and the one that is active.
    bool EstDevant(const Form1& fenetre) const
    {
        return cadre->FenetreActive() == &fenetre &&
               Zone().subWindowList(QMdiArea::StackingOrder).constLast() == fenetre.parentWidget();
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
        EXPECT_FALSE(fenetres[i]->parentWidget()->isMaximized()) << "as they came";
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

TEST(PlacesEnMosaique, ManyWindowsStandInSeveralColumnsOrRowsAndFillThePlace)
{
    constexpr QSize place(1003, 607), auMoins(200, 150);
    for (const Mosaique sens : {Mosaique::Horizontale, Mosaique::Verticale}) {
        for (int nombre = 1; nombre <= 40; ++nombre) {
            const QList<QRect> places = PlacesEnMosaique(place, nombre, sens, auMoins);
            ASSERT_EQ(places.size(), nombre);
            QRegion couvert;
            for (const QRect& ici : places) {
                EXPECT_FALSE(couvert.intersects(ici)) << nombre;
                couvert += ici;
                if (sens == Mosaique::Horizontale)
                    EXPECT_GE(ici.height(), auMoins.height()) << nombre;
                else
                    EXPECT_GE(ici.width(), auMoins.width()) << nombre;
            }
            EXPECT_EQ(couvert, QRegion(QRect(QPoint(), place))) << nombre;
        }
    }
    EXPECT_EQ(PlacesEnMosaique(place, 4, Mosaique::Horizontale, auMoins).last(), QRect(0, 455, 1003, 152));
    EXPECT_EQ(PlacesEnMosaique(place, 5, Mosaique::Horizontale, auMoins).last().left(), 501);
    EXPECT_EQ(PlacesEnMosaique(place, 5, Mosaique::Verticale, auMoins).last(), QRect(802, 0, 201, 607));
    EXPECT_EQ(PlacesEnMosaique(place, 0, Mosaique::Verticale, auMoins), QList<QRect>());
    EXPECT_EQ(PlacesEnMosaique(QSize(50, 30), 2, Mosaique::Horizontale, auMoins).size(), 2) << "a tiny frame";
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

TEST_F(ArrangerFenetresTest, ACascadeLeavesTheActiveWindowInFront)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    const Form1& c = Ouvrir(u"c.qrt"_s);
    cadre->AmenerDevant(a);
    Menu(u"mEnCascade"_s).trigger();
    EXPECT_TRUE(EstDevant(a));
    EXPECT_GT(a.parentWidget()->x(), c.parentWidget()->x());
    EXPECT_GT(c.parentWidget()->x(), b.parentWidget()->x());
}

TEST_F(ArrangerFenetresTest, EveryArrangementKeepsTheActiveWindow)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    cadre->AmenerDevant(a);
    for (const QString& nom :
         {u"mEnCascade"_s, u"mMosaiqueHorizontale"_s, u"mMosaiqueVerticale"_s, u"mArrangeIcones"_s}) {
        Menu(nom).trigger();
        Laisser();
        EXPECT_TRUE(EstDevant(a)) << nom.toStdString();
        EXPECT_EQ(Onglets().currentIndex(), 0) << nom.toStdString();
    }
}

TEST_F(ArrangerFenetresTest, WithoutADocumentThereIsNothingToArrange)
{
    Montrer();
    for (const QString& nom : {u"mEnCascade"_s, u"mMosaiqueHorizontale"_s, u"mMosaiqueVerticale"_s, u"mArrangeIcones"_s,
                               u"mMinimiserTout"_s, u"mRestaurerTout"_s})
        Menu(nom).trigger();
    EXPECT_EQ(cadre->FenetreActive(), nullptr);
    EXPECT_TRUE(cadre->isVisible());
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

TEST_F(ArrangerFenetresTest, FilesMayBeDroppedAnywhereOnTheFrame)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    Deposer({QUrl::fromLocalFile(Fichier(u"b.qrt"_s))}, *a.ListView1().viewport());
    Deposer({QUrl::fromLocalFile(Fichier(u"c.qrt"_s))}, Onglets());
    Deposer({QUrl::fromLocalFile(Fichier(u"d.qrt"_s))}, Barre(u"Toolbar1"_s));
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"b.qrt"_s, u"c.qrt"_s, u"d.qrt"_s}));
}

TEST_F(ArrangerFenetresTest, AFileWhoseNameIsNoUtf8MayBeDroppedToo)
{
    Montrer();
    const QString chemin = Fichier(CheminDesOctets("\xE9t\xE9.qrt"));
    Deposer({QUrl::fromEncoded("file://" + OctetsDuChemin(chemin).toPercentEncoding("/"))});
    ASSERT_EQ(cadre->Documents().size(), 1);
    EXPECT_EQ(cadre->Documents().front()->myqrt.CheminReel(), chemin);
}

TEST_F(ArrangerFenetresTest, OneFileAmongThoseDroppedThatFailsDoesNotKeepTheOthersOut)
{
    Montrer();
    Deposer({QUrl::fromLocalFile(Fichier(u"a.qrt"_s)), QUrl::fromLocalFile(dossier.Ecrire(u"lettre.txt"_s, "Bonjour")),
             QUrl::fromLocalFile(dossier.Chemin()), QUrl::fromLocalFile(Fichier(u"b.qrt"_s))});
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"b.qrt"_s}));
    EXPECT_EQ(reponses.Cles(), QStringList({u"msg50"_s, u"msgDossier"_s}));
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
