// The frame: its menus, tabs, tool bars and the arrangement of its windows, driven as a user does.
#include "shell/MDIForm1.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "catalogue/OuvrirFichiersQrt.h"
#include "extensions/modLang.h"
#include "shell/BandeOnglets.h"
#include "shell/Form1.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QToolBar>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class MDIForm1Test : public testing::Test
{
protected:
    /// Loads and shows the frame; settings are made before.
    void Montrer()
    {
        cadre = std::make_unique<MDIForm1>();
        cadre->show();
        cadre->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(cadre.get()));
    }

    QString Fichier(const QString& nom)
    {
        TexteDeCatalogue texte;
        texte.entrees = {"Abbey Road|"};
        return dossier.Ecrire(nom, texte.Texte());
    }
    Form1& Ouvrir(const QString& nom)
    {
        EXPECT_TRUE(OuvrirFichier(*cadre, Fichier(nom), TypeQrt2, true)) << nom.toStdString();
        return Laisser(), dynamic_cast<Form1&>(*cadre->Documents().back());
    }
    /// Lets the events of the moment come.
    static void Laisser()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    BandeOnglets& Onglets() const { return *cadre->findChild<BandeOnglets*>(u"TabStrip1"_s); }
    QMdiArea& Zone() const { return *cadre->findChild<QMdiArea*>(u"Fenetres"_s); }
    QAction& Menu(const QString& nom) const { return *cadre->findChild<QAction*>(nom, Qt::FindDirectChildrenOnly); }
    QAction& Recent(int index) const { return Menu(u"mRecent_%1"_s.arg(index)); }
    QWidget& Barre(const QString& nom) const { return *cadre->findChild<QWidget*>(nom); }

    QStringList Titres() const
    {
        QStringList titres;
        for (int i = 1; i <= Onglets().count(); ++i)
            titres.append(Onglets().Titre(i));
        return titres;
    }
    /// Menus on show in the bar, by object name.
    QStringList MenusVisibles() const
    {
        QStringList noms;
        for (const QAction* action : cadre->menuBar()->actions()) {
            if (action->isVisible())
                noms.append(action->menu()->objectName());
        }
        return noms;
    }
    void CliquerOnglet(int numero, Qt::MouseButton bouton = Qt::LeftButton)
    {
        QTest::mouseClick(&Onglets(), bouton, {}, Onglets().tabRect(numero - 1).center());
        Laisser();
    }
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

    DossierDeTest dossier;
    FileDeReponses reponses;
    FileDeFichiers dialogues;
    std::unique_ptr<MDIForm1> cadre;
};

/// Keeps a window from being closed.
struct Refus : QObject
{
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Close)
            return false;
        event->ignore();
        return true;
    }
};

QStringList Captions(const QMenu& menu)
{
    QStringList captions;
    for (const QAction* action : menu.actions()) {
        if (!action->isSeparator())
            captions.append(action->objectName() + u'=' + action->text());
    }
    return captions;
}

} // namespace

// ---- Menus

TEST_F(MDIForm1Test, TheMenusCarryTheirItemsAndCaptions)
{
    Montrer();
    const auto menu = [&](const QString& nom) { return Captions(*cadre->findChild<QMenu*>(nom)); };
    EXPECT_EQ(MenusVisibles(), QStringList({u"mFichier"_s, u"mOutils"_s, u"mOptions"_s, u"mAide"_s}));
    EXPECT_EQ(cadre->findChild<QMenu*>(u"mFichier"_s)->title(), "&Fichier");
    EXPECT_EQ(cadre->findChild<QMenu*>(u"mNouveau"_s)->title(), "&Nouveau");
    EXPECT_EQ(cadre->findChild<QMenu*>(u"mOutils"_s)->title(), "Ou&tils");
    EXPECT_EQ(cadre->findChild<QMenu*>(u"mOptions"_s)->title(), "&Options");
    EXPECT_EQ(cadre->findChild<QMenu*>(u"mAide"_s)->title(), "&Aide");
    EXPECT_EQ(cadre->findChild<QMenu*>(u"mPlugin"_s)->title(), "Plugin");
    EXPECT_EQ(menu(u"mNouveau"_s), QStringList({u"mCategorie=Catégorie"_s, u"mScriptDEdition=Script d'Edition"_s}));
    EXPECT_EQ(menu(u"mFichier"_s), QStringList({u"=&Nouveau"_s, u"mOuvrir=&Ouvrir"_s, u"mImporter=&Importer"_s,
                                                u"mRecent_0="_s, u"mRecent_1="_s, u"mRecent_2="_s, u"mRecent_3="_s,
                                                u"mRecent_4="_s, u"mQuitter=&Quitter"_s}));
    EXPECT_EQ(menu(u"mOutils"_s), QStringList{u"mComparer2Cat=Comparer 2 catégories"_s});
    EXPECT_EQ(menu(u"mOptions"_s), QStringList({u"mGrandesIcones=&Grandes Icones"_s, u"mConfiguration=&Configuration"_s,
                                                u"mLangue=Langue"_s}));
    EXPECT_EQ(menu(u"mAide"_s), QStringList({u"mAideDeZelvane=&Aide de Zelvane"_s,
                                             u"mZelvaneSurLeWeb=&Zelvane sur le Web"_s, u"mAPropos=A &Propos"_s}));
}

