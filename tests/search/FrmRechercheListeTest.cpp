// What is done with the results of a search.
#include "RechercheEnFenetre.h"

#include "base/Options.h"

#include <QFile>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

using Etape = SuiteDeModales::Etape;

/// The viewer is open on this entry, and is closed.
Etape Regarder(const QString& titre)
{
    return {"frmView", [titre](QWidget& form) {
                EXPECT_EQ(Le<QLabel>(form, "Label1").text(), titre);
                form.close();
            }};
}
/// The editor is open: `geste`, then it is closed where it is still open.
Etape EditeurOuvert(const std::function<void(QWidget&)>& geste)
{
    return {"frmEditEntree", [geste](QWidget& form) {
                geste(form);
                form.close();
            }};
}

QString ValeurDeLigne(const QWidget& form, int ligne)
{
    return Le<QTreeWidget>(form, "LV").topLevelItem(ligne - 1)->text(1);
}

} // namespace

// ---- look at

TEST_F(FrmRechercheTest, ADoubleClickShowsTheResultsAndComesBack)
{
    Lancer({{"frmRecherche",
             [](QWidget& form) {
                 Chercher(form, u"jazz"_s);
                 DoubleCliquer(form, 2);
                 EXPECT_FALSE(form.isVisible());
             }},
            {"frmView",
             [](QWidget& form) {
                 EXPECT_EQ(Le<QLabel>(form, "Label1").text(), "Kind of Blue");
                 QTest::keyClick(&Le<QPushButton>(form, "btAnnuler"), Qt::Key_Home);
                 EXPECT_EQ(Le<QLabel>(form, "Label1").text(), "Blue Train") << "it walks through the results";
                 form.close();
             }},
            {"frmRecherche", [](QWidget& form) {
                 EXPECT_EQ(Resultats(form), QStringList({"Blue Train", "Kind of Blue"}));
                 EXPECT_EQ(Compte(form), u"'jazz' à été trouvé 2 fois"_s);
             }}});
}

TEST_F(FrmRechercheTest, ShiftWithEnterOrF2IsADoubleClick)
{
    for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_F2, Qt::Key_Enter})
        Lancer({{"frmRecherche",
                 [touche](QWidget& form) {
                     Chercher(form, u"jazz"_s);
                     Touche(form, Qt::Key_Down);
                     Touche(form, touche, Qt::ShiftModifier);
                 }},
                Regarder("Kind of Blue"),
                {"frmRecherche", [](QWidget& form) { EXPECT_EQ(form.focusWidget(), &Liste(form)); }}});
}

TEST_F(FrmRechercheTest, AnEmptyListShowsAndEditsNothing)
{
    doc.IlFautSauver = true;
    Lancer([](QWidget& form) {
        for (const Qt::KeyboardModifiers avec : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier)}) {
            Touche(form, Qt::Key_F2, avec);
            EXPECT_TRUE(form.isVisible());
        }
        QTest::mouseDClick(Liste(form).viewport(), Qt::LeftButton);
        EXPECT_TRUE(form.isVisible());
    });
    EXPECT_TRUE(doc.IlFautSauver);
    doc.IlFautSauver = false;
}

TEST_F(FrmRechercheTest, OnlyTheLeftButtonShows)
{
    Lancer([](QWidget& form) {
        Chercher(form, u"jazz"_s);
        QTest::mouseDClick(Liste(form).viewport(), Qt::RightButton, {}, PlaceDe(form, 1));
        EXPECT_TRUE(form.isVisible());
    });
}

// ---- edit

TEST_F(FrmRechercheTest, EnterEditsTheEntryOfTheResult)
{
    table.ListItems(1).SetSelected(true);
    Lancer({{"frmRecherche",
             [](QWidget& form) {
                 Chercher(form, u"jazz"_s);
                 Touche(form, Qt::Key_Down);
                 Touche(form, Qt::Key_Return);
                 EXPECT_FALSE(form.isVisible());
             }},
            EditeurOuvert([](QWidget& form) {
                EXPECT_EQ(form.windowTitle(), "Editer une entrée");
                EXPECT_EQ(ValeurDeLigne(form, 1), "Kind of Blue");
                EXPECT_TRUE(Le<QPushButton>(form, "btSuivant").isHidden()) << "there is no way to other entries";
                Taper(form, 2, "Miles Davis");
                Cliquer(form, "btAjouter");
            }),
            {"frmRecherche", [](QWidget& form) {
                 EXPECT_EQ(Resultats(form, 2), QStringList({"Coltrane", "Miles Davis"}));
                 EXPECT_EQ(form.focusWidget(), &Liste(form));
             }}});
    EXPECT_EQ(table.ListItems(4).SubItems(1), "Miles Davis");
    EXPECT_TRUE(doc.IlFautSauver);
    doc.IlFautSauver = false;
    EXPECT_FALSE(table.EstSelectionnee(1)) << "what was selected before";
}

