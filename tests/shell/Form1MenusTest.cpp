// The menus of a document.
#include "Form1EnFenetre.h"

#include "extensions/langue/modLang.h"
#include "shell/BandeOnglets.h"
#include "support/GardeModale.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTableWidget>

using namespace Qt::StringLiterals;

TEST_F(Form1Test, TheMenusOfADocumentTakeThePlaceOfTheFrames)
{
    const QStringList duCadre = BarreDuCadre();
    Form1& fenetre = Ouvrir();
    EXPECT_EQ(BarreDuCadre(), QStringList({"&Fichier", "&Edition", "&Affichage", "Ou&tils", u"P&rêt"_s, "&Plugins",
                                           "&Options", u"Fe&nêtre"_s, "A&ide"}));
    EXPECT_FALSE(fenetre.menuBar()->isVisible());
    fenetre.Decharger();
    Passer();
    QCoreApplication::processEvents();
    EXPECT_EQ(BarreDuCadre(), duCadre);
}

TEST_F(Form1Test, TheMenusAreThoseOfTheDocumentInFront)
{
    Form1& premiere = Ouvrir(u"a.qrt"_s);
    const Form1& seconde = Ouvrir(u"b.qrt"_s);
    EXPECT_EQ(cadre.menuBar()->actions(), seconde.findChild<QMenuBar*>(u"Menus"_s)->actions());
    cadre.AmenerDevant(premiere);
    EXPECT_EQ(cadre.menuBar()->actions(), premiere.findChild<QMenuBar*>(u"Menus"_s)->actions());
}

TEST_F(Form1Test, AShortcutReachesTheDocumentInFrontAlone)
{
    Form1& premiere = Ouvrir(u"a.qrt"_s);
    Form1& seconde = Ouvrir(u"b.qrt"_s);
    premiere.myqrt.MyLV->ListItems(1).SetText(u"Premier"_s);
    seconde.myqrt.MyLV->ListItems(1).SetText(u"Second"_s);
    QTest::keyClick(&seconde.ListView1(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(dossier.Lire(u"b.qrt"_s).contains("Second"));
    EXPECT_FALSE(dossier.Lire(u"a.qrt"_s).contains("Premier"));
}

TEST_F(Form1Test, SavingUnderAnotherNameChangesTheCaption)
{
    Form1& fenetre = Ouvrir();
    fichiers.Preparer({dossier.Fichier(u"autre.qrt"_s)}, 2);
    Commande(fenetre, u"mEnregistrerSous"_s).trigger();
    EXPECT_TRUE(dossier.Existe(u"autre.qrt"_s));
    EXPECT_EQ(fenetre.Caption(), "autre.qrt");
    EXPECT_EQ(cadre.findChild<BandeOnglets*>()->Titre(1), "autre.qrt");
    const auto* recentDuCadre = cadre.findChild<QAction*>(u"mRecent_0"_s, Qt::FindDirectChildrenOnly);
    EXPECT_EQ(recentDuCadre->data().toString(), dossier.Fichier(u"autre.qrt"_s));
    EXPECT_EQ(Commande(fenetre, u"mRecent_0"_s).data().toString(), dossier.Fichier(u"autre.qrt"_s));
}

TEST_F(Form1Test, TheRecentFilesStandInTheMenuAndOpen)
{
    Form1& premiere = Ouvrir(u"moi & toi.qrt"_s);
    const QString chemin = dossier.Fichier(u"moi & toi.qrt"_s);
    premiere.Decharger();
    Passer();
    const Form1& seconde = Ouvrir(u"b.qrt"_s);
    cadre.activateWindow();
    seconde.ListView1().clearFocus();
    seconde.ListView1().setFocus();
    const QAction& ancien = Commande(seconde, u"mRecent_1"_s);
    EXPECT_TRUE(ancien.isVisible());
    EXPECT_EQ(ancien.text(), QString(chemin).replace(u"&"_s, u"&&"_s));
    EXPECT_FALSE(Commande(seconde, u"mRecent_2"_s).isVisible());
    EXPECT_TRUE(Commande(seconde, u"mBarRecent"_s).isVisible());
    EXPECT_TRUE(Commande(seconde, u"mBarRecent"_s).isSeparator());
    Commande(seconde, u"mRecent_1"_s).trigger();
    ASSERT_EQ(cadre.Documents().size(), 2);
    EXPECT_EQ(cadre.Documents()[1]->myqrt.CheminReel(), chemin);
    EXPECT_EQ(Commande(seconde, u"mRecent_0"_s).data().toString(), chemin) << "at the top also where it was chosen";
}

TEST_F(Form1Test, TheFocusRefreshesTheRecentFiles)
{
    const Form1& fenetre = Ouvrir();
    fenetre.ListView1().clearFocus();
    EcrireOption(u"FRecent1"_s, u"/ailleurs.qrt"_s);
    EXPECT_NE(Commande(fenetre, u"mRecent_0"_s).data().toString(), "/ailleurs.qrt");
    fenetre.ListView1().setFocus();
    EXPECT_EQ(Commande(fenetre, u"mRecent_0"_s).data().toString(), "/ailleurs.qrt");
}

TEST_F(Form1Test, ComingToTheFrontRefreshesTheRecentFiles)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    QWidget ailleurs; // has the keys, so that the table does not get them with its window
    ailleurs.show();
    ailleurs.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ailleurs));
    EcrireOption(u"FRecent1"_s, u"/ailleurs.qrt"_s);
    EXPECT_NE(Commande(a, u"mRecent_0"_s).data().toString(), "/ailleurs.qrt");
    cadre.AmenerDevant(a);
    EXPECT_FALSE(a.ListView1().hasFocus());
    EXPECT_EQ(Commande(a, u"mRecent_0"_s).data().toString(), "/ailleurs.qrt");
}

