// Settings, changed in their dialog: what is open follows, without a new start.
#include "catalogue/documents/Sauver.h"
#include "entries/mEditLV.h"
#include "output/frmPrint.h"
#include "shell/CadreEnFenetre.h"
#include "shell/OptionsEnFenetre.h"
#include "support/ArchiveDeTest.h"
#include "support/FermeModales.h"
#include "support/GardeModale.h"
#include "support/SuiteDeModales.h"
#include "vue/Infobulle.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class ReglagesEnFenetre : public CadreEnFenetre
{
protected:
    /// Opens the dialog of settings by its command, and does `geste` in it.
    void Regler(const std::function<void(QWidget&)>& geste)
    {
        const GardeModale garde([&geste](QWidget& form) {
            EXPECT_EQ(form.objectName(), "frmOptions");
            geste(form);
        });
        Menu(u"mConfiguration"_s).trigger();
        Laisser();
    }
    /// Clicks on boxes and then on btOK.
    void Basculer(const std::vector<const char*>& boites)
    {
        Regler([&boites](QWidget& form) {
            for (const char* boite : boites)
                Cliquer(form, boite);
            Cliquer(form, "btOK");
        });
    }
    /// The frame has the keys again, as on a desktop once a dialog is gone.
    void Revenir()
    {
        cadre->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(cadre.get()));
    }
};

} // namespace

TEST_F(ReglagesEnFenetre, TheMenusOfFrameAndDocumentOpenTheDialog)
{
    Montrer();
    const Form1& document = Ouvrir(u"a.qrt"_s);
    const FermeModales modales;
    for (const QObject* fenetre : std::initializer_list<const QObject*>{cadre.get(), &document}) {
        auto* item = fenetre->findChild<QAction*>(u"mConfiguration"_s, Qt::FindDirectChildrenOnly);
        EXPECT_TRUE(item->isEnabled());
        item->trigger();
    }
    EXPECT_EQ(modales.fenetres, QStringList({u"frmOptions"_s, u"frmOptions"_s}));
}

TEST_F(ReglagesEnFenetre, TheFontOfOpenTablesChangesAtOnce)
{
    Montrer();
    const Form1& document = Ouvrir(u"a.qrt"_s);
    ASSERT_FALSE(document.ListView1().font().bold());
    const SuiteDeModales suite({{u"frmOptions"_s, [](QWidget& form) { Cliquer(form, "btSetFont"); }},
                                {u"frmPolice"_s,
                                 [&document](QWidget& form) {
                                     Cliquer(form, "Gras");
                                     Cliquer(form, "btOK");
                                     EXPECT_FALSE(document.ListView1().font().bold())
                                         << "not before the dialog is gone";
                                 }},
                                {u"frmOptions"_s, [&document](QWidget& form) {
                                     EXPECT_TRUE(document.ListView1().font().bold());
                                     Cliquer(form, "btCancel");
                                 }}});
    Menu(u"mConfiguration"_s).trigger();
    EXPECT_TRUE(document.ListView1().font().bold());
}

TEST_F(ReglagesEnFenetre, TipsOfTheTableBeginWhenTheDialogCloses)
{
    Montrer();
    Form1& document = Ouvrir(u"a.qrt"_s);
    const QTimer& minuteur = document.findChild<Infobulle*>()->ToolTipTimer();
    document.ListView1().setFocus();
    Basculer({"ckInfobulle"});
    Revenir();
    EXPECT_TRUE(document.ListView1().hasFocus());
    EXPECT_TRUE(LireOption(Options::showInfobulles));
    EXPECT_TRUE(minuteur.isActive());
    Basculer({"ckInfobulle"});
    Revenir();
    EXPECT_TRUE(document.ListView1().hasFocus());
    EXPECT_FALSE(minuteur.isActive());
}

TEST_F(ReglagesEnFenetre, TheWarningBeforeManyEntriesAreEditedGoes)
{
    Montrer();
    Form1& document = Ouvrir(u"a.qrt"_s);
    AjouterEntrees(*document.myqrt.MyLV, {{"Dummy"}});
    document.myqrt.MyLV->Selectionner(1, 2, true);
    reponses.Preparer(RepNon);
    EditerEntrees(document, true, true);
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg99"_s});
    Basculer({"ckSelection"});
    const FermeModales modales;
    EditerEntrees(document, true, true);
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg99"_s});
    EXPECT_EQ(modales.fenetres, QStringList{u"frmEditEntree"_s});
}

TEST_F(ReglagesEnFenetre, TheWarningBeforePrintingGoes)
{
    Montrer();
    const Form1& document = Ouvrir(u"a.qrt"_s);
    {
        const frmPrint form(document.myqrt.TmpFolder);
    }
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg29"_s});
    Basculer({"ckImprim"});
    const frmPrint form(document.myqrt.TmpFolder);
    EXPECT_EQ(reponses.Cles(), QStringList{u"msg29"_s});
}

TEST_F(ReglagesEnFenetre, CommentsStayAwayOnceTheBoxThatNeverSaidSoIsStored)
{
    TexteDeCatalogue texte;
    const QByteArray archive = FaireArchive({{"Zelvane.qrt", texte.Texte()}, {"Zelvane.txt", "Mes disques"}});
    const QString a = dossier.Ecrire(u"a.qrt"_s, archive), b = dossier.Ecrire(u"b.qrt"_s, archive),
                  c = dossier.Ecrire(u"c.qrt"_s, archive);
    const auto montrees = [this](const QString& chemin) {
        const FermeModales modales;
        EXPECT_TRUE(OuvrirFichier(*cadre, chemin, TypeQrt2, true));
        return modales.fenetres;
    };
    Montrer();
    EXPECT_EQ(montrees(a), QStringList{u"frmCommentaires"_s});
    Basculer({});
    EXPECT_EQ(montrees(b), QStringList());
    Basculer({"ckCommentaires"});
    EXPECT_EQ(montrees(c), QStringList{u"frmCommentaires"_s});
}

TEST_F(ReglagesEnFenetre, TheNextSaveMakesABackup)
{
    Montrer();
    Form1& document = Ouvrir(u"a.qrt"_s);
    ASSERT_TRUE(Enregistrer(document.myqrt, false, true));
    EXPECT_FALSE(dossier.Existe("a.qrt.bak"));
    Basculer({"ckSauvegarde", "optDetail_0"});
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(Enregistrer(document.myqrt, false, true));
        EXPECT_TRUE(QFile::remove(dossier.Fichier("a.qrt.bak"))) << "at every save";
    }
    Basculer({"optDetail_1"});
    ASSERT_TRUE(Enregistrer(document.myqrt, false, true));
    EXPECT_FALSE(dossier.Existe("a.qrt.bak")) << "one was made already";
}
