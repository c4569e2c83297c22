#include "output/frmPrintOptions.h"

#include "base/Options.h"
#include "support/Accessibilite.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

template<class T> T& De(const QWidget& form, const char* nom)
{
    return *form.findChild<T*>(QString::fromLatin1(nom));
}

void EcrireImage(const QString& chemin, Qt::GlobalColor couleur)
{
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(couleur);
    ASSERT_TRUE(image.save(chemin, "BMP"));
}

class FrmPrintOptionsTest : public testing::Test
{
protected:
    frmPrintOptions& Ouvrir()
    {
        m_form = std::make_unique<frmPrintOptions>(dossier.Chemin());
        m_form->MettreTextes(u"%nb% %nomcat%"_s, u"Mes listes"_s);
        m_form->show();
        return *m_form;
    }
    void Cliquer(const char* nom) const
    {
        auto& bouton = De<QAbstractButton>(*m_form, nom);
        QTest::mouseClick(&bouton, Qt::LeftButton, {}, QPoint(10, bouton.height() / 2));
    }
    QColor Couleur() const
    {
        const QImage& image = m_form->Image();
        return image.isNull() ? QColor() : image.pixelColor(image.width() / 2, image.height() / 2);
    }

    DossierDeTest dossier;
    DossierDeTest images;
    FileDeReponses reponses;
    FileDeFichiers fichiers;
    std::unique_ptr<frmPrintOptions> m_form;
};

} // namespace