TEST_F(Form1Test, TheFrameListsTheRecentFilesWhenItsLastDocumentGoes)
{
    Form1& fenetre = Ouvrir();
    EcrireOption(u"FRecent1"_s, u"/ailleurs.qrt"_s);
    fenetre.Decharger();
    Passer();
    QCoreApplication::processEvents();
    const auto* recent = cadre.findChild<QAction*>(u"mRecent_0"_s, Qt::FindDirectChildrenOnly);
    EXPECT_EQ(recent->data().toString(), "/ailleurs.qrt");
}

TEST_F(Form1Test, CloseAllNeedsTwoDocuments)
{
    const Form1& premiere = Ouvrir(u"a.qrt"_s);
    EXPECT_FALSE(Commande(premiere, u"mFermerTout"_s).isEnabled());
    EXPECT_FALSE(Commande(premiere, u"mEnregistrerTout"_s).isEnabled());
    const Form1& seconde = Ouvrir(u"b.qrt"_s);
    EXPECT_TRUE(Commande(seconde, u"mFermerTout"_s).isEnabled());
    Commande(seconde, u"mFermerTout"_s).trigger();
    EXPECT_TRUE(cadre.Documents().empty());
}

TEST_F(Form1Test, TheGridFollowsItsMenuItem)
{
    const Form1& fenetre = Ouvrir();
    QAction& grille = Commande(fenetre, u"mAfficherGrille"_s);
    EXPECT_TRUE(grille.isChecked()) << "the file has lines";
    grille.trigger();
    EXPECT_FALSE(fenetre.myqrt.MyLV->GridLines());
    grille.trigger();
    EXPECT_TRUE(fenetre.myqrt.MyLV->GridLines());
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1Test, LargeIconsAreAStateOfTheFrame)
{
    const Form1& fenetre = Ouvrir();
    QAction& grandes = Commande(fenetre, u"mGrandesIcones"_s);
    EXPECT_TRUE(grandes.isEnabled());
    for (const bool allumees : {true, false}) {
        grandes.trigger();
        EXPECT_EQ(cadre.GrandesIcones(), allumees);
        EXPECT_EQ(grandes.isChecked(), allumees);
    }
}

