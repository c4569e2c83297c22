#include "base/Const_Vrac.h"
#include "base/MenuSurgissant.h"
#include "entries/DialogueDeSuppression.h"
#include "extensions/langue/modLang.h"
#include "support/Accessibilite.h"
#include "support/GardeModale.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// ---- what it shows

TEST_F(FrmSupprTest, ShowsTheSelectedEntriesUnderTheDocumentsColumns)
{
    Entrees({"Bleu", "Rouge", "Vert"}, {"A", "B", "C"});
    table.Selectionner(2, 2, false);
    Lancer([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), u"Supprimer de multiples entrées"_s);
        EXPECT_EQ(form.findChild<QLabel*>("Label1")->text(),
                  u"Selectionnez les entrées que vous souhaitez supprimer."_s);
        EXPECT_EQ(Colonne(form, 1), QStringList({"Bleu", "Vert"}));
        EXPECT_EQ(Colonne(form, 2), QStringList({"A", "C"}));
        EXPECT_EQ(Coches(form), "xx");
        EXPECT_EQ(Compte(form), "2 / 2");
        const QAbstractItemModel& modele = *Liste(form).model();
        EXPECT_EQ(modele.columnCount(), 3);
        EXPECT_EQ(modele.headerData(0, Qt::Horizontal).toString(), "Titre");
        EXPECT_EQ(modele.headerData(2, Qt::Horizontal).toString(), u"Prêté"_s);
        EXPECT_EQ(Liste(form).columnWidth(0), 2 * Liste(form).columnWidth(1));
    });
}

TEST_F(FrmSupprTest, TheButtonsHaveTheirCaptions)
{
    Entrees({"Bleu"});
    Lancer([](QWidget& form) {
        const std::pair<const char*, QString> captions[] = {
            {"btTout", u"Tout"_s},
            {"btRien", u"Rien"_s},
            {"btInverser", u"Inverser"_s},
            {"btCSel", u"Cocher sélection"_s},
            {"btUSel", u"Décocher sélection"_s},
            {"btAjouter", u"Supprimer"_s},
            {"Annuler", u"Annuler"_s},
        };
        for (const auto& [nom, caption] : captions)
            EXPECT_EQ(Bouton(form, nom).text().remove(u'&'), caption);
        EXPECT_EQ(Case(form).text().remove(u'&'), u"Prendre en compte la dépendance."_s);
        EXPECT_EQ(ControlesSansNom(form), QStringList());
    });
}

TEST_F(FrmSupprTest, CaptionsAreInTheLanguageInForce)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini", "[frmSuppr]\r\nCaption=Delete entries\r\nbtCSel_C=Check selection\r\n");
    Lancer([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Delete entries");
        EXPECT_EQ(Bouton(form, "btCSel").text(), "Check selection");
    });
}

