// The strip of tabs in step with the windows, and its menu.
#include "CadreEnFenetre.h"

#include "support/Glissement.h"

#include <QSignalSpy>
#include <QStyleOptionTab>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class OngletsTest : public CadreEnFenetre
{
protected:
    QTimer& Survol() const { return *Onglets().findChild<QTimer*>(u"Survol"_s); }
    QPoint Milieu(int numero) const { return Onglets().tabRect(numero - 1).center(); }
    /// As if the time had passed for which something must be held over a tab.
    void Attendre()
    {
        ASSERT_TRUE(Survol().isActive());
        QSignalSpy passe(&Survol(), &QTimer::timeout);
        Survol().start(0);
        ASSERT_TRUE(passe.wait());
        Survol().setInterval(500);
        Laisser();
    }
};

} // namespace

TEST_F(OngletsTest, EachWindowHasItsTabAndTheActiveOneIsSelected)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    EXPECT_EQ(Onglets().currentIndex(), 0);
    const Form1& b = Ouvrir(u"R&B.qrt"_s);
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"R&B.qrt"_s}));
    EXPECT_EQ(Onglets().tabText(1), "R&&B.qrt");
    EXPECT_TRUE(a.Tag.startsWith(u'a'));
    EXPECT_EQ(Onglets().Cle(1), a.Tag);
    EXPECT_EQ(Onglets().Cle(2), b.Tag);
    EXPECT_EQ(Onglets().currentIndex(), 1);
}

TEST_F(OngletsTest, AClickOnTheOtherTabBringsItsWindowToTheFront)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    CliquerOnglet(1);
    EXPECT_EQ(cadre->FenetreActive(), &a);
    EXPECT_EQ(Onglets().currentIndex(), 0);
    EXPECT_TRUE(cadre->OngletsActifs);
    CliquerOnglet(2);
    EXPECT_EQ(cadre->FenetreActive(), &b);
    EXPECT_EQ(Onglets().currentIndex(), 1);
}

TEST_F(OngletsTest, TheTabFollowsTheWindowThatBecomesActive)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    cadre->AmenerDevant(a);
    EXPECT_EQ(Onglets().currentIndex(), 0);
    EXPECT_TRUE(cadre->OngletsActifs);
}

TEST_F(OngletsTest, WhileTheyAreOffTabsActivateNothing)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    cadre->OngletsActifs = false;
    CliquerOnglet(1);
    EXPECT_EQ(cadre->FenetreActive(), &b);
}

TEST_F(OngletsTest, AClickOnTheTabOfAReducedWindowBringsItBack)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    a.parentWidget()->showMinimized();
    ASSERT_TRUE(a.parentWidget()->isMinimized());
    CliquerOnglet(1);
    EXPECT_FALSE(a.parentWidget()->isMinimized());
}

TEST_F(OngletsTest, AWindowThatGoesTakesItsTabAlong)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    Form1& b = Ouvrir(u"b.qrt"_s);
    Form1& c = Ouvrir(u"c.qrt"_s);
    a.Decharger();
    Laisser();
    EXPECT_EQ(Titres(), QStringList({u"b.qrt"_s, u"c.qrt"_s}));
    EXPECT_EQ(cadre->FenetreActive(), &c) << "a window behind the others goes without a change of front";
    c.Decharger();
    Laisser();
    EXPECT_EQ(cadre->FenetreActive(), &b);
    EXPECT_EQ(Onglets().currentIndex(), 0);
    b.Decharger();
    Laisser();
    EXPECT_EQ(Onglets().count(), 0);
    EXPECT_EQ(cadre->FenetreActive(), nullptr);
}

TEST_F(OngletsTest, ATabThatGoesDoesNotRestoreTheReducedWindowOfTheNextOne)
{
    Montrer();
    EcrireOption(u"SizeForm1"_s, int(Normale));
    const Form1& a = Ouvrir(u"a.qrt"_s);
    a.parentWidget()->showMinimized();
    Form1& b = Ouvrir(u"b.qrt"_s);
    ASSERT_EQ(cadre->FenetreActive(), &b);
    b.Decharger();
    Laisser();
    EXPECT_EQ(Titres(), QStringList{u"a.qrt"_s});
    EXPECT_TRUE(a.parentWidget()->isMinimized());
    EXPECT_TRUE(cadre->OngletsActifs);
}

