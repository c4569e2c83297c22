#include "extensions/dialogues/frmCommentaires.h"

#include "base/Const_Vrac.h"
#include "catalogue/documents/Commentaires.h"
#include "extensions/langue/modLang.h"
#include "support/Accessibilite.h"
#include "support/FileDeReponses.h"
#include "support/GardeModale.h"
#include "support/PlateformeDeTest.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QPlainTextEdit& Text1(const QWidget& form)
{
    return *form.findChild<QPlainTextEdit*>("Text1");
}

QCheckBox& Check1(const QWidget& form)
{
    return *form.findChild<QCheckBox*>("Check1");
}

QPushButton& Fermer(const QWidget& form)
{
    return *form.findChild<QPushButton*>("btFermer");
}

class FrmCommentairesTest : public testing::Test
{
protected:
    /// Opens the dialog as the commands do, and does `geste` in it.
    bool Modifier(const std::function<void(QWidget&)>& geste)
    {
        const GardeModale garde(geste);
        return ModifierCommentaires(Chemin(), "discotheque.qrt", nullptr);
    }
    QString Chemin() const { return m_dossier.Fichier("Zelvane.txt"); }
    void Ecrire(const QByteArray& octets) const { m_dossier.Ecrire("Zelvane.txt", octets); }
    QByteArray Fichier() const { return m_dossier.Lire("Zelvane.txt"); }

    const DossierDeTest m_dossier;
};

TEST_F(FrmCommentairesTest, ShowsTheTextUnderTheDocumentsName)
{
    Ecrire("Mes disques\r\nrang\xe9s");
    Modifier([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Commentaires (discotheque.qrt)");
        EXPECT_EQ(Text1(form).toPlainText(), "Mes disques\nrangés");
        EXPECT_EQ(Fermer(form).text(), "&Fermer");
        EXPECT_EQ(Check1(form).text(), "Afficher les commentaires lors de l'ouverture.");
        form.close();
    });
}

TEST_F(FrmCommentairesTest, TheTitleIsInTheLanguageInForce)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini", "[frmCommentaires]\r\nbtFermer_C=Close\r\n[other]\r\nmsg77=Comments\r\n");
    Modifier([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Comments (discotheque.qrt)");
        EXPECT_EQ(Fermer(form).text(), "Close");
        form.close();
    });
}

TEST_F(FrmCommentairesTest, AnOpenDialogShowsWhatIsSetElsewhere)
{
    const frmCommentaires form;
    EcrireOption("commentAtStartup", 0);
    EXPECT_FALSE(Check1(form).isChecked());
    EcrireOption("commentAtStartup", 1);
    EXPECT_TRUE(Check1(form).isChecked());
}

TEST_F(FrmCommentairesTest, WithoutAFileTheTextIsEmptied)
{
    Ecrire("ancien");
    frmCommentaires form;
    form.LoadTexte(Chemin());
    ASSERT_TRUE(QFile::remove(Chemin()));
    form.LoadTexte(Chemin());
    EXPECT_EQ(Text1(form).toPlainText(), "");
    EXPECT_FALSE(form.modifie);
}

TEST_F(FrmCommentairesTest, ATextThatWasNotChangedIsNotWritten)
{
    Ecrire("Mes\ndisques"); // a write would change the line end
    EXPECT_FALSE(Modifier([](QWidget& form) { QTest::mouseClick(&Fermer(form), Qt::LeftButton); }));
    EXPECT_EQ(Fichier(), "Mes\ndisques");
}

TEST_F(FrmCommentairesTest, WhatWasTypedIsWrittenHoweverTheDialogCloses)
{
    const std::function<void(QWidget&)> fermetures[] = {
        [](QWidget& form) { QTest::mouseClick(&Fermer(form), Qt::LeftButton); },
        [](QWidget& form) { QTest::keyClick(&form, Qt::Key_F, Qt::AltModifier); },
        [](QWidget& form) { QTest::keyClick(&Text1(form), Qt::Key_Escape); },
        [](QWidget& form) { form.close(); },
    };
    for (const auto& fermer : fermetures) {
        Ecrire("disques");
        EXPECT_TRUE(Modifier([&](QWidget& form) {
            QTest::keyClicks(&Text1(form), "Mes ");
            fermer(form);
        }));
        EXPECT_EQ(Fichier(), "Mes disques");
    }
}

