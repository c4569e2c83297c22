#include "kit/frmMotDePasse.h"

#include "extensions/langue/modLang.h"
#include "kit/MessagesEnFenetre.h"
#include "kit/frmInputText.h"
#include "support/GardeModale.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Demander(const std::function<void(QWidget&)>& geste)
{
    const MessagesEnFenetre presentateur;
    const GardeModale garde(geste);
    return DemanderMotDePasse(u"Fichier Crypté"_s, u"Veuillez entrer le mot de passe!"_s);
}

void Saisir(QWidget& boite, const char* texte)
{
    QTest::keyClicks(boite.findChild<QLineEdit*>(u"Text1"_s), QString::fromUtf8(texte));
}

void Cliquer(QWidget& boite, const char* bouton)
{
    QTest::mouseClick(boite.findChild<QPushButton*>(QString::fromLatin1(bouton)), Qt::LeftButton);
}

} // namespace

TEST(FrmMotDePasse, TheButtonGivesWhatWasTyped)
{
    EXPECT_EQ(Demander([](QWidget& boite) {
                  Saisir(boite, "zelvane");
                  Cliquer(boite, "btOk");
              }),
              "zelvane");
}

TEST(FrmMotDePasse, SpeaksTheLanguageInForce)
{
    FichierLangue =
        PlateformeDeTest::Courante().dossier.Ecrire(u"lang/autre.ini"_s, "[frmMotDePasse]\r\nbtOk_C=Fine\r\n");
    Demander([](QWidget& boite) {
        EXPECT_EQ(boite.findChild<QPushButton*>(u"btOk"_s)->text(), "Fine");
        boite.close();
    });
    FichierLangue.clear();
}

TEST(FrmMotDePasse, EnterGivesItToo)
{
    EXPECT_EQ(Demander([](QWidget& boite) {
                  Saisir(boite, "abc");
                  QTest::keyClick(boite.focusWidget(), Qt::Key_Return);
              }),
              "abc");
}

TEST(FrmMotDePasse, CancelEscapeAndClosingGiveNothing)
{
    EXPECT_EQ(Demander([](QWidget& boite) {
                  Saisir(boite, "abc");
                  Cliquer(boite, "btAnnuler");
              }),
              "");
    EXPECT_EQ(Demander([](QWidget& boite) {
                  Saisir(boite, "abc");
                  QTest::keyClick(&boite, Qt::Key_Escape);
              }),
              "");
    EXPECT_EQ(Demander([](QWidget& boite) {
                  Saisir(boite, "abc");
                  boite.close();
              }),
              "");
}

TEST(FrmMotDePasse, WhatIsTypedIsNotShown)
{
    Demander([](QWidget& boite) {
        EXPECT_EQ(boite.windowTitle(), u"Fichier Crypté"_s);
        EXPECT_EQ(boite.findChild<QLabel*>(u"Label1"_s)->text(), "Veuillez entrer le mot de passe!");
        auto* saisie = boite.findChild<QLineEdit*>(u"Text1"_s);
        EXPECT_EQ(saisie->echoMode(), QLineEdit::Password);
        Saisir(boite, "abc");
        EXPECT_FALSE(saisie->displayText().contains(u'a'));
        boite.close();
    });
}

TEST(FrmMotDePasse, AltAndTheMarkedLettersPressTheButtons)
{
    const auto taper = [](Qt::Key touche) {
        return Demander([touche](QWidget& boite) {
            Saisir(boite, "abc");
            QTest::keyClick(&boite, touche, Qt::AltModifier);
        });
    };
    EXPECT_EQ(taper(Qt::Key_O), "abc");
    EXPECT_EQ(taper(Qt::Key_A), "");
}

TEST(FrmMotDePasse, ItLooksLikeTheOtherQuestionForALine)
{
    frmMotDePasse boite(u"Titre"_s, u"mot"_s.repeated(80));
    frmInputText autre(u"Texte"_s, u""_s);
    boite.show();
    autre.show();
    EXPECT_EQ(boite.width(), autre.width()) << "a long word is broken";
    for (const char* nom : {"btOk", "btAnnuler"}) {
        const auto* bouton = boite.findChild<QPushButton*>(QString::fromLatin1(nom));
        EXPECT_EQ(bouton->text(), autre.findChild<QPushButton*>(QString::fromLatin1(nom))->text());
        EXPECT_FALSE(bouton->icon().isNull()) << nom;
    }
}
