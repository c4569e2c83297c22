// The frame and the document window, with real files.
#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "shell/EtapesEnFenetres.h"
#include "shell/Form1.h"
#include "shell/MDIForm1.h"
#include "shell/PanneauDAttente.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"
#include "vue/VueTable.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Fenetres : public testing::Test
{
protected:
    void SetUp() override
    {
        cadre.show();
        cadre.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&cadre));
    }

    QString Fichier(const QString& nom, const QList<QByteArray>& entrees = {"Abbey Road|", "Dummy|", "Takk|"})
    {
        TexteDeCatalogue texte;
        texte.colonnes = {"Titre|2880|", "Prêté|600|"};
        texte.entrees = entrees;
        return dossier.Ecrire(nom, texte.Texte());
    }
    Form1& Ouvrir(const QString& chemin)
    {
        EXPECT_TRUE(OuvrirFichier(cadre, chemin, TypeQrt2, true)) << chemin.toStdString();
        QCoreApplication::processEvents();
        return dynamic_cast<Form1&>(*cadre.Documents().back());
    }
    static QString Panneau(const Form1& fenetre, int numero)
    {
        return fenetre.findChild<QLabel*>(u"StatusBar1_%1"_s.arg(numero))->text();
    }

    DossierDeTest dossier;
    FileDeReponses reponses;
    MDIForm1 cadre;
};

} // namespace

TEST_F(Fenetres, TheFrameHasItsCaptionAndNoDocument)
{
    EXPECT_EQ(cadre.windowTitle(), "Zelvane v2");
    EXPECT_FALSE(cadre.windowIcon().isNull());
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_EQ(cadre.FenetreActive(), nullptr);
}

TEST_F(Fenetres, AnOpenedCatalogueIsShown)
{
    const Form1& fenetre = Ouvrir(Fichier(u"disques.qrt"_s));
    EXPECT_EQ(fenetre.Caption(), "disques.qrt");
    EXPECT_EQ(cadre.windowTitle(), "Zelvane v2 - [disques.qrt]");
    EXPECT_EQ(cadre.FenetreActive(), &fenetre);

    const VueTable& vue = fenetre.ListView1();
    EXPECT_TRUE(vue.isVisible());
    EXPECT_EQ(vue.model()->rowCount(), 3);
    EXPECT_EQ(vue.model()->index(0, 0).data().toString(), "Abbey Road");
    EXPECT_EQ(vue.model()->headerData(1, Qt::Horizontal).toString(), u"Prêté"_s);
    EXPECT_EQ(vue.columnWidth(0), vue.PixelsDe(2880));
    EXPECT_TRUE(vue.hasFocus());
}

