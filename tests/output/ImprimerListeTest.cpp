// Printing as the user asks for it: the dialog, the pages, the question, the printer.
#include "output/modImprimerLV.h"

#include "ImpressionDeTest.h"
#include "base/Options.h"
#include "kit/frmAvancement.h"
#include "output/ColonnesDeFeuille.h"
#include "output/frmPrint.h"
#include "output/frmPrintOptions.h"
#include "support/ArchiveDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/SuiteDeModales.h"
#include "support/TableDeTest.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

class ImprimerListeTest : public testing::Test
{
protected:
    ImprimerListeTest()
    {
        EcrireOption(Options::MessageImprim, false);
        MettreColonnes(document.table, {"Titre", "Artiste"});
        document.table.ColumnHeaders(1).SetWidth(3000);
        document.table.ColumnHeaders(2).SetWidth(2000);
        document.table.SetWidth(8000);
        AjouterEntrees(document.table, {{"Aja", "Steely Dan"}, {"Blue", "Mitchell"}, {"Kid A", "Radiohead"}});
    }

    /// The user does `geste` in the print dialog, which has to close then.
    bool Lancer(const std::function<void(frmPrint&)>& geste)
    {
        const SuiteDeModales suite({{u"frmPrint"_s, [&](QWidget& form) { geste(dynamic_cast<frmPrint&>(form)); }}});
        return ImprimerListe(document.table, document.dossier.Chemin(), u"mes disques.qrt"_s);
    }
    bool Imprimer()
    {
        return Lancer([](frmPrint& form) { Cliquer(form, "Command1"); });
    }
    bool Annuler(const std::function<void(frmPrint&)>& avant = [](frmPrint&) {})
    {
        return Lancer([&](frmPrint& form) {
            avant(form);
            Cliquer(form, "Command2");
        });
    }
    static void Cliquer(const QWidget& form, const char* nom)
    {
        auto* bouton = form.findChild<QAbstractButton*>(QString::fromLatin1(nom));
        QTest::mouseClick(bouton, Qt::LeftButton, {}, QPoint(10, bouton->height() / 2));
    }
    static QString Entete(const frmPrint& form) { return form.findChild<QLabel*>("NomCat")->text(); }
    void EcrireOptions(const QByteArray& lignes) const
    {
        document.dossier.Ecrire("print.ini", "[Impression]\r\n" + lignes);
    }
    QByteArray PrintIni() const { return document.dossier.Lire("print.ini"); }
    void EcrireImage(Qt::GlobalColor couleur) const
    {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(couleur);
        ASSERT_TRUE(image.save(document.dossier.Fichier("print.image"), "BMP"));
    }

    DocumentDeTest document;
    FileDeReponses reponses;
    FileDeFichiers fichiers;
    ImprimanteEnMemoire imprimante;
};

/// Presses the button of the window of progress as soon as that is seen.
class AbandonALApparition : public QObject
{
public:
    AbandonALApparition() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* objet, QEvent* event) override
    {
        if (event->type() == QEvent::Show && objet->objectName() == "frmAvancement") {
            QMetaObject::invokeMethod(
                objet, [objet] { objet->findChild<QAbstractButton*>("btAnnuler")->click(); }, Qt::QueuedConnection);
        }
        return false;
    }
};

} // namespace

// ---- what the dialog opens with

TEST_F(ImprimerListeTest, TheHeadingHasAPlaceholderForTheCount)
{
    Annuler([](frmPrint& form) { EXPECT_EQ(Entete(form), "Zelvane v2.2 by Morvenal - ## mes disques.qrt"); });
    EcrireOptions("Titre=Mes listes\r\nTexte=%nomcat%: %TITRE%\r\n");
    Annuler([](frmPrint& form) { EXPECT_EQ(Entete(form), "mes disques.qrt: Mes listes"); });
}

TEST_F(ImprimerListeTest, ColumnsKeepTheirPartOfTheListsWidth)
{
    Annuler([](frmPrint& form) {
        const Feuille feuille = form.Disposition();
        ASSERT_EQ(feuille.colonnes.size(), 2);
        EXPECT_EQ(feuille.colonnes[0].titre, "Titre");
        EXPECT_NEAR(feuille.colonnes[0].largeur, 3000 * 74.348 / 8000, 1e-9);
        EXPECT_NEAR(feuille.colonnes[1].largeur, 2000 * 74.348 / 8000, 1e-9);
    });
}

TEST_F(ImprimerListeTest, AListThatWasNeverShownFillsTheSheet)
{
    document.table.SetWidth(0);
    Annuler([](frmPrint& form) {
        EXPECT_NEAR(form.Disposition().colonnes[0].largeur, 74.348 * 0.6, 1e-9);
        EXPECT_NEAR(form.Disposition().colonnes[1].largeur, 74.348 * 0.4, 1e-9);
    });
}