TEST_F(OngletsTest, ATabIsPressedForAsLongAsTheButtonIs)
{
    struct Bande : BandeOnglets
    {
        bool Enfonce() const
        {
            QStyleOptionTab aspect;
            initStyleOption(&aspect, 0);
            return aspect.state & QStyle::State_Sunken;
        }
    } bande;
    bande.Ajouter(u"a"_s, u"a.qrt"_s);
    bande.show();
    QTest::mousePress(&bande, Qt::LeftButton, {}, bande.tabRect(0).center());
    EXPECT_TRUE(bande.Enfonce());
    QTest::mouseRelease(&bande, Qt::LeftButton, {}, bande.tabRect(0).center());
    EXPECT_FALSE(bande.Enfonce());
}

TEST_F(OngletsTest, ATabCanGetAnotherTitle)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    cadre->MettreTitreOnglet(b, u"R&B.qrt"_s);
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"R&B.qrt"_s}));
    EXPECT_EQ(Onglets().tabText(1), "R&&B.qrt");
}

TEST_F(OngletsTest, TheStripKnowsTheTabOnWhichAButtonWasReleased)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    EXPECT_EQ(Onglets().Tag, "");
    CliquerOnglet(1, Qt::RightButton);
    EXPECT_EQ(Onglets().Tag, "1");
    EXPECT_EQ(cadre->FenetreActive(), &b) << "the right button selects nothing";
    CliquerOnglet(2);
    EXPECT_EQ(Onglets().Tag, "2");

    const QPoint aCote(Onglets().tabRect(1).right() + 20, Onglets().height() / 2);
    QTest::mouseRelease(&Onglets(), Qt::RightButton, {}, aCote);
    EXPECT_EQ(Onglets().Tag, "2") << "beside the tabs, the tab last stored stays";
}

TEST_F(OngletsTest, NamesStayReadableInTabsHoweverManyThereAreAndHoweverLong)
{
    Montrer();
    for (int i = 0; i < 40; ++i)
        Onglets().Ajouter(QString::number(i), u"collection de disques numéro %1.qrt"_s.arg(i));
    Onglets().Ajouter(u"long"_s, QString(400, u'm'));
    Laisser();
    const int lettre = Onglets().fontMetrics().averageCharWidth();
    for (int i = 0; i < Onglets().count(); ++i) {
        EXPECT_GE(Onglets().tabRect(i).width(), 15 * lettre) << i;
        EXPECT_LE(Onglets().tabRect(i).width(), 60 * lettre) << i;
    }
    EXPECT_EQ(Onglets().tabToolTip(40), QString(400, u'm'));
    Onglets().Ajouter(u"court"_s, u"a.qrt"_s);
    EXPECT_LT(Onglets().tabRect(41).width(), 15 * lettre) << "a short name needs no more than its room";
}

TEST_F(OngletsTest, TheMiddleButtonClosesTheWindowOfATab)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    Form1& b = Ouvrir(u"b.qrt"_s);
    CliquerOnglet(1, Qt::MiddleButton);
    EXPECT_EQ(Titres(), QStringList({u"b.qrt"_s}));
    EXPECT_EQ(cadre->FenetreActive(), &b);

    b.myqrt.IlFautSauver = true;
    reponses.Preparer(RepAnnuler);
    CliquerOnglet(1, Qt::MiddleButton);
    EXPECT_EQ(Titres(), QStringList({u"b.qrt"_s})) << "it is asked as any close is";
    b.myqrt.IlFautSauver = false;
}

TEST_F(OngletsTest, TheMiddleButtonLetGoElsewhereClosesNothing)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    QTest::mousePress(&Onglets(), Qt::MiddleButton, {}, Milieu(1));
    QTest::mouseRelease(&Onglets(), Qt::MiddleButton, {}, Milieu(2));
    QTest::mousePress(&Onglets(), Qt::LeftButton, {}, Milieu(2));
    QTest::mouseRelease(&Onglets(), Qt::MiddleButton, {}, Milieu(2));
    QTest::mouseRelease(&Onglets(), Qt::LeftButton, {}, Milieu(2));
    Laisser();
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"b.qrt"_s}));
}

