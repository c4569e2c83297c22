// What a user sees and does in the window of one document, inside the frame.
#include "shell/Form1.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "catalogue/OuvrirFichiersQrt.h"
#include "catalogue/Sauver.h"
#include "images/PanneauImage.h"
#include "shell/MDIForm1.h"
#include "shell/ModeleTable.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Form1Test : public testing::Test
{
protected:
    void SetUp() override
    {
        cadre.show();
        cadre.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&cadre));
    }
    void TearDown() override { EnCoursDeSauvegarde = false; }

    Form1& Ouvrir(const QString& nom = u"disques.qrt"_s,
                  const QList<QByteArray>& entrees = {"Abbey Road|", "Dummy|", "Takk|"})
    {
        TexteDeCatalogue texte;
        texte.colonnes = {"Titre|2880|", "Artiste|1440|", "Prêté|600|"};
        texte.entrees = entrees;
        EXPECT_TRUE(OuvrirFichier(cadre, dossier.Ecrire(nom, texte.Texte()), TypeQrt2, true));
        QCoreApplication::processEvents();
        return dynamic_cast<Form1&>(*cadre.Documents().back());
    }
    static QAction& Commande(const Form1& fenetre, const QString& nom)
    {
        auto* commande = fenetre.findChild<QAction*>(nom);
        EXPECT_TRUE(commande) << nom.toStdString();
        return *commande;
    }
    static PanneauImage& Img(const Form1& fenetre) { return *fenetre.findChild<PanneauImage*>(u"Img"_s); }
    static QString Panneau(const Form1& fenetre, int numero)
    {
        return fenetre.findChild<QLabel*>(u"StatusBar1_%1"_s.arg(numero))->text();
    }
    static void CliquerTitre(const Form1& fenetre, int colonne)
    {
        QHeaderView& titres = *fenetre.ListView1().horizontalHeader();
        const QPoint place(titres.sectionViewportPosition(colonne - 1) + 20, titres.height() / 2);
        QTest::mouseClick(titres.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QCoreApplication::processEvents();
    }
    static QPoint Milieu(const Form1& fenetre, int ligne, int colonne = 1)
    {
        const VueTable& vue = fenetre.ListView1();
        return vue.visualRect(vue.model()->index(ligne - 1, colonne - 1)).center();
    }
    static void CliquerEntree(const Form1& fenetre, int ligne, Qt::MouseButton bouton = Qt::LeftButton)
    {
        QTest::mouseClick(fenetre.ListView1().viewport(), bouton, Qt::NoModifier, Milieu(fenetre, ligne));
    }
    static QStringList Titres(const Form1& fenetre) { return ColonneDe(*fenetre.myqrt.MyLV, 1); }
    /// Gives an entry a picture of one colour in the document's folder.
    static void MettreImage(Form1& fenetre, int ligne, const QString& nom, QSize taille, const QColor& couleur)
    {
        QImage image(taille, QImage::Format_RGB32);
        image.fill(couleur);
        ASSERT_TRUE(image.save(fenetre.myqrt.TmpFolder + nom, "PNG"));
        fenetre.myqrt.MyLV->ListItems(ligne).SetTag(nom);
    }
    static QColor CouleurDImg(const Form1& fenetre)
    {
        const QImage image = Img(fenetre).Image().toImage();
        return image.isNull() ? QColor() : image.pixelColor(image.width() / 2, image.height() / 2);
    }
    QStringList BarreDuCadre() const
    {
        QStringList menus;
        for (const QAction* menu : cadre.menuBar()->actions())
            menus.append(menu->text());
        return menus;
    }
    static void Passer() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    DossierDeTest dossier;
    FileDeReponses reponses;
    FileDeFichiers fichiers;
    MDIForm1 cadre;
};

/// A frame whose bars record what they are told.
class CadreAvecBarres : public QMainWindow, public BarresDuCadre
{
public:
    void MontrerEtats(bool grille, bool images) override { etats = {grille, images}; }
    bool GrandesIcones() const override { return grandes; }
    void mGrandesIcones_Click() override { grandes = !grandes; }

    std::pair<bool, bool> etats{false, false};
    bool grandes = true;
};

/// A window with images on.
class ImagesTest : public Form1Test
{
protected:
    void SetUp() override
    {
        Form1Test::SetUp();
        EcrireOption(u"AffImg"_s, u"1"_s);
    }
};

} // namespace

// ---- sorting

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

