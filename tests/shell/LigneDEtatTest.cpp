// What a document's window tells of its state: the status line, the mark on its tab, the list of windows.
#include "Form1EnFenetre.h"

#include "shell/BandeOnglets.h"

#include <QAccessible>
#include <QMenu>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

class LigneDEtatTest : public Form1Test
{
protected:
    static QLabel& Etat(const Form1& fenetre, const char* nom)
    {
        return *fenetre.findChild<QLabel*>(u"StatusBar1_"_s + QLatin1StringView(nom));
    }
    BandeOnglets& Onglets() const { return *cadre.findChild<BandeOnglets*>(); }
    /// What a click on the menu shows.
    static QList<QAction*> Fenetres(const Form1& fenetre)
    {
        auto* menu = fenetre.findChild<QMenu*>(u"mFenetre"_s);
        menu->popup(QPoint(0, 0));
        QList<QAction*> items;
        for (QAction* item : menu->actions())
            if (item->objectName().isEmpty() && !item->isSeparator())
                items.append(item);
        menu->hide();
        return items;
    }
};

} // namespace

TEST_F(LigneDEtatTest, TellsWhereTheUserIs)
{
    const Form1& fenetre = Ouvrir();
    CliquerEntree(fenetre, 2);
    EXPECT_EQ(Etat(fenetre, "Place").text(), "2 / 3");
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Down);
    EXPECT_EQ(Etat(fenetre, "Place").text(), "3 / 3");
    EXPECT_FALSE(Etat(fenetre, "Place").toolTip().isEmpty());
    EXPECT_EQ(Etat(Ouvrir(u"vide.qrt"_s, {}), "Place").text(), "0 / 0");
}

TEST_F(LigneDEtatTest, TellsTheColumnAndTheDirectionOfTheSort)
{
    Form1& fenetre = Ouvrir();
    CliquerTitre(fenetre, 2);
    EXPECT_EQ(Etat(fenetre, "Tri").text(), u"Artiste A\u2192Z"_s);
    EXPECT_EQ(Etat(fenetre, "Tri").accessibleName(), u"Trié par « Artiste », en ordre croissant"_s);
    CliquerTitre(fenetre, 2);
    EXPECT_EQ(Etat(fenetre, "Tri").text(), u"Artiste Z\u2192A"_s);
    EXPECT_EQ(Etat(fenetre, "Tri").toolTip(), u"Trié par « Artiste », en ordre décroissant"_s);
    EXPECT_FALSE(Etat(fenetre, "Tri").isHidden());
    fenetre.myqrt.Table.SetSorted(false);
    fenetre.RedrawAll();
    EXPECT_TRUE(Etat(fenetre, "Tri").isHidden());
}

TEST_F(LigneDEtatTest, ATitleThatLooksLikeHtmlIsShownAsItIs)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.Table.ColumnHeaders(2).SetText(u"<b>Artiste</b>"_s);
    CliquerTitre(fenetre, 2);
    EXPECT_EQ(Etat(fenetre, "Tri").text(), u"<b>Artiste</b> A\u2192Z"_s);
    EXPECT_EQ(Etat(fenetre, "Tri").accessibleName(), u"Trié par « <b>Artiste</b> », en ordre croissant"_s);
    EXPECT_TRUE(Etat(fenetre, "Tri").toolTip().contains(u"&lt;b&gt;Artiste"_s));
}