TEST_F(OngletsTest, TabsAreMovedWithTheMouseAndKeepTheirWindows)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    a.myqrt.IlFautSauver = true;
    const QPoint fin(Onglets().tabRect(1).right() - 2, Milieu(2).y());
    QTest::mousePress(&Onglets(), Qt::LeftButton, {}, Milieu(1));
    for (int pas = 1; pas <= 10; ++pas)
        QTest::mouseMove(&Onglets(), Milieu(1) + (fin - Milieu(1)) * pas / 10);
    QTest::mouseRelease(&Onglets(), Qt::LeftButton, {}, fin);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Titres() == QStringList({u"b.qrt"_s, u"a.qrt"_s}); }));
    EXPECT_EQ(cadre->FenetreActive(), &a);
    EXPECT_FALSE(Onglets().EstMarque(1));
    EXPECT_TRUE(Onglets().EstMarque(2));
    CliquerOnglet(1);
    EXPECT_EQ(cadre->FenetreActive(), &b);
    a.myqrt.IlFautSauver = false;
}

TEST_F(OngletsTest, NoTwoWindowsShareAKey)
{
    // Every draw gives the same number at the same moment.
    PlateformeDeTest::Courante().hasard.tirages = {0.5, 0.5, 0.5};
    Montrer();
    const QString premiere = cadre->NouvelleFenetre().Tag;
    EXPECT_NE(cadre->NouvelleFenetre().Tag, premiere);
}

// ---- The menu of the tabs

namespace {

class MenuMdiTabTest : public OngletsTest
{
protected:
    void TearDown() override
    {
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
    }
    QMenu& MenuMdiTab() const { return *cadre->findChild<QMenu*>(u"mMenuMdiTab"_s); }
    QAction* Item(const QString& nom) const
    {
        return cadre->findChild<QWidget*>(u"frmPopup"_s)->findChild<QAction*>(nom, Qt::FindDirectChildrenOnly);
    }
    /// Releases the right button over a tab and chooses an item.
    void Choisir(int onglet, const QString& nom)
    {
        CliquerOnglet(onglet, Qt::RightButton);
        QAction* item = Item(nom);
        ASSERT_EQ(QApplication::activePopupWidget(), &MenuMdiTab());
        QTest::mouseClick(&MenuMdiTab(), Qt::LeftButton, {}, MenuMdiTab().actionGeometry(item).center());
        Laisser();
    }
};

} // namespace

TEST_F(MenuMdiTabTest, TheRightButtonShowsTheMenuAlsoBesideTheTabs)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    CliquerOnglet(1, Qt::RightButton);
    EXPECT_TRUE(MenuMdiTab().isVisible());
    EXPECT_EQ(Captions(MenuMdiTab()),
              QStringList({u"mRestaurer=Restaurer"_s, u"mEnregistrer=Enregistrer"_s,
                           u"mEnregistrerSous=Enregistrer Sous"_s, u"mFemer=Fermer"_s, u"mFermerTout=Fermer Tout"_s}));
    MenuMdiTab().close();

    const QPoint aCote(Onglets().tabRect(1).right() + 20, Onglets().height() / 2);
    QTest::mouseRelease(&Onglets(), Qt::RightButton, {}, aCote);
    ASSERT_TRUE(MenuMdiTab().isVisible());
    Item(u"mFemer"_s)->trigger();
    Laisser();
    EXPECT_EQ(Titres(), QStringList{u"b.qrt"_s}) << "it acts on the tab last stored";
}

TEST_F(MenuMdiTabTest, RestoringBringsTheWindowOfTheTabToTheFront)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    Choisir(1, u"mRestaurer"_s);
    EXPECT_EQ(cadre->FenetreActive(), &a);
    EXPECT_EQ(Onglets().currentIndex(), 0);
}

TEST_F(MenuMdiTabTest, ClosingClosesTheWindowOfTheTab)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    Choisir(1, u"mFemer"_s);
    EXPECT_EQ(Titres(), QStringList{u"b.qrt"_s});
}

