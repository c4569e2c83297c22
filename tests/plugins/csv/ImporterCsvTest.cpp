// The library that was built, at work on a new document: its windows follow one another as the user sees them.
#include "base/Const_Vrac.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "extensions/plugins/DossierDePlugins.h"
#include "extensions/plugins/PluginsEnFenetre.h"
#include "extensions/plugins/mPlugin.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/SuiteDeModales.h"
#include "support/TableDeTest.h"

#include <QRadioButton>
#include <QtTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ImporterCsvTest : public testing::Test
{
protected:
    ImporterCsvTest() { DossierDePlugins::Mettre(u"ImporterCsv"_s); }

    /// Opens the file through the open dialog, of which it is the fourth type.
    void Ouvrir(const QString& chemin, std::vector<SuiteDeModales::Etape> etapes)
    {
        fichiers.Preparer({chemin}, 4);
        if (renonce)
            fichiers.PreparerAnnulation();
        const SuiteDeModales suite(std::move(etapes));
        OuvrirDialogue(cadre);
    }
    MyLV& Table() const { return cadre.fenetres.back()->myqrt.Table; }

    static void Valider(QWidget& form) { QTest::keyClick(&form, Qt::Key_Return); }
    static void Annuler(QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); }
    static constexpr auto Choix = "frmImporterCsv"_L1;
    static constexpr auto Bilan = "frmBilanCsv"_L1;

    DossierDePlugins dossier;
    DossierDeTest ici;
    FileDeReponses reponses;
    FileDeFichiers fichiers;
    CadreDeTest cadre;
    OuvreursDePlugins ouvreurs;
    bool renonce = false; ///< the open dialog is to come back, and is closed
};

} // namespace

TEST_F(ImporterCsvTest, AddsItsTypeToTheOpenDialog)
{
    const QList<TypeDePlugin> types = TypesDOuverture();
    ASSERT_EQ(types.size(), 1);
    EXPECT_EQ(types[0].nom, "ImporterCsv");
    EXPECT_EQ(types[0].filtre, "Tableaux CSV et TSV (*.csv;*.tsv;*.txt)|*.csv;*.tsv;*.txt");
    EXPECT_FALSE(PluginEstAutre(u"ImporterCsv"_s));
    EXPECT_FALSE(PluginEstExporteur(u"ImporterCsv"_s));
}

TEST_F(ImporterCsvTest, ATableBecomesANewDocument)
{
    ici.Ecrire(u"p/aja.png"_s, "png");
    Ouvrir(ici.Ecrire(u"disques.csv"_s, "Titre;Ann\xE9\x65;Image\nAja;1977;p/aja.png\nBlue;1971;\n"),
           {{Choix, Valider}});
    ASSERT_EQ(cadre.fenetres.size(), 1U);
    EXPECT_EQ(cadre.fenetres[0]->Caption(), "disques.csv");
    EXPECT_EQ(Table().ColumnHeaders(2).Text(), u"Année");
    EXPECT_EQ(Table().ColumnHeaders.Count(), 2);
    EXPECT_EQ(ColonneDe(Table(), 1), QStringList({"Aja", "Blue"}));
    EXPECT_EQ(ClesDe(Table()), QStringList({"k1", "k2"}));
    EXPECT_EQ(Table().ListItems(1).Tag(), "aja.png");
    EXPECT_TRUE(QFileInfo::exists(cadre.fenetres[0]->myqrt.TmpFolder + u"aja.png"_s));
}

TEST_F(ImporterCsvTest, AnnulerOpensNothing)
{
    renonce = true;
    Ouvrir(ici.Ecrire(u"a.csv"_s, "a,b\n1,2\n"), {{Choix, Annuler}});
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_TRUE(reponses.Cles().isEmpty());
}

TEST_F(ImporterCsvTest, WhatIsNotAsItWasIsToldAndCanBeRefused)
{
    renonce = true;
    Ouvrir(ici.Ecrire(u"a.csv"_s, "a,b\n1\n2,3\n"), {{Choix, Valider}, {Bilan, Annuler}});
    EXPECT_TRUE(cadre.fenetres.empty());
}

TEST_F(ImporterCsvTest, RowsWithDefectsStay)
{
    Ouvrir(ici.Ecrire(u"a.csv"_s, "a,b\n1\n2,3\n"), {{Choix, Valider}, {Bilan, Valider}});
    EXPECT_EQ(ColonneDe(Table(), 1), QStringList({"1", "2"}));
}

TEST_F(ImporterCsvTest, RowsWithDefectsCanBeLeftOut)
{
    Ouvrir(ici.Ecrire(u"a.csv"_s, "a,b\n1\n2,3\n"),
           {{Choix, Valider}, {Bilan, [](QWidget& form) {
                                   auto* laisser = form.findChild<QRadioButton*>(u"laisser"_s);
                                   QTest::mouseClick(laisser, Qt::LeftButton, {}, QPoint(8, laisser->height() / 2));
                                   Valider(form);
                               }}});
    EXPECT_EQ(ColonneDe(Table(), 1), QStringList({"2"}));
    EXPECT_EQ(ClesDe(Table()), QStringList({"k1"}));
}

TEST_F(ImporterCsvTest, AFileThatCannotBeReadIsToldAndOpensNothing)
{
    renonce = true;
    QDir().mkpath(ici.Fichier(u"dossier.csv"_s));
    Ouvrir(ici.Fichier(u"dossier.csv"_s), {});
    ASSERT_EQ(reponses.Cles(), QStringList({"msgPluginEchec"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte,
              u"Le plug-in ImporterCsv a échoué : openFile : le fichier ne peut pas être lu"_s);
    EXPECT_TRUE(cadre.fenetres.empty());
}

TEST_F(ImporterCsvTest, ALongImportShowsHowFarItIsAndCanBeGivenUp)
{
    renonce = true;
    // So long that the window comes on every machine; it is given up before long.
    QFile fichier(ici.Fichier(u"a.csv"_s));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write("a,b\n");
    const QByteArray lignes = QByteArray("1,\"2|\"\n").repeated(100000);
    for (int i = 0; i < 60; ++i)
        fichier.write(lignes);
    fichier.close();
    Ouvrir(fichier.fileName(), {{Choix, Valider}, {"frmAvancementCsv"_L1, Annuler}});
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_TRUE(reponses.Cles().isEmpty());
}