TEST_F(Form1Test, ADoubleClickAsksToSeeTheOneSelectedEntry)
{
    const Form1& fenetre = Ouvrir();
    QSignalSpy voir(&fenetre, &Form1::VoirEntree);
    CliquerEntree(fenetre, 2);
    QTest::mouseDClick(fenetre.ListView1().viewport(), Qt::LeftButton, Qt::NoModifier, Milieu(fenetre, 2));
    ASSERT_EQ(voir.count(), 1);
    EXPECT_EQ(voir[0][0].toInt(), 2);
}

TEST_F(Form1Test, ADoubleClickAmongSeveralSelectedEntriesShowsNone)
{
    const Form1& fenetre = Ouvrir();
    QSignalSpy voir(&fenetre, &Form1::VoirEntree);
    fenetre.ListView1().selectAll();
    QTest::mouseDClick(fenetre.ListView1().viewport(), Qt::LeftButton, Qt::ControlModifier, Milieu(fenetre, 2));
    EXPECT_EQ(voir.count(), 0);
}

TEST_F(Form1Test, ShiftAndEnterAskToSeeTheEntryWithTheFocus)
{
    const Form1& fenetre = Ouvrir();
    QSignalSpy voir(&fenetre, &Form1::VoirEntree);
    CliquerEntree(fenetre, 3);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Return, Qt::ShiftModifier);
    ASSERT_EQ(voir.count(), 1);
    EXPECT_EQ(voir[0][0].toInt(), 3);
}

TEST_F(Form1Test, ShiftAndEnterInAnEmptyTableAskForNothing)
{
    const Form1& fenetre = Ouvrir(u"vide.qrt"_s, {});
    QSignalSpy voir(&fenetre, &Form1::VoirEntree);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(voir.count(), 0);
}

TEST_F(Form1Test, KeysOfCommandsReachTheirMenuItems)
{
    const Form1& fenetre = Ouvrir();
    const QList<std::tuple<Qt::Key, Qt::KeyboardModifiers, QString>> touches = {
        {Qt::Key_Return, Qt::NoModifier, u"mModifierEnree"_s},
        {Qt::Key_Enter, Qt::KeypadModifier, u"mModifierEnree"_s},
        {Qt::Key_Delete, Qt::NoModifier, u"mSupprimerEntree"_s},
        {Qt::Key_Plus, Qt::KeypadModifier, u"mEntree"_s},
    };
    for (const auto& [touche, avec, nom] : touches) {
        QAction& commande = Commande(fenetre, nom);
        QSignalSpy lancee(&commande, &QAction::triggered);
        commande.setEnabled(true);
        QTest::keyClick(&fenetre.ListView1(), touche, avec);
        EXPECT_EQ(lancee.count(), 1) << nom.toStdString();
    }
}

TEST_F(Form1Test, APlusThatIsTypedIsNoCommand)
{
    const Form1& fenetre = Ouvrir();
    Commande(fenetre, u"mEntree"_s).setEnabled(true);
    QSignalSpy lancee(&Commande(fenetre, u"mEntree"_s), &QAction::triggered);
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

TEST_F(Form1Test, TheRightButtonRefreshesTheCounts)
{
    const Form1& fenetre = Ouvrir();
    CliquerEntree(fenetre, 1, Qt::RightButton);
    EXPECT_EQ(Panneau(fenetre, 2), u"1 selectionnée(s)"_s);
}

// ---- pictures

TEST_F(Form1Test, TheImagesPanelIsHiddenWhenADocumentOpens)
{
    const Form1& fenetre = Ouvrir();
    EXPECT_FALSE(Img(fenetre).isVisible());
    EXPECT_FALSE(Commande(fenetre, u"mAfficherImages"_s).isChecked());
}

TEST_F(ImagesTest, TheSettingKeepsThePanelOnShow)
{
    const Form1& fenetre = Ouvrir();
    EXPECT_TRUE(Img(fenetre).isVisible());
    EXPECT_TRUE(Commande(fenetre, u"mAfficherImages"_s).isChecked());
    EXPECT_LE(Img(fenetre).geometry().right(), fenetre.ListView1().geometry().left());
}

TEST_F(ImagesTest, TogglingThePanelIsRemembered)
{
    Form1& fenetre = Ouvrir();
    fenetre.mAfficherImages_Click();
    EXPECT_FALSE(Img(fenetre).isVisible());
    EXPECT_EQ(LireOption(u"AffImg"_s).toString(), "0");
    fenetre.mAfficherImages_Click();
    EXPECT_TRUE(Img(fenetre).isVisible());
    EXPECT_EQ(LireOption(u"AffImg"_s).toString(), "1");
}

TEST_F(ImagesTest, ThePictureIsThatOfTheEntryWithTheFocus)
{
    Form1& fenetre = Ouvrir();
    MettreImage(fenetre, 1, u"un.png"_s, {40, 40}, Qt::red);
    MettreImage(fenetre, 2, u"deux.png"_s, {40, 40}, Qt::blue);
    CliquerEntree(fenetre, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(CouleurDImg(fenetre), QColor(Qt::red));
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Down);
    EXPECT_EQ(CouleurDImg(fenetre), QColor(Qt::blue));
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Down);
    EXPECT_TRUE(Img(fenetre).Image().isNull()) << "an entry without a picture";
}

