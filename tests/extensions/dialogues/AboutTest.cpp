#include "extensions/dialogues/About.h"

#include "extensions/dialogues/Aide.h"
#include "extensions/langue/modLang.h"
#include "support/Accessibilite.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class AboutTest : public testing::Test
{
protected:
    void Langue(const QByteArray& contenu)
    {
        m_plateforme.dossier.Ecrire("lang/essai.ini", contenu);
        ASSERT_TRUE(ChargerLangue("essai"));
    }
    static QLabel& Etiquette(const About& form, int index)
    {
        return *form.findChild<QLabel*>(u"Label3_%1"_s.arg(index));
    }

    PlateformeDeTest& m_plateforme = PlateformeDeTest::Courante();
    FileDeReponses m_reponses;
};

TEST_F(AboutTest, TheAuthorIsShownWithAddressAndBuild)
{
    const About form;
    EXPECT_EQ(Etiquette(form, 0).text(), "Zelvane by Morvenal\n    Email : " + AdresseDuFabricant + "\nBuild 2-2-0");
    EXPECT_EQ(Etiquette(form, 0).property("Tag").toString(), AdresseDuFabricant);
}

TEST_F(AboutTest, ShowsTheProgramsPicture)
{
    const About form;
    EXPECT_FALSE(form.findChild<QLabel*>("Image1")->pixmap().isNull());
    EXPECT_FALSE(form.findChild<QPushButton*>("Command1")->icon().isNull());
}

TEST_F(AboutTest, WithoutALanguageFileTheTranslatorIsNobodyAndMailGoesToTheMakers)
{
    const About form;
    EXPECT_EQ(Etiquette(form, 1).text(), "Traduction --\n    Email : " + AdresseDuFabricant);
    EXPECT_EQ(Etiquette(form, 1).property("Tag").toString(), AdresseDuFabricant);
}

TEST_F(AboutTest, ALanguageFileWithoutItsTranslatorIsShownLikeNone)
{
    Langue("[other]\r\nmsg1=Done\r\n");
    const About form;
    EXPECT_EQ(Etiquette(form, 1).text(), "Traduction --\n    Email : " + AdresseDuFabricant);
}

TEST_F(AboutTest, TheLanguageFileNamesItsTranslator)
{
    Langue("[Traducteur]\r\nNom=Zo\xEB Martin\r\nEmail=zoe@traduction.example\r\n");
    const About form;
    EXPECT_EQ(Etiquette(form, 1).text(), "Traduction Zoë Martin\n    Email : zoe@traduction.example");
    EXPECT_EQ(Etiquette(form, 1).property("Tag").toString(), "zoe@traduction.example");
}

TEST_F(AboutTest, CaptionsAreTranslated)
{
    Langue("[About]\r\nCaption=About\r\nCommand1_C=Close\r\nLabel3_0_C=All by Morvenal\r\n");
    const About form;
    EXPECT_EQ(form.windowTitle(), "About");
    EXPECT_EQ(form.findChild<QPushButton*>("Command1")->text(), "Close");
    EXPECT_EQ(Etiquette(form, 0).text(), "All by Morvenal") << "the language comes last, and has the last word";
}

TEST_F(AboutTest, AClickOrEnterOnAPersonBeginsAMail)
{
    Langue("[Traducteur]\r\nEmail=zoe@traduction.example\r\n");
    About form;
    form.show();
    QTest::mouseClick(&Etiquette(form, 0), Qt::LeftButton);
    QTest::mouseClick(&Etiquette(form, 1), Qt::LeftButton);
    QTest::keyClick(&Etiquette(form, 1), Qt::Key_Return);
    EXPECT_EQ(m_plateforme.programmes.adresses,
              QStringList(
                  {"mailto:" + AdresseDuFabricant, "mailto:zoe@traduction.example", "mailto:zoe@traduction.example"}));
    EXPECT_TRUE(form.isVisible());
    QTest::mouseClick(&Etiquette(form, 0), Qt::RightButton);
    EXPECT_EQ(m_plateforme.programmes.adresses.size(), 3);
}

TEST_F(AboutTest, ThePersonThatHasTheFocusIsUnderlinedLikeALink)
{
    About form;
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_FALSE(Etiquette(form, 0).font().underline());
    QTest::keyClick(&form, Qt::Key_Tab);
    EXPECT_TRUE(Etiquette(form, 0).font().underline());
    QTest::keyClick(&form, Qt::Key_Tab);
    EXPECT_FALSE(Etiquette(form, 0).font().underline());
    EXPECT_TRUE(Etiquette(form, 1).font().underline());
}

TEST_F(AboutTest, WithoutAMailProgramTheAddressIsTold)
{
    m_plateforme.programmes.reponse = false;
    About form;
    form.show();
    QTest::mouseClick(&Etiquette(form, 0), Qt::LeftButton);
    EXPECT_EQ(m_reponses.Cles(), QStringList{AdresseDuFabricant});
}

TEST_F(AboutTest, TheButtonEnterAndEscapeClose)
{
    About form;
    EXPECT_EQ(form.findChild<QPushButton*>("Command1")->text(), "Fermer cette fenetre");
    form.show();
    QTest::mouseClick(form.findChild<QPushButton*>("Command1"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_Escape}) {
        form.show();
        QTest::keyClick(&form, touche);
        EXPECT_FALSE(form.isVisible()) << touche;
    }
    EXPECT_TRUE(m_plateforme.programmes.adresses.isEmpty());
}

TEST_F(AboutTest, EveryControlHasANameToBeReadOut)
{
    About form;
    form.show();
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

} // namespace