TEST_F(MenuMdiTabTest, SavingUnderAnotherNameRenamesTheTab)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    const QString neuf = dossier.Fichier(u"neuf.qrt"_s);
    dialogues.Preparer({neuf}, 2);
    Choisir(1, u"mEnregistrerSous"_s);
    EXPECT_EQ(Titres(), QStringList({u"neuf.qrt"_s, u"b.qrt"_s}));
    EXPECT_EQ(a.myqrt.CheminReel(), neuf);
    EXPECT_EQ(Recent(0).data().toString(), neuf);
}

TEST_F(MenuMdiTabTest, SavingWritesTheDocumentOfTheTab)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    Form1& b = Ouvrir(u"b.qrt"_s);
    a.myqrt.IlFautSauver = b.myqrt.IlFautSauver = true;
    Choisir(1, u"mEnregistrer"_s);
    EXPECT_FALSE(a.myqrt.IlFautSauver);
    EXPECT_TRUE(b.myqrt.IlFautSauver);
    b.myqrt.IlFautSauver = false;
}

TEST_F(MenuMdiTabTest, ClosingAllNeedsTwoTabs)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    CliquerOnglet(1, Qt::RightButton);
    EXPECT_FALSE(Item(u"mFermerTout"_s)->isEnabled());
    MenuMdiTab().close();
    Ouvrir(u"b.qrt"_s);
    Choisir(1, u"mFermerTout"_s);
    EXPECT_TRUE(cadre->Documents().empty());
    EXPECT_EQ(Onglets().count(), 0);
}

TEST_F(MenuMdiTabTest, WithoutATabItsCommandsDoNothing)
{
    Montrer();
    QTest::mouseRelease(&Onglets(), Qt::RightButton, {}, QPoint(5, 1));
    for (QAction* item : MenuMdiTab().actions())
        item->trigger();
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_TRUE(dialogues.Demandes().isEmpty());
}

// ---- what is held over a tab

TEST_F(OngletsTest, ATextHeldOverATabBringsItsWindowToTheFront)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    Glissement glissement(u"texte"_s);
    EXPECT_FALSE(glissement.Entrer(Onglets(), Milieu(1))) << "nothing is dropped on a tab";
    EXPECT_EQ(Survol().interval(), 500);
    EXPECT_TRUE(Survol().isSingleShot());
    EXPECT_EQ(cadre->FenetreActive(), &b);
    glissement.Bouger(Onglets(), Milieu(1) + QPoint(1, 0));
    Attendre();
    EXPECT_EQ(cadre->FenetreActive(), &a);
    EXPECT_FALSE(Survol().isActive());
    glissement.Bouger(Onglets(), Milieu(2));
    Attendre();
    EXPECT_EQ(cadre->FenetreActive(), &b);
    EXPECT_FALSE(glissement.Lacher(Onglets(), Milieu(2)));
}

TEST_F(OngletsTest, AWindowThatIsReducedComesBackTooUnderWhatIsHeldOverItsTab)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    cadre->MinimiserTout();
    Laisser();
    ASSERT_TRUE(a.parentWidget()->isMinimized());
    Glissement glissement(u"texte"_s);
    glissement.Entrer(Onglets(), Milieu(1));
    Attendre();
    EXPECT_FALSE(a.parentWidget()->isMinimized());
}

TEST_F(OngletsTest, WhatLeavesATabInTimeBringsNothing)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    Glissement glissement(u"texte"_s);
    glissement.Entrer(Onglets(), Milieu(1));
    ASSERT_TRUE(Survol().isActive());
    glissement.Bouger(Onglets(), QPoint(Onglets().width() - 1, 3));
    EXPECT_FALSE(Survol().isActive()) << "beside the tabs";
    glissement.Bouger(Onglets(), Milieu(1));
    EXPECT_TRUE(Survol().isActive());
    glissement.Sortir(Onglets());
    EXPECT_FALSE(Survol().isActive());
    glissement.Entrer(Onglets(), Milieu(1));
    glissement.Lacher(Onglets(), Milieu(1));
    EXPECT_FALSE(Survol().isActive()) << "dropped";
    EXPECT_EQ(cadre->FenetreActive(), &b);
}
