#include "extensions/dialogues/frmTip.h"

#include "base/Const_Vrac.h"
#include "extensions/langue/modLang.h"
#include "support/Accessibilite.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QCheckBox>
#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class FrmTipTest : public testing::Test
{
protected:
    void Astuces(const QByteArray& contenu) { m_plateforme.dossier.Ecrire("astuces.txt", contenu); }

    static QString Astuce(const frmTip& form) { return form.findChild<QLabel*>("lblTipText")->text(); }
    static QPushButton& Bouton(const frmTip& form, const char* nom) { return *form.findChild<QPushButton*>(nom); }
    static QCheckBox& Boite(const frmTip& form) { return *form.findChild<QCheckBox*>("chkLoadTipsAtStartup"); }

    PlateformeDeTest& m_plateforme = PlateformeDeTest::Courante();
    FileDeReponses m_reponses;
};

TEST_F(FrmTipTest, ShowsTheTipThatIsDrawn)
{
    Astuces("Un\r\nDeux\r\nTrois \xE9t\xE9\r\n");
    m_plateforme.hasard.tirages = {0.7};
    const frmTip form;
    EXPECT_EQ(form.windowTitle(), "Astuce du jour");
    EXPECT_EQ(form.findChild<QLabel*>("Label1")->text(), "Savez-vous...");
    EXPECT_EQ(Astuce(form), "Trois été");
}

TEST_F(FrmTipTest, TheDrawingIsSeededByTheClock)
{
    Astuces("Un\r\n");
    const frmTip form;
    const auto graine = static_cast<uint32_t>(m_plateforme.horloge.heure.toMSecsSinceEpoch());
    EXPECT_EQ(m_plateforme.hasard.graines, QList<uint32_t>({graine, graine})) << "on load, and when tips are read";
}

TEST_F(FrmTipTest, NextDrawsAnotherThatMayBeTheSame)
{
    Astuces("Un\r\nDeux\r\n");
    m_plateforme.hasard.tirages = {0.0, 0.5, 0.5};
    const frmTip form;
    ASSERT_EQ(Astuce(form), "Un");
    QTest::mouseClick(&Bouton(form, "cmdNextTip"), Qt::LeftButton);
    EXPECT_EQ(Astuce(form), "Deux");
    QTest::mouseClick(&Bouton(form, "cmdNextTip"), Qt::LeftButton);
    EXPECT_EQ(Astuce(form), "Deux");
    EXPECT_EQ(m_plateforme.hasard.tires, 3);
}

TEST_F(FrmTipTest, AMissingFileIsToldAndTheTipIsEmpty)
{
    const frmTip form;
    ASSERT_EQ(m_reponses.Cles(), QStringList({"msg92"}));
    EXPECT_EQ(m_reponses.Affiches().front().message.texte,
              "Le fichier 'astuces.txt' n'a pas été trouvé? \nVerrifiez qu'il est placé dans le même repertoire que "
              "l'application.");
    EXPECT_EQ(Astuce(form), "");
    QTest::mouseClick(&Bouton(form, "cmdNextTip"), Qt::LeftButton);
    EXPECT_EQ(Astuce(form), "");
}

TEST_F(FrmTipTest, AnEmptyFileIsNoFailure)
{
    Astuces("");
    const frmTip form;
    EXPECT_EQ(m_reponses.Cles(), QStringList());
    EXPECT_EQ(Astuce(form), "");
}

TEST_F(FrmTipTest, OtherTipsCanBeLoadedAndAMissingFileLeavesThem)
{
    Astuces("Un\r\n");
    frmTip form;
    EXPECT_TRUE(form.LoadTips(m_plateforme.dossier.Ecrire("autres.txt", "Autre")));
    EXPECT_EQ(Astuce(form), "Autre");
    EXPECT_FALSE(form.LoadTips(""));
    EXPECT_FALSE(form.LoadTips(m_plateforme.dossier.Fichier("none.txt")));
    form.DisplayCurrentTip();
    EXPECT_EQ(Astuce(form), "Autre");
    EXPECT_EQ(m_reponses.Cles(), QStringList()) << "only the load of the form tells";
}

TEST_F(FrmTipTest, FewerTipsThanBeforeAreNoTrouble)
{
    Astuces("Un\r\nDeux\r\nTrois\r\n");
    m_plateforme.hasard.tirages = {0.9, 0.9};
    frmTip form;
    EXPECT_TRUE(form.LoadTips(m_plateforme.dossier.Ecrire("autres.txt", "")));
    form.DisplayCurrentTip();
    EXPECT_EQ(Astuce(form), "Trois") << "an empty list shows nothing new";
}

TEST_F(FrmTipTest, TheBoxIsTheOppositeOfTheSetting)
{
    Astuces("Un\r\n");
    EXPECT_TRUE(Boite(frmTip()).isChecked()) << "without a setting";
    for (const auto& [valeur, cochee] : {std::pair("0", true), {"1", false}, {"2", true}, {"oui", true}}) {
        EcrireOption("ShowTipsAtStartup", valeur);
        EXPECT_EQ(Boite(frmTip()).isChecked(), cochee) << valeur;
    }
}