TEST_F(Fenetres, TheStatusLineCountsEntriesAndSelectedOnes)
{
    const Form1& fenetre = Ouvrir(Fichier(u"disques.qrt"_s));
    EXPECT_EQ(Panneau(fenetre, 1), u"3 entrée(s)"_s);
    EXPECT_EQ(Panneau(fenetre, 2), u"0 selectionnée(s)"_s);
    QTest::keyClick(&fenetre.ListView1(), Qt::Key_A, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(Panneau(fenetre, 2), u"3 selectionnée(s)"_s);
    fenetre.myqrt.MyLV->ListItems.Remove(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(Panneau(fenetre, 1), u"2 entrée(s)"_s);
    EXPECT_EQ(Panneau(fenetre, 2), u"2 selectionnée(s)"_s);
}

TEST_F(Fenetres, TheLoadingPanelIsOnShowUntilTheFileIsRead)
{
    FenetreDocument& fenetre = cadre.NouvelleFenetre();
    auto& panneau = dynamic_cast<PanneauDAttente&>(*fenetre.myqrt.Ouvrir);
    EXPECT_TRUE(panneau.isVisible());
    EXPECT_EQ(panneau.findChild<QLabel*>()->text(), "Chargement Veuillez patienter....");
    EXPECT_TRUE(panneau.parentWidget()->rect().contains(panneau.geometry()));
    const VueTable& vue = dynamic_cast<Form1&>(fenetre).ListView1();
    const QPoint ecart = panneau.geometry().center() - vue.geometry().center();
    EXPECT_LE(ecart.manhattanLength(), 2);

    const Form1& ouverte = Ouvrir(Fichier(u"disques.qrt"_s));
    EXPECT_FALSE(ouverte.findChild<PanneauDAttente*>(u"fOuvrir"_s)->isVisible());
    EXPECT_FALSE(ouverte.findChild<PanneauDAttente*>(u"wait"_s)->isVisible());
    EXPECT_EQ(ouverte.findChild<QLabel*>(u"lblWait"_s)->text(), "Enregistrement Veuillez patienter....");
}

TEST_F(Fenetres, ADocumentWindowIsMaximised)
{
    EXPECT_TRUE(Ouvrir(Fichier(u"a.qrt"_s)).parentWidget()->isMaximized());
}

TEST_F(Fenetres, TheSettingMakesADocumentWindowNormal)
{
    EcrireOption(u"SizeForm1"_s, 0);
    const Form1& fenetre = Ouvrir(Fichier(u"a.qrt"_s));
    EXPECT_FALSE(fenetre.parentWidget()->isMaximized());
    EXPECT_GT(fenetre.ListView1().width(), 400);
    EXPECT_GT(fenetre.ListView1().height(), 250);
    EXPECT_TRUE(cadre.rect().contains(fenetre.parentWidget()->geometry()));
}

TEST_F(Fenetres, NormalWindowsStandInACascade)
{
    EcrireOption(u"SizeForm1"_s, 0);
    const QWidget* premiere = Ouvrir(Fichier(u"a.qrt"_s)).parentWidget();
    const QWidget* seconde = Ouvrir(Fichier(u"b.qrt"_s)).parentWidget();
    EXPECT_GT(seconde->x(), premiere->x());
    EXPECT_GT(seconde->y(), premiere->y());
    EXPECT_TRUE(seconde->parentWidget()->rect().contains(seconde->geometry()));
}

TEST_F(Fenetres, TheSettingMakesADocumentWindowAnIcon)
{
    EcrireOption(u"SizeForm1"_s, 1);
    EXPECT_TRUE(Ouvrir(Fichier(u"a.qrt"_s)).parentWidget()->isMinimized());
}

TEST_F(Fenetres, TwoDocumentsStandSideBySide)
{
    Form1& premiere = Ouvrir(Fichier(u"a.qrt"_s));
    Form1& seconde = Ouvrir(Fichier(u"b.qrt"_s, {"Un|"}));
    EXPECT_EQ(cadre.Documents(), std::vector<FenetreDocument*>({&premiere, &seconde}));
    EXPECT_EQ(cadre.FenetreActive(), &seconde);
    EXPECT_NE(premiere.Tag, seconde.Tag);
    EXPECT_NE(premiere.myqrt.TmpFolder, seconde.myqrt.TmpFolder);
    EXPECT_EQ(premiere.myqrt.ItemsCount(), 3);
    EXPECT_EQ(seconde.myqrt.ItemsCount(), 1);
}

TEST_F(Fenetres, OpeningAFileAgainBringsItsWindowToTheFront)
{
    const QString chemin = Fichier(u"a.qrt"_s);
    const Form1& premiere = Ouvrir(chemin);
    Ouvrir(Fichier(u"b.qrt"_s));
    EXPECT_FALSE(OuvrirFichier(cadre, chemin, TypeQrt2, true));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg48"}));
    EXPECT_EQ(cadre.FenetreActive(), &premiere);
    EXPECT_EQ(cadre.Documents().size(), 2);
}

TEST_F(Fenetres, AReducedWindowComesBackWhenItsFileIsOpenedAgain)
{
    const QString chemin = Fichier(u"a.qrt"_s);
    const Form1& fenetre = Ouvrir(chemin);
    fenetre.parentWidget()->showMinimized();
    EXPECT_FALSE(OuvrirFichier(cadre, chemin, TypeQrt2, false));
    EXPECT_FALSE(fenetre.parentWidget()->isMinimized());
}

TEST_F(Fenetres, AWindowTakesItsFolderAlong)
{
    Form1& fenetre = Ouvrir(Fichier(u"a.qrt"_s));
    const QString temporaire = fenetre.myqrt.TmpFolder;
    ASSERT_TRUE(QFile::exists(temporaire + u"Zelvane.qrt"_s));
    fenetre.Decharger();
    EXPECT_FALSE(QFile::exists(temporaire));
    EXPECT_TRUE(cadre.Documents().empty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(cadre.windowTitle(), "Zelvane v2");
}

TEST_F(Fenetres, AFolderToBeKeptStays)
{
    Form1& fenetre = Ouvrir(Fichier(u"a.qrt"_s));
    const QString temporaire = fenetre.myqrt.TmpFolder;
    fenetre.myqrt.GarderDossier();
    fenetre.Decharger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QFile::exists(temporaire + u"Zelvane.qrt"_s));
}

TEST_F(Fenetres, AWindowOutsideTheAreaGoesToo)
{
    Form1 fenetre(cadre);
    fenetre.myqrt.TmpFolder = CreerDossierTemp();
    const QString temporaire = fenetre.myqrt.TmpFolder;
    fenetre.show();
    fenetre.Decharger();
    EXPECT_FALSE(fenetre.isVisible());
    EXPECT_FALSE(QFile::exists(temporaire));
}

TEST_F(Fenetres, ClosingAllUnloadsEveryWindow)
{
    Ouvrir(Fichier(u"a.qrt"_s));
    Ouvrir(Fichier(u"b.qrt"_s));
    ToutFermer();
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_TRUE(QDir(TempFolder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
}

TEST_F(Fenetres, QuittingClosesTheFrameAndItsWindows)
{
    Ouvrir(Fichier(u"a.qrt"_s));
    cadre.findChild<QAction*>(u"mQuitter"_s)->trigger();
    EXPECT_FALSE(cadre.isVisible());
    EXPECT_TRUE(cadre.Documents().empty());
    EXPECT_TRUE(QDir(TempFolder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
}

TEST_F(Fenetres, AQuestionBeforeTheEndIsAskedWithItsWindowInFront)
{
    QStringList devant;
    reponses.AChaqueMessage = [&] {
        QCoreApplication::processEvents();
        devant.append(cadre.FenetreActive()->Caption());
    };
    Form1* fenetres[] = {&Ouvrir(Fichier(u"a.qrt"_s)), &Ouvrir(Fichier(u"b.qrt"_s)), &Ouvrir(Fichier(u"c.qrt"_s))};
    for (const int modifiee : {0, 1})
        fenetres[modifiee]->myqrt.IlFautSauver = true;
    reponses.Preparer(RepNon);
    reponses.Preparer(RepAnnuler);
    EXPECT_FALSE(cadre.close());
    EXPECT_EQ(devant, QStringList({u"a.qrt"_s, u"b.qrt"_s}));
    EXPECT_EQ(cadre.FenetreActive(), fenetres[1]) << "the user goes on where he refused";

    devant.clear();
    cadre.AmenerDevant(*fenetres[2]);
    reponses.Preparer(RepAnnuler);
    fenetres[0]->Decharger();
    EXPECT_EQ(devant, QStringList(u"a.qrt"_s)) << "also where one window is closed from elsewhere";
    for (Form1* fenetre : fenetres)
        fenetre->myqrt.IlFautSauver = false;
}

TEST_F(Fenetres, AWindowWithNothingToAskStaysBehind)
{
    Form1& derriere = Ouvrir(Fichier(u"a.qrt"_s));
    const Form1& devant = Ouvrir(Fichier(u"b.qrt"_s));
    EXPECT_TRUE(PeutFermer(cadre, derriere));
    EXPECT_EQ(cadre.FenetreActive(), &devant);
}

TEST_F(Fenetres, AFileThatTheReaderRefusesLeavesAnEmptyWindow)
{
    const QString chemin = dossier.Ecrire(u"faux.qrt"_s, "[FileInfo]\r\nType=AUTRE\r\n");
    const Form1& fenetre = Ouvrir(chemin);
    EXPECT_EQ(reponses.Cles(), QStringList({"msg50"}));
    EXPECT_EQ(fenetre.ListView1().model()->rowCount(), 0);
    EXPECT_EQ(Panneau(fenetre, 1), u"0 entrée(s)"_s);
}

TEST_F(Fenetres, ControlsCarryTheirNamesAndAreAccessible)
{
    const Form1& fenetre = Ouvrir(Fichier(u"a.qrt"_s));
    EXPECT_EQ(fenetre.objectName(), "Form1");
    EXPECT_EQ(cadre.objectName(), "MDIForm1");
    for (const QString& nom : {u"ListView1"_s, u"StatusBar1"_s, u"fOuvrir"_s, u"wait"_s}) {
        const auto* controle = fenetre.findChild<QWidget*>(nom);
        ASSERT_TRUE(controle) << nom.toStdString();
        EXPECT_FALSE(controle->accessibleName().isEmpty()) << nom.toStdString();
    }
}

TEST(EtapesEnFenetres, TheStartShowsTheFrameAndOpensTheFile)
{
    const DossierDeTest dossier;
    const QString chemin = dossier.Ecrire(u"mes disques.qrt"_s, TexteDeCatalogue().Texte());
    EtapesEnFenetres etapes;
    EXPECT_EQ(Main(chemin, etapes), SuiteDemarrage::Vivre);
    const MDIForm1* cadre = nullptr;
    for (const QWidget* fenetre : QApplication::topLevelWidgets()) {
        if (const auto* trouve = qobject_cast<const MDIForm1*>(fenetre))
            cadre = trouve;
    }
    ASSERT_TRUE(cadre);
    EXPECT_TRUE(cadre->isVisible());
    ASSERT_EQ(cadre->Documents().size(), 1);
    EXPECT_EQ(cadre->Documents()[0]->Caption(), "mes disques.qrt");
}

TEST(EtapesEnFenetres, AFileThatIsNotThereLeavesAnEmptyFrame)
{
    const FileDeReponses reponses;
    EtapesEnFenetres etapes;
    EXPECT_EQ(Main(u"/nulle/part.qrt"_s, etapes), SuiteDemarrage::Vivre);
    EXPECT_EQ(reponses.Cles(), QStringList({"msg49"}));
}