TEST_F(ImprimerListeTest, ColumnsWithoutAnyWidthHaveNone)
{
    document.table.SetWidth(0);
    document.table.ColumnHeaders(1).SetWidth(0);
    document.table.ColumnHeaders(2).SetWidth(0);
    Annuler([](frmPrint& form) { EXPECT_EQ(form.Disposition().colonnes[0].largeur, 0); });
}

TEST_F(ImprimerListeTest, KeptWidthsComeBackAndNewColumnsTakeTheDefault)
{
    EcrireOptions("ColWidth1=12.5\r\n");
    Annuler([](frmPrint& form) {
        EXPECT_EQ(form.Disposition().colonnes[0].largeur, 12.5);
        EXPECT_NEAR(form.Disposition().colonnes[1].largeur, 2000 * 74.348 / 8000, 1e-9);
    });
}

TEST_F(ImprimerListeTest, ThePictureFollowsItsTwoOptions)
{
    const QSize parDefaut = ImageDEnteteParDefaut().size();
    const auto regarder = [&](const QByteArray& options, QSize taille) {
        EcrireOptions(options);
        Annuler([&](frmPrint& form) { EXPECT_EQ(form.Image().size(), taille) << options.toStdString(); });
    };
    regarder("", parDefaut);
    EcrireImage(Qt::red);
    regarder("", QSize(8, 8));
    regarder("AffImg=0\r\nImgDefaut=0\r\n", QSize(0, 0));
    regarder("AffImg=1\r\nImgDefaut=0\r\n", QSize(8, 8));
    regarder("AffImg=1\r\nImgDefaut=1\r\n", parDefaut);
    regarder("AffImg=0\r\nImgDefaut=1\r\n", parDefaut);
    regarder("AffImg=non\r\nImgDefaut=\r\n", QSize(0, 0));
    document.dossier.Ecrire("print.image", "no picture");
    regarder("AffImg=1\r\nImgDefaut=0\r\n", parDefaut);
}

// ---- what it leaves

TEST_F(ImprimerListeTest, WidthsAreKeptAlsoWhereItIsCancelled)
{
    EXPECT_FALSE(Annuler([](frmPrint& form) { form.findChild<ColonnesDeFeuille*>()->MettreLargeur(1, 20.5); }));
    EXPECT_EQ(PrintIni(), "[Impression]\r\nColWidth1=20.500\r\nColWidth2=18.587\r\n");
    EXPECT_EQ(imprimante.demandees, QStringList());
    reponses.Preparer(RepOui);
    Lancer([](frmPrint& form) {
        form.findChild<ColonnesDeFeuille*>()->MettreLargeur(2, 0);
        Cliquer(form, "Command1");
    });
    EXPECT_EQ(PrintIni(), "[Impression]\r\nColWidth1=20.500\r\nColWidth2=0.000\r\n");
}

TEST_F(ImprimerListeTest, TellsWhetherTheOptionsChanged)
{
    const auto choisir = [](frmPrint& form) { Cliquer(form, "Option1_1"); };
    EXPECT_TRUE(Annuler(choisir));
    EXPECT_FALSE(Annuler());
    reponses.Preparer(RepNon);
    EXPECT_FALSE(Imprimer());
    reponses.Preparer(RepNon);
    EXPECT_TRUE(Lancer([&](frmPrint& form) {
        choisir(form);
        Cliquer(form, "Command1");
    }));
}

// ---- the pages

TEST_F(ImprimerListeTest, AsksWithTheCountOfPagesAndPrints)
{
    reponses.Preparer(RepOui);
    reponses.AChaqueMessage = [this] { EXPECT_EQ(imprimante.demandees, QStringList()) << "nothing has reached it"; };
    Imprimer();
    ASSERT_EQ(reponses.Affiches().size(), 1);
    EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Il y a 1 page(s) à imprimer\nPoursuivre l'impression?"_s);
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOuiNon);
    EXPECT_EQ(imprimante.demandees, QStringList("Salon/mes disques.qrt"));
    EXPECT_EQ(imprimante.finis, 1);
    EXPECT_EQ(imprimante.pagesDernier, 1);
}

TEST_F(ImprimerListeTest, AnyOtherAnswerPrintsNothing)
{
    for (const int reponse : {RepNon, RepAnnuler}) {
        reponses.Preparer(reponse);
        Imprimer();
        EXPECT_EQ(imprimante.demandees, QStringList());
    }
}

