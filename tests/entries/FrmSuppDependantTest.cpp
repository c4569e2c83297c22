#include "entries/frmSuppDependant.h"

#include "extensions/langue/modLang.h"
#include "support/Accessibilite.h"
#include "support/GardeModale.h"
#include "support/PlateformeDeTest.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QRadioButton& Option1(const QWidget& form, int index)
{
    return *form.findChild<QRadioButton*>(u"Option1_%1"_s.arg(index));
}
void ChoisirOption(const QWidget& form, int index)
{
    QRadioButton& option = Option1(form, index);
    QTest::mouseClick(&option, Qt::LeftButton, Qt::NoModifier, QPoint(8, option.height() / 2));
}
void Cliquer(const QWidget& form, const char* nom)
{
    QTest::mouseClick(form.findChild<QPushButton*>(QString::fromLatin1(nom)), Qt::LeftButton);
}

int Choix(const std::function<void(QWidget&)>& geste)
{
    const GardeModale garde(geste);
    frmSuppDependant form;
    form.exec();
    return form.Choix;
}

} // namespace

TEST(FrmSuppDependant, ShowsItsQuestionWithTheFirstOptionOn)
{
    const frmSuppDependant form;
    EXPECT_EQ(form.Choix, 2);
    EXPECT_EQ(form.OptionCourante, 0);
    EXPECT_EQ(form.windowTitle(), u"Supprimer des Entrées"_s);
    EXPECT_EQ(form.findChild<QLabel*>("Label1")->text(), "La categorie est dependante, que voulez vous faire?");
    EXPECT_EQ(Option1(form, 0).text().remove(u'&'), u"Supprimer uniquement les entrées selectionnées"_s);
    EXPECT_EQ(Option1(form, 1).text().remove(u'&'), u"Supprimer les entrées dépendantes"_s);
    EXPECT_TRUE(Option1(form, 0).isChecked());
    EXPECT_EQ(form.findChild<QPushButton*>("btAjouter")->text().remove(u'&'), "Valider");
    EXPECT_EQ(form.findChild<QPushButton*>("Annuler")->text().remove(u'&'), "Annuler");
    EXPECT_FALSE(form.findChild<QPushButton*>("Annuler")->icon().isNull());
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

TEST(FrmSuppDependant, ValiderTakesTheOptionThatIsOn)
{
    EXPECT_EQ(Choix([](QWidget& form) { Cliquer(form, "btAjouter"); }), 0);
    EXPECT_EQ(Choix([](QWidget& form) {
                  ChoisirOption(form, 1);
                  Cliquer(form, "btAjouter");
              }),
              1);
    EXPECT_EQ(Choix([](QWidget& form) {
                  ChoisirOption(form, 1);
                  ChoisirOption(form, 0);
                  Cliquer(form, "btAjouter");
              }),
              0);
}

TEST(FrmSuppDependant, TheKeysDoTheSame)
{
    EXPECT_EQ(Choix([](QWidget& form) {
                  EXPECT_EQ(form.focusWidget(), &Option1(form, 0));
                  QTest::keyClick(form.focusWidget(), Qt::Key_Down);
                  QTest::keyClick(form.focusWidget(), Qt::Key_Return);
              }),
              1);
}

TEST(FrmSuppDependant, AClickOnAnOptionSetsTheCurrentOneAlone)
{
    EXPECT_EQ(Choix([](QWidget& form) {
                  ChoisirOption(form, 1);
                  EXPECT_EQ(dynamic_cast<frmSuppDependant&>(form).OptionCourante, 1);
                  EXPECT_EQ(dynamic_cast<frmSuppDependant&>(form).Choix, 2);
                  form.close();
              }),
              2);
}

TEST(FrmSuppDependant, AnnulerEscapeAndTheCloseBoxAreACancel)
{
    EXPECT_EQ(Choix([](QWidget& form) { Cliquer(form, "Annuler"); }), 2);
    EXPECT_EQ(Choix([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); }), 2);
    EXPECT_EQ(Choix([](QWidget& form) { form.close(); }), 2);
}

TEST(FrmSuppDependant, AnotherCommandGivesItItsOwnCaptions)
{
    frmSuppDependant form;
    form.SetOptions(u"Prêter les entrées sélectionnées"_s, u"Prêter les entrées dépendantes"_s);
    EXPECT_EQ(Option1(form, 0).text(), u"Prêter les entrées sélectionnées"_s);
    EXPECT_EQ(Option1(form, 1).text(), u"Prêter les entrées dépendantes"_s);
}

TEST(FrmSuppDependant, CaptionsAreInTheLanguageInForce)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini", "[frmSuppDependant]\r\nCaption=Delete\r\nOption1_1_C=Dependants too\r\n");
    const frmSuppDependant form;
    EXPECT_EQ(form.windowTitle(), "Delete");
    EXPECT_EQ(Option1(form, 1).text(), "Dependants too");
}
