#include "images/frmSupprImg.h"

#include "images/PanneauImage.h"
#include "images/SupprimerImage.h"
#include "support/Accessibilite.h"
#include "support/DossierDeTest.h"
#include "support/GardeModale.h"

#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FrmSupprImgTest : public testing::Test
{
protected:
    FrmSupprImgTest()
    {
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(Chemin()));
    }
    QString Chemin() const { return m_dossier.Fichier("a.bmp"); }
    int Demander(const std::function<void(QWidget&)>& geste) const
    {
        const GardeModale garde(geste);
        return DemanderSupprImg(Chemin());
    }
    int Presser(const char* bouton) const
    {
        return Demander([&](QWidget& form) {
            QTest::mouseClick(form.findChild<QPushButton*>(QString::fromLatin1(bouton)), Qt::LeftButton);
        });
    }

    DossierDeTest m_dossier;
};

} // namespace

TEST_F(FrmSupprImgTest, ShowsTheImageAndItsQuestion)
{
    Demander([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Suppression d'une image");
        EXPECT_EQ(form.findChild<QLabel*>("Label1")->text(), u"Voulez-vous supprimer cette image de la catégorie?"_s);
        EXPECT_EQ(form.accessibleDescription(), form.findChild<QLabel*>("Label1")->text()) << "read out with it";
        EXPECT_EQ(form.findChild<QPushButton*>("btOuiAll")->text().remove(u'&'), "Oui pour tous");
        EXPECT_EQ(form.findChild<QPushButton*>("btNonAll")->text().remove(u'&'), "Non pour tous");
        EXPECT_EQ(form.findChild<PanneauImage*>("Img")->Image().size(), QSize(40, 30));
        EXPECT_EQ(ControlesSansNom(form), QStringList());
        form.close();
    });
}

TEST_F(FrmSupprImgTest, EachButtonHasItsAnswer)
{
    EXPECT_EQ(Presser("btOui"), 1);
    EXPECT_EQ(Presser("btOuiAll"), 2);
    EXPECT_EQ(Presser("btNon"), 3);
    EXPECT_EQ(Presser("btNonAll"), 4);
}

TEST_F(FrmSupprImgTest, ClosingEscapeAndAHastyEnterKeepTheImage)
{
    EXPECT_EQ(Demander([](QWidget& form) { form.close(); }), 3);
    EXPECT_EQ(Demander([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); }), 3);
    EXPECT_EQ(Demander([](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Return); }), 3);
}

TEST_F(FrmSupprImgTest, AFileThatIsNoPictureIsAskedAboutToo)
{
    m_dossier.Ecrire("a.bmp", "no picture");
    Demander([](QWidget& form) {
        EXPECT_TRUE(form.findChild<PanneauImage*>("Img")->Image().isNull());
        form.close();
    });
}

TEST_F(FrmSupprImgTest, TheAnswerDecidesOverTheFile)
{
    int mode = 0;
    {
        const GardeModale garde([](QWidget& form) { form.close(); });
        EXPECT_FALSE(SupprimerImage(Chemin(), mode));
    }
    EXPECT_TRUE(QFile::exists(Chemin()));
    EXPECT_EQ(mode, 3);
    const GardeModale garde(
        [](QWidget& form) { QTest::mouseClick(form.findChild<QPushButton*>("btOuiAll"), Qt::LeftButton); });
    EXPECT_TRUE(SupprimerImage(Chemin(), mode));
    EXPECT_EQ(mode, 2);
    EXPECT_FALSE(QFile::exists(Chemin()));
}
