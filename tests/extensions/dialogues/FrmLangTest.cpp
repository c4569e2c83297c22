#include "extensions/dialogues/frmLang.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "extensions/langue/modLang.h"
#include "support/Accessibilite.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FrmLangTest : public testing::Test
{
protected:
    FrmLangTest()
    {
        Ecrire(u"default"_s, "[other]\r\n");
        Ecrire(u"english"_s, "[frmLang]\r\nCaption=Language\r\nLabel1_C=Choose\r\n[other]\r\nmsg1=Done\r\n");
        Ecrire(u"deutsch"_s, "[frmLang]\r\nCaption=Sprache\r\n[other]\r\nmsg1=Fertig\r\n");
    }

    QString Ecrire(const QString& nom, const QByteArray& contenu)
    {
        return m_plateforme.dossier.Ecrire(u"lang/%1.ini"_s.arg(nom), contenu);
    }
    QString Fichier(const QString& nom) const { return m_plateforme.dossier.Fichier(u"lang/%1.ini"_s.arg(nom)); }
    static QString Un() { return LangMsg(u"msg1"_s, u"C'est fait !"_s).texte; }
    static QString Ecrite() { return LireOption(u"QRTLangue"_s, u"none"_s).toString(); }

    frmLang& Montrer()
    {
        m_form = std::make_unique<frmLang>([this] {
            ++m_changements;
            m_fichierAuChangement = FichierLangue;
        });
        m_form->show();
        m_form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_form.get()));
        return *m_form;
    }
    QListWidget& Liste() const { return *m_form->findChild<QListWidget*>(u"lstLang"_s); }
    QPushButton& Bouton(const char* nom) const { return *m_form->findChild<QPushButton*>(nom); }
    QListWidgetItem* Ligne(const QString& nom) const { return Liste().findItems(nom, Qt::MatchExactly).value(0); }
    void CliquerLigne(const QString& nom)
    {
        ASSERT_TRUE(Ligne(nom)) << nom.toStdString();
        Liste().scrollToItem(Ligne(nom));
        QTest::mouseClick(Liste().viewport(), Qt::LeftButton, {}, Liste().visualItemRect(Ligne(nom)).center());
    }
    void Cliquer(const char* bouton) { QTest::mouseClick(&Bouton(bouton), Qt::LeftButton); }

    PlateformeDeTest& m_plateforme = PlateformeDeTest::Courante();
    std::unique_ptr<frmLang> m_form;
    int m_changements = 0;
    QString m_fichierAuChangement;
};

} // namespace

TEST_F(FrmLangTest, ListsTheLanguagesAsTheyAreFound)
{
    const frmLang& form = Montrer();
    EXPECT_EQ(form.windowTitle(), "Change Langue");
    EXPECT_EQ(form.findChild<QLabel*>(u"Label1"_s)->text(), "Selectionnez une langue");
    QStringList lignes;
    for (int i = 0; i < Liste().count(); ++i)
        lignes.append(Liste().item(i)->text());
    EXPECT_EQ(lignes, ListeLangues());
    EXPECT_EQ(lignes.size(), 3);
    EXPECT_EQ(ControlesSansNom(form), QStringList());
}

TEST_F(FrmLangTest, AClickIsTriedOnTheDialogAndOnMessages)
{
    const frmLang& form = Montrer();
    CliquerLigne(u"english"_s);
    EXPECT_EQ(form.windowTitle(), "Language");
    EXPECT_EQ(form.findChild<QLabel*>(u"Label1"_s)->text(), "Choose");
    EXPECT_EQ(NomAccessible(Liste()), "Choose");
    EXPECT_EQ(Un(), "Done");
    CliquerLigne(u"deutsch"_s);
    EXPECT_EQ(form.windowTitle(), "Sprache");
    EXPECT_EQ(form.findChild<QLabel*>(u"Label1"_s)->text(), "Selectionnez une langue") << "there is no German for it";
    CliquerLigne(u"default"_s);
    EXPECT_EQ(form.windowTitle(), "Change Langue");
    EXPECT_EQ(m_changements, 0);
    EXPECT_EQ(Ecrite(), "none");
}