TEST_F(FrmSupprTest, TabFollowsTheEye)
{
    Entrees({"Bleu"});
    doc.dependantcol = 2;
    Lancer([](QWidget& form) {
        QStringList ordre;
        for (int i = 0; i < 9; ++i) {
            ordre.append(form.focusWidget()->objectName());
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(ordre, QStringList({"ListView1", "btTout", "btRien", "btInverser", "btCSel", "btUSel", "ckDependant",
                                      "btAjouter", "Annuler"}));
    });
}

// ---- check marks

TEST_F(FrmSupprTest, AClickOnAMarkIsCounted)
{
    Entrees({"Bleu", "Rouge", "Vert"});
    Lancer([](QWidget& form) {
        EXPECT_EQ(Compte(form), "3 / 3");
        CliquerSurCoche(form, 2);
        EXPECT_EQ(Coches(form), "x-x");
        EXPECT_EQ(Compte(form), "2 / 3");
        CliquerSurCoche(form, 2);
        EXPECT_EQ(Compte(form), "3 / 3");
    });
}

TEST_F(FrmSupprTest, TheSpaceBarFlipsTheMarkOfTheRowWithTheFocus)
{
    Entrees({"Bleu", "Rouge", "Vert"});
    Lancer([](QWidget& form) {
        CliquerSurLigne(form, 2);
        QTest::keyClick(&Liste(form), Qt::Key_Space);
        EXPECT_EQ(Coches(form), "x-x");
        EXPECT_EQ(Compte(form), "2 / 3");
        QTest::keyClick(&Liste(form), Qt::Key_Down);
        QTest::keyClick(&Liste(form), Qt::Key_Space);
        EXPECT_EQ(Coches(form), "x--");
    });
}

TEST_F(FrmSupprTest, AllNoneAndInvert)
{
    Entrees({"Bleu", "Rouge", "Vert"});
    Lancer([](QWidget& form) {
        Cliquer(form, "btRien");
        EXPECT_EQ(Coches(form), "---");
        EXPECT_EQ(Compte(form), "0 / 3");
        CliquerSurCoche(form, 1);
        Cliquer(form, "btInverser");
        EXPECT_EQ(Coches(form), "-xx");
        EXPECT_EQ(Compte(form), "2 / 3");
        Cliquer(form, "btTout");
        EXPECT_EQ(Coches(form), "xxx");
        EXPECT_EQ(Compte(form), "3 / 3");
    });
}

TEST_F(FrmSupprTest, TheHighlightedRowsAreCheckedAndUnchecked)
{
    Entrees({"a", "b", "c", "d"});
    Lancer([](QWidget& form) {
        CliquerSurLigne(form, 1);
        CliquerSurLigne(form, 3, Qt::ControlModifier);
        CliquerSurLigne(form, 4, Qt::ControlModifier);
        CliquerSurCoche(form, 2);
        EXPECT_EQ(Coches(form), "x-xx") << "the mark alone";
        CliquerSurLigne(form, 1);
        CliquerSurLigne(form, 3, Qt::ControlModifier);
        Cliquer(form, "btUSel");
        EXPECT_EQ(Coches(form), "---x");
        EXPECT_EQ(Compte(form), "1 / 4");
        CliquerSurLigne(form, 2);
        CliquerSurLigne(form, 4, Qt::ShiftModifier);
        Cliquer(form, "btCSel");
        EXPECT_EQ(Coches(form), "-xxx");
        EXPECT_EQ(Compte(form), "3 / 4") << "one of them was checked already";
    });
}

TEST_F(FrmSupprTest, ThePopUpMenuDoesWhatTheButtonsDo)
{
    Entrees({"a", "b", "c"});
    struct : PresentateurMenus
    {
        QString Choisir(const QString& menu, const QPoint& endroit) override
        {
            EXPECT_EQ(menu, "mMenuSupprimer");
            EXPECT_EQ(endroit, attendu);
            return choix;
        }
        QPoint attendu;
        QString choix;
    } menus;
    PresentateurMenus* avant = InstallerPresentateur(&menus);
    Lancer([&](QWidget& form) {
        const auto choisir = [&](const QString& item) {
            menus.choix = item;
            menus.attendu = Liste(form).viewport()->mapToGlobal(QPoint(5, 5));
            QContextMenuEvent demande(QContextMenuEvent::Mouse, QPoint(5, 5), menus.attendu);
            QApplication::sendEvent(Liste(form).viewport(), &demande);
            return Coches(form);
        };
        CliquerSurLigne(form, 2);
        EXPECT_EQ(choisir("mDecocher"), "x-x");
        EXPECT_EQ(choisir("mInverser"), "-x-");
        EXPECT_EQ(choisir("mToutCocher"), "xxx");
        EXPECT_EQ(choisir("mToutDecocher"), "---");
        EXPECT_EQ(choisir("mCocher"), "-x-");
        EXPECT_EQ(choisir(""), "-x-") << "left without a choice";
    });
    InstallerPresentateur(avant);
}

// ---- dependants

TEST_F(FrmSupprTest, WithoutADependantColumnTheBoxIsDisabledWhateverTheSettingSays)
{
    Entrees({"a", "b"});
    table.Selectionner(2, 2, false);
    EcrireOption("SupprDependant", 1);
    Lancer([](QWidget& form) {
        EXPECT_FALSE(Case(form).isEnabled());
        EXPECT_TRUE(Case(form).isChecked());
        EXPECT_EQ(Colonne(form, 1), QStringList({"a"}));
    });
}

TEST_F(FrmSupprTest, TheBoxTakesTheSettingAndDefaultsToOff)
{
    Entrees({"a", "b", "c"}, {"A", "A", "B"});
    table.Selectionner(2, 3, false);
    doc.dependantcol = 2;
    Lancer([](QWidget& form) {
        EXPECT_FALSE(Case(form).isChecked());
        EXPECT_EQ(Colonne(form, 1), QStringList({"a"}));
    });
    EcrireOption("SupprDependant", 1);
    Lancer([](QWidget& form) {
        EXPECT_TRUE(Case(form).isChecked());
        EXPECT_EQ(Colonne(form, 1), QStringList({"a", "b"}));
    });
}

TEST_F(FrmSupprTest, AClickOnTheBoxFillsTheListAnewAndIsRemembered)
{
    Entrees({"a", "b", "c"}, {"A", "A", "B"});
    table.Selectionner(2, 3, false);
    doc.dependantcol = 2;
    Lancer([](QWidget& form) {
        CliquerSurCase(form);
        EXPECT_EQ(Colonne(form, 1), QStringList({"a", "b"}));
        EXPECT_EQ(Compte(form), "2 / 2");
        EXPECT_EQ(LireOption("SupprDependant", "none").toString(), "1");
        QTest::keyClick(&Case(form), Qt::Key_Space);
        EXPECT_EQ(Colonne(form, 1), QStringList({"a"}));
        EXPECT_EQ(Compte(form), "1 / 1");
        EXPECT_EQ(LireOption("SupprDependant", "none").toString(), "0");
    });
}

TEST_F(FrmSupprTest, ClickingTheBoxTwiceChecksARowThatWasUnchecked)
{
    Entrees({"a", "b"}, {"A", "A"});
    doc.dependantcol = 2;
    Lancer([](QWidget& form) {
        CliquerSurCoche(form, 1);
        EXPECT_EQ(Compte(form), "1 / 2");
        CliquerSurCase(form);
        CliquerSurCase(form);
        EXPECT_EQ(Coches(form), "xx");
        EXPECT_EQ(Compte(form), "2 / 2");
    });
}

// ---- deletion

TEST_F(FrmSupprTest, OnlyCheckedEntriesAreDeleted)
{
    Entrees({"a", "b", "c"});
    EXPECT_TRUE(Lancer([](QWidget& form) {
        CliquerSurCoche(form, 2);
        Cliquer(form, "btAjouter");
        EXPECT_FALSE(form.isVisible());
    }));
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"b"}));
    EXPECT_EQ(ClesDe(table), QStringList({"k2"})) << "keys are the caller's";
}

