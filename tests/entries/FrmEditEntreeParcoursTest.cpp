// The editor's way from entry to entry, and the image that goes along.
#include "support/Accessibilite.h"
#include "support/GardeModale.h"

#include "EditeurDeTest.h"

#include <QAbstractItemView>
#include <QAccessible>

using namespace Qt::StringLiterals;

namespace {

class ParcoursDansLEditeur : public EditeurDeTest
{
};

} // namespace

// ---- Previous and next ----

TEST_F(ParcoursDansLEditeur, NextWritesAndShowsTheNeighbour)
{
    Editer(1);
    Taper(u" 2"_s);
    Cliquer("btSuivant");
    EXPECT_EQ(Entree(1).at(0), "Dummy 2");
    EXPECT_TRUE(form.Modifie);
    EXPECT_EQ(form.IndexEntree, 2);
    EXPECT_EQ(visible, 2);
    EXPECT_FALSE(doc.table.ListItems(1).Selected());
    EXPECT_TRUE(doc.table.ListItems(2).Selected());
    EXPECT_EQ(form.Valeurs(), QStringList({"Blue", "Joni Mitchell", "folk"}));
    EXPECT_EQ(FocusSur(), "Combo1");
    Cliquer("btPrecedent");
    EXPECT_EQ(form.IndexEntree, 1);
    EXPECT_EQ(visible, 1);
    EXPECT_TRUE(doc.table.ListItems(1).Selected());
    EXPECT_FALSE(doc.table.ListItems(2).Selected());
    EXPECT_EQ(Combo1().Texte(), "Dummy 2");
}

TEST_F(ParcoursDansLEditeur, EnterOnTheButtonsGoesOnAndClosesNothing)
{
    Editer(2);
    Le<QPushButton>("btSuivant").setFocus();
    Touche(Qt::Key_Return);
    EXPECT_EQ(form.IndexEntree, 3);
    Le<QPushButton>("btPrecedent").setFocus();
    Touche(Qt::Key_Return);
    EXPECT_EQ(form.IndexEntree, 2);
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.Valide);
}

TEST_F(ParcoursDansLEditeur, AtTheEndsTheEntryIsWrittenAndStays)
{
    Editer(3);
    Taper(u"!"_s);
    Cliquer("btSuivant");
    EXPECT_EQ(form.IndexEntree, 3);
    EXPECT_EQ(Entree(3).at(0), "Kind of Blue!");
    EXPECT_TRUE(doc.table.ListItems(3).Selected());
    EXPECT_EQ(FocusSur(), "Combo1");

    form.IndexEntree = 1;
    form.ChargerEntree();
    Taper(u"?"_s);
    Cliquer("btPrecedent");
    EXPECT_EQ(form.IndexEntree, 1);
    EXPECT_EQ(Entree(1).at(0), "Dummy?");
    EXPECT_EQ(visible, 0);
}

TEST_F(ParcoursDansLEditeur, AnEmptiedEntryIsLeftAsItWasAndTheNextOneIsShown)
{
    Editer(1);
    for (int ligne = 1; ligne <= 3; ++ligne) {
        CliquerLigne(ligne);
        LV().setFocus();
        Touche(Qt::Key_Delete);
    }
    Cliquer("btSuivant");
    EXPECT_EQ(messages.Cles(), QStringList{"msg65"});
    EXPECT_EQ(Entree(1), QStringList({"Dummy", "Portishead", "trip-hop"}));
    EXPECT_EQ(form.IndexEntree, 2);
    EXPECT_EQ(Combo1().Texte(), "Blue");
}

TEST_F(ParcoursDansLEditeur, TheNeighbourStartsAtItsFirstRowWithThatRowsList)
{
    Editer(1);
    Touche(Qt::Key_Return);
    Touche(Qt::Key_Return);
    EXPECT_EQ(Combo1().Liste().size(), 3);
    Touche(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Ligne(), 1);
    EXPECT_EQ(Combo1().Texte(), "Blue");
    EXPECT_EQ(Combo1().Liste(), QStringList());
}

