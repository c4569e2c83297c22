#include "images/frmRemplacerImg.h"

#include "images/PanneauImage.h"
#include "support/Accessibilite.h"
#include "support/DossierDeTest.h"

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FrmRemplacerImgTest : public testing::Test
{
protected:
    FrmRemplacerImgTest() : m_gauche(Image("a.bmp", {40, 30})), m_droite(Image("b.bmp", {20, 50})) {}
    QString Image(const QString& nom, QSize taille) const
    {
        QImage image(taille, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(m_dossier.Fichier(nom)));
        return m_dossier.Fichier(nom);
    }

    DossierDeTest m_dossier;
    QString m_gauche;
    QString m_droite;
};

} // namespace

TEST_F(FrmRemplacerImgTest, ShowsTheCategorysImageLeftAndTheNewOneRight)
{
    frmRemplacerImg form(m_gauche, m_droite);
    form.show();
    const auto* gauche = form.findChild<PanneauImage*>("Img_0");
    const auto* droite = form.findChild<PanneauImage*>("Img_1");
    EXPECT_EQ(form.windowTitle(), "Remplacer une image");
    EXPECT_EQ(form.findChild<QLabel*>("Label1")->text(),
              "Voulez-vous remplacer l'image de gauche par celle de droite ?");
    EXPECT_EQ(form.accessibleDescription(), form.findChild<QLabel*>("Label1")->text()) << "read out with the window";
    EXPECT_EQ(gauche->Image().size(), QSize(40, 30));
    EXPECT_EQ(droite->Image().size(), QSize(20, 50));
    EXPECT_LT(gauche->mapToGlobal(QPoint()).x(), droite->mapToGlobal(QPoint()).x());
    EXPECT_EQ(ControlesSansNom(form), QStringList());
    EXPECT_FALSE(form.Resultat);
}

TEST_F(FrmRemplacerImgTest, OnlyYesIsYes)
{
    {
        frmRemplacerImg form(m_gauche, m_droite);
        form.show();
        QTest::mouseClick(form.findChild<QPushButton*>("btOui"), Qt::LeftButton);
        EXPECT_TRUE(form.Resultat);
        EXPECT_FALSE(form.isVisible());
    }
    for (const auto& geste : QList<std::function<void(QWidget&)>>{
             [](QWidget& form) { QTest::mouseClick(form.findChild<QPushButton*>("btNon"), Qt::LeftButton); },
             [](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); },
             [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Return); },
             [](QWidget& form) { form.close(); }}) {
        frmRemplacerImg form(m_gauche, m_droite);
        form.show();
        geste(form);
        EXPECT_FALSE(form.Resultat);
        EXPECT_FALSE(form.isVisible());
    }
}

TEST_F(FrmRemplacerImgTest, AFileThatIsNoPictureLeavesItsSideEmpty)
{
    frmRemplacerImg form(m_gauche, m_dossier.Ecrire("b.bmp", "no picture"));
    form.show();
    EXPECT_FALSE(form.findChild<PanneauImage*>("Img_0")->Image().isNull());
    EXPECT_TRUE(form.findChild<PanneauImage*>("Img_1")->Image().isNull());
}
