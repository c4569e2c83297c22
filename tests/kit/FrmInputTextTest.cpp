#include "kit/frmInputText.h"

#include "extensions/langue/modLang.h"
#include "kit/MessagesEnFenetre.h"
#include "support/Accessibilite.h"
#include "support/GardeModale.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Saisir(const QString& defaut, const std::function<void(QWidget&)>& geste)
{
    const MessagesEnFenetre presentateur;
    const GardeModale garde(geste);
    return SaisirTexte(u"Texte à ajouter"_s, defaut);
}

QLineEdit& Text1(const QWidget& boite)
{
    return *boite.findChild<QLineEdit*>(u"Text1"_s);
}

QPushButton& Bouton(const QWidget& boite, const char* nom)
{
    return *boite.findChild<QPushButton*>(QString::fromLatin1(nom));
}

void Coller(QLineEdit& champ, const QString& texte)
{
    QApplication::clipboard()->setText(texte);
    QTest::keyClick(&champ, Qt::Key_V, Qt::ControlModifier);
}

} // namespace

TEST(FrmInputText, TheButtonGivesWhatWasTyped)
{
    EXPECT_EQ(Saisir(u""_s,
                     [](QWidget& boite) {
                         QTest::keyClicks(&Text1(boite), u"Jazz"_s);
                         QTest::mouseClick(&Bouton(boite, "btOk"), Qt::LeftButton);
                     }),
              "Jazz");
}

TEST(FrmInputText, WhatIsTypedTakesThePlaceOfTheTextProposed)
{
    EXPECT_EQ(Saisir(u"rock"_s,
                     [](QWidget& boite) {
                         QTest::keyClicks(boite.focusWidget(), u"Jazz"_s);
                         QTest::keyClick(boite.focusWidget(), Qt::Key_Return);
                     }),
              "Jazz");
}

TEST(FrmInputText, OfALineThatIsPastedItsEndAloneGoes)
{
    EXPECT_EQ(Saisir(u""_s,
                     [](QWidget& boite) {
                         Coller(Text1(boite), u"abc\n"_s);
                         QTest::keyClick(boite.focusWidget(), Qt::Key_Return);
                     }),
              "abc");
}

TEST(FrmInputText, EnterGivesItToo)
{
    EXPECT_EQ(Saisir(u""_s,
                     [](QWidget& boite) {
                         QTest::keyClicks(boite.focusWidget(), u"Jazz"_s);
                         QTest::keyClick(boite.focusWidget(), Qt::Key_Return);
                     }),
              "Jazz");
}

TEST(FrmInputText, CancelEscapeAndClosingGiveTheTextProposed)
{
    const std::function<void(QWidget&)> fermetures[] = {
        [](QWidget& boite) { QTest::mouseClick(&Bouton(boite, "btAnnuler"), Qt::LeftButton); },
        [](QWidget& boite) { QTest::keyClick(&boite, Qt::Key_Escape); },
        [](QWidget& boite) { boite.close(); },
    };
    for (const auto& fermer : fermetures) {
        EXPECT_EQ(Saisir(u"Rock"_s,
                         [&](QWidget& boite) {
                             QTest::keyClicks(&Text1(boite), u"Jazz"_s);
                             fermer(boite);
                         }),
                  "Rock");
    }
}

TEST(FrmInputText, AnEmptiedFieldIsAnAnswer)
{
    EXPECT_EQ(Saisir(u"Rock"_s,
                     [](QWidget& boite) {
                         QTest::keyClick(&Text1(boite), Qt::Key_Delete);
                         QTest::mouseClick(&Bouton(boite, "btOk"), Qt::LeftButton);
                     }),
              "");
}

TEST(FrmInputText, TheTextProposedIsSelectedSoThatTypingReplacesIt)
{
    EXPECT_EQ(Saisir(u"Rock"_s,
                     [](QWidget& boite) {
                         EXPECT_EQ(boite.focusWidget(), &Text1(boite));
                         EXPECT_EQ(Text1(boite).selectedText(), "Rock");
                         QTest::keyClicks(&Text1(boite), u"Jazz"_s);
                         QTest::keyClick(&Text1(boite), Qt::Key_Return);
                     }),
              "Jazz");
}

TEST(FrmInputText, PastedLinesBecomeOne)
{
    const std::pair<QString, QString> cas[] = {
        {u"Rock\r\nJazz\nBlues\rSoul"_s, u"Rock Jazz Blues Soul"_s},
        {u"Rock\u2028Jazz\u2029Soul"_s, u"Rock Jazz Soul"_s},
        {u"Rock\r\n"_s, u"Rock"_s}, // a cell of a spreadsheet
        {u"A|B"_s, u"A|B"_s},
    };
    for (const auto& [colle, attendu] : cas) {
        EXPECT_EQ(Saisir(u""_s,
                         [&](QWidget& boite) {
                             Coller(Text1(boite), colle);
                             QTest::keyClick(&Text1(boite), Qt::Key_Return);
                         }),
                  attendu);
    }
}

TEST(FrmInputText, TheCaretStaysBehindWhatWasPasted)
{
    EXPECT_EQ(Saisir(u"fin"_s,
                     [](QWidget& boite) {
                         QTest::keyClick(&Text1(boite), Qt::Key_Home);
                         Coller(Text1(boite), u"a\r\nb\r\n"_s);
                         QTest::keyClicks(&Text1(boite), u"ici "_s);
                         QTest::keyClick(&Text1(boite), Qt::Key_Return);
                     }),
              "a b ici fin");
}

TEST(FrmInputText, TheFormShowsAndTellsWhatIsAsked)
{
    const frmInputText boite(u"<b>R&B</b> & co"_s, u"Soul"_s);
    EXPECT_EQ(boite.findChild<QLabel*>(u"Label1"_s)->text(), "<b>R&B</b> & co");
    EXPECT_EQ(boite.findChild<QLabel*>(u"Label1"_s)->textFormat(), Qt::PlainText);
    EXPECT_EQ(Text1(boite).text(), "Soul");
    EXPECT_EQ(NomAccessible(Text1(boite)), "<b>R&B</b> & co");
    EXPECT_EQ(ControlesSansNom(boite), QStringList());
    EXPECT_FALSE(boite.Valide);
    EXPECT_TRUE(Bouton(boite, "btOk").isDefault());
}

TEST(FrmInputText, AWordThatIsTooLongDoesNotWidenTheForm)
{
    frmInputText normale(u"Texte"_s, u""_s);
    frmInputText boite(u"mot"_s.repeated(80), u""_s);
    normale.show();
    boite.show();
    EXPECT_EQ(boite.width(), normale.width());
}

TEST(FrmInputText, TabFollowsTheEye)
{
    frmInputText boite(u"Texte"_s, u""_s);
    boite.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&boite));
    for (const char* suivant : {"btOk", "btAnnuler", "Text1"}) {
        QTest::keyClick(boite.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(boite.focusWidget()->objectName(), suivant);
    }
}

TEST(FrmInputText, TheButtonsAreTranslatedAndTheLabelIsNot)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        u"lang/english.ini"_s, "[frmInputText]\r\nbtAnnuler_C=Cancel\r\nLabel1_C=Wrong\r\nText1_T=Wrong\r\n");
    const frmInputText boite(u"Texte"_s, u"Soul"_s);
    EXPECT_EQ(Bouton(boite, "btAnnuler").text(), "Cancel");
    EXPECT_EQ(boite.findChild<QLabel*>(u"Label1"_s)->text(), "Texte");
    EXPECT_EQ(Text1(boite).text(), "Soul");
}