TEST_F(FrmRechercheTest, F2EditsAllThatAreSelected)
{
    reponses.Preparer(RepOui);
    Lancer({{"frmRecherche",
             [](QWidget& form) {
                 Chercher(form, u"b"_s);
                 ASSERT_EQ(Resultats(form).size(), 3);
                 CliquerSurLigne(form, 1);
                 CliquerSurLigne(form, 3, Qt::ControlModifier);
                 Touche(form, Qt::Key_F2);
             }},
            EditeurOuvert([](QWidget& form) {
                EXPECT_EQ(form.windowTitle(), "Editer de MULTIPLES entrées");
                Taper(form, 3, "divers");
                Cliquer(form, "btAjouter");
            }),
            {"frmRecherche", [](QWidget& form) {
                 EXPECT_EQ(Resultats(form, 3), QStringList({"divers", "jazz", "divers"}));
             }}});
    EXPECT_EQ(ColonneDe(table, 3), QStringList({"divers", "trip-hop", "jazz", "divers"}));
    EXPECT_FALSE(doc.IlFautSauver) << "the editor's flag, which was down at the start";
    EXPECT_TRUE(doc.ChangementsTus) << "for the rescue copy";
}

TEST_F(FrmRechercheTest, TheEditorsResultOverwritesTheFlag)
{
    doc.IlFautSauver = true;
    reponses.Preparer(RepNon);
    Lancer({{"frmRecherche",
             [](QWidget& form) {
                 Chercher(form, u"jazz"_s);
                 Touche(form, Qt::Key_A, Qt::ControlModifier);
                 Touche(form, Qt::Key_Return);
             }},
            {"frmRecherche", [](QWidget&) {}}});
    EXPECT_EQ(reponses.Cles(), QStringList({"msg99"}));
    EXPECT_FALSE(doc.IlFautSauver) << "nothing was edited, and nobody asks about the changes of before";
    EXPECT_TRUE(doc.ChangementsTus) << "for the rescue copy";
}

TEST_F(FrmRechercheTest, AnEntryIsFoundByItsKeyAlone)
{
    table.SetSortKey(0);
    table.SetSorted(true);
    RecalculerCles(table); // "k4" is Kind of Blue still, and "k2" is Blue Train now
    ASSERT_EQ(ColonneDe(table, 1), QStringList({"Abbey Road", "Blue Train", "Dummy", "Kind of Blue"}));
    Lancer({{"frmRecherche",
             [](QWidget& form) {
                 Chercher(form, u"dummy"_s);
                 Touche(form, Qt::Key_Return);
             }},
            EditeurOuvert([](QWidget& form) {
                EXPECT_EQ(ValeurDeLigne(form, 1), "Blue Train");
                Taper(form, 3, "be bop");
                Cliquer(form, "btAjouter");
            }),
            {"frmRecherche", [](QWidget& form) { EXPECT_EQ(Resultats(form), QStringList({"Blue Train"})); }}});
    EXPECT_EQ(table.ListItems(2).SubItems(2), "be bop");
    doc.IlFautSauver = false;
}

TEST_F(FrmRechercheTest, AResultWithoutAnEntryIsPassedOver)
{
    table.ListItems.Remove(4);
    Lancer({{"frmRecherche",
             [](QWidget& form) {
                 Chercher(form, u"jazz"_s);
                 Touche(form, Qt::Key_A, Qt::ControlModifier);
                 Touche(form, Qt::Key_Return);
             }},
            EditeurOuvert([](QWidget& form) {
                EXPECT_EQ(form.windowTitle(), "Editer une entrée") << "there is one of the two";
                EXPECT_EQ(ValeurDeLigne(form, 1), "Blue Train");
            }),
            {"frmRecherche", [](QWidget& form) {
                 EXPECT_EQ(Resultats(form), QStringList({"Blue Train", "Kind of Blue"}));
             }}});
}

TEST_F(FrmRechercheTest, AHeldKeyOpensNothing)
{
    Lancer([](QWidget& form) {
        Chercher(form, u"jazz"_s);
        for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_F2}) {
            QKeyEvent tenue(QEvent::KeyPress, touche, {}, QString(), true);
            QApplication::sendEvent(&Liste(form), &tenue);
            EXPECT_TRUE(form.isVisible());
        }
    });
}