TEST_F(ImprimerListeTest, ManyEntriesTakeManyPages)
{
    for (int i = 0; i < 500; ++i)
        document.table.ListItems.Add(0, QString(), u"Entrée %1"_s.arg(i));
    reponses.Preparer(RepOui);
    Imprimer();
    EXPECT_GT(imprimante.pagesDernier, 4);
    EXPECT_TRUE(reponses.Affiches()[0].message.texte.startsWith(u"Il y a %1 page(s)"_s.arg(imprimante.pagesDernier)));
}

TEST_F(ImprimerListeTest, TheSelectionAloneIsPrinted)
{
    for (int i = 0; i < 500; ++i)
        document.table.ListItems.Add(0, QString(), u"Entrée %1"_s.arg(i));
    EcrireOptions("SelOnly=1\r\n");
    reponses.Preparer(RepOui);
    Imprimer();
    EXPECT_EQ(imprimante.pagesDernier, 1) << "no entry is selected: the heading and the titles";
}

TEST_F(ImprimerListeTest, TheHeadingCountsAllEntriesAlsoWhereTheSelectionIsPrinted)
{
    EcrireOptions("SelOnly=1\r\n");
    document.table.Selectionner(2, 2, true);
    reponses.Preparer(RepOui);
    Imprimer();
    const QString pdf = document.dossier.Ecrire("recu.pdf", imprimante.octets);
    const QByteArray texte = ::Lancer("pdftotext", {"-layout", pdf, "-"});
    EXPECT_TRUE(texte.contains("Morvenal - 3 mes disques.qrt")) << texte.toStdString();
    EXPECT_TRUE(texte.contains("Blue"));
    EXPECT_FALSE(texte.contains("Aja"));
}

TEST_F(ImprimerListeTest, ThePictureIsPrintedWhereItsOptionSaysSo)
{
    EcrireImage(Qt::red);
    for (const auto& [options, images] : std::vector<std::pair<QByteArray, int>>{{"AffImg=1\r\nImgDefaut=0\r\n", 1},
                                                                                 {"AffImg=0\r\nImgDefaut=1\r\n", 0},
                                                                                 {"AffImg=0\r\nImgDefaut=0\r\n", 0}}) {
        EcrireOptions(options);
        reponses.Preparer(RepOui);
        Imprimer();
        const QString pdf = document.dossier.Ecrire("recu.pdf", imprimante.octets);
        const QByteArray liste = ::Lancer("pdfimages", {"-list", pdf});
        EXPECT_EQ(liste.contains(" image "), images > 0) << options.toStdString() << liste.toStdString();
    }
}

TEST_F(ImprimerListeTest, ThePrinterThatWasChosenIsTheCurrentOneFromThenOn)
{
    reponses.Preparer(RepOui);
    Lancer([](frmPrint& form) {
        QTest::keyClick(form.findChild<QComboBox*>("Combo1"), Qt::Key_Up);
        Cliquer(form, "Command1");
    });
    EXPECT_EQ(imprimante.demandees, QStringList("Bureau/mes disques.qrt"));
    reponses.Preparer(RepOui);
    Imprimer();
    EXPECT_EQ(imprimante.demandees.last(), "Bureau/mes disques.qrt");
    Annuler([](frmPrint& form) { QTest::keyClick(form.findChild<QComboBox*>("Combo1"), Qt::Key_Down); });
    Annuler([](frmPrint& form) { EXPECT_EQ(form.Imprimante(), "Bureau") << "a cancelled choice is none"; });
}

TEST_F(ImprimerListeTest, AJobThatFailsIsTold)
{
    reponses.Preparer(RepOui);
    imprimante.refuse = true;
    Imprimer();
    EXPECT_EQ(reponses.Cles().last(), "msgPasImprime");
    imprimante.refuse = false;
    for (int i = 0; i < 500; ++i)
        document.table.ListItems.Add(0, QString(), u"Entrée %1"_s.arg(i));
    imprimante.sansPapier = true;
    reponses.Preparer(RepOui);
    Imprimer();
    EXPECT_EQ(reponses.Cles().last(), "msgPasImprime");
    imprimante.sansPapier = false;
    imprimante.sansAppareil = true;
    reponses.Preparer(RepOui);
    Imprimer();
    EXPECT_EQ(reponses.Cles().last(), "msgPasImprime");
    EXPECT_EQ(imprimante.finis, 0);
    PlateformeDeTest::Courante().imprimantes.commencer = {};
    reponses.Preparer(RepOui);
    Imprimer();
    EXPECT_EQ(reponses.Cles().count(u"msgPasImprime"_s), 4) << "the printer has gone";
}