TEST_F(FrmLangTest, TheKeysTryLanguagesToo)
{
    const frmLang& form = Montrer();
    Liste().setFocus();
    const QStringList langues = ListeLangues();
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&Liste(), i == 0 ? Qt::Key_Space : Qt::Key_Down);
        EXPECT_EQ(FichierLangue, Fichier(langues[i]));
    }
    QTest::keyClick(&Liste(), Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Ecrite(), langues[2]);
}

TEST_F(FrmLangTest, OkKeepsTheLanguageAndHandsItToOpenWindows)
{
    const frmLang& form = Montrer();
    CliquerLigne(u"english"_s);
    Cliquer("btOK");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Ecrite(), "english");
    EXPECT_EQ(m_changements, 1);
    EXPECT_EQ(m_fichierAuChangement, Fichier(u"english"_s));
    m_form.reset();
    EXPECT_EQ(FichierLangue, Fichier(u"english"_s));
}

TEST_F(FrmLangTest, EveryOtherWayOutBringsTheOldLanguageBack)
{
    ASSERT_TRUE(ChargerLangue(u"deutsch"_s));
    const std::function<void()> issues[] = {
        [this] { Cliquer("btAnnuler"); },
        [this] { QTest::keyClick(m_form.get(), Qt::Key_Escape); },
        [this] { m_form->close(); },
    };
    for (const auto& sortir : issues) {
        const frmLang& form = Montrer();
        EXPECT_EQ(form.windowTitle(), "Sprache");
        CliquerLigne(u"english"_s);
        sortir();
        EXPECT_FALSE(form.isVisible());
        m_form.reset();
        EXPECT_EQ(FichierLangue, Fichier(u"deutsch"_s));
        EXPECT_EQ(Un(), "Fertig") << "also for later messages";
    }
    EXPECT_EQ(Ecrite(), "none");
    EXPECT_EQ(m_changements, 0);
}

TEST_F(FrmLangTest, TheLanguageInForceIsChosenAtFirst)
{
    ASSERT_TRUE(ChargerLangue(u"deutsch"_s));
    Montrer();
    EXPECT_EQ(Liste().currentItem(), Ligne(u"deutsch"_s));
    Cliquer("btOK");
    EXPECT_EQ(Ecrite(), "deutsch");
}

TEST_F(FrmLangTest, WithoutALineOkStoresNoLanguage)
{
    Montrer();
    EXPECT_TRUE(Liste().selectedItems().isEmpty());
    Cliquer("btOK");
    EXPECT_EQ(Ecrite(), "");
    m_form.reset();
    EXPECT_EQ(FichierLangue, QString());
    EXPECT_FALSE(ChargerLangue(Ecrite())) << "the next start speaks French";
}

TEST_F(FrmLangTest, AFileThatVanishesMeanwhileLeavesTheLanguageThatWasTriedLast)
{
    Montrer();
    CliquerLigne(u"english"_s);
    ASSERT_TRUE(QFile::remove(Fichier(u"deutsch"_s)));
    CliquerLigne(u"deutsch"_s);
    EXPECT_EQ(FichierLangue, Fichier(u"english"_s));
    EXPECT_EQ(Un(), "Done");
    Cliquer("btOK");
    EXPECT_EQ(Ecrite(), "deutsch");
    m_form.reset();
    EXPECT_EQ(FichierLangue, Fichier(u"english"_s));
}

TEST_F(FrmLangTest, NamesOfAnyLettersAreLanguages)
{
    for (const QString& nom : {u"pt.br"_s, u"日本語"_s, u"français & co"_s, u"a;b=c [d]"_s}) {
        const QString fichier = Ecrire(nom, "[frmLang]\r\nCaption=Autre\r\n");
        const frmLang& form = Montrer();
        CliquerLigne(nom);
        EXPECT_EQ(FichierLangue, fichier);
        EXPECT_EQ(form.windowTitle(), "Autre");
        Cliquer("btOK");
        EXPECT_EQ(Ecrite(), nom);
        m_form.reset();
        Montrer();
        EXPECT_EQ(Liste().currentItem(), Ligne(nom));
        m_form.reset();
        FichierLangue.clear();
    }
}

TEST_F(FrmLangTest, WithoutAFolderTheListIsEmpty)
{
    QDir(m_plateforme.dossier.Fichier(u"lang"_s)).removeRecursively();
    Montrer();
    EXPECT_EQ(Liste().count(), 0);
    Cliquer("btAnnuler");
}