TEST_F(MDIForm1Test, ItemsWithoutACommandAreDisabled)
{
    Montrer();
    for (const QString& nom :
         {u"mCategorie"_s, u"mScriptDEdition"_s, u"mImporter"_s, u"mComparer2Cat"_s, u"mConfiguration"_s, u"mLangue"_s,
          u"mAideDeZelvane"_s, u"mZelvaneSurLeWeb"_s, u"mAPropos"_s})
        EXPECT_FALSE(Menu(nom).isEnabled()) << nom.toStdString();
    for (const QString& nom : {u"mOuvrir"_s, u"mQuitter"_s, u"mGrandesIcones"_s})
        EXPECT_TRUE(Menu(nom).isEnabled()) << nom.toStdString();
}

TEST_F(MDIForm1Test, TheKeyOfOpenShowsTheDialogAndTheFileIsRecent)
{
    Montrer();
    const QString chemin = Fichier(u"disques.qrt"_s);
    dialogues.Preparer({chemin}, TypeQrt2);
    QTest::keyClick(cadre.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(Titres(), QStringList{u"disques.qrt"_s});
    EXPECT_EQ(Recent(0).text(), chemin);
    EXPECT_TRUE(Recent(0).isVisible());
}

TEST_F(MDIForm1Test, ADialogThatIsCancelledStillRefreshesTheRecentFiles)
{
    Montrer();
    EcrireOption(u"FRecent1"_s, u"/ailleurs/a.qrt"_s);
    dialogues.PreparerAnnulation();
    Menu(u"mOuvrir"_s).trigger();
    EXPECT_TRUE(Recent(0).isVisible());
}

TEST_F(MDIForm1Test, TheMenusOfTheActiveWindowTakeTheFramesPlaceUntilTheLastIsClosed)
{
    Montrer();
    const QStringList duCadre = MenusVisibles();
    Form1& fenetre = Ouvrir(u"a.qrt"_s);
    // In a bar of its own, whatever the window has.
    delete fenetre.findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly);
    auto* barre = new QMenuBar(&fenetre);
    barre->addMenu(u"De la fenêtre"_s)->setObjectName(u"mDeLaFenetre"_s);
    fenetre.setMenuBar(barre);
    Zone().setActiveSubWindow(nullptr);
    cadre->AmenerDevant(fenetre);
    EXPECT_EQ(MenusVisibles(), QStringList{u"mDeLaFenetre"_s});
    EXPECT_FALSE(barre->isVisible());

    fenetre.Decharger();
    Laisser();
    EXPECT_EQ(MenusVisibles(), duCadre);
}

// ---- Recent files

TEST_F(MDIForm1Test, WithoutRecentFilesTheirItemsAndTheirSeparatorAreHidden)
{
    Montrer();
    for (int i = 0; i < 5; ++i)
        EXPECT_FALSE(Recent(i).isVisible());
    EXPECT_FALSE(Menu(u"mBarRecent"_s).isVisible());
}