TEST_F(ImprimerListeTest, ComposingIsGivenUpByItsButton)
{
    for (int i = 0; i < 500; ++i)
        document.table.ListItems.Add(0, QString(), u"Entrée %1"_s.arg(i));
    const auto avant = std::exchange(AvancementEnFenetre::DelaiUsuel, std::chrono::milliseconds(0));
    const AbandonALApparition abandon;
    Imprimer();
    AvancementEnFenetre::DelaiUsuel = avant;
    EXPECT_TRUE(reponses.Affiches().isEmpty()) << "no question";
    EXPECT_EQ(imprimante.demandees, QStringList());
}

// ---- into a file

class ImprimerEnPdf : public ImprimerListeTest
{
protected:
    ImprimerEnPdf()
    {
        PlateformeDeTest::Courante().imprimantes.noms.clear();
        EcrireOption(Options::ExportInitDir, sortie.Chemin());
    }
    bool EstPdf(const QString& nom) const { return sortie.Lire(nom).startsWith("%PDF-"); }

    DossierDeTest sortie;
};

TEST_F(ImprimerEnPdf, TheFileIsAskedForAfterTheYes)
{
    reponses.Preparer(RepNon);
    Imprimer();
    EXPECT_TRUE(fichiers.Demandes().isEmpty());
    reponses.Preparer(RepOui);
    fichiers.Preparer({sortie.Fichier("liste.pdf")}, 1);
    Imprimer();
    ASSERT_EQ(fichiers.Demandes().size(), 1);
    EXPECT_EQ(fichiers.Demandes()[0].depart, sortie.Fichier("mes disques.pdf"));
    EXPECT_EQ(fichiers.Demandes()[0].types[0].motifs, "*.pdf");
    EXPECT_TRUE(EstPdf("liste.pdf"));
    EXPECT_EQ(LireOption(Options::ExportInitDir), sortie.Chemin());
}

TEST_F(ImprimerEnPdf, ANameWithoutAnExtensionGetsOne)
{
    reponses.Preparer(RepOui);
    fichiers.Preparer({sortie.Fichier("liste")}, 1);
    Imprimer();
    EXPECT_TRUE(EstPdf("liste.pdf"));
    EXPECT_FALSE(sortie.Existe("liste"));
}

TEST_F(ImprimerEnPdf, AFileThatExistsIsReplacedAfterAYesOnly)
{
    sortie.Ecrire("liste.pdf", "ancien");
    for (const int reponse : {RepNon, RepAnnuler, RepOui}) {
        EXPECT_EQ(sortie.Lire("liste.pdf"), "ancien");
        reponses.Preparer(RepOui);
        reponses.Preparer(reponse);
        fichiers.Preparer({sortie.Fichier("liste.pdf")}, 1);
        Imprimer();
        EXPECT_EQ(reponses.Cles().last(), "msg59");
    }
    EXPECT_TRUE(EstPdf("liste.pdf"));
}

TEST_F(ImprimerEnPdf, WithoutANameNothingIsWritten)
{
    reponses.Preparer(RepOui);
    fichiers.PreparerAnnulation();
    Imprimer();
    EXPECT_EQ(QDir(sortie.Chemin()).entryList(QDir::Files), QStringList());
    EXPECT_EQ(reponses.Affiches().size(), 1);
}

TEST_F(ImprimerEnPdf, AFileThatCannotBeWrittenIsTold)
{
    reponses.Preparer(RepOui);
    fichiers.Preparer({sortie.Fichier("pas/la.pdf")}, 1);
    Imprimer();
    EXPECT_EQ(reponses.Cles().last(), "msgPdfNonEcrit");
}

// ---- seen before

TEST_F(ImprimerListeTest, ThePagesAreSeenBeforeTheyArePrinted)
{
    for (int i = 0; i < 500; ++i)
        document.table.ListItems.Add(0, QString(), u"Entrée %1"_s.arg(i));
    int pages = 0;
    const SuiteDeModales suite({
        {u"frmPrint"_s,
         [](QWidget& form) {
             Cliquer(form, "btApercu");
             EXPECT_EQ(form.findChild<QLabel*>("NomCat")->text(), "Zelvane v2.2 by Morvenal - ## mes disques.qrt");
             Cliquer(form, "Command1");
         }},
        {u"frmApercu"_s,
         [&pages](QWidget& form) {
             pages = form.findChild<QSpinBox*>("NumeroDePage")->maximum();
             form.close();
         }},
    });
    reponses.Preparer(RepOui);
    ImprimerListe(document.table, document.dossier.Chemin(), u"mes disques.qrt"_s);
    EXPECT_EQ(pages, imprimante.pagesDernier);
    EXPECT_GT(pages, 4);
}