TEST_F(LigneDEtatTest, UnsavedChangesAreMarkedOnTheLineAndOnTheTab)
{
    Form1& fenetre = Ouvrir();
    const QIcon sans = Onglets().tabIcon(0);
    const QRect place = Onglets().tabRect(0);
    EXPECT_FALSE(sans.isNull());
    EXPECT_TRUE(Etat(fenetre, "Modifie").isHidden());
    EXPECT_FALSE(Onglets().EstMarque(1));

    fenetre.myqrt.IlFautSauver = true;
    EXPECT_FALSE(Etat(fenetre, "Modifie").isHidden());
    EXPECT_EQ(Etat(fenetre, "Modifie").text(), u"modifié"_s);
    EXPECT_TRUE(Onglets().EstMarque(1));
    EXPECT_NE(Onglets().tabIcon(0).pixmap(32).toImage(), sans.pixmap(32).toImage());
    EXPECT_EQ(Onglets().tabText(0), "disques.qrt") << "its text stays";
    const QAccessibleInterface* onglet = QAccessible::queryAccessibleInterface(&Onglets())->child(0);
    EXPECT_EQ(onglet->text(QAccessible::Name), "disques.qrt");
    EXPECT_EQ(onglet->text(QAccessible::Description), u"modifié"_s);
    EXPECT_EQ(Onglets().tabRect(0), place) << "no tab moves for it";

    fenetre.myqrt.EcraserIlFautSauver(false);
    EXPECT_TRUE(Onglets().EstMarque(1)) << "nobody will ask, but they are not in the file";
    EXPECT_FALSE(Etat(fenetre, "Modifie").isHidden());

    QTest::keyClick(&fenetre.ListView1(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(Onglets().EstMarque(1));
    EXPECT_EQ(onglet->text(QAccessible::Description), "");
    EXPECT_TRUE(Etat(fenetre, "Modifie").isHidden());
    EXPECT_EQ(Onglets().tabIcon(0).pixmap(32).toImage(), sans.pixmap(32).toImage());
}

TEST_F(LigneDEtatTest, TellsWhatASaveDidUntilSomethingChanges)
{
    Form1& fenetre = Ouvrir();
    EXPECT_EQ(Etat(fenetre, "Fait").text(), "");
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Etat(fenetre, "Fait").text(), u"Enregistré à 09:07:05 : disques.qrt, 3 entrée(s)"_s);
    EXPECT_EQ(Etat(fenetre, "Fait").toolTip(), dossier.Fichier(u"disques.qrt"_s));
    fenetre.RedrawAll();
    EXPECT_NE(Etat(fenetre, "Fait").text(), "");
    fenetre.myqrt.IlFautSauver = true;
    EXPECT_EQ(Etat(fenetre, "Fait").text(), "");
}

TEST_F(LigneDEtatTest, ASaveThatWasGivenUpTellsNothing)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.IlFautSauver = true;
    fichiers.PreparerAnnulation();
    Commande(fenetre, u"mEnregistrerSous"_s).trigger();
    EXPECT_EQ(Etat(fenetre, "Fait").text(), "");
    EXPECT_TRUE(Onglets().EstMarque(1));
}

TEST_F(LigneDEtatTest, ANarrowWindowShortensItAndStaysNarrow)
{
    Form1& fenetre = Ouvrir(QString(100, u'm') + u".qrt"_s);
    auto& barre = *fenetre.findChild<QStatusBar*>(u"StatusBar1"_s);
    const int avant = barre.minimumSizeHint().width();
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_S, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_LE(barre.minimumSizeHint().width(), avant);
    EXPECT_GT(Etat(fenetre, "Fait").sizeHint().width(), 100 * fenetre.fontMetrics().averageCharWidth());
}

TEST_F(LigneDEtatTest, TheTabShowsThePathOfItsFile)
{
    Form1& fenetre = Ouvrir();
    EXPECT_EQ(Onglets().tabToolTip(0), dossier.Fichier(u"disques.qrt"_s));
    fichiers.Preparer({dossier.Fichier(u"autre.qrt"_s)}, 2);
    Commande(fenetre, u"mEnregistrerSous"_s).trigger();
    EXPECT_EQ(Onglets().tabToolTip(0), dossier.Fichier(u"autre.qrt"_s));
}

TEST_F(LigneDEtatTest, OpenDocumentsStandInTheMenuOfWindows)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"R&B.qrt"_s);
    a.myqrt.IlFautSauver = true;
    const QList<QAction*> items = Fenetres(b);
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[0]->text(), "&1 a.qrt");
    EXPECT_EQ(items[1]->text(), "&2 R&&B.qrt");
    EXPECT_EQ(items[0]->toolTip(), dossier.Fichier(u"a.qrt"_s));
    EXPECT_FALSE(items[0]->isChecked());
    EXPECT_TRUE(items[1]->isChecked());
    EXPECT_FALSE(items[0]->icon().isNull());
    EXPECT_TRUE(items[1]->icon().isNull());

    items[0]->trigger();
    EXPECT_EQ(cadre.FenetreActive(), &a);
    EXPECT_EQ(Fenetres(b).size(), 2) << "the list is made anew, not added to";
    const QList<QAction*> alors = Fenetres(a);
    ASSERT_EQ(alors.size(), 2);
    EXPECT_TRUE(a.findChild<QMenu*>(u"mFenetre"_s)->toolTipsVisible());
    alors[0]->trigger();
    EXPECT_EQ(cadre.FenetreActive(), &a) << "the item of the window in front leads to it, too";
    a.myqrt.IlFautSauver = false;
}
