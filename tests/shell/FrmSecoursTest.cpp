#include "shell/frmSecours.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "extensions/langue/modLang.h"
#include "shell/CadreEnFenetre.h"
#include "shell/EtapesEnFenetres.h"
#include "support/Accessibilite.h"
#include "support/GardeModale.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

class FrmSecours : public CadreEnFenetre
{
protected:
    /// A folder that a killed run left, last written in this minute of an hour.
    void Abandonner(int numero, int minute, const QByteArray& entree = "Abbey Road||")
    {
        TexteDeCatalogue texte;
        texte.entrees = {entree};
        const DossierDeTest& racine = PlateformeDeTest::Courante().dossier;
        QFile fichier(racine.Ecrire(u"temp/cat%1/Zelvane.qrt"_s.arg(numero), texte.Texte()));
        ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
        ASSERT_TRUE(
            fichier.setFileTime(QDateTime(QDate(2099, 12, 24), QTime(18, minute)), QFileDevice::FileModificationTime));
    }
    void SetUp() override { Montrer(); }

    std::unique_ptr<frmSecours> Form()
    {
        auto form = std::make_unique<frmSecours>(*cadre, ChercherLaisses(), cadre.get());
        form->open();
        // The frame is active before; keys reach the dialog once it is the one.
        EXPECT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == form.get(); }));
        return form;
    }
    static QTreeWidget& Liste(const QWidget& form) { return *form.findChild<QTreeWidget*>(u"lstLaisses"_s); }
    static QPushButton& Bouton(const QWidget& form, const QString& nom) { return *form.findChild<QPushButton*>(nom); }
    static void Cliquer(const QWidget& form, const QString& nom)
    {
        QTest::mouseClick(&Bouton(form, nom), Qt::LeftButton);
        CadreEnFenetre::Laisser();
    }
    static QStringList Noms(const QWidget& form)
    {
        QStringList noms;
        for (int i = 0; i < Liste(form).topLevelItemCount(); ++i)
            noms.append(Liste(form).topLevelItem(i)->text(0));
        return noms;
    }
    static bool EstLaisse(int numero) { return QFile::exists(TempFolder + u"/cat%1/Zelvane.qrt"_s.arg(numero)); }
};

} // namespace

TEST_F(FrmSecours, EachLineTellsWhatWasLeft)
{
    Abandonner(7, 30);
    const auto form = Form();
    EXPECT_EQ(form->windowTitle(), u"Récupérer des catégories"_s);
    ASSERT_EQ(Noms(*form), QStringList("cat7"));
    const QTreeWidgetItem& ligne = *Liste(*form).topLevelItem(0);
    EXPECT_EQ(ligne.text(1), u"jamais enregistrée"_s);
    EXPECT_EQ(ligne.text(2), "24/12/2099 18:30");
    EXPECT_EQ(ligne.text(3), "1");
    EXPECT_EQ(ligne.text(4), u"non enregistrées"_s) << "it is nowhere else";
    EXPECT_TRUE(ligne.isSelected());
}

TEST_F(FrmSecours, OneWhoseFileStandsHasNothingUnsaved)
{
    Abandonner(7, 30);
    Categorie doc;
    doc.TmpFolder = TempFolder + u"/cat7/"_s;
    doc.FileType = u"1"_s;
    doc.SetCheminReel(PlateformeDeTest::Courante().dossier.Ecrire("disques.qrt", TexteDeCatalogue().Texte()));
    ASSERT_TRUE(EcrireIdentite(doc, u"disques.qrt"_s));
    const auto form = Form();
    ASSERT_EQ(Noms(*form), QStringList("disques.qrt"));
    const QTreeWidgetItem& ligne = *Liste(*form).topLevelItem(0);
    EXPECT_EQ(ligne.text(1), doc.CheminReel());
    EXPECT_EQ(ligne.text(4), "aucune");
}

TEST_F(FrmSecours, OneThatWasClosedWithoutAQuestionSaysSo)
{
    Abandonner(7, 30);
    DocumentDeTest document;
    document.doc.TmpFolder = TempFolder + u"/cat7/"_s;
    document.doc.IlFautSauver = true;
    document.doc.EcraserIlFautSauver(false);
    ASSERT_TRUE(SecoursDuDocument().EcrireMaintenant(document.doc, u"disques.qrt"_s));
    document.doc.ChangementsTus = false; // the folder is no matter of the document's
    const auto form = Form();
    ASSERT_EQ(Noms(*form), QStringList("disques.qrt"));
    EXPECT_EQ(Liste(*form).topLevelItem(0)->text(4), u"fermée sans enregistrer"_s);
}