TEST_F(MDIForm1Test, RecentFilesStandInTheMenuFromTheLoadOn)
{
    EcrireOption(u"FRecent1"_s, u"/un/R&B.qrt"_s);
    EcrireOption(u"FRecent5"_s, u"/cinq.qrt"_s);
    Montrer();
    EXPECT_EQ(Recent(0).text(), "/un/R&&B.qrt") << "the path is shown as it is, not as a mnemonic";
    EXPECT_TRUE(Recent(0).isVisible());
    EXPECT_FALSE(Recent(1).isVisible()) << "each place is looked at by itself";
    EXPECT_TRUE(Recent(4).isVisible());
    EXPECT_TRUE(Menu(u"mBarRecent"_s).isVisible());
}

TEST_F(MDIForm1Test, ARecentFileOpensAndGoesToTheTop)
{
    const QString rythme = Fichier(u"R&B.qrt"_s);
    EcrireOption(u"FRecent1"_s, u"/autre.qrt"_s);
    EcrireOption(u"FRecent2"_s, rythme);
    Montrer();
    Recent(1).trigger();
    EXPECT_EQ(Titres(), QStringList{u"R&B.qrt"_s});
    EXPECT_EQ(Recent(0).data().toString(), rythme);
    EXPECT_EQ(Recent(1).data().toString(), "/autre.qrt");
}

TEST_F(MDIForm1Test, ARecentFileThatIsGoneLeavesTheMenu)
{
    EcrireOption(u"FRecent1"_s, u"/parti.qrt"_s);
    Montrer();
    Recent(0).trigger();
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg49"_s});
    EXPECT_FALSE(Recent(0).isVisible());
    EXPECT_FALSE(Menu(u"mBarRecent"_s).isVisible());
}

TEST_F(MDIForm1Test, ComingBackToTheFrameRefreshesTheRecentFiles)
{
    Montrer();
    QWidget autre;
    autre.show();
    autre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&autre));
    EcrireOption(u"FRecent1"_s, u"/ailleurs.qrt"_s);
    EXPECT_FALSE(Recent(0).isVisible());
    cadre->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(cadre.get()));
    EXPECT_TRUE(Recent(0).isVisible());
}

// ---- Tabs

TEST_F(MDIForm1Test, EachWindowHasItsTabAndTheActiveOneIsSelected)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    EXPECT_EQ(Onglets().currentIndex(), 0);
    const Form1& b = Ouvrir(u"R&B.qrt"_s);
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"R&B.qrt"_s}));
    EXPECT_EQ(Onglets().tabText(1), "R&&B.qrt");
    EXPECT_EQ(Onglets().Cle(1), a.Tag);
    EXPECT_EQ(Onglets().Cle(2), b.Tag);
    EXPECT_EQ(Onglets().currentIndex(), 1);
}

TEST_F(MDIForm1Test, AClickOnTheOtherTabBringsItsWindowToTheFront)
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

TEST_F(MDIForm1Test, TheTabFollowsTheWindowThatBecomesActive)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    cadre->AmenerDevant(a);
    EXPECT_EQ(Onglets().currentIndex(), 0);
    EXPECT_TRUE(cadre->OngletsActifs);
}

TEST_F(MDIForm1Test, WhileTheyAreOffTabsActivateNothing)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    cadre->OngletsActifs = false;
    CliquerOnglet(1);
    EXPECT_EQ(cadre->FenetreActive(), &b);
}

TEST_F(MDIForm1Test, AClickOnTheTabOfAReducedWindowBringsItBack)
{
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    a.parentWidget()->showMinimized();
    ASSERT_TRUE(a.parentWidget()->isMinimized());
    CliquerOnglet(1);
    EXPECT_FALSE(a.parentWidget()->isMinimized());
}

TEST_F(MDIForm1Test, AWindowThatGoesTakesItsTabAlong)
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

TEST_F(MDIForm1Test, ATabCanGetAnotherTitle)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    cadre->MettreTitreOnglet(b, u"R&B.qrt"_s);
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"R&B.qrt"_s}));
    EXPECT_EQ(Onglets().tabText(1), "R&&B.qrt");
}

TEST_F(MDIForm1Test, TheStripKnowsTheTabOnWhichAButtonWasReleased)
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

// ---- The menu of the tabs