TEST_F(ParcoursDansLEditeur, CancellingKeepsWhatGoingOnHasWritten)
{
    Editer(1);
    Taper(u" A"_s);
    Cliquer("btSuivant");
    Taper(u" B"_s);
    Cliquer("Annuler");
    EXPECT_EQ(Entree(1).at(0), "Dummy A");
    EXPECT_EQ(Entree(2).at(0), "Blue");
    EXPECT_TRUE(form.Modifie);
    EXPECT_FALSE(form.Valide);
    EXPECT_EQ(form.IndexEntree, 2);
}

TEST_F(ParcoursDansLEditeur, WithoutNavigationTheKeysDoNothing)
{
    form.CacherNavigation();
    Editer(1);
    Taper(u"!"_s);
    EXPECT_FALSE(Le<QPushButton>("btSuivant").isVisible());
    EXPECT_FALSE(Le<QPushButton>("btPrecedent").isVisible());
    Touche(Qt::Key_N, Qt::ControlModifier);
    Touche(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(form.IndexEntree, 1);
    EXPECT_FALSE(form.Modifie);
    EXPECT_EQ(Combo1().Texte(), "Dummy!");
}

TEST_F(ParcoursDansLEditeur, WhileAddingThereIsNoNeighbour)
{
    form.Charge = true;
    form.IndexEntree = 1;
    form.RemplirColonnes();
    Montrer();
    Taper(u"x"_s);
    Cliquer("btSuivant");
    Touche(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(form.IndexEntree, 1);
    EXPECT_EQ(Entree(1).at(0), "Dummy");
    EXPECT_EQ(form.Valeur(1), "x");
}

// ---- 16 bits ----

TEST_F(ParcoursDansLEditeur, EntriesBeyond32767CannotBeEdited)
{
    EXPECT_EQ(frmEditEntree::IndexPour(1), 1);
    EXPECT_EQ(frmEditEntree::IndexPour(32767), 32767);
    EXPECT_EQ(frmEditEntree::IndexPour(32768), 0);
    EXPECT_EQ(frmEditEntree::IndexPour(65537), 0);
    while (doc.table.ListItems.Count() < 32769)
        doc.table.ListItems.Add(0, QString(), u"x"_s);

    form.IndexEntree = frmEditEntree::IndexPour(32768);
    form.ChargerEntree();
    EXPECT_EQ(form.NombreDeLignes(), 0);
    Montrer();
    Cliquer("btSuivant");
    Cliquer("btAjouter");
    EXPECT_FALSE(form.Modifie);
    EXPECT_EQ(form.IndexEntree, 0);
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(ParcoursDansLEditeur, TheLastEntryThatCanBeEditedIsTheLastOneGoneTo)
{
    while (doc.table.ListItems.Count() < 32769)
        doc.table.ListItems.Add(0, QString(), u"x"_s);
    Editer(32767);
    Taper(u"yz"_s);
    Cliquer("btSuivant");
    EXPECT_EQ(form.IndexEntree, 32767);
    EXPECT_EQ(Entree(32767).at(0), "xyz");
    EXPECT_TRUE(doc.table.ListItems(32767).Selected());
    EXPECT_FALSE(doc.table.ListItems(32768).Selected());
}

// ---- Image ----

TEST_F(ParcoursDansLEditeur, TheImageIsThatOfTheEntry)
{
    EcrireImage(u"rouge.bmp"_s, Qt::red);
    doc.table.ListItems(1).SetTag(u"rouge.bmp"_s);
    Editer(1);
    EXPECT_EQ(form.ImgTag(), "rouge.bmp");
    EXPECT_EQ(Couleur(), QColor(Qt::red));
    Cliquer("btAjouter");
    EXPECT_EQ(doc.table.ListItems(1).Tag(), "rouge.bmp");
    EXPECT_EQ(doc.table.ListItems(1).SmallIcon(), "ico");
}

TEST_F(ParcoursDansLEditeur, AnEntryWithoutAnImageTakesTheOneBefore)
{
    EcrireImage(u"rouge.bmp"_s, Qt::red);
    doc.table.ListItems(1).SetTag(u"rouge.bmp"_s);
    Editer(1);
    Cliquer("btSuivant");
    EXPECT_EQ(Couleur(), QColor(Qt::red));
    EXPECT_EQ(form.ImgTag(), "rouge.bmp");
    EXPECT_EQ(doc.table.ListItems(2).Tag(), "");
    Cliquer("btSuivant");
    EXPECT_EQ(doc.table.ListItems(2).Tag(), "rouge.bmp");
    EXPECT_EQ(doc.table.ListItems(2).SmallIcon(), "ico");
}

TEST_F(ParcoursDansLEditeur, AnImageWhoseFileIsGoneLeavesThePictureAndIsMarked)
{
    EcrireImage(u"rouge.bmp"_s, Qt::red);
    doc.table.ListItems(1).SetTag(u"rouge.bmp"_s);
    doc.table.ListItems(2).SetTag(u"perdue.bmp"_s);
    Editer(1);
    Cliquer("btSuivant");
    EXPECT_EQ(form.ImgTag(), "perdue.bmp");
    EXPECT_EQ(Couleur(), QColor(Qt::red));
    Cliquer("btAjouter");
    EXPECT_EQ(doc.table.ListItems(2).Tag(), "perdue.bmp");
    EXPECT_EQ(doc.table.ListItems(2).SmallIcon(), "icoerror");
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(ParcoursDansLEditeur, AFileThatIsNoPictureShowsNone)
{
    EcrireImage(u"rouge.bmp"_s, Qt::red);
    doc.dossier.Ecrire(u"texte.bmp"_s, "not a picture");
    doc.table.ListItems(1).SetTag(u"rouge.bmp"_s);
    doc.table.ListItems(2).SetTag(u"texte.bmp"_s);
    Editer(1);
    Cliquer("btSuivant");
    EXPECT_FALSE(Couleur().isValid());
    EXPECT_EQ(form.ImgTag(), "texte.bmp");
}

TEST_F(ParcoursDansLEditeur, AClickOnTheImageAsksForAnotherOne)
{
    EcrireImage(u"rouge.bmp"_s, Qt::red);
    EcrireImage(u"bleue.bmp"_s, Qt::blue);
    doc.table.ListItems(1).SetTag(u"rouge.bmp"_s);
    QStringList demandes;
    QString reponse;
    form.DemanderImage = [&](const QString& dossier, const QString& nom) {
        EXPECT_EQ(dossier, doc.doc.TmpFolder);
        demandes.append(nom);
        return reponse;
    };
    Editer(1);

    QTest::mouseClick(&Img(), Qt::LeftButton);
    EXPECT_EQ(form.ImgTag(), "rouge.bmp") << "cancelled";
    EXPECT_EQ(Couleur(), QColor(Qt::red));

    reponse = u"bleue.bmp"_s;
    QTest::mouseClick(&Img(), Qt::LeftButton);
    EXPECT_EQ(form.ImgTag(), "bleue.bmp");
    EXPECT_EQ(Couleur(), QColor(Qt::blue));

    reponse = u"#"_s;
    Img().setFocus();
    Touche(Qt::Key_Space);
    EXPECT_EQ(form.ImgTag(), "");
    EXPECT_FALSE(Couleur().isValid());

    EXPECT_EQ(demandes, QStringList({"rouge.bmp", "rouge.bmp", "bleue.bmp"}));
    Cliquer("btAjouter");
    EXPECT_EQ(doc.table.ListItems(1).Tag(), "");
    EXPECT_EQ(doc.table.ListItems(1).SmallIcon(), "noico");
}

TEST_F(ParcoursDansLEditeur, TheImageIsChosenInItsDialog)
{
    EcrireImage(u"bleue.bmp"_s, Qt::blue);
    form.DemanderImage = frmEditEntree().DemanderImage;
    Editer(1);
    {
        const GardeModale garde([](QWidget& choix) {
            auto* liste = choix.findChild<QAbstractItemView*>("List1");
            const QModelIndex bleue =
                liste->model()->match(liste->model()->index(0, 0), Qt::DisplayRole, "bleue.bmp").value(0);
            ASSERT_TRUE(bleue.isValid());
            liste->setCurrentIndex(bleue);
            QTest::mouseClick(choix.findChild<QPushButton*>("btOK"), Qt::LeftButton);
        });
        QTest::mouseClick(&Img(), Qt::LeftButton);
    }
    EXPECT_EQ(form.ImgTag(), "bleue.bmp");
    EXPECT_EQ(Couleur(), QColor(Qt::blue));
    EXPECT_TRUE(form.isVisible());
}

TEST_F(ParcoursDansLEditeur, OnlyTheLeftButtonAndOnlyOnTheImageAsks)
{
    Editer(1); // and being asked fails the test
    QTest::mouseClick(&Img(), Qt::RightButton);
    QTest::mousePress(&Img(), Qt::LeftButton);
    QTest::mouseRelease(&Img(), Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5));
    EXPECT_EQ(form.ImgTag(), "");
}

TEST_F(ParcoursDansLEditeur, AddingStartsWithoutAnImage)
{
    EcrireImage(u"rouge.bmp"_s, Qt::red);
    doc.table.ListItems(1).SetTag(u"rouge.bmp"_s);
    AjouterUne();
    EXPECT_EQ(form.ImgTag(), "");
    EXPECT_FALSE(Couleur().isValid());
}

TEST_F(ParcoursDansLEditeur, TheFieldIsToldWithItsColumnAndItsValue)
{
    Editer(1);
    Combo1().setFocus();
    const auto dit = [this](QAccessible::Text quoi) {
        QAccessibleInterface* champ = QAccessible::queryAccessibleInterface(&Combo1());
        const QString texte = champ->text(quoi);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(Combo1().lineEdit())->text(quoi), texte);
        return texte;
    };
    EXPECT_EQ(dit(QAccessible::Name), "Titre");
    EXPECT_EQ(dit(QAccessible::Value), "Dummy");
    Touche(Qt::Key_Return);
    EXPECT_EQ(dit(QAccessible::Name), "Artiste");
    EXPECT_EQ(dit(QAccessible::Value), "Portishead");
    EXPECT_EQ(NomAccessible(*Combo1().view()), "Artiste");
    LV().clearSelection();
    EXPECT_EQ(dit(QAccessible::Name), "Texte de la colonne choisie");
}

TEST_F(ParcoursDansLEditeur, AssistiveTechnologiesOpenAndCloseTheListOfTheField)
{
    Editer(1);
    Touche(Qt::Key_Return);
    Touche(Qt::Key_Return);
    ASSERT_EQ(Combo1().Liste().size(), 3);
    QAccessibleInterface* champ = QAccessible::queryAccessibleInterface(&Combo1());
    EXPECT_EQ(champ->role(), QAccessible::ComboBox);
    EXPECT_TRUE(champ->state().collapsed);
    EXPECT_TRUE(champ->state().editable);
    champ->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(Combo1().view()->isVisible());
    EXPECT_TRUE(champ->state().expanded);
    champ->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_FALSE(Combo1().view()->isVisible());
}

TEST_F(ParcoursDansLEditeur, TheImageIsAButtonThatAssistiveTechnologiesPress)
{
    EcrireImage(u"rouge.bmp"_s, Qt::red);
    doc.table.ListItems(1).SetTag(u"rouge.bmp"_s);
    int demandes = 0;
    form.DemanderImage = [&demandes](const QString&, const QString&) {
        ++demandes;
        return QString();
    };
    Editer(1);
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&Img());
    EXPECT_EQ(face->role(), QAccessible::PushButton);
    EXPECT_EQ(face->text(QAccessible::Name), "Image");
    EXPECT_EQ(face->text(QAccessible::Description), "Cliquez sur l'image pour en changer.");
    const QString presser = QAccessibleActionInterface::pressAction();
    ASSERT_TRUE(face->actionInterface()->actionNames().contains(presser));
    face->actionInterface()->doAction(presser);
    EXPECT_EQ(demandes, 0) << "who presses is answered first";
    QCoreApplication::processEvents();
    EXPECT_EQ(demandes, 1);
    face->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(Img().hasFocus());
}
