#include "shell/frmPolice.h"

#include "base/Options.h"
#include "kit/Couleurs.h"
#include "shell/OptionsEnFenetre.h"
#include "support/Accessibilite.h"
#include "support/GardeModale.h"
#include "support/PlateformeDeTest.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontDatabase>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

class FrmPoliceTest : public testing::Test
{
protected:
    /// Opens the dialog and does `geste` in it.
    ReglagesDePolice Choisir(const std::function<void(QWidget&)>& geste)
    {
        QWidget dessous;
        const GardeModale garde(geste);
        return ChoisirPolice(depart, dessous);
    }
    static void Prendre(QWidget& couleurs, const QColor& couleur)
    {
        dynamic_cast<QColorDialog&>(couleurs).setCurrentColor(couleur);
        QTest::keyClick(&couleurs, Qt::Key_Return);
    }

    ReglagesDePolice depart;
};

} // namespace

TEST_F(FrmPoliceTest, ShowsWhatIsSet)
{
    depart.nom = QFontDatabase::families().last();
    depart.taille = 10.5;
    depart.gras = true;
    depart.couleur = 0x0000FF;
    const frmPolice form(depart);
    EXPECT_EQ(form.windowTitle(), "Police");
    EXPECT_EQ(Partie<QComboBox>(form, "Nom").currentText(), depart.nom);
    EXPECT_EQ(Partie<QDoubleSpinBox>(form, "Taille").value(), 10.5);
    EXPECT_TRUE(Cochee(form, "Gras"));
    EXPECT_FALSE(Cochee(form, "Italique"));
    EXPECT_EQ(Partie<QLabel>(form, "Exemple").font(), PoliceDe(depart));
    EXPECT_EQ(Partie<QLabel>(form, "Exemple").palette().color(QPalette::WindowText), QColor(255, 0, 0));
    EXPECT_EQ(Partie(form, "btCouleur").icon().pixmap(16).toImage().pixelColor(8, 8), QColor(255, 0, 0));
}

TEST_F(FrmPoliceTest, TheExampleCanBeReadInDarkWindowsToo)
{
    depart.couleur = 0x800000;
    frmPolice form(depart);
    form.show();
    const QColor bleu(0, 0, 0x80);
    const auto encre = [&form] { return Partie<QLabel>(form, "Exemple").palette().color(QPalette::WindowText); };
    ASSERT_EQ(encre(), bleu);
    MettreCouleurs(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(encre(), EncreLisible(bleu, PaletteSombre().color(QPalette::Base)));
    EXPECT_NE(encre(), bleu);
    MettreCouleurs(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(encre(), bleu);
}

TEST_F(FrmPoliceTest, WhatIsNotTouchedStaysAlsoWhereItCannotBeShown)
{
    depart.nom = u"Nulle part installée"_s;
    depart.taille = 999;
    depart.couleur = -5;
    EXPECT_EQ(Choisir([](QWidget& form) {
                  EXPECT_EQ(Partie<QComboBox>(form, "Nom").currentText(), "Nulle part installée");
                  QTest::keyClick(&form, Qt::Key_Return);
              }),
              depart);
}

TEST_F(FrmPoliceTest, EverythingIsChosenWithTheKeys)
{
    const ReglagesDePolice choisis = Choisir([](QWidget& form) {
        const auto avecAlt = [&form](Qt::Key touche) { QTest::keyClick(&form, touche, Qt::AltModifier); };
        avecAlt(Qt::Key_P);
        QTest::keyClick(form.focusWidget(), Qt::Key_End);
        avecAlt(Qt::Key_E);
        QTest::keyClick(form.focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(form.focusWidget(), u"12"_s + QLocale().decimalPoint() + u'5');
        avecAlt(Qt::Key_G);
        avecAlt(Qt::Key_I);
        avecAlt(Qt::Key_O);
    });
    EXPECT_EQ(choisis.nom, QFontDatabase::families().last());
    EXPECT_EQ(choisis.taille, 12.5);
    EXPECT_TRUE(choisis.gras);
    EXPECT_TRUE(choisis.italique);
}

TEST_F(FrmPoliceTest, EachPartShowsInTheSampleAtOnce)
{
    const frmPolice form(depart);
    const auto& exemple = Partie<QLabel>(form, "Exemple");
    Cliquer(form, "Gras");
    EXPECT_TRUE(exemple.font().bold());
    Cliquer(form, "Italique");
    EXPECT_TRUE(exemple.font().italic());
    Partie<QDoubleSpinBox>(form, "Taille").stepUp();
    EXPECT_EQ(exemple.font().pointSizeF(), 9.25);
    Partie<QComboBox>(form, "Nom").setCurrentIndex(Partie<QComboBox>(form, "Nom").count() - 1);
    EXPECT_EQ(exemple.font().family(), QFontDatabase::families().last());
}

TEST_F(FrmPoliceTest, CancelReturnsWhatWasThere)
{
    EXPECT_EQ(Choisir([](QWidget& form) {
                  Cliquer(form, "Gras");
                  Cliquer(form, "btAnnuler");
              }),
              depart);
}

TEST_F(FrmPoliceTest, TheColourIsStoredFromBlueToRed)
{
    const ReglagesDePolice choisis = Choisir([](QWidget& form) {
        const GardeModale garde([](QWidget& couleurs) { Prendre(couleurs, QColor(1, 2, 3)); }, 5000, &form);
        Cliquer(form, "btCouleur");
        Cliquer(form, "btOK");
    });
    EXPECT_EQ(choisis.couleur, 0x030201);
    EXPECT_EQ(CouleurDe(choisis), QColor(1, 2, 3));
}

TEST_F(FrmPoliceTest, AColourThatIsNotChosenStays)
{
    depart.couleur = 0x00FF00;
    const ReglagesDePolice choisis = Choisir([](QWidget& form) {
        const GardeModale garde([](QWidget& couleurs) { QTest::keyClick(&couleurs, Qt::Key_Escape); }, 5000, &form);
        Cliquer(form, "btCouleur");
        Cliquer(form, "btOK");
    });
    EXPECT_EQ(choisis, depart);
}

TEST_F(FrmPoliceTest, EveryControlHasANameAndNoTwoALetter)
{
    frmPolice form(depart);
    form.show();
    EXPECT_EQ(ControlesSansNom(form), QStringList());
    const QStringList lettres = Lettres(form);
    EXPECT_EQ(lettres.size(), 7);
    EXPECT_EQ(QSet<QString>(lettres.begin(), lettres.end()).size(), lettres.size()) << lettres.join(u' ').toStdString();
}