TEST_F(FrmSecours, ALongNameLeavesTheOtherColumnsInSight)
{
    Abandonner(7, 30);
    std::vector<DossierLaisse> laisses = ChercherLaisses();
    laisses.front().nom = u"Une collection de disques "_s.repeated(8);
    frmSecours form(*cadre, std::move(laisses), cadre.get());
    form.show();
    EXPECT_EQ(Liste(form).horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(Liste(form).columnWidth(1), 100);
}

TEST_F(FrmSecours, OneThatCannotBeReadLeavesNoWindowBehind)
{
    const DossierDeTest& racine = PlateformeDeTest::Courante().dossier;
    racine.Ecrire("temp/cat7/Zelvane.qrt", "rubbish");
    const auto form = Form();
    Cliquer(*form, u"btOuvrir"_s);
    EXPECT_EQ(reponses.Cles(), QStringList({"msgSecoursIllisible"}));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(cadre->Documents().empty());
    EXPECT_TRUE(Titres().isEmpty());
    EXPECT_TRUE(EstLaisse(7));
}

TEST_F(FrmSecours, OpeningShowsTheDocumentAndEndsTheDialog)
{
    Abandonner(7, 30);
    const auto form = Form();
    Cliquer(*form, u"btOuvrir"_s);
    EXPECT_FALSE(form->isVisible());
    ASSERT_EQ(cadre->Documents().size(), 1);
    const auto& fenetre = dynamic_cast<Form1&>(*cadre->Documents()[0]);
    EXPECT_EQ(fenetre.Caption(), u"cat7 (récupéré)"_s);
    EXPECT_EQ(Titres(), QStringList(u"cat7 (récupéré)"_s));
    EXPECT_EQ(fenetre.ListView1().model()->index(0, 0).data().toString(), "Abbey Road");
    EXPECT_FALSE(EstLaisse(7));

    reponses.Preparer(RepAnnuler);
    cadre->close();
    EXPECT_EQ(reponses.Affiches().size(), 1) << "it asks to be saved";
    dynamic_cast<FenetreDocument&>(*cadre->Documents()[0]).myqrt.IlFautSauver = false;
}

TEST_F(FrmSecours, TheListGetsShorterAndTheNextOneIsChosen)
{
    Abandonner(7, 30);
    Abandonner(8, 20);
    Abandonner(9, 10);
    const auto form = Form();
    ASSERT_EQ(Noms(*form), QStringList({"cat7", "cat8", "cat9"}));
    reponses.Preparer(RepOui);
    Cliquer(*form, u"btJeter"_s);
    EXPECT_EQ(Noms(*form), QStringList({"cat8", "cat9"}));
    EXPECT_FALSE(EstLaisse(7));
    EXPECT_TRUE(Liste(*form).topLevelItem(0)->isSelected());
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(EstLaisse(8));
    EXPECT_EQ(reponses.Affiches().size(), 1);
}

TEST_F(FrmSecours, ThrowingAwayAsksFirstAndEnterKeeps)
{
    Abandonner(7, 30);
    Abandonner(8, 20);
    const auto form = Form();
    for (const int reponse : {RepNon, RepAnnuler}) {
        reponses.Preparer(reponse);
        Cliquer(*form, u"btJeter"_s);
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(Noms(*form), QStringList({"cat7", "cat8"}));
        EXPECT_TRUE(EstLaisse(7));
    }
    ASSERT_EQ(reponses.Cles(), QStringList({"msgSecoursJeter", "msgSecoursJeter"}));
    const FileDeReponses::Affiche& question = reponses.Affiches().first();
    EXPECT_EQ(question.message.texte, u"Supprimer définitivement ? Ce qui n'a pas été enregistré sera perdu :\ncat7"_s);
    EXPECT_EQ(question.message.defaut, RepNon);
    EXPECT_EQ(question.genre, MsgOuiNon);
}

TEST_F(FrmSecours, SeveralAreThrownAwayAtOnce)
{
    Abandonner(7, 30);
    Abandonner(8, 20);
    Abandonner(9, 10);
    const auto form = Form();
    Liste(*form).topLevelItem(2)->setSelected(true);
    reponses.Preparer(RepOui);
    Cliquer(*form, u"btJeter"_s);
    EXPECT_EQ(Noms(*form), QStringList("cat8"));
    EXPECT_TRUE(reponses.Affiches().last().message.texte.endsWith(u":\ncat7\ncat9"_s)) << "one question, all names";
    reponses.Preparer(RepOui);
    Cliquer(*form, u"btJeter"_s);
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(EstLaisse(7) || EstLaisse(8) || EstLaisse(9));
}

TEST_F(FrmSecours, EveryWayOutLeavesThemForLater)
{
    Abandonner(7, 30);
    const std::function<void(frmSecours&)> sorties[] = {
        [](frmSecours& form) { Cliquer(form, u"btPlusTard"_s); },
        [](frmSecours& form) { QTest::keyClick(&form, Qt::Key_Escape); },
        [](frmSecours& form) { form.close(); },
    };
    for (const auto& sortir : sorties) {
        const auto form = Form();
        sortir(*form);
        EXPECT_FALSE(form->isVisible());
        EXPECT_TRUE(EstLaisse(7));
        EXPECT_TRUE(cadre->Documents().empty());
    }
}

TEST_F(FrmSecours, OneThatCannotBeReadStaysInTheList)
{
    Abandonner(7, 30);
    QFile fichier(TempFolder + u"/cat7/Zelvane.qrt"_s);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly) && fichier.write("rubbish") == 7);
    fichier.close();
    const auto form = Form();
    Cliquer(*form, u"btOuvrir"_s);
    EXPECT_EQ(reponses.Cles(), QStringList("msgSecoursIllisible"));
    EXPECT_EQ(Noms(*form), QStringList("cat7"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(cadre->Documents().empty());
    EXPECT_EQ(Titres(), QStringList());
}

TEST_F(FrmSecours, WithoutAChoiceThereIsNothingToDoWithIt)
{
    Abandonner(7, 30);
    const auto form = Form();
    Liste(*form).clearSelection();
    EXPECT_FALSE(Bouton(*form, u"btOuvrir"_s).isEnabled());
    EXPECT_FALSE(Bouton(*form, u"btJeter"_s).isEnabled());
    EXPECT_TRUE(Bouton(*form, u"btPlusTard"_s).isEnabled());
}

TEST_F(FrmSecours, KeysAloneAreEnough)
{
    Abandonner(7, 30);
    Abandonner(8, 20);
    const auto form = Form();
    EXPECT_EQ(form->focusWidget(), &Liste(*form));
    EXPECT_EQ(ControlesSansNom(*form), QStringList());
    for (const QString& nom : {u"btJeter"_s, u"btOuvrir"_s, u"btPlusTard"_s}) {
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(form->focusWidget()->objectName(), nom);
    }
    reponses.Preparer(RepOui);
    QTest::keyClick(form.get(), Qt::Key_J, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Noms(*form) == QStringList("cat8"); }));
    Liste(*form).setFocus();
    QTest::keyClick(&Liste(*form), Qt::Key_Return);
    CadreEnFenetre::Laisser();
    EXPECT_FALSE(form->isVisible());
    ASSERT_EQ(cadre->Documents().size(), 1);
    cadre->Documents()[0]->myqrt.IlFautSauver = false;
}

