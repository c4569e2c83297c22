// The images panel of a document.
#include "Form1EnFenetre.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

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
    EXPECT_EQ(LireOption(u"AffImg"_s, {}).toString(), "0");
    fenetre.mAfficherImages_Click();
    EXPECT_TRUE(Img(fenetre).isVisible());
    EXPECT_EQ(LireOption(u"AffImg"_s, {}).toString(), "1");
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

TEST_F(ImagesTest, ThePictureGoesWithTheLastEntry)
{
    Form1& fenetre = Ouvrir();
    MettreImage(fenetre, 1, u"un.png"_s, {40, 40}, Qt::red);
    fenetre.AfficheImageEnCours(1);
    ASSERT_EQ(CouleurDImg(fenetre), QColor(Qt::red));
    fenetre.myqrt.MyLV->ListItems.Clear();
    QCoreApplication::processEvents();
    EXPECT_TRUE(Img(fenetre).Image().isNull());
}

TEST_F(ImagesTest, ADoubleClickOnThePictureEditsTheOneSelectedEntry)
{
    const Form1& fenetre = Ouvrir();
    const FermeModales ouvertes;
    QTest::mouseDClick(&Img(fenetre), Qt::LeftButton);
    EXPECT_TRUE(ouvertes.fenetres.isEmpty()) << "nothing is selected";
    CliquerEntree(fenetre, 1);
    QTest::mouseDClick(&Img(fenetre), Qt::LeftButton);
    EXPECT_EQ(ouvertes.fenetres, QStringList{u"frmEditEntree"_s});
}

TEST_F(ImagesTest, ADoubleClickOnThePictureEditsNothingWhenSeveralEntriesAreSelected)
{
    const Form1& fenetre = Ouvrir();
    const FermeModales ouvertes;
    fenetre.ListView1().selectAll();
    QTest::mouseDClick(&Img(fenetre), Qt::LeftButton);
    EXPECT_TRUE(ouvertes.fenetres.isEmpty());
    EXPECT_TRUE(reponses.Affiches().isEmpty()) << "not even the question about editing several";
}

TEST_F(ImagesTest, TheRightButtonOnTheTableShowsThePictureAnew)
{
    Form1& fenetre = Ouvrir();
    MettreImage(fenetre, 1, u"un.png"_s, {40, 40}, Qt::red);
    CliquerEntree(fenetre, 1);
    QCoreApplication::processEvents();
    ASSERT_EQ(CouleurDImg(fenetre), QColor(Qt::red));
    MettreImage(fenetre, 2, u"un.png"_s, {40, 40}, Qt::blue);
    QCoreApplication::processEvents();
    Img(fenetre).Vider();
    CliquerEntree(fenetre, 1, Qt::RightButton);
    EXPECT_EQ(CouleurDImg(fenetre), QColor(Qt::blue));
    EXPECT_EQ(MenuSurgi(), "MenuClickDroit");
}

TEST_F(ImagesTest, TheRightButtonOnThePanelPopsUpTheMenuOfASelection)
{
    const Form1& fenetre = Ouvrir();
    EcrireOption(u"FontBold"_s, true);
    QTest::mouseClick(&Img(fenetre), Qt::RightButton);
    EXPECT_TRUE(fenetre.ListView1().font().bold()) << "the layout is redone first";
    EXPECT_EQ(MenuSurgi(), "MenuClickDroit") << "also with nothing selected";
}
