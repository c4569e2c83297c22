// The libraries as they were built, at work on a document.
#include "extensions/langue/modLang.h"
#include "extensions/plugins/DossierDePlugins.h"
#include "extensions/plugins/QrtScript.h"
#include "extensions/plugins/mPlugin.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class BibliothequesTest : public testing::Test
{
protected:
    BibliothequesTest()
    {
        InscrireScripts(dossier.composants);
        DossierDePlugins::Mettre({u"ExporterJson"_s, u"ExporterOds"_s});
        MettreColonnes(d.table, {"Titre", "Prêté"});
        AjouterEntrees(d.table, {{"Aja", "Ida - 01/02/2026"}, {"Été", ""}});
        d.table.ListItems(1).SetTag(u"aja.png"_s);
    }
    bool Exporter(const QString& nom, const QString& fichier)
    {
        EXPECT_TRUE(EnregistrerDll(DossierDePlugins::Chemin() + nom + u".dll"_s, true));
        PluginAuTravail plugin(nom);
        return plugin.initme(d.doc, 0, PluginAuTravail::Passage::ParReference) &&
               plugin.ExportToFile(d.dossier.Fichier(fichier));
    }

    DossierDePlugins dossier;
    FileDeReponses reponses;
    DocumentDeTest d;
};

} // namespace

TEST_F(BibliothequesTest, EachIsATypeOfTheExportDialog)
{
    const QList<TypeDePlugin> types = TypesDExport();
    ASSERT_EQ(types.size(), 2);
    EXPECT_EQ(types[0].nom, "ExporterJson");
    EXPECT_EQ(types[0].filtre, "JSON (*.json)|*.json");
    EXPECT_EQ(types[1].nom, "ExporterOds");
    EXPECT_EQ(types[1].filtre, "Classeur OpenDocument (*.ods)|*.ods");
    EXPECT_EQ(TypesDOuverture().size(), 0);
    EXPECT_FALSE(PluginEstAutre(u"ExporterOds"_s));
}

TEST_F(BibliothequesTest, TheirLabelsAreInTheLanguageOfTheProgram)
{
    PlateformeDeTest::Courante().dossier.Ecrire(u"lang/english.ini"_s,
                                                "[other]\r\nplugExportsOds=Open|Document spreadsheet (*.ods)\r\n");
    ASSERT_TRUE(ChargerLangue(u"english"_s));
    EXPECT_EQ(TypesDExport().at(1).filtre, "OpenDocument spreadsheet (*.ods)|*.ods") << "a bar would part it";
    ChargerLangue(QString());
}

TEST_F(BibliothequesTest, JsonComesOut)
{
    const uint64_t avant = d.table.Generation();
    ASSERT_TRUE(Exporter(u"ExporterJson"_s, u"a.json"_s));
    const QJsonDocument lu = QJsonDocument::fromJson(d.dossier.Lire(u"a.json"_s));
    EXPECT_EQ(lu[u"entrees"_s][1][u"Titre"_s].toString(), u"Été"_s);
    EXPECT_EQ(lu[u"entrees"_s][0][u"image"_s].toString(), "aja.png");
    EXPECT_EQ(d.table.Generation(), avant) << "the document is as it was";
}

TEST_F(BibliothequesTest, ASpreadsheetComesOut)
{
    ASSERT_TRUE(Exporter(u"ExporterOds"_s, u"a.ods"_s));
    const QByteArray ods = d.dossier.Lire(u"a.ods"_s);
    EXPECT_TRUE(ods.startsWith("PK"));
    EXPECT_EQ(ods.mid(30, 54), "mimetypeapplication/vnd.oasis.opendocument.spreadsheet");
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(BibliothequesTest, TheReasonOfAFailureIsTold)
{
    EXPECT_FALSE(Exporter(u"ExporterJson"_s, u"absent/a.json"_s));
    EXPECT_FALSE(Exporter(u"ExporterOds"_s, u"absent/a.ods"_s));
    d.table.ListItems.Clear();
    d.table.ColumnHeaders.Clear();
    QDir(d.dossier.Chemin()).mkdir(u"b.ods"_s);
    EXPECT_FALSE(Exporter(u"ExporterOds"_s, u"b.ods"_s));
    ASSERT_EQ(reponses.Affiches().size(), 3);
    EXPECT_EQ(
        reponses.Affiches()[0].message.texte,
        u"Le plug-in ExporterJson a échoué : ExportToFile : le dossier n'existe pas. Un fichier qui était déjà là "
        u"reste tel qu'il était."_s);
    EXPECT_TRUE(reponses.Affiches()[1].message.texte.contains(u"le dossier n'existe pas."_s));
    EXPECT_TRUE(reponses.Affiches()[2].message.texte.contains(u"le fichier ne peut pas être écrit."_s));
}