TEST_F(ImagesTest, WithThePanelHiddenThereIsNoPicture)
{
    Form1& fenetre = Ouvrir();
    MettreImage(fenetre, 1, u"un.png"_s, {40, 40}, Qt::red);
    CliquerEntree(fenetre, 1);
    fenetre.mAfficherImages_Click();
    EXPECT_TRUE(Img(fenetre).Image().isNull());
    fenetre.AfficheImageEnCours(1);
    EXPECT_TRUE(Img(fenetre).Image().isNull());
    fenetre.mAfficherImages_Click();
    EXPECT_EQ(CouleurDImg(fenetre), QColor(Qt::red));
}

TEST_F(ImagesTest, APictureWhoseFileIsGoneIsCleared)
{
    Form1& fenetre = Ouvrir();
    MettreImage(fenetre, 1, u"un.png"_s, {40, 40}, Qt::red);
    fenetre.AfficheImageEnCours(1);
    QFile::remove(fenetre.myqrt.TmpFolder + u"un.png"_s);
    fenetre.AfficheImageEnCours(1);
    EXPECT_TRUE(Img(fenetre).Image().isNull());
}

TEST_F(ImagesTest, APictureThatCannotBeLoadedLeavesTheOneThatIsShown)
{
    Form1& fenetre = Ouvrir();
    MettreImage(fenetre, 1, u"un.png"_s, {40, 40}, Qt::red);
    fenetre.AfficheImageEnCours(1);
    QFile faux(fenetre.myqrt.TmpFolder + u"faux.png"_s);
    ASSERT_TRUE(faux.open(QIODevice::WriteOnly));
    faux.write("no picture");
    faux.close();
    fenetre.myqrt.MyLV->ListItems(2).SetTag(u"faux.png"_s);
    fenetre.AfficheImageEnCours(2);
    EXPECT_EQ(CouleurDImg(fenetre), QColor(Qt::red));
}

TEST_F(ImagesTest, AFileOfAnotherFolderIsNeverAPicture)
{
    Form1& fenetre = Ouvrir();
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::green);
    ASSERT_TRUE(image.save(dossier.Fichier(u"dehors.png"_s)));
    const QString dehors = QDir(fenetre.myqrt.TmpFolder).relativeFilePath(dossier.Fichier(u"dehors.png"_s));
    fenetre.myqrt.MyLV->ListItems(1).SetTag(dehors);
    fenetre.AfficheImageEnCours(1);
    EXPECT_TRUE(Img(fenetre).Image().isNull());
}

TEST_F(ImagesTest, AnEntryThatIsNotThereClearsThePanel)
{
    Form1& fenetre = Ouvrir();
    MettreImage(fenetre, 1, u"un.png"_s, {40, 40}, Qt::red);
    fenetre.AfficheImageEnCours(1);
    fenetre.AfficheImageEnCours(4);
    EXPECT_TRUE(Img(fenetre).Image().isNull());
}

TEST_F(ImagesTest, ADoubleClickOnThePictureEditsTheOneSelectedEntry)
{
    const Form1& fenetre = Ouvrir();
    QAction& editer = Commande(fenetre, u"mModifierEnree"_s);
    editer.setEnabled(true);
    QSignalSpy lancee(&editer, &QAction::triggered);
    QTest::mouseDClick(&Img(fenetre), Qt::LeftButton);
    EXPECT_EQ(lancee.count(), 0) << "nothing is selected";
    CliquerEntree(fenetre, 1);
    QTest::mouseDClick(&Img(fenetre), Qt::LeftButton);
    EXPECT_EQ(lancee.count(), 1);
}