TEST_F(FrmTipTest, AClickOnTheBoxIsWrittenAtOnce)
{
    Astuces("Un\r\n");
    frmTip form;
    form.show();
    QTest::mouseClick(&Boite(form), Qt::LeftButton, Qt::NoModifier, QPoint(8, Boite(form).height() / 2));
    EXPECT_EQ(LireOption("ShowTipsAtStartup", "none").toString(), "1");
    QTest::keyClick(&Boite(form), Qt::Key_Space);
    EXPECT_EQ(LireOption("ShowTipsAtStartup", "none").toString(), "0");
}

TEST_F(FrmTipTest, AnOpenFormShowsWhatIsSetElsewhere)
{
    Astuces("Un\r\n");
    frmTip form;
    frmTip autre;
    form.show();
    autre.show();
    QTest::keyClick(&Boite(autre), Qt::Key_Space);
    EXPECT_FALSE(Boite(form).isChecked());
    QTest::keyClick(&Boite(autre), Qt::Key_Space);
    EXPECT_TRUE(Boite(form).isChecked());
}

TEST_F(FrmTipTest, AltAndTheMarkedLetterToggleTheBox)
{
    Astuces("Un\r\n");
    frmTip form;
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QTest::keyClick(&form, Qt::Key_A, Qt::AltModifier);
    // The box is seen going down first.
    EXPECT_TRUE(QTest::qWaitFor([&form] { return !Boite(form).isChecked(); }));
    EXPECT_EQ(LireOption("ShowTipsAtStartup", "none").toString(), "1");
}

TEST_F(FrmTipTest, ALongTipScrollsAndTheButtonsStay)
{
    Astuces(QByteArray("mot ").repeated(2000));
    frmTip form;
    form.show();
    QTest::qWait(1);
    EXPECT_LT(form.height(), 300);
    EXPECT_GT(form.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(form.rect().contains(Bouton(form, "cmdOK").geometry()));
}

TEST_F(FrmTipTest, ATipOfThreeLinesIsSeenWhole)
{
    Astuces(QByteArray("mot ").repeated(40));
    frmTip form;
    form.show();
    QTest::qWait(1);
    EXPECT_EQ(form.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

TEST_F(FrmTipTest, ATipThatLooksLikeMarkupIsShownAsItStands)
{
    Astuces("<b>A</b> & B\r\n");
    const frmTip form;
    EXPECT_EQ(Astuce(form), "<b>A</b> & B");
    EXPECT_EQ(form.findChild<QLabel*>("lblTipText")->textFormat(), Qt::PlainText);
}

TEST_F(FrmTipTest, TheButtonsHaveTheirHintsAndTabFollowsTheEye)
{
    Astuces("Un\r\n");
    frmTip form;
    EXPECT_EQ(Bouton(form, "cmdNextTip").toolTip(), "Voir l'astuce suivante");
    EXPECT_EQ(Bouton(form, "cmdOK").toolTip(), "Fermer cette fenêtre");
    EXPECT_FALSE(Bouton(form, "cmdNextTip").icon().isNull());
    EXPECT_FALSE(Bouton(form, "cmdOK").icon().isNull());
    EXPECT_EQ(Boite(form).text(), "&Afficher les astuces au démarrage");
    form.show();
    EXPECT_EQ(ControlesSansNom(form), QStringList());
    EXPECT_EQ(form.focusWidget(), &Bouton(form, "cmdOK"));
    for (const QWidget* suivant :
         {static_cast<QWidget*>(&Boite(form)), static_cast<QWidget*>(&Bouton(form, "cmdNextTip")),
          static_cast<QWidget*>(&Bouton(form, "cmdOK"))}) {
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(form.focusWidget(), suivant);
    }
}

TEST_F(FrmTipTest, TheFormIsTranslatedAndTheTipIsNot)
{
    Astuces("Un\r\n");
    FichierLangue = m_plateforme.dossier.Ecrire(
        "lang/english.ini", "[frmTip]\r\nCaption=Tip of the day\r\nlblTipText_C=Wrong\r\ncmdOK_TT=Close\r\n");
    const frmTip form;
    EXPECT_EQ(form.windowTitle(), "Tip of the day");
    EXPECT_EQ(Astuce(form), "Un");
    EXPECT_EQ(Bouton(form, "cmdOK").toolTip(), "Close");
}

TEST_F(FrmTipTest, EveryWayOfClosingDeletesTheOneWindow)
{
    Astuces("Un\r\n");
    const std::function<void(frmTip&)> fermetures[] = {
        [](frmTip& form) { QTest::mouseClick(&Bouton(form, "cmdOK"), Qt::LeftButton); },
        [](frmTip& form) { QTest::keyClick(&form, Qt::Key_Escape); },
        [](frmTip& form) { QTest::keyClick(&form, Qt::Key_Return); },
        [](frmTip& form) { form.close(); },
    };
    QMainWindow cadre;
    cadre.show();
    for (const auto& fermer : fermetures) {
        frmTip::Montrer(cadre);
        frmTip::Montrer(cadre);
        ASSERT_EQ(cadre.findChildren<frmTip*>().size(), 1) << "it is brought to the front, not doubled";
        const QPointer<frmTip> form = cadre.findChild<frmTip*>();
        EXPECT_TRUE(form->isVisible());
        EXPECT_FALSE(form->isModal());
        fermer(*form);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(form.isNull());
    }
}

} // namespace
