#include "lending/frmMail.h"

#include "base/Options.h"
#include "extensions/langue/modLang.h"
#include "lending/FormesDePret.h"
#include "support/Accessibilite.h"
#include "support/GardeModale.h"

#include <QPlainTextEdit>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

namespace {

QPlainTextEdit& Texte(const QWidget& form, const char* nom)
{
    return *form.findChild<QPlainTextEdit*>(QString::fromLatin1(nom));
}

} // namespace

TEST(FrmMail, IsAShellThatNothingIsFilledInto)
{
    const frmMail form;
    EXPECT_EQ(form.windowTitle(), "Envoyer un mail d'avertissement");
    EXPECT_EQ(Libelle(form, "Label2"), "Sujet");
    EXPECT_EQ(Libelle(form, "Label3"), "Message");
    EXPECT_EQ(Caption(form, "btnSend"), "envoyer");
    EXPECT_EQ(Caption(form, "Command1"), "Stop");
    for (const char* champ : {"txtTo", "txtSubject"})
        EXPECT_EQ(Champ(form, champ).text(), "") << champ;
    for (const char* champ : {"rtxtMail", "txtLog"})
        EXPECT_EQ(Texte(form, champ).toPlainText(), "") << champ;
    EXPECT_EQ(form.ws->state(), QAbstractSocket::UnconnectedState);
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

TEST(FrmMail, ItsButtonsAndKeysDoNothingAndItsCloseBoxIsTheWayOut)
{
    QWidget cadre;
    const GardeModale garde([](QWidget& form) {
        Taper(Champ(form, "txtTo"), u"a@x.fr"_s);
        for (const char* bouton : {"btnSend", "Command1"})
            Cliquer(form, bouton);
        QTest::keyClick(&Champ(form, "txtTo"), Qt::Key_Return);
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(Champ(form, "txtTo").text(), "a@x.fr");
        EXPECT_EQ(Texte(form, "txtLog").toPlainText(), "");
        EXPECT_EQ(dynamic_cast<frmMail&>(form).ws->state(), QAbstractSocket::UnconnectedState);
        form.close();
    });
    frmMail::Montrer(cadre);
    EXPECT_TRUE(PlateformeDeTest::Courante().programmes.adresses.isEmpty());
}

TEST(FrmMail, WhatWasTypedIsThereTheNextTime)
{
    QWidget cadre;
    {
        const GardeModale garde([](QWidget& form) {
            Taper(Champ(form, "txtSubject"), u"Rappel"_s);
            QTest::keyClicks(&Texte(form, "rtxtMail"), u"Bonjour"_s);
            form.close();
        });
        frmMail::Montrer(cadre);
    }
    const GardeModale garde([](QWidget& form) {
        EXPECT_TRUE(form.isModal());
        EXPECT_EQ(Champ(form, "txtSubject").text(), "Rappel");
        EXPECT_EQ(Texte(form, "rtxtMail").toPlainText(), "Bonjour");
        form.close();
    });
    frmMail::Montrer(cadre);
}

TEST(FrmMail, KnowsNeitherSettingsNorLanguages)
{
    EcrireOption(u"VotreEmail"_s, u"moi@x.fr"_s);
    EcrireOption(u"VotreSmtp"_s, QString());
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire("lang/english.ini",
                                                                "[frmMail]\r\nCaption=Mail\r\nbtnSend_C=send\r\n");
    const frmMail form;
    EXPECT_EQ(form.windowTitle(), "Envoyer un mail d'avertissement");
    EXPECT_EQ(Caption(form, "btnSend"), "envoyer");
    EXPECT_EQ(Champ(form, "txtTo").text() + Texte(form, "txtLog").toPlainText(), "");
}