TEST_F(FrmSupprTest, EnterDeletesAndEscapeDoesNot)
{
    Entrees({"a", "b"});
    EXPECT_FALSE(Lancer([](QWidget& form) { QTest::keyClick(&Liste(form), Qt::Key_Escape); }));
    EXPECT_EQ(table.ListItems.Count(), 2);
    EXPECT_TRUE(Lancer([](QWidget& form) { QTest::keyClick(&Liste(form), Qt::Key_Return); }));
    EXPECT_EQ(table.ListItems.Count(), 0);
}

TEST_F(FrmSupprTest, AnnulerAndTheCloseBoxDeleteNothing)
{
    Entrees({"a", "b"});
    EXPECT_FALSE(Lancer([](QWidget& form) {
        Cliquer(form, "Annuler");
        EXPECT_FALSE(form.isVisible());
    }));
    EXPECT_FALSE(Lancer([](QWidget& form) { form.close(); }));
    EXPECT_EQ(table.ListItems.Count(), 2);
}

TEST_F(FrmSupprTest, DeletingNothingCountsAsDeleted)
{
    Entrees({"a"});
    EXPECT_TRUE(Lancer([](QWidget& form) {
        Cliquer(form, "btRien");
        Cliquer(form, "btAjouter");
    }));
    EXPECT_EQ(table.ListItems.Count(), 1);
    table.Selectionner(1, 1, false);
    EXPECT_TRUE(Lancer([](QWidget& form) {
        EXPECT_EQ(Compte(form), "0 / 0");
        Cliquer(form, "btAjouter");
    })) << "an empty selection";
    EXPECT_EQ(table.ListItems.Count(), 1);
}