TEST_F(FrmCommentairesTest, EnterIsALineBreakAndDoesNotClose)
{
    EXPECT_TRUE(Modifier([](QWidget& form) {
        QTest::keyClicks(&Text1(form), "a");
        QTest::keyClick(&Text1(form), Qt::Key_Return);
        QTest::keyClicks(&Text1(form), "b");
        QTest::keyClick(&Text1(form), Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(&Text1(form), "c");
        EXPECT_TRUE(form.isVisible());
        form.close();
    }));
    EXPECT_EQ(Fichier(), "a\r\nb\r\nc");
}

TEST_F(FrmCommentairesTest, BlanksThatDoNotBreakAreKept)
{
    ASSERT_TRUE(Commentaires::Ecrire(m_dossier.Chemin(), QString("Qui sait\u00A0? \u202Foui")));
    EXPECT_TRUE(Modifier([](QWidget& form) {
        QTest::keyClick(&Text1(form), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&Text1(form), "!");
        form.close();
    }));
    EXPECT_EQ(Commentaires::Lire(m_dossier.Chemin()), QString("Qui sait\u00A0? \u202Foui!"));
}

TEST_F(FrmCommentairesTest, ComingOnTheScreenForgetsEarlierChanges)
{
    frmCommentaires form;
    form.LoadTexte(Chemin());
    Text1(form).setPlainText("by code");
    EXPECT_TRUE(form.modifie);
    form.show();
    EXPECT_FALSE(form.modifie);
    QTest::keyClicks(&Text1(form), "x");
    EXPECT_TRUE(form.modifie);
}

TEST_F(FrmCommentairesTest, ComingBackFromAnotherProgramForgetsNothing)
{
    EXPECT_TRUE(Modifier([](QWidget& form) {
        QTest::keyClicks(&Text1(form), "x");
        for (const QEvent::Type type : {QEvent::WindowDeactivate, QEvent::WindowActivate}) {
            QEvent evenement(type);
            QApplication::sendEvent(&form, &evenement);
        }
        form.close();
    }));
    EXPECT_EQ(Fichier(), "x");
}

TEST_F(FrmCommentairesTest, AFailureIsToldAndNothingCountsAsChanged)
{
    FileDeReponses reponses;
    ASSERT_TRUE(QDir().mkpath(Chemin())); // no file can take its place
    EXPECT_FALSE(Modifier([](QWidget& form) {
        QTest::keyClicks(&Text1(form), "x");
        form.close();
    }));
    ASSERT_EQ(reponses.Cles(), QStringList({"msg3"}));
    EXPECT_EQ(reponses.Affiches().front().message.texte, "Erreur lors de l'enregistrement des commentaires");
}

TEST_F(FrmCommentairesTest, AFileThatMayNotBeReplacedIsAFailure)
{
    FileDeReponses reponses;
    frmCommentaires form;
    form.LoadTexte(Chemin());
    Text1(form).setPlainText("neuf");
    Ecrire("ancien");
    EXPECT_FALSE(form.SaveTexte(Chemin(), false));
    EXPECT_EQ(Fichier(), "ancien");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg3"}));
    ASSERT_TRUE(QFile::remove(Chemin()));
    EXPECT_TRUE(form.SaveTexte(Chemin(), false));
    EXPECT_EQ(Fichier(), "neuf");
}

TEST_F(FrmCommentairesTest, AnEmptiedTextLeavesOneLineEndThatNobodyShows)
{
    Ecrire("Mes disques");
    EXPECT_TRUE(Modifier([](QWidget& form) {
        QTest::keyClick(&Text1(form), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&Text1(form), Qt::Key_Delete);
        form.close();
    }));
    EXPECT_EQ(Fichier(), "\r\n");
    EXPECT_FALSE(Commentaires::AMontrer(m_dossier.Chemin()));
}

TEST_F(FrmCommentairesTest, TheBoxTakesTheSetting)
{
    EXPECT_TRUE(Check1(frmCommentaires()).isChecked()) << "without a setting";
    for (const auto& [valeur, cochee] : {std::pair("1", true), {"0", false}, {"non", false}}) {
        EcrireOption("commentAtStartup", valeur);
        EXPECT_EQ(Check1(frmCommentaires()).isChecked(), cochee) << valeur;
    }
}

TEST_F(FrmCommentairesTest, AClickOnTheBoxIsWrittenAtOnce)
{
    Ecrire("a\nb"); // a write would change the line end
    Modifier([](QWidget& form) {
        QTest::keyClick(&Check1(form), Qt::Key_Space);
        EXPECT_EQ(LireOption("commentAtStartup", "none").toString(), "0");
        QTest::mouseClick(&Check1(form), Qt::LeftButton, Qt::NoModifier, QPoint(8, Check1(form).height() / 2));
        EXPECT_EQ(LireOption("commentAtStartup", "none").toString(), "1");
        form.close();
    });
    EXPECT_EQ(Fichier(), "a\nb") << "the box is no change of the text";
}

TEST_F(FrmCommentairesTest, TheKeysStartInTheTextAndTabLeavesIt)
{
    Modifier([](QWidget& form) {
        EXPECT_EQ(form.focusWidget(), &Text1(form));
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(form.focusWidget(), &Check1(form));
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(form.focusWidget(), &Fermer(form));
        EXPECT_EQ(ControlesSansNom(form), QStringList());
        form.close();
    });
}

TEST_F(FrmCommentairesTest, ALargerDialogHasALargerText)
{
    frmCommentaires form;
    form.show();
    const QSize avant = Text1(form).size();
    form.resize(form.size() + QSize(100, 80));
    QTest::qWait(1);
    EXPECT_EQ(Text1(form).size(), avant + QSize(100, 80));
}

} // namespace
