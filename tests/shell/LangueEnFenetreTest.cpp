// The language, chosen in its dialog: what is open follows, without a new start.
#include "extensions/dialogues/frmTip.h"
#include "extensions/langue/modLang.h"
#include "shell/CadreEnFenetre.h"
#include "shell/OptionsEnFenetre.h"
#include "support/FermeModales.h"
#include "support/GardeModale.h"

#include <QListWidget>
#include <QMdiSubWindow>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

class LangueEnFenetre : public CadreEnFenetre
{
protected:
    /// Chooses the line `langue` in the dialog of languages, and leaves it by the button.
    void ChoisirLangue(const QString& langue, const char* bouton)
    {
        const GardeModale garde([&](QWidget& form) {
            EXPECT_EQ(form.objectName(), "frmLang");
            auto& liste = Partie<QListWidget>(form, "lstLang");
            const QList<QListWidgetItem*> lignes = liste.findItems(langue, Qt::MatchExactly);
            ASSERT_EQ(lignes.size(), 1);
            QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, liste.visualItemRect(lignes.first()).center());
            Cliquer(form, bouton);
        });
        Menu(u"mLangue"_s).trigger();
        Laisser();
    }
    /// What a button of Qt's own dialogs says.
    static QString TexteDeQt() { return QCoreApplication::translate("QPlatformTheme", "Cancel"); }
    void EcrireLangue(const QString& nom, const QByteArray& contenu)
    {
        PlateformeDeTest::Courante().dossier.Ecrire(u"lang/%1.ini"_s.arg(nom), contenu);
    }
};

} // namespace

TEST_F(LangueEnFenetre, TheMenusOfFrameAndDocumentOpenTheDialog)
{
    Montrer();
    const Form1& document = Ouvrir(u"a.qrt"_s);
    const FermeModales modales;
    for (const QObject* fenetre : std::initializer_list<const QObject*>{cadre.get(), &document}) {
        auto* item = fenetre->findChild<QAction*>(u"mLangue"_s, Qt::FindDirectChildrenOnly);
        EXPECT_TRUE(item->isEnabled());
        item->trigger();
    }
    EXPECT_EQ(modales.fenetres, QStringList({u"frmLang"_s, u"frmLang"_s}));
}

TEST_F(LangueEnFenetre, AnotherLanguageIsInOpenWindowsAndAtTheNextStart)
{
    EcrireLangue(u"english"_s, "[MDIForm1]\r\nmOuvrir_C=&Open\r\n[Form1]\r\nCaption=Document\r\nmFichier_C=&File\r\n"
                               "[other]\r\nmsg94=%1 entries\r\n");
    Montrer();
    const Form1& document = Ouvrir(u"a.qrt"_s);
    ChoisirLangue(u"english"_s, "btOK");
    EXPECT_EQ(LireOption(Options::QRTLangue), "english");
    EXPECT_TRUE(FichierLangue.endsWith(u"/lang/english.ini"_s));
    EXPECT_EQ(Menu(u"mOuvrir"_s).text(), "&Open");
    EXPECT_EQ(document.findChild<QMenu*>(u"mFichier"_s)->title(), "&File");
    EXPECT_EQ(document.findChild<QLabel*>(u"StatusBar1_1"_s)->text(), "1 entries");
    EXPECT_EQ(document.Caption(), "a.qrt") << "a window's title is its file's name";
}