TEST_F(FrmRechercheTest, WhileItSearchesByDefaultEnterInTheListSearches)
{
    Lancer([](QWidget& form) {
        Chercher(form, u"jazz"_s);
        Ecrire(form, u"rock"_s);
        Liste(form).setFocus();
        Touche(form, Qt::Key_Return);
        QCoreApplication::processEvents();
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(Resultats(form), QStringList({"Abbey Road"}));
    });
}

// ---- export

TEST_F(FrmRechercheTest, ExportsTheWholeCategory)
{
    FileDeFichiers fichiers;
    const QString page = dossier.Fichier(u"page.csv"_s);
    fichiers.Preparer({page}, 5);
    Lancer({{"frmRecherche",
             [](QWidget& form) {
                 Chercher(form, u"jazz"_s);
                 Cliquer(form, "Command1");
             }},
            {"frmExport", [](QWidget& form) { Cliquer(form, "btExporter"); }},
            {"frmRecherche", [](QWidget&) {}}});
    EXPECT_EQ(dossier.Lire(u"page.csv"_s).count('\n'), 5) << "the titles, and all entries";
}

// ---- printing

TEST_F(FrmRechercheTest, PrintsTheResultsUnderTheNameOfTheSearch)
{
    EcrireOption(Options::MessageImprim, false);
    for (const bool changer : {false, true}) {
        doc.IlFautSauver = false;
        Lancer({{"frmRecherche",
                 [](QWidget& form) {
                     Chercher(form, u"jazz"_s);
                     Cliquer(form, "Command2");
                 }},
                {"frmPrint",
                 [&](QWidget& form) {
                     EXPECT_EQ(Le<QLabel>(form, "NomCat").text(),
                               u"Zelvane v2.2 by Morvenal - ## "_s + doc.filename() + u" (jazz)"_s);
                     EXPECT_EQ(Le<QTableWidget>(form, "Largeurs").rowCount(), table.ColumnHeaders.Count());
                     if (changer)
                         Cliquer(form, "Option1_1");
                     Cliquer(form, "Command2");
                 }},
                {"frmRecherche", [](QWidget&) {}}});
        EXPECT_TRUE(QFile::exists(doc.TmpFolder + u"print.ini"_s));
        EXPECT_EQ(doc.IlFautSauver, changer) << "the options are part of the file";
    }
}

// ---- columns

TEST_F(FrmRechercheTest, ATitleSortsTheResultsAndNothingElse)
{
    Lancer([](QWidget& form) {
        Chercher(form, u"b"_s);
        CliquerSurTitre(form, 2);
        EXPECT_EQ(Resultats(form, 2), QStringList({"Beatles", "Coltrane", "Davis"}));
        CliquerSurTitre(form, 2);
        EXPECT_EQ(Resultats(form, 2), QStringList({"Davis", "Coltrane", "Beatles"})) << "turned round";
        CliquerSurTitre(form, 1);
        EXPECT_EQ(Resultats(form, 1), QStringList({"Abbey Road", "Blue Train", "Kind of Blue"}));
        Chercher(form, u"jazz"_s);
        EXPECT_EQ(Resultats(form, 1), QStringList({"Blue Train", "Kind of Blue"})) << "still in order";
    });
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"Abbey Road", "Dummy", "Blue Train", "Kind of Blue"}));
    EXPECT_FALSE(table.Sorted());
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(FrmRechercheTest, TheFirstColumnIsTheOneSortedByAtFirst)
{
    Lancer([](QWidget& form) {
        Chercher(form, u"b"_s);
        CliquerSurTitre(form, 1);
        EXPECT_EQ(Resultats(form, 1), QStringList({"Kind of Blue", "Blue Train", "Abbey Road"}));
    });
}

TEST_F(FrmRechercheTest, KeysFitTheColumnsOfTheResults)
{
    Lancer([](QWidget& form) {
        const auto largeurs = [&] {
            QList<float> liste;
            for (int i = 1; i <= 4; ++i)
                liste.append(Liste(form).Colonnes()(i).Width());
            return liste;
        };
        Touche(form, Qt::Key_D, Qt::ControlModifier);
        EXPECT_EQ(largeurs(), QList<float>({2000, 1500, 1000, 600})) << "without a row there is no width to go by";
        Chercher(form, u"b"_s);
        Touche(form, Qt::Key_D, Qt::ControlModifier);
        const QList<float> ajustees = largeurs();
        const double facteur = (Liste(form).UnitesDe(Liste(form).width()) - 340) / 5100;
        EXPECT_NEAR(ajustees[0], 2000 * facteur, 30);
        EXPECT_NEAR(ajustees[3], 600 * facteur, 30);
        Touche(form, Qt::Key_R, Qt::ControlModifier);
        EXPECT_NE(largeurs(), ajustees);
    });
    EXPECT_EQ(table.ColumnHeaders(1).Width(), 2000);
}