namespace {

class MenuMdiTabTest : public MDIForm1Test
{
protected:
    void TearDown() override
    {
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
    }
    QMenu& MenuMdiTab() const { return *cadre->findChild<QMenu*>(u"mMenuMdiTab"_s); }
    /// Releases the right button over a tab and chooses an item.
    void Choisir(int onglet, const QString& nom)
    {
        CliquerOnglet(onglet, Qt::RightButton);
        QAction* item = MenuMdiTab().findChild<QAction*>(nom);
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
    MenuMdiTab().findChild<QAction*>(u"mFemer"_s)->trigger();
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
    EXPECT_FALSE(MenuMdiTab().findChild<QAction*>(u"mFermerTout"_s)->isEnabled());
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

// ---- Keys

TEST_F(MDIForm1Test, NoTwoWindowsShareAKey)
{
    // Every draw gives the same number at the same moment.
    PlateformeDeTest::Courante().hasard.tirages = {0.5, 0.5, 0.5};
    Montrer();
    const QString premiere = cadre->NouvelleFenetre().Tag;
    EXPECT_NE(cadre->NouvelleFenetre().Tag, premiere);
}

// ---- Tool bars

TEST_F(MDIForm1Test, SmallIconsAreTheDefault)
{
    Montrer();
    EXPECT_FALSE(Barre(u"Toolbar1"_s).isHidden());
    EXPECT_TRUE(Barre(u"Toolbar2"_s).isHidden());
    EXPECT_FALSE(Menu(u"mGrandesIcones"_s).isChecked());
    const auto cote = [&](const QString& nom) { return cadre->findChild<QToolBar*>(nom)->iconSize().width(); };
    EXPECT_LT(cote(u"Toolbar1"_s), cote(u"Toolbar2"_s));
}

TEST_F(MDIForm1Test, TheSettingAsksForLargeIcons)
{
    EcrireOption(u"GrandesIcones"_s, 1);
    Montrer();
    EXPECT_TRUE(Barre(u"Toolbar1"_s).isHidden());
    EXPECT_FALSE(Barre(u"Toolbar2"_s).isHidden());
    EXPECT_TRUE(Menu(u"mGrandesIcones"_s).isChecked());
}

TEST_F(MDIForm1Test, TheItemChangesTheBarsAndIsRemembered)
{
    Montrer();
    for (const bool grandes : {true, false, true}) {
        Menu(u"mGrandesIcones"_s).trigger();
        EXPECT_EQ(Barre(u"Toolbar1"_s).isHidden(), grandes);
        EXPECT_EQ(Barre(u"Toolbar2"_s).isHidden(), !grandes);
        EXPECT_EQ(Menu(u"mGrandesIcones"_s).isChecked(), grandes);
        EXPECT_EQ(LireOption(u"GrandesIcones"_s), grandes ? u"1"_s : u"0"_s);
    }
}

TEST_F(MDIForm1Test, ARefreshTakesTheCheckFromTheBars)
{
    Montrer();
    Menu(u"mGrandesIcones"_s).setChecked(true);
    cadre->RedrawAll();
    EXPECT_FALSE(Menu(u"mGrandesIcones"_s).isChecked());
}

TEST_F(MDIForm1Test, TheBandIsOnShowOnlyWhenThereAreButtons)
{
    Montrer();
    const bool boutons = !cadre->findChild<QToolBar*>(u"Toolbar1"_s)->actions().isEmpty();
    EXPECT_EQ(Barre(u"CoolBar1"_s).isVisible(), boutons);
}

// ---- Drop

TEST_F(MDIForm1Test, FilesThatAreDroppedOpenAndAreRecent)
{
    Montrer();
    const QString a = Fichier(u"a.qrt"_s), b = Fichier(u"b.qrt"_s);
    Deposer({QUrl::fromLocalFile(a), QUrl::fromLocalFile(b)});
    EXPECT_EQ(Titres(), QStringList({u"a.qrt"_s, u"b.qrt"_s}));
    EXPECT_EQ(Recent(0).data().toString(), b);
    EXPECT_EQ(Recent(1).data().toString(), a);
}

TEST_F(MDIForm1Test, AFileThatIsNoCatalogueIsToldWhenItIsDropped)
{
    Montrer();
    Deposer({QUrl::fromLocalFile(dossier.Ecrire(u"lettre.txt"_s, "Bonjour"))});
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg50"_s});
}

TEST_F(MDIForm1Test, WhatIsNoFileCannotBeDropped)
{
    Montrer();
    Deposer({QUrl(u"https://example.org/a.qrt"_s)});
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_TRUE(cadre->Documents().empty());
}

// ---- Arrangement

TEST_F(MDIForm1Test, TheWindowMenuIsThereWithDocumentsOnly)
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

TEST_F(MDIForm1Test, MosaicsShareTheWholeAreaOut)
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

TEST_F(MDIForm1Test, AMosaicLeavesReducedWindowsAlone)
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

TEST_F(MDIForm1Test, ACascadeStepsToTheRightAndDown)
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

TEST_F(MDIForm1Test, AllWindowsAreReducedLinedUpAndRestored)
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

// ---- Load and end

TEST_F(MDIForm1Test, ATemporaryFolderThatIsGoneIsReplacedForThisRunOnly)
{
    TempFolder.clear();
    EcrireOption(u"TempFolder"_s, u"/nulle/part"_s);
    Montrer();
    EXPECT_EQ(TempFolder, DossierProgramme() + u"temp"_s);
    EXPECT_TRUE(QDir(TempFolder).exists());
    EXPECT_EQ(LireOption(u"TempFolder"_s), u"/nulle/part"_s);
}

TEST_F(MDIForm1Test, TheLanguageOfTheSettingIsInForce)
{
    const DossierDeTest& programme = PlateformeDeTest::Courante().dossier;
    programme.Ecrire(u"lang/english.ini"_s, "[other]\r\nmsg71=Open a category\r\n");
    EcrireOption(u"QRTLangue"_s, u"english"_s);
    Montrer();
    dialogues.PreparerAnnulation();
    Menu(u"mOuvrir"_s).trigger();
    EXPECT_EQ(dialogues.Demandes().first().titre, "Open a category");
}

TEST_F(MDIForm1Test, TheFrameStaysWhenAWindowRefusesToClose)
{
    Montrer();
    Ouvrir(u"a.qrt"_s);
    Form1& b = Ouvrir(u"b.qrt"_s);
    Refus refus;
    b.installEventFilter(&refus);
    QTest::keyClick(cadre.get(), Qt::Key_Q, Qt::ControlModifier);
    Laisser();
    EXPECT_TRUE(cadre->isVisible());
    EXPECT_TRUE(b.isVisible());
    b.removeEventFilter(&refus);
    QTest::keyClick(cadre.get(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(cadre->isVisible());
}

TEST_F(MDIForm1Test, ACancelledQuestionKeepsTheFrameAndEveryWindow)
{
    Montrer();
    Form1& a = Ouvrir(u"a.qrt"_s);
    Form1& b = Ouvrir(u"b.qrt"_s);
    a.myqrt.IlFautSauver = b.myqrt.IlFautSauver = true;
    reponses.Preparer(RepNon);
    reponses.Preparer(RepAnnuler);
    QTest::keyClick(cadre.get(), Qt::Key_Q, Qt::ControlModifier);
    Laisser();
    EXPECT_TRUE(cadre->isVisible());
    EXPECT_EQ(cadre->Documents(), std::vector<FenetreDocument*>({&a, &b}));
    EXPECT_TRUE(a.myqrt.IlFautSauver) << "its changes are not dropped after all";
    EXPECT_TRUE(QDir(a.myqrt.TmpFolder).exists());
    a.myqrt.IlFautSauver = b.myqrt.IlFautSauver = false;
}

TEST_F(MDIForm1Test, EachChangedDocumentIsAskedAboutOnce)
{
    Montrer();
    Ouvrir(u"a.qrt"_s).myqrt.IlFautSauver = true;
    Ouvrir(u"b.qrt"_s);
    Ouvrir(u"c.qrt"_s).myqrt.IlFautSauver = true;
    reponses.Preparer(RepNon);
    reponses.Preparer(RepOui);
    QTest::keyClick(cadre.get(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(cadre->isVisible());
    ASSERT_EQ(reponses.Affiches().size(), 2);
    EXPECT_EQ(reponses.Affiches()[0].titre, "a.qrt");
    EXPECT_EQ(reponses.Affiches()[1].titre, "c.qrt");
}