TEST_F(LangueEnFenetre, BackToFrenchEveryOpenWindowIsFrenchAgain)
{
    EcrireLangue(u"english"_s,
                 "[MDIForm1]\r\nCaption=Catalogues\r\nmFichier_C=&File\r\nmOuvrir_C=&Open\r\n"
                 "Toolbar1_TT_6=Open a category\r\n[Form1]\r\nmFichier_C=&File\r\n[frmTip]\r\nCaption=Tip\r\n"
                 "[frmPopup]\r\nmMenuMdiTab_C=Tabs\r\n");
    EcrireLangue(u"default"_s, "[other]\r\n");
    PlateformeDeTest::Courante().dossier.Ecrire(u"astuces.txt"_s, "Une\r\n");
    Montrer();
    const Form1& document = Ouvrir(u"a.qrt"_s);
    frmTip::Montrer(*cadre);
    const QString titre = cadre->windowTitle();
    QAction& bouton = *cadre->findChild<QToolBar*>(u"Toolbar1"_s)->actions()[5];
    const QString aide = bouton.toolTip();
    ChoisirLangue(u"english"_s, "btOK");
    EXPECT_NE(cadre->windowTitle(), titre);
    EXPECT_EQ(bouton.toolTip(), "Open a category");
    EXPECT_EQ(cadre->findChild<frmTip*>()->windowTitle(), "Tip");
    ChoisirLangue(u"default"_s, "btOK");
    EXPECT_EQ(LireOption(Options::QRTLangue), "default");
    EXPECT_EQ(cadre->windowTitle(), titre);
    EXPECT_EQ(Menu(u"mOuvrir"_s).text(), "&Ouvrir");
    EXPECT_EQ(bouton.toolTip(), aide);
    EXPECT_EQ(document.findChild<QMenu*>(u"mFichier"_s)->title(), "&Fichier");
    EXPECT_EQ(cadre->findChild<frmTip*>()->windowTitle(), "Astuce du jour");
    EXPECT_EQ(Titres(), QStringList{u"a.qrt"_s});
}

TEST_F(LangueEnFenetre, ALanguageThatIsTriedAndCancelledLeavesOpenWindowsAlone)
{
    EcrireLangue(u"english"_s, "[MDIForm1]\r\nmOuvrir_C=&Open\r\n[frmLang]\r\nbtAnnuler_C=Cancel\r\n");
    Montrer();
    ChoisirLangue(u"english"_s, "btAnnuler");
    EXPECT_EQ(Menu(u"mOuvrir"_s).text(), "&Ouvrir");
    EXPECT_EQ(FichierLangue, QString());
    EXPECT_EQ(LireOption(u"QRTLangue"_s, u"none"_s), u"none"_s);
}

TEST_F(LangueEnFenetre, QtSpeaksTheLanguageToo)
{
    EcrireLangue(u"deutsch"_s, "[other]\r\nmsgCodeDeLangue=de\r\n");
    EcrireLangue(u"english"_s, "[other]\r\nmsgCodeDeLangue=en\r\n");
    EcrireLangue(u"autre"_s, "[other]\r\nmsgCodeDeLangue=xx\r\n");
    EcrireLangue(u"default"_s, "[other]\r\n");
    const QString anglais = TexteDeQt();
    Montrer();
    const Form1& document = Ouvrir(u"a.qrt"_s);
    const QMenu& menu = *qobject_cast<QMdiSubWindow*>(document.parentWidget())->systemMenu();
    EXPECT_EQ(TexteDeQt(), "Annuler");
    EXPECT_EQ(menu.actions().constFirst()->text(), "&Restaurer");
    ChoisirLangue(u"deutsch"_s, "btOK");
    EXPECT_EQ(TexteDeQt(), "Abbrechen");
    EXPECT_EQ(menu.actions().constFirst()->text(), "Wieder&herstellen");
    EXPECT_EQ(menu.actions().constLast()->text().section(u'\t', 0, 0), u"Schl&ießen"_s);
    ChoisirLangue(u"english"_s, "btOK");
    EXPECT_EQ(TexteDeQt(), anglais);
    EXPECT_EQ(menu.actions().constFirst()->text(), "&Restore");
    ChoisirLangue(u"default"_s, "btOK");
    EXPECT_EQ(TexteDeQt(), "Annuler");
    ChoisirLangue(u"autre"_s, "btOK");
    EXPECT_EQ(TexteDeQt(), anglais);
    ChoisirLangue(u"deutsch"_s, "btOK");
    cadre.reset();
    EXPECT_EQ(TexteDeQt(), anglais);
}
