#include "images/PanneauImage.h"

#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QAccessible>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTest>
#include <QtEndian>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PanneauImageTest : public testing::Test
{
protected:
    void SetUp() override
    {
        panneau.resize(108, 308);
        panneau.show();
    }
    QString Image(const QString& nom, QSize taille, const QColor& couleur = Qt::red, const char* format = "PNG")
    {
        QImage image(taille, QImage::Format_RGB32);
        image.fill(couleur);
        EXPECT_TRUE(image.save(dossier.Fichier(nom), format));
        return dossier.Fichier(nom);
    }
    QColor Couleur() const
    {
        const QImage image = panneau.Image().toImage();
        return image.pixelColor(image.width() / 2, image.height() / 2);
    }

    DossierDeTest dossier;
    PanneauImage panneau;
};

} // namespace

TEST_F(PanneauImageTest, APictureIsScaledIntoThePanelInItsProportions)
{
    ASSERT_TRUE(panneau.Charger(Image(u"a.png"_s, {1000, 500})));
    EXPECT_EQ(panneau.Image().size(), QSize(100, 50));
    ASSERT_TRUE(panneau.Charger(Image(u"b.png"_s, {500, 5000})));
    EXPECT_EQ(panneau.Image().size(), QSize(30, 300));
}

TEST_F(PanneauImageTest, ASmallPictureIsNotBlownUp)
{
    ASSERT_TRUE(panneau.Charger(Image(u"a.png"_s, {16, 12})));
    EXPECT_EQ(panneau.Image().size(), QSize(16, 12));
}

TEST_F(PanneauImageTest, APictureIsShownUnderAWrongName)
{
    EXPECT_TRUE(panneau.Charger(Image(u"a.jpg"_s, {16, 12}, Qt::blue, "PNG")));
    EXPECT_EQ(Couleur(), QColor(Qt::blue));
}

TEST_F(PanneauImageTest, AFileThatIsNoPictureLeavesThePanelAsItWas)
{
    ASSERT_TRUE(panneau.Charger(Image(u"a.png"_s, {16, 12})));
    EXPECT_FALSE(panneau.Charger(dossier.Ecrire(u"b.png"_s, "GIF89a and nothing more")));
    EXPECT_FALSE(panneau.Charger(dossier.Ecrire(u"c.png"_s, QByteArray())));
    EXPECT_FALSE(panneau.Charger(dossier.Fichier(u"missing.png"_s)));
    EXPECT_EQ(Couleur(), QColor(Qt::red));
    panneau.Vider();
    EXPECT_FALSE(panneau.Charger(dossier.Fichier(u"c.png"_s)));
    EXPECT_TRUE(panneau.Image().isNull());
}

/// The head of a bitmap of 60000 by 60000 points, and nothing behind it.
TEST_F(PanneauImageTest, APictureThatSaysItIsHugeTakesNoMemory)
{
    QFile fichier(Image(u"geante.bmp"_s, {4, 4}, Qt::red, "BMP"));
    ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
    const QByteArray cote("\x60\xEA\x00\x00", 4);
    fichier.seek(18);
    fichier.write(cote + cote);
    fichier.close();
    EXPECT_FALSE(panneau.Charger(fichier.fileName()));
    EXPECT_TRUE(panneau.Image().isNull());
}

TEST_F(PanneauImageTest, APanelWithoutRoomTakesAPictureThatIsReducedToIt)
{
    // Too large to be held, so it is reduced as it is read: by what its side is divided by that of the panel.
    const QString chemin = Image(u"grande.bmp"_s, {10000, 1}, Qt::red, "BMP");
    QFile fichier(chemin);
    ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
    QByteArray tete = fichier.read(54);
    const qint32 hauteur = 10000;
    qToLittleEndian(hauteur, tete.data() + 22);
    ASSERT_TRUE(fichier.seek(0) && fichier.write(tete) == tete.size() && fichier.resize(54 + 40000LL * hauteur));
    fichier.close();
    panneau.resize(108, 8); // its margins
    EXPECT_TRUE(panneau.Charger(chemin));
    EXPECT_EQ(panneau.Image().size(), QSize(1, 1));
}

TEST_F(PanneauImageTest, AFileThatChangedIsReadAgain)
{
    const QString chemin = Image(u"a.png"_s, {16, 12}, Qt::red);
    ASSERT_TRUE(panneau.Charger(chemin));
    Image(u"a.png"_s, {20, 12}, Qt::blue);
    QFile fichier(chemin);
    ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
    fichier.setFileTime(QFileInfo(chemin).lastModified().addSecs(7), QFileDevice::FileModificationTime);
    fichier.close();
    ASSERT_TRUE(panneau.Charger(chemin));
    EXPECT_EQ(Couleur(), QColor(Qt::blue));
}

TEST_F(PanneauImageTest, ALargerPanelShowsALargerPicture)
{
    ASSERT_TRUE(panneau.Charger(Image(u"a.png"_s, {1000, 500})));
    panneau.resize(208, 308);
    QCoreApplication::processEvents();
    EXPECT_EQ(panneau.Image().size(), QSize(200, 100));
}

TEST_F(PanneauImageTest, AnEmptiedPanelDrawsNothing)
{
    const QImage vide = panneau.grab().toImage();
    ASSERT_TRUE(panneau.Charger(Image(u"a.png"_s, {50, 50})));
    EXPECT_NE(panneau.grab().toImage(), vide);
    EXPECT_EQ(panneau.grab().toImage().pixelColor(54, 154), QColor(Qt::red)) << "in the middle";
    panneau.Vider();
    EXPECT_EQ(panneau.grab().toImage(), vide);
}

TEST_F(PanneauImageTest, ScreenReadersAreToldAnImage)
{
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&panneau);
    EXPECT_EQ(face->role(), QAccessible::Graphic);
    ASSERT_TRUE(face->imageInterface());
    EXPECT_EQ(face->text(QAccessible::Description), "sans image");
    EXPECT_TRUE(face->imageInterface()->imageSize().isEmpty());

    ASSERT_TRUE(panneau.Charger(Image(u"a.png"_s, {50, 20})));
    EXPECT_EQ(face->text(QAccessible::Description), "");
    EXPECT_EQ(face->imageInterface()->imageSize(), QSize(50, 20));
    const QRect place(face->imageInterface()->imagePosition(), QSize(50, 20));
    EXPECT_TRUE(face->rect().contains(place));
    panneau.setAccessibleDescription(u"Pochette"_s);
    EXPECT_EQ(face->imageInterface()->imageDescription(), u"Pochette"_s);
}