// ---- closing

TEST_F(Form1Test, AnUnchangedDocumentClosesWithoutAQuestion)
{
    Ouvrir().Decharger();
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(Form1Test, AChangedDocumentStaysWhenTheQuestionIsCancelled)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepAnnuler);
    fenetre.Decharger();
    EXPECT_EQ(cadre.Documents().size(), 1);
    EXPECT_TRUE(QFile::exists(fenetre.myqrt.TmpFolder + u"Zelvane.qrt"_s));
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1Test, AChangedDocumentIsSavedWhenTheUserSaysSo)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.MyLV->ListItems(1).SetText(u"Aladdin Sane"_s);
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepOui);
    fenetre.Decharger();
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_TRUE(dossier.Lire(u"disques.qrt"_s).contains("Aladdin Sane"));
}

TEST_F(Form1Test, ChangesCanBeGivenUp)
{
    Form1& fenetre = Ouvrir();
    const QString temporaire = fenetre.myqrt.TmpFolder;
    fenetre.myqrt.MyLV->ListItems(1).SetText(u"Aladdin Sane"_s);
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepNon);
    fenetre.Decharger();
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_FALSE(dossier.Lire(u"disques.qrt"_s).contains("Aladdin Sane"));
    EXPECT_FALSE(QFile::exists(temporaire));
}

TEST_F(Form1Test, ADocumentDoesNotCloseDuringASave)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.IlFautSauver = true;
    EnCoursDeSauvegarde = true;
    fenetre.Decharger();
    EXPECT_EQ(cadre.Documents().size(), 1);
    EXPECT_TRUE(QFile::exists(fenetre.myqrt.TmpFolder));
    EXPECT_TRUE(reponses.Affiches().isEmpty()) << "no question is asked meanwhile";
    fenetre.myqrt.IlFautSauver = false;
}

TEST_F(Form1Test, OneDocumentThatRefusesKeepsTheProgram)
{
    Form1& fenetre = Ouvrir();
    fenetre.myqrt.IlFautSauver = true;
    reponses.Preparer(RepAnnuler);
    Commande(fenetre, u"mQuitter"_s).trigger();
    EXPECT_TRUE(cadre.isVisible());
    EXPECT_EQ(cadre.Documents().size(), 1);
    fenetre.myqrt.IlFautSauver = false;
}

// ---- menus

TEST_F(Form1Test, TheMenusOfADocumentTakeThePlaceOfTheFrames)
{
    const QStringList duCadre = BarreDuCadre();
    Form1& fenetre = Ouvrir();
    EXPECT_EQ(BarreDuCadre(), QStringList({"&Fichier", "&Edition", "&Affichage", "Ou&tils", u"&Prêt"_s, "&Options",
                                           u"Fe&nêtre"_s, "A&ide"}));
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

TEST_F(Form1Test, TheBarsOfTheFrameShowTheStatesOfTheView)
{
    CadreAvecBarres barres;
    auto* fenetre = new Form1;
    barres.setCentralWidget(fenetre);
    fenetre->RedrawAll();
    EXPECT_EQ(barres.etats, std::pair(false, true)) << "no lines in a new table, images on";
    fenetre->mAfficherImages_Click();
    EXPECT_EQ(barres.etats, std::pair(false, false));
    Commande(*fenetre, u"mAfficherGrille"_s).trigger();
    EXPECT_EQ(barres.etats, std::pair(true, false));
}

TEST_F(Form1Test, LargeIconsAreAStateOfTheFrame)
{
    CadreAvecBarres barres;
    auto* fenetre = new Form1;
    QAction& grandes = Commande(*fenetre, u"mGrandesIcones"_s);
    EXPECT_FALSE(grandes.isEnabled()) << "without a frame";
    barres.setCentralWidget(fenetre);
    fenetre->RedrawAll();
    EXPECT_TRUE(grandes.isEnabled());
    EXPECT_TRUE(grandes.isChecked());
    grandes.trigger();
    EXPECT_FALSE(barres.grandes);
    EXPECT_FALSE(grandes.isChecked());
}

TEST_F(Form1Test, ItemsWhoseCommandIsNotBuiltStandDisabled)
{
    const Form1& fenetre = Ouvrir();
    for (const QString& nom : {u"mOuvrir"_s, u"mImporter"_s, u"mExporter"_s, u"mImprimer"_s, u"mRemplacer"_s,
                               u"mModifierEnree"_s, u"mEntree"_s, u"mSupprimerEntree"_s, u"mStatistiques"_s})
        EXPECT_FALSE(Commande(fenetre, nom).isEnabled()) << nom.toStdString();
}

TEST_F(Form1Test, AShortcutOfADisabledItemDoesNothing)
{
    const Form1& fenetre = Ouvrir();
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_E, Qt::ControlModifier);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Delete);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_Return);
    EXPECT_EQ(fenetre.myqrt.ItemsCount(), 3);
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
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