TEST_F(FrmSecours, ADoubleClickOpens)
{
    Abandonner(7, 30);
    const auto form = Form();
    const QPoint place = Liste(*form).visualItemRect(Liste(*form).topLevelItem(0)).center();
    QTest::mouseClick(Liste(*form).viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(Liste(*form).viewport(), Qt::LeftButton, {}, place);
    CadreEnFenetre::Laisser();
    ASSERT_EQ(cadre->Documents().size(), 1);
    cadre->Documents()[0]->myqrt.IlFautSauver = false;
}

TEST_F(FrmSecours, IsTranslated)
{
    Abandonner(7, 30);
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini",
        "[frmSecours]\r\nCaption=Rescue\r\nbtJeter_C=&Discard\r\n[other]\r\nmsgSecoursCol1=Name\r\n");
    const auto form = Form();
    EXPECT_EQ(form->windowTitle(), "Rescue");
    EXPECT_EQ(Bouton(*form, u"btJeter"_s).text(), "&Discard");
    EXPECT_EQ(Liste(*form).headerItem()->text(0), "Name");
}

TEST_F(FrmSecours, TheStartOffersWhatWasLeftAndNothingElse)
{
    EtapesEnFenetres etapes;
    etapes.ChargerCadre();
    etapes.MontrerCadre();
    etapes.ProposerSecours(); // no window opens: it would stay open for ever

    Abandonner(7, 30);
    reponses.Preparer(RepOui);
    const GardeModale garde([](QWidget& fenetre) {
        EXPECT_EQ(fenetre.objectName(), "frmSecours");
        Cliquer(fenetre, u"btJeter"_s);
    });
    etapes.ProposerSecours();
    EXPECT_FALSE(EstLaisse(7));
}

TEST_F(FrmSecours, TheStartTidiesUpWhatAKilledCommandLeftAndOffersNothingOfIt)
{
    EtapesEnFenetres etapes;
    etapes.ChargerCadre();
    etapes.MontrerCadre();
    const DossierDeTest& racine = PlateformeDeTest::Courante().dossier;
    racine.Ecrire("temp/cli-12-abcdef/cat7/Zelvane.qrt", "copy");
    ASSERT_TRUE(QFile::setPermissions(racine.Fichier("temp/cli-12-abcdef/cat7"),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    etapes.ProposerSecours();
    EXPECT_FALSE(racine.Existe("temp/cli-12-abcdef"));
}