TEST_F(Form1Test, PrintingTellsWhetherItsOptionsAreToBeSaved)
{
    EcrireOption(Options::MessageImprim, false);
    Form1& fenetre = Ouvrir();
    const double largeurDeLaVue = fenetre.ListView1().UnitesDe(fenetre.ListView1().width());
    for (const bool changer : {true, false}) {
        const GardeModale garde([&](QWidget& form) {
            ASSERT_EQ(form.objectName(), "frmPrint");
            EXPECT_EQ(form.findChild<QLabel*>("NomCat")->text(),
                      u"Zelvane v2.2 by Morvenal - ## "_s + fenetre.myqrt.filename());
            if (changer) {
                const auto& colonne = fenetre.myqrt.MyLV->ColumnHeaders(1);
                EXPECT_NEAR(form.findChild<QTableWidget*>("Largeurs")->item(0, 1)->data(Qt::EditRole).toDouble(),
                            colonne.Width() * 74.348 / largeurDeLaVue * 2.5, 0.06)
                    << "its part of the list's width";
                QTest::mouseClick(form.findChild<QWidget*>("Option1_1"), Qt::LeftButton, {}, QPoint(8, 8));
            }
            form.close();
        });
        cadre.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&cadre));
        QTest::keyClick(&fenetre.ListView1(), Qt::Key_P, Qt::ControlModifier);
        EXPECT_EQ(fenetre.myqrt.IlFautSauver, changer) << "also where there were changes: it is meant";
        EXPECT_TRUE(fenetre.myqrt.AChange()) << "which the rescue copy goes on to hold";
    }
}

TEST_F(Form1Test, AShortcutOfADisabledItemDoesNothing)
{
    const Form1& fenetre = Ouvrir();
    const QSignalSpy lancee(&Commande(fenetre, u"mCopier"_s), &QAction::triggered);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(lancee.count(), 0);
}

