// The frame: its menus, tool bars, load and end.
#include "CadreEnFenetre.h"

#include "base/DossiersTemp.h"
#include "extensions/dialogues/Aide.h"
#include "extensions/dialogues/frmTip.h"
#include "extensions/langue/modLang.h"
#include "support/FermeModales.h"

#include <QDir>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

class MDIForm1Test : public CadreEnFenetre
{
protected:
    /// Opens a menu of the bar and clicks on an item.
    void Choisir(const QString& menu, const QString& item) const
    {
        auto& ouvert = *cadre->findChild<QMenu*>(menu);
        ouvert.popup(cadre->mapToGlobal(QPoint(0, 30)));
        QTest::mouseClick(&ouvert, Qt::LeftButton, {}, ouvert.actionGeometry(&Menu(item)).center());
    }
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
    EXPECT_FALSE(Menu(u"mImporter"_s).isEnabled());
    for (const QString& nom :
         {u"mConfiguration"_s, u"mLangue"_s, u"mCategorie"_s, u"mScriptDEdition"_s, u"mOuvrir"_s, u"mQuitter"_s,
          u"mGrandesIcones"_s, u"mComparer2Cat"_s, u"mAideDeZelvane"_s, u"mZelvaneSurLeWeb"_s, u"mAPropos"_s})
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

TEST_F(MDIForm1Test, ItemsHaveTheirPictures)
{
    Montrer();
    for (const QString& nom : {u"mCategorie"_s, u"mOuvrir"_s, u"mQuitter"_s, u"mComparer2Cat"_s, u"mConfiguration"_s,
                               u"mLangue"_s, u"mAideDeZelvane"_s, u"mZelvaneSurLeWeb"_s, u"mAPropos"_s})
        EXPECT_FALSE(Menu(nom).icon().isNull()) << nom.toStdString();
}

TEST_F(MDIForm1Test, ImportDoesNothing)
{
    Montrer();
    Menu(u"mImporter"_s).trigger();
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_TRUE(dialogues.Demandes().isEmpty());
    EXPECT_TRUE(cadre->Documents().empty());
}

TEST_F(MDIForm1Test, AboutShowsTheAboutBox)
{
    Montrer();
    const FermeModales modales;
    Choisir(u"mAide"_s, u"mAPropos"_s);
    EXPECT_EQ(modales.fenetres, QStringList{u"About"_s});
}

TEST_F(MDIForm1Test, HelpIsThatOfTheProgramsFolderByMenuAndByKey)
{
    Montrer();
    ProgrammesNotes& programmes = PlateformeDeTest::Courante().programmes;
    const QString aide = PlateformeDeTest::Courante().dossier.Ecrire(u"AideQrt/aideZelvane.html"_s, "<p>Aide");
    Choisir(u"mAide"_s, u"mAideDeZelvane"_s);
    QTest::keyClick(cadre.get(), Qt::Key_F1);
    EXPECT_EQ(programmes.fichiers, QStringList({aide, aide}));
    QFile::remove(aide);
    QTest::keyClick(cadre.get(), Qt::Key_F1);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    Ouvrir(u"a.qrt"_s).findChild<QAction*>(u"mAideDeZelvane"_s)->trigger();
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg98"_s}) << "from the window of a document";
}

TEST_F(MDIForm1Test, KeysThatFrameAndDocumentShareRunOnce)
{
    Montrer();
    PlateformeDeTest::Courante().dossier.Ecrire(u"AideQrt/aideZelvane.html"_s, "<p>Aide");
    Ouvrir(u"a.qrt"_s);
    QTest::keyClick(cadre.get(), Qt::Key_F1);
    EXPECT_EQ(PlateformeDeTest::Courante().programmes.fichiers.size(), 1);
    const FermeModales modales;
    QTest::keyClick(cadre.get(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(modales.fenetres, QStringList{u"frmAddCategorie2"_s});
}

TEST_F(MDIForm1Test, TheWebIsTheHomePage)
{
    Montrer();
    Choisir(u"mAide"_s, u"mZelvaneSurLeWeb"_s);
    EXPECT_EQ(PlateformeDeTest::Courante().programmes.adresses, QStringList{PageDAccueil});
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
        EXPECT_EQ(LireOption(u"GrandesIcones"_s, {}), grandes ? u"1"_s : u"0"_s);
    }
}

TEST_F(MDIForm1Test, TheBarsFollowTheirSetting)
{
    Montrer();
    for (const bool grandes : {true, false}) {
        EcrireOption(Options::GrandesIcones, grandes);
        EXPECT_EQ(Barre(u"Toolbar1"_s).isHidden(), grandes);
        EXPECT_EQ(Barre(u"Toolbar2"_s).isHidden(), !grandes);
        EXPECT_EQ(Menu(u"mGrandesIcones"_s).isChecked(), grandes);
    }
}

TEST_F(MDIForm1Test, ARefreshTakesTheCheckFromTheBars)
{
    Montrer();
    {
        const QSignalBlocker sansMot(Menu(u"mGrandesIcones"_s));
        Menu(u"mGrandesIcones"_s).setChecked(true);
    }
    cadre->RedrawAll();
    EXPECT_FALSE(Menu(u"mGrandesIcones"_s).isChecked());
}

// ---- Load and end

TEST_F(MDIForm1Test, ATemporaryFolderThatIsGoneIsReplacedForThisRunOnly)
{
    TempFolder.clear();
    EcrireOption(u"TempFolder"_s, u"/nulle/part"_s);
    Montrer();
    EXPECT_EQ(TempFolder, DossierProgramme() + u"temp"_s);
    EXPECT_TRUE(QDir(TempFolder).exists());
    EXPECT_EQ(LireOption(u"TempFolder"_s, {}), u"/nulle/part"_s);
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

TEST_F(MDIForm1Test, AnotherLanguageIsAppliedToEveryOpenForm)
{
    const DossierDeTest& programme = PlateformeDeTest::Courante().dossier;
    programme.Ecrire(u"astuces.txt"_s, "Une\r\n");
    programme.Ecrire(u"lang/english.ini"_s,
                     "[MDIForm1]\r\nCaption=Catalogues\r\nmFichier_C=&File\r\nmOuvrir_C=&Open\r\n"
                     "Toolbar1_TT_6=Open a category\r\n"
                     "[Form1]\r\nmFichier_C=File of the document\r\n"
                     "[frmTip]\r\nCaption=Tip of the day\r\n");
    EcrireOption(u"FRecent1"_s, u"/un.qrt"_s);
    Montrer();
    const Form1& a = Ouvrir(u"a.qrt"_s);
    frmTip::Montrer(*cadre);
    ASSERT_TRUE(ChargerLangue(u"english"_s));
    cadre->langChange();
    EXPECT_EQ(cadre->windowTitle(), "Catalogues - [a.qrt]");
    EXPECT_EQ(Menu(u"mOuvrir"_s).text(), "&Open");
    EXPECT_EQ(cadre->findChild<QToolBar*>(u"Toolbar1"_s)->actions()[5]->toolTip(), "Open a category");
    EXPECT_EQ(a.findChild<QMenu*>(u"mFichier"_s)->title(), "File of the document");
    EXPECT_EQ(cadre->findChild<frmTip*>()->windowTitle(), "Tip of the day");
    EXPECT_EQ(Recent(0).text(), "/un.qrt");
    EXPECT_EQ(Titres(), QStringList{u"a.qrt"_s});
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