TEST_F(Form1Test, EveryItemOfTheMenusHasACaption)
{
    const Form1& fenetre = Ouvrir();
    for (const QAction* commande : fenetre.findChildren<QAction*>()) {
        if (!commande->objectName().startsWith(u'm') || commande->isSeparator() || !commande->isVisible())
            continue;
        EXPECT_FALSE(commande->text().isEmpty()) << commande->objectName().toStdString();
    }
}

// ---- look and state

TEST_F(Form1Test, TheStateOfTheWindowIsRemembered)
{
    const Form1& fenetre = Ouvrir();
    fenetre.parentWidget()->showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(LireOption(u"SizeForm1"_s).toString(), "0");
    fenetre.parentWidget()->showMaximized();
    QCoreApplication::processEvents();
    EXPECT_EQ(LireOption(u"SizeForm1"_s).toString(), "2");
    fenetre.parentWidget()->showMinimized();
    QCoreApplication::processEvents();
    EXPECT_EQ(LireOption(u"SizeForm1"_s).toString(), "1");
}

TEST_F(Form1Test, OpeningADocumentLeavesTheStateAsItWasSet)
{
    EcrireOption(u"SizeForm1"_s, 2);
    Ouvrir(u"a.qrt"_s);
    EXPECT_EQ(LireOption(u"SizeForm1"_s).toString(), "2");
    Ouvrir(u"b.qrt"_s);
    EXPECT_EQ(LireOption(u"SizeForm1"_s).toString(), "2");
}

TEST_F(Form1Test, AReducedWindowStillCounts)
{
    Form1& fenetre = Ouvrir();
    fenetre.parentWidget()->showMinimized();
    fenetre.myqrt.MyLV->ListItems.Remove(1);
    fenetre.RedrawAll(true);
    EXPECT_EQ(Panneau(fenetre, 1), u"2 entrée(s)"_s);
}

TEST_F(Form1Test, TheFontAndTheColourAreThoseOfTheSettings)
{
    Form1& fenetre = Ouvrir();
    EcrireOption(u"FontSize"_s, u"17,5"_s);
    EcrireOption(u"FontBold"_s, true);
    EcrireOption(u"FontItalic"_s, true);
    EcrireOption(u"FontColor"_s, 0xFF8000);
    fenetre.RedrawAll();
    EXPECT_FALSE(fenetre.ListView1().font().bold()) << "not before the layout is redone";
    fenetre.RedrawAll(true);
    const QFont police = fenetre.ListView1().font();
    EXPECT_EQ(police.pointSizeF(), 17.5);
    EXPECT_TRUE(police.bold());
    EXPECT_TRUE(police.italic());
    EXPECT_TRUE(fenetre.font().bold());
    EXPECT_EQ(fenetre.ListView1().palette().color(QPalette::Text), QColor(0, 0x80, 0xFF));
}

TEST_F(Form1Test, WithoutSettingsTheTableLooksLikeTheDesktop)
{
    const Form1& fenetre = Ouvrir();
    EXPECT_EQ(fenetre.ListView1().font().pointSizeF(), QApplication::font().pointSizeF());
    EXPECT_EQ(fenetre.ListView1().font().family(), QApplication::font().family());
    EXPECT_EQ(fenetre.ListView1().palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
}

TEST_F(Form1Test, SettingsThatAreNoFontChangeNothing)
{
    Form1& fenetre = Ouvrir();
    EcrireOption(u"FontSize"_s, u"-3"_s);
    EcrireOption(u"FontName"_s, u"No such family"_s);
    EcrireOption(u"FontColor"_s, u"red"_s);
    fenetre.RedrawAll(true);
    EXPECT_EQ(fenetre.ListView1().font().pointSizeF(), QApplication::font().pointSizeF());
    EXPECT_EQ(fenetre.ListView1().palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
}