TEST_F(Form1Test, ItemsWithoutACommandStayAndDoNothing)
{
    const Form1& fenetre = Ouvrir();
    for (const QString& nom : {u"mImporter"_s, u"mRemplacer"_s, u"mScriptDEdition"_s}) {
        EXPECT_TRUE(Commande(fenetre, nom).isVisible()) << nom.toStdString();
        EXPECT_EQ(Commande(fenetre, nom).isEnabled(), nom == u"mScriptDEdition") << nom.toStdString();
        Commande(fenetre, nom).setEnabled(true);
        Commande(fenetre, nom).trigger();
    }
    EXPECT_EQ(cadre.Documents().size(), 1);
    EXPECT_EQ(Titres(fenetre), QStringList({"Abbey Road", "Dummy", "Takk"}));
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(Form1Test, MergingTwoCategoriesIsNotDone)
{
    const Form1& fenetre = Ouvrir();
    Commande(fenetre, u"mFusionner2Categories"_s).trigger();
    EXPECT_EQ(reponses.Cles(), QStringList({"Pas fait"})) << "in no language but this one";
}

TEST_F(Form1Test, EditingNeedsSelectedEntriesAndLookingAtOneNeedsItAlone)
{
    const Form1& vide = Ouvrir(u"vide.qrt"_s, {});
    EXPECT_FALSE(Commande(vide, u"mModifierEnree"_s).isEnabled());
    EXPECT_TRUE(Commande(vide, u"mEntree"_s).isEnabled());
    const Form1& fenetre = Ouvrir();
    const QAction& voir = Commande(fenetre, u"mVoir"_s);
    const QAction& editer = Commande(fenetre, u"mModifierEnree"_s);
    EXPECT_FALSE(editer.isEnabled());
    EXPECT_FALSE(voir.isEnabled());
    CliquerEntree(fenetre, 2);
    QCoreApplication::processEvents();
    EXPECT_TRUE(editer.isEnabled());
    EXPECT_TRUE(voir.isEnabled());
    fenetre.ListView1().selectAll();
    QCoreApplication::processEvents();
    EXPECT_TRUE(editer.isEnabled());
    EXPECT_FALSE(voir.isEnabled());
}

TEST_F(Form1Test, OpeningFromTheMenuShowsTheDialogAndTheFileIsRecent)
{
    const Form1& fenetre = Ouvrir();
    const QString autre = dossier.Ecrire(u"autre.qrt"_s, TexteDeCatalogue().Texte());
    fichiers.Preparer({autre}, 2);
    Commande(fenetre, u"mOuvrir"_s).trigger();
    EXPECT_EQ(cadre.Documents().size(), 2);
    EXPECT_EQ(Commande(fenetre, u"mRecent_0"_s).data().toString(), autre);
}

TEST_F(Form1Test, ANewlyOpenedDocumentListsItsFileAtOnce)
{
    const Form1& fenetre = Ouvrir();
    EXPECT_EQ(Commande(fenetre, u"mRecent_0"_s).data().toString(), dossier.Fichier(u"disques.qrt"_s));
}

TEST_F(Form1Test, SaveAllWritesEveryDocument)
{
    Form1& premiere = Ouvrir(u"a.qrt"_s);
    Form1& seconde = Ouvrir(u"b.qrt"_s);
    premiere.myqrt.MyLV->ListItems(1).SetText(u"Premier"_s);
    seconde.myqrt.MyLV->ListItems(1).SetText(u"Second"_s);
    EcrireOption(u"FRecent1"_s, u"/ailleurs.qrt"_s);
    EXPECT_TRUE(Commande(seconde, u"mEnregistrerTout"_s).isEnabled());
    Commande(seconde, u"mEnregistrerTout"_s).trigger();
    EXPECT_TRUE(dossier.Lire(u"a.qrt"_s).contains("Premier"));
    EXPECT_TRUE(dossier.Lire(u"b.qrt"_s).contains("Second"));
    for (const Form1* fenetre : {&premiere, &seconde})
        EXPECT_EQ(Commande(*fenetre, u"mRecent_0"_s).data().toString(), dossier.Fichier(u"b.qrt"_s));
}

TEST_F(Form1Test, WithOneDocumentLeftSaveAllAndCloseAllAreDisabledAgain)
{
    const Form1& premiere = Ouvrir(u"a.qrt"_s);
    Form1& seconde = Ouvrir(u"b.qrt"_s);
    cadre.AmenerDevant(*cadre.Documents()[0]);
    EXPECT_TRUE(Commande(premiere, u"mFermerTout"_s).isEnabled());
    seconde.Decharger();
    Passer();
    QCoreApplication::processEvents();
    for (const QString& nom : {u"mFermerTout"_s, u"mEnregistrerTout"_s}) {
        emit premiere.findChild<QMenu*>(u"mFichier"_s)->aboutToShow();
        EXPECT_FALSE(Commande(premiere, nom).isEnabled()) << nom.toStdString();
    }
}

TEST_F(Form1Test, TheCommandForANewCategoryAsksForItsColumns)
{
    const Form1& fenetre = Ouvrir();
    const GardeModale garde([](QWidget& form) {
        EXPECT_EQ(form.objectName(), "frmAddCategorie2");
        form.close();
    });
    Commande(fenetre, u"mCategorie"_s).trigger();
}

// ---- commands of the frame

TEST_F(Form1Test, CommandsOfTheFrameAreReachedFromTheMenusOfADocument)
{
    const Form1& fenetre = Ouvrir();
    for (const QString& nom : {u"mConfiguration"_s, u"mLangue"_s, u"mEnCascade"_s, u"mMosaiqueHorizontale"_s,
                               u"mMosaiqueVerticale"_s, u"mArrangeIcones"_s, u"mMinimiserTout"_s, u"mRestaurerTout"_s,
                               u"mAideDeZelvane"_s, u"mZelvaneSurLeWeb"_s, u"mAPropos"_s}) {
        const auto* modele = cadre.findChild<QAction*>(nom, Qt::FindDirectChildrenOnly);
        ASSERT_TRUE(modele) << nom.toStdString();
        const QAction& item = Commande(fenetre, nom);
        EXPECT_EQ(item.property("commande"), modele->property("commande")) << nom.toStdString();
        EXPECT_EQ(item.isEnabled(), modele->isEnabled()) << nom.toStdString();
        EXPECT_EQ(item.text(), modele->text());
    }
    const FermeModales modales;
    Commande(fenetre, u"mAPropos"_s).trigger();
    EXPECT_EQ(modales.fenetres, QStringList{u"About"_s});
    Commande(fenetre, u"mZelvaneSurLeWeb"_s).trigger();
    EXPECT_EQ(PlateformeDeTest::Courante().programmes.adresses.size(), 1);
}

TEST_F(Form1Test, WindowsAreArrangedFromTheMenusOfADocument)
{
    Ouvrir(u"a.qrt"_s);
    const Form1& fenetre = Ouvrir(u"b.qrt"_s);
    Commande(fenetre, u"mMinimiserTout"_s).trigger();
    for (const FenetreDocument* document : cadre.Documents())
        EXPECT_TRUE(dynamic_cast<const Form1&>(*document).parentWidget()->isMinimized());
    Commande(fenetre, u"mRestaurerTout"_s).trigger();
    for (const FenetreDocument* document : cadre.Documents())
        EXPECT_FALSE(dynamic_cast<const Form1&>(*document).parentWidget()->isMinimized());
}

// ---- looks

TEST_F(Form1Test, NoTwoItemsOfAMenuShareALetterAndNoTwoCommandsAKey)
{
    const Form1& fenetre = Ouvrir();
    QStringList touches;
    for (const QMenu* menu : fenetre.findChildren<QMenu*>()) {
        QString lettres;
        for (const QAction* item : menu->actions()) {
            const QString texte = item->text();
            const auto marque = texte.indexOf(u'&');
            if (marque < 0 || !item->isVisible() || item->objectName().startsWith(u"mRecent"_s))
                continue;
            const QChar lettre = texte.at(marque + 1).toLower();
            EXPECT_FALSE(lettres.contains(lettre)) << menu->objectName().toStdString() << ": " << texte.toStdString();
            lettres.append(lettre);
            if (!item->shortcut().isEmpty())
                touches.append(item->shortcut().toString());
        }
    }
    EXPECT_EQ(touches.removeDuplicates(), 0) << touches.join(u' ').toStdString();
    EXPECT_TRUE(touches.contains(u"Ctrl+E"_s));
    EXPECT_TRUE(touches.contains(u"Ctrl+M"_s));
}

TEST_F(Form1Test, ItemsShowTheKeysThatTheTableActsOn)
{
    const Form1& fenetre = Ouvrir();
    EXPECT_EQ(Commande(fenetre, u"mModifierEnree"_s).shortcut(), QKeySequence(Qt::Key_Enter));
    EXPECT_EQ(Commande(fenetre, u"mSupprimerEntree"_s).shortcut(), QKeySequence(Qt::Key_Delete));
    const QSignalSpy lancee(&Commande(fenetre, u"mSupprimerEntree"_s), &QAction::triggered);
    QTest::keyClick(fenetre.parentWidget(), Qt::Key_Delete);
    EXPECT_EQ(lancee.count(), 0) << "the key belongs to the table alone";
}

TEST_F(Form1Test, ThreeMenusHaveAPictureInTheBarBesideTheirCaption)
{
    const int sansDocument = cadre.menuBar()->actionGeometry(cadre.menuBar()->actions().constFirst()).height();
    const Form1& fenetre = Ouvrir();
    const QList<QAction*> menus = cadre.menuBar()->actions();
    for (int place = 1; place <= menus.size(); ++place) {
        QAction& menu = *menus.at(place - 1);
        EXPECT_EQ(!menu.icon().isNull(), place == 2 || place == 3 || place == 5) << place;
        if (menu.icon().isNull())
            continue;
        const QRect avec = cadre.menuBar()->actionGeometry(&menu);
        EXPECT_GT(avec.width(), cadre.menuBar()->fontMetrics().size(Qt::TextShowMnemonic, menu.text()).width() + 12);
        EXPECT_EQ(avec.height(), sansDocument);
    }
    EXPECT_FALSE(fenetre.findChild<QMenu*>(u"mPlugin"_s)->menuAction()->isVisible()) << "there are no plug-ins";
}

TEST_F(Form1Test, ThePictureOfAMenuStandsHalfwayUpItsLine)
{
    Ouvrir();
    QAction& menu = *cadre.menuBar()->actions().at(1);
    QPixmap rouge(64, 64);
    rouge.fill(Qt::red);
    menu.setIcon(rouge);
    const QImage ligne = cadre.menuBar()->grab(cadre.menuBar()->actionGeometry(&menu)).toImage();
    QRegion peints;
    for (int y = 0; y < ligne.height(); ++y) {
        for (int x = 0; x < ligne.width(); ++x) {
            if (ligne.pixelColor(x, y) == QColor(Qt::red))
                peints += QRect(x, y, 1, 1);
        }
    }
    ASSERT_FALSE(peints.isEmpty());
    EXPECT_NEAR(peints.boundingRect().center().y(), ligne.rect().center().y(), 1);
}

TEST_F(Form1Test, TheWindowSpeaksTheLanguageInForce)
{
    dossier.Ecrire(u"en.ini"_s, "[Form1]\r\nmFichier_C=&File\r\nmEntree_C=&Add an entry\r\n"
                                "lblOuvrir_C=Loading...\r\n");
    FichierLangue = dossier.Fichier(u"en.ini"_s);
    const Form1& fenetre = Ouvrir();
    EXPECT_EQ(fenetre.findChild<QMenu*>(u"mFichier"_s)->title(), "&File");
    EXPECT_EQ(Commande(fenetre, u"mEntree"_s).text(), "&Add an entry");
    EXPECT_EQ(fenetre.findChild<QLabel*>(u"lblOuvrir"_s)->text(), "Loading...");
    EXPECT_EQ(fenetre.Caption(), "disques.qrt");
}

TEST_F(Form1Test, ColumnsAreFittedToTheirCellsAndTitles)
{
    const Form1& fenetre = Ouvrir(u"a.qrt"_s, {QByteArray("Un titre vraiment tres long qui prend de la place ici|x|")});
    Commande(fenetre, u"mRedimentionAutomatique"_s).trigger();
    QCoreApplication::processEvents();
    const VueTable& vue = fenetre.ListView1();
    EXPECT_TRUE(vue.EstEntiere(1, 1));
    const int texte = vue.fontMetrics().horizontalAdvance(fenetre.myqrt.MyLV->ListItems(1).Text());
    EXPECT_LT(vue.columnWidth(0), texte + 40);
    const int titre = fenetre.fontMetrics().horizontalAdvance(u"Artiste"_s);
    EXPECT_NEAR(vue.columnWidth(1), titre + vue.PixelsDe(550), 1);
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1Test, ColumnsAreScaledToTheWindow)
{
    const Form1& fenetre = Ouvrir();
    Commande(fenetre, u"mRedimAuto2"_s).trigger();
    QCoreApplication::processEvents();
    const VueTable& vue = fenetre.ListView1();
    EXPECT_NEAR(vue.horizontalHeader()->length(), vue.width() - vue.PixelsDe(340), 3);
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}

TEST_F(Form1Test, ScalingColumnsNeedsAnEntry)
{
    EXPECT_FALSE(Commande(Ouvrir(u"vide.qrt"_s, {}), u"mRedimAuto2"_s).isEnabled());
    EXPECT_TRUE(Commande(Ouvrir(), u"mRedimAuto2"_s).isEnabled());
}

TEST_F(Form1Test, EveryItemOfTheMenusHasACaption)
{
    const Form1& fenetre = Ouvrir();
    for (const QAction* commande : fenetre.findChildren<QAction*>()) {
        if (!commande->objectName().startsWith(u'm') || commande->isSeparator() || !commande->isVisible())
            continue;
        EXPECT_FALSE(commande->text().isEmpty()) << commande->objectName().toStdString();
    }
}