TEST_F(FrmPrintOptionsTest, ShowsItsTexts)
{
    frmPrintOptions& form = Ouvrir();
    EXPECT_EQ(form.windowTitle(), "Options d'impression");
    EXPECT_EQ(De<QLabel>(form, "Label1").text(), "Texte :");
    EXPECT_EQ(De<QLabel>(form, "Label2").text(), "%titre%");
    EXPECT_EQ(De<QGroupBox>(form, "Frame").title(), "Image d'entête");
    const auto texte = [&form](const char* nom) { return De<QAbstractButton>(form, nom).text().remove(u'&'); };
    EXPECT_EQ(texte("Check1"), "afficher l'imge");
    EXPECT_EQ(texte("Check2"), "image par defaut");
    EXPECT_EQ(texte("btParcourir1"), "Parcourir");
    EXPECT_EQ(texte("btOK"), "Terminer");
    EXPECT_EQ(De<QLineEdit>(form, "Text1").text(), "%nb% %nomcat%");
    EXPECT_EQ(De<QLineEdit>(form, "Text2").text(), "Mes listes");
    EXPECT_EQ(De<QLabel>(form, "Label1").parentWidget()->objectName(), "Frame1");
    EXPECT_EQ(De<QLabel>(form, "Label2").parentWidget()->objectName(), "Frame2");
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

TEST_F(FrmPrintOptionsTest, EveryWayOutWritesWhatIsSet)
{
    int tour = 0;
    for (const auto& sortir :
         std::vector<std::function<void()>>{[this] { Cliquer("btOK"); }, [this] { m_form->close(); },
                                            [this] { QTest::keyClick(m_form.get(), Qt::Key_Escape); }}) {
        frmPrintOptions& form = Ouvrir();
        const QString titre = u"Liste %1"_s.arg(++tour);
        De<QLineEdit>(form, "Text2").setText(titre);
        Cliquer("Check1");
        Cliquer("Check2");
        const OptionsDImpression options(dossier.Chemin());
        const bool affichee = form.ImageAffichee(), parDefaut = De<QCheckBox>(form, "Check2").isChecked();
        sortir();
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(options.Titre(), titre);
        EXPECT_EQ(options.Texte(), "%nb% %nomcat%");
        EXPECT_EQ(options.AffImg() == 1, affichee);
        EXPECT_EQ(options.ImgDefaut() == 1, parDefaut);
    }
    EXPECT_EQ(tour, 3);
}

TEST_F(FrmPrintOptionsTest, TheBoxesShowWhatIsWritten)
{
    EXPECT_TRUE(Ouvrir().ImageAffichee());
    EXPECT_FALSE(De<QCheckBox>(*m_form, "Check2").isChecked());
    dossier.Ecrire("print.ini", "[Impression]\r\nAffImg=0\r\nImgDefaut=1\r\n");
    EXPECT_FALSE(Ouvrir().ImageAffichee());
    EXPECT_TRUE(De<QCheckBox>(*m_form, "Check2").isChecked());
    EXPECT_FALSE(De<QPushButton>(*m_form, "btParcourir1").isEnabled());
    EXPECT_FALSE(De<QLabel>(*m_form, "Image1").isEnabled());
}

TEST_F(FrmPrintOptionsTest, TheDefaultPictureStandsInForTheFolders)
{
    EcrireImage(dossier.Fichier("print.image"), Qt::green);
    Ouvrir();
    EXPECT_EQ(Couleur(), QColor(Qt::green));
    EXPECT_TRUE(De<QPushButton>(*m_form, "btParcourir1").isEnabled());
    Cliquer("Check2");
    EXPECT_FALSE(De<QPushButton>(*m_form, "btParcourir1").isEnabled());
    EXPECT_FALSE(De<QLabel>(*m_form, "Image1").isEnabled());
    EXPECT_EQ(m_form->Image().size(), ImageDEnteteParDefaut().size());
    EXPECT_FALSE(De<QLabel>(*m_form, "Image1").pixmap().isNull());
    Cliquer("Check2");
    EXPECT_TRUE(De<QPushButton>(*m_form, "btParcourir1").isEnabled());
    EXPECT_TRUE(De<QLabel>(*m_form, "Image1").isEnabled());
    EXPECT_EQ(Couleur(), QColor(Qt::green));
}

TEST_F(FrmPrintOptionsTest, WithoutAFileThereIsNoPicture)
{
    EXPECT_TRUE(Ouvrir().Image().isNull());
    dossier.Ecrire("print.image", "no picture");
    EXPECT_TRUE(Ouvrir().Image().isNull());
}

TEST_F(FrmPrintOptionsTest, AChosenPictureIsShownAndCopied)
{
    dossier.Ecrire("print.image", "ancien");
    EcrireImage(images.Fichier("rouge.bmp"), Qt::red);
    EcrireOption(Options::ImgInitDir, images.Chemin());
    Ouvrir();
    fichiers.Preparer({images.Fichier("rouge.bmp")}, 1);
    Cliquer("btParcourir1");
    EXPECT_EQ(Couleur(), QColor(Qt::red));
    EXPECT_EQ(dossier.Lire("print.image"), images.Lire("rouge.bmp"));
    EXPECT_EQ(QDir(dossier.Chemin()).entryList(QDir::Files), QStringList("print.image"));
    ASSERT_EQ(fichiers.Demandes().size(), 1);
    EXPECT_EQ(fichiers.Demandes()[0].types[0].libelle, "Images");
    EXPECT_EQ(fichiers.Demandes()[0].types[0].motifs, "*.bmp;*.jpg;*.gif;*.jpeg;*.jpe");
    EXPECT_EQ(fichiers.Demandes()[0].depart, images.Chemin());
}

TEST_F(FrmPrintOptionsTest, WhatIsNoPictureEndsTheBrowseSilently)
{
    EcrireImage(dossier.Fichier("print.image"), Qt::green);
    const QByteArray avant = dossier.Lire("print.image");
    images.Ecrire("faux.jpg", "no picture");
    Ouvrir();
    fichiers.PreparerAnnulation();
    Cliquer("btParcourir1");
    fichiers.Preparer({images.Fichier("pas la.jpg")}, 1);
    Cliquer("btParcourir1");
    fichiers.Preparer({images.Fichier("faux.jpg")}, 1);
    Cliquer("btParcourir1");
    EXPECT_EQ(Couleur(), QColor(Qt::green));
    EXPECT_EQ(dossier.Lire("print.image"), avant);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(FrmPrintOptionsTest, ThePictureItselfCanBeChosenAgain)
{
    EcrireImage(dossier.Fichier("print.image"), Qt::green);
    const QByteArray avant = dossier.Lire("print.image");
    Ouvrir();
    fichiers.Preparer({dossier.Fichier("print.image")}, 1);
    Cliquer("btParcourir1");
    EXPECT_EQ(dossier.Lire("print.image"), avant);
    EXPECT_EQ(Couleur(), QColor(Qt::green));
}

TEST_F(FrmPrintOptionsTest, ACopyThatFailsIsToldAndLeavesTheOldPicture)
{
    EcrireImage(images.Fichier("rouge.bmp"), Qt::red);
    ASSERT_TRUE(QDir(dossier.Chemin()).mkpath("print.image/plein"));
    Ouvrir();
    fichiers.Preparer({images.Fichier("rouge.bmp")}, 1);
    Cliquer("btParcourir1");
    EXPECT_EQ(reponses.Cles(), QStringList("msgImageEntete"));
    EXPECT_TRUE(m_form->Image().isNull());
    EXPECT_EQ(QDir(dossier.Chemin()).entryList(QDir::Files), QStringList()) << "nothing is left behind";
}
