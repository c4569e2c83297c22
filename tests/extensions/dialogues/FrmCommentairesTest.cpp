#include "extensions/dialogues/frmCommentaires.h"

#include "base/Const_Vrac.h"
#include "catalogue/documents/Commentaires.h"
#include "extensions/langue/modLang.h"
#include "support/Accessibilite.h"
#include "support/FileDeReponses.h"
#include "support/GardeModale.h"
#include "support/PlateformeDeTest.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QString s_chemin = QStringLiteral("/tmp/cat1/Zelvane.txt");

class StockEnMemoire : public StockCommentaires
{
public:
    std::optional<QString> Lire(const QString& chemin) override
    {
        EXPECT_EQ(chemin, s_chemin);
        return texte;
    }
    bool Ecrire(const QString& chemin, const QString& nouveau) override
    {
        EXPECT_EQ(chemin, s_chemin);
        ++ecritures;
        if (plein)
            return false;
        texte = nouveau;
        return true;
    }

    std::optional<QString> texte;
    int ecritures = 0;
    bool plein = false;
};

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
        return ModifierCommentaires(m_stock, s_chemin, "discotheque.qrt", nullptr);
    }

    StockEnMemoire m_stock;
};

TEST_F(FrmCommentairesTest, ShowsTheTextUnderTheDocumentsName)
{
    m_stock.texte = "Mes disques\nrangés";
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
    const frmCommentaires form(m_stock);
    EcrireOption("commentAtStartup", 0);
    EXPECT_FALSE(Check1(form).isChecked());
    EcrireOption("commentAtStartup", 1);
    EXPECT_TRUE(Check1(form).isChecked());
}

TEST_F(FrmCommentairesTest, WithoutAFileTheTextIsEmptied)
{
    m_stock.texte = "ancien";
    frmCommentaires form(m_stock);
    form.LoadTexte(s_chemin);
    m_stock.texte.reset();
    form.LoadTexte(s_chemin);
    EXPECT_EQ(Text1(form).toPlainText(), "");
    EXPECT_FALSE(form.modifie);
}

TEST_F(FrmCommentairesTest, ATextThatWasNotChangedIsNotWritten)
{
    m_stock.texte = "Mes disques";
    EXPECT_FALSE(Modifier([](QWidget& form) { QTest::mouseClick(&Fermer(form), Qt::LeftButton); }));
    EXPECT_EQ(m_stock.ecritures, 0);
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
        m_stock.texte = "disques";
        EXPECT_TRUE(Modifier([&](QWidget& form) {
            QTest::keyClicks(&Text1(form), "Mes ");
            fermer(form);
        }));
        EXPECT_EQ(m_stock.texte, "Mes disques");
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
    EXPECT_EQ(m_stock.texte, "a\nb\nc");
}

TEST_F(FrmCommentairesTest, BlanksThatDoNotBreakAreKept)
{
    m_stock.texte = QString("Qui sait\u00A0? \u202Foui");
    EXPECT_TRUE(Modifier([](QWidget& form) {
        QTest::keyClick(&Text1(form), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&Text1(form), "!");
        form.close();
    }));
    EXPECT_EQ(m_stock.texte, QString("Qui sait\u00A0? \u202Foui!"));
}

TEST_F(FrmCommentairesTest, ComingOnTheScreenForgetsEarlierChanges)
{
    frmCommentaires form(m_stock);
    form.LoadTexte(s_chemin);
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
    EXPECT_EQ(m_stock.texte, "x");
}

TEST_F(FrmCommentairesTest, AFailureIsToldAndNothingCountsAsChanged)
{
    FileDeReponses reponses;
    m_stock.plein = true;
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
    frmCommentaires form(m_stock);
    form.LoadTexte(s_chemin);
    Text1(form).setPlainText("neuf");
    m_stock.texte = "ancien";
    EXPECT_FALSE(form.SaveTexte(s_chemin, false));
    EXPECT_EQ(m_stock.texte, "ancien");
    EXPECT_EQ(reponses.Cles(), QStringList({"msg3"}));
    m_stock.texte.reset();
    EXPECT_TRUE(form.SaveTexte(s_chemin, false));
    EXPECT_EQ(m_stock.texte, "neuf");
}

TEST_F(FrmCommentairesTest, AnEmptiedTextLeavesOneLineEndThatNobodyShows)
{
    const DossierDeTest dossier;
    const QString chemin = dossier.Ecrire("Zelvane.txt", "Mes disques");
    CommentairesDuDossier stock;
    const GardeModale garde([](QWidget& form) {
        QTest::keyClick(&Text1(form), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&Text1(form), Qt::Key_Delete);
        form.close();
    });
    EXPECT_TRUE(ModifierCommentaires(stock, chemin, "a.qrt", nullptr));
    EXPECT_EQ(dossier.Lire("Zelvane.txt"), "\r\n");
    EXPECT_FALSE(Commentaires::AMontrer(dossier.Chemin()));
}

TEST_F(FrmCommentairesTest, TheBoxTakesTheSetting)
{
    EXPECT_TRUE(Check1(frmCommentaires(m_stock)).isChecked()) << "without a setting";
    for (const auto& [valeur, cochee] : {std::pair("1", true), {"0", false}, {"non", false}}) {
        EcrireOption("commentAtStartup", valeur);
        EXPECT_EQ(Check1(frmCommentaires(m_stock)).isChecked(), cochee) << valeur;
    }
}

TEST_F(FrmCommentairesTest, AClickOnTheBoxIsWrittenAtOnce)
{
    Modifier([](QWidget& form) {
        QTest::keyClick(&Check1(form), Qt::Key_Space);
        EXPECT_EQ(LireOption("commentAtStartup", "none").toString(), "0");
        QTest::mouseClick(&Check1(form), Qt::LeftButton, Qt::NoModifier, QPoint(8, Check1(form).height() / 2));
        EXPECT_EQ(LireOption("commentAtStartup", "none").toString(), "1");
        form.close();
    });
    EXPECT_EQ(m_stock.ecritures, 0) << "the box is no change of the text";
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
    frmCommentaires form(m_stock);
    form.show();
    const QSize avant = Text1(form).size();
    form.resize(form.size() + QSize(100, 80));
    QTest::qWait(1);
    EXPECT_EQ(Text1(form).size(), avant + QSize(100, 80));
}

} // namespace