TEST_F(FrmSupprTest, OneAnswerMayStandForAllImagesOfTheBatch)
{
    Entrees({"a", "b", "c"});
    for (int i = 1; i <= 3; ++i)
        DonnerImage(i, u"%1.bmp"_s.arg(i));
    EXPECT_TRUE(Lancer([](QWidget& form) {
        const GardeModale question([](QWidget& demande) {
            EXPECT_EQ(demande.objectName(), "frmSupprImg");
            Cliquer(demande, "btOuiAll");
        });
        Cliquer(form, "btAjouter");
    }));
    for (const char* nom : {"1.bmp", "2.bmp", "3.bmp"})
        EXPECT_FALSE(document.dossier.Existe(QString::fromLatin1(nom))) << nom;
    EXPECT_EQ(table.ListItems.Count(), 0);
}

TEST_F(FrmSupprTest, AnImageThatIsKeptDoesNotKeepItsEntry)
{
    Entrees({"a", "b"});
    DonnerImage(1, "1.bmp");
    DonnerImage(2, "2.bmp");
    EXPECT_TRUE(Lancer([](QWidget& form) {
        const GardeModale question([](QWidget& demande) { Cliquer(demande, "btNonAll"); });
        Cliquer(form, "btAjouter");
    }));
    EXPECT_TRUE(document.dossier.Existe("1.bmp"));
    EXPECT_TRUE(document.dossier.Existe("2.bmp"));
    EXPECT_EQ(table.ListItems.Count(), 0);
}

TEST_F(FrmSupprTest, AnImageThatAnotherEntryNamesGoesAllTheSame)
{
    Entrees({"a", "b"});
    DonnerImage(1, "1.bmp");
    table.ListItems(2).SetTag("1.bmp");
    table.ListItems(2).SetSmallIcon("ico");
    table.Selectionner(2, 2, false);
    EXPECT_TRUE(Lancer([](QWidget& form) {
        const GardeModale question([](QWidget& demande) { Cliquer(demande, "btOui"); });
        Cliquer(form, "btAjouter");
    }));
    EXPECT_FALSE(document.dossier.Existe("1.bmp"));
    ASSERT_EQ(ColonneDe(table, 1), QStringList({"b"}));
    EXPECT_EQ(table.ListItems(1).Tag(), "1.bmp");
    EXPECT_EQ(table.ListItems(1).SmallIcon(), "ico") << "its marker is not corrected at once";
}

// ---- many

TEST_F(FrmSupprTest, AHundredThousandRowsAreListedHighlightedSortedAndDeleted)
{
    constexpr int Combien = 100'000;
    for (int i = 1; i <= Combien; ++i)
        table.ListItems.Add(0, u"k%1"_s.arg(i), u"%1"_s.arg(Combien - i, 6, 10, QChar(u'0')));
    table.Selectionner(2, Combien, true);
    EXPECT_TRUE(Lancer([](QWidget& form) {
        EXPECT_EQ(Compte(form), "99999 / 99999");
        QTest::keyClick(&Liste(form), Qt::Key_A, Qt::ControlModifier);
        CliquerSurTitre(form, 1);
        const std::vector<std::pair<int, int>> toutes{{1, Combien - 1}};
        EXPECT_EQ(Liste(form).PlagesChoisies(), toutes);
        Cliquer(form, "btUSel");
        EXPECT_EQ(Compte(form), "0 / 99999");
        Cliquer(form, "btInverser");
        QTest::keyClick(&Liste(form), Qt::Key_End, Qt::ControlModifier);
        EXPECT_GT(Liste(form).verticalScrollBar()->value(), 0);
        form.grab();
        Cliquer(form, "btAjouter");
    }));
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"099999"}));
}

} // namespace
