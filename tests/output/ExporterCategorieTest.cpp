// The export as the user asks for it: the columns, then the file.
#include "output/ExporterCategorie.h"

#include "base/AfficherMsg.h"
#include "base/Options.h"
#include "output/ExporteursAjoutes.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/SuiteDeModales.h"
#include "support/TableDeTest.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QFile>
#include <QListWidget>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

enum Type { Quelconque = 1, AvecImages, SansImages, Texte, Csv, Tabulations, PremierPlugin };

class ExporterCategorieTest : public testing::Test
{
protected:
    ExporterCategorieTest()
    {
        document.doc.SetCheminReel(u"/disques/mes disques.qrt"_s);
        MettreColonnes(document.table, {"Titre", "Artiste", "Prêté"});
        AjouterEntrees(document.table, {{"Aja", "Steely Dan", ""}, {"Blue", "Mitchell", "Ida - 01/02/2026"}});
    }

    /// The user answers the dialog of the columns.
    bool Exporter(const std::function<void(QWidget&)>& geste = [](QWidget& form) { Cliquer(form, "btExporter"); })
    {
        const SuiteDeModales suite({{u"frmExport"_s, geste}});
        bool selection = true;
        ExporterCategorie(document.doc, selection);
        return selection;
    }
    static void Cliquer(const QWidget& form, const char* nom)
    {
        auto* bouton = form.findChild<QAbstractButton*>(QString::fromLatin1(nom));
        QTest::mouseClick(bouton, Qt::LeftButton, {}, QPoint(10, bouton->height() / 2));
    }
    QString Cible(const QString& nom, int type)
    {
        const QString chemin = sortie.Fichier(nom);
        fichiers.Preparer({chemin}, type);
        return chemin;
    }

    DocumentDeTest document;
    DossierDeTest sortie;
    FileDeReponses reponses;
    FileDeFichiers fichiers;
};

} // namespace

TEST_F(ExporterCategorieTest, OffersAllColumnsTicked)
{
    Exporter([](QWidget& form) {
        const auto& liste = *form.findChild<QListWidget*>("List1");
        QStringList lignes;
        for (int i = 0; i < liste.count(); ++i)
            lignes.append(liste.item(i)->text() + (liste.item(i)->checkState() == Qt::Checked ? u'x' : u'-'));
        EXPECT_EQ(lignes, QStringList({"Titrex", "Artistex", u"Prêtéx"_s}));
        EXPECT_EQ(form.windowTitle(), "Exporter la selection");
        form.close();
    });
    EXPECT_TRUE(fichiers.Demandes().isEmpty()) << "left without a choice";
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(ExporterCategorieTest, OffersSixTypesAndTheLastFolder)
{
    EcrireOption(Options::ExportInitDir, u"/exports/"_s);
    fichiers.PreparerAnnulation();
    EXPECT_FALSE(Exporter()) << "nothing but the selection was not asked for";
    ASSERT_EQ(fichiers.Demandes().size(), 1);
    const DemandeFichier& demande = fichiers.Demandes()[0];
    QStringList types;
    for (const TypeDeFichier& type : demande.types)
        types.append(type.libelle + u'=' + type.motifs);
    EXPECT_EQ(types, QStringList({"(*.*)=*.*", "Internet files with images=*.htm",
                                  "Internet files without images(*.htm)=*.htm", "text file (*.txt)=*.txt",
                                  u"csv file (séparateur virgule)(*.csv)=*.csv"_s, "text file (tabulation)=*.txt"}));
    EXPECT_EQ(demande.type, 2);
    EXPECT_EQ(demande.depart, "/exports/");
    EXPECT_TRUE(reponses.Affiches().isEmpty()) << "cancelled without a word";
    EXPECT_EQ(LireOption(Options::ExportInitDir), "/exports/");
    EXPECT_EQ(NomsPluginsExport, QStringList({"", ""}));
}

TEST_F(ExporterCategorieTest, StartsInTheProgramsFolderAtFirst)
{
    fichiers.PreparerAnnulation();
    Exporter();
    EXPECT_EQ(fichiers.Demandes()[0].depart, PlateformeDeTest::Courante().dossier.Chemin());
}

TEST_F(ExporterCategorieTest, WithoutATypeWritesNothingButKeepsTheFolder)
{
    Cible(u"page"_s, Quelconque);
    Exporter();
    EXPECT_EQ(reponses.Cles(), QStringList({"msg46"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, "Veuillez selectionner un type pour votre fichier");
    EXPECT_FALSE(sortie.Existe(u"page"_s));
    EXPECT_EQ(LireOption(Options::ExportInitDir), sortie.Chemin());
}

TEST_F(ExporterCategorieTest, EachTypeIsWritten)
{
    const QList<std::pair<int, QByteArray>> debuts{{AvecImages, "<!DOCTYPE html"},
                                                   {SansImages, "<HTML>"},
                                                   {Texte, "        \\\\\\|///"},
                                                   {Csv, "Titre;Artiste;"},
                                                   {Tabulations, "Titre\tArtiste\t"}};
    for (const auto& [type, debut] : debuts) {
        Cible(u"sortie"_s, type);
        Exporter();
        EXPECT_TRUE(sortie.Lire(u"sortie"_s).startsWith(debut))
            << type << sortie.Lire(u"sortie"_s).left(40).constData();
    }
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_TRUE(PlateformeDeTest::Courante().programmes.fichiers.isEmpty()) << "nobody wants to see them";
}

TEST_F(ExporterCategorieTest, TheOptionsReachTheFile)
{
    document.table.Selectionner(2, 2, true);
    Cible(u"table.csv"_s, Csv);
    EXPECT_TRUE(Exporter([](QWidget& form) {
        Cliquer(form, "Check1");
        Cliquer(form, "Check3");
        form.findChild<QListWidget*>("List1")->item(1)->setCheckState(Qt::Unchecked);
        Cliquer(form, "btExporter");
    }));
    EXPECT_EQ(sortie.Lire(u"table.csv"_s), "N\xB0;Titre;Pr\xEAt\xE9;\r\n2;Blue;Ida - 01/02/2026\r\n");
}

TEST_F(ExporterCategorieTest, ShowsTheResultInTheDesktopsViewer)
{
    for (const int type : {AvecImages, SansImages, Texte, Csv, Tabulations}) {
        auto& ouverts = PlateformeDeTest::Courante().programmes.fichiers;
        ouverts.clear();
        const QString chemin = Cible(u"sortie"_s, type);
        Exporter([](QWidget& form) {
            Cliquer(form, "Check2");
            Cliquer(form, "btExporter");
        });
        EXPECT_EQ(ouverts, type == Csv ? QStringList() : QStringList({chemin})) << type;
    }
}

TEST_F(ExporterCategorieTest, AFileThatCannotBeMadeIsNotToldAndTheViewerStartsAllTheSame)
{
    fichiers.Preparer({sortie.Fichier(u"absent/page.htm"_s)}, SansImages);
    Exporter([](QWidget& form) {
        Cliquer(form, "Check2");
        Cliquer(form, "btExporter");
    });
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_EQ(PlateformeDeTest::Courante().programmes.fichiers.size(), 1);
}

TEST_F(ExporterCategorieTest, AFileThatIsThereIsOverwritten)
{
    sortie.Ecrire(u"table.csv"_s, QByteArray(5000, 'x'));
    Cible(u"table.csv"_s, Csv);
    Exporter();
    EXPECT_TRUE(sortie.Lire(u"table.csv"_s).startsWith("Titre;"));
    EXPECT_LT(sortie.Lire(u"table.csv"_s).size(), 200);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(ExporterCategorieTest, ACollectionIsNotOverwrittenUnasked)
{
    TexteDeCatalogue texte;
    sortie.Ecrire(u"livres.qrt"_s, texte.Texte());
    for (const int reponse : {RepNon, RepOui}) {
        Cible(u"livres.qrt"_s, Csv);
        reponses.Preparer(reponse);
        Exporter();
        EXPECT_EQ(sortie.Lire(u"livres.qrt"_s).startsWith("Titre;"), reponse == RepOui);
    }
    EXPECT_EQ(reponses.Cles(), QStringList({"msgExportSurCatalogue", "msgExportSurCatalogue"}));
    EXPECT_EQ(reponses.Affiches()[0].titre, "livres.qrt");
}

TEST_F(ExporterCategorieTest, ATypeOfAPluginThatIsNotThereWritesNothing)
{
    Cible(u"sortie"_s, PremierPlugin);
    Exporter();
    EXPECT_FALSE(sortie.Existe(u"sortie"_s));
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

// ---- plug-ins

namespace {

class DeuxExporteurs : public ExporteursAjoutes
{
public:
    DeuxExporteurs() : m_avant(InstallerExporteurs(this)) {}
    ~DeuxExporteurs() override { InstallerExporteurs(m_avant); }

    QList<Exporteur> Chercher() override
    {
        ++cherches;
        return {{u"Tableur"_s, u"tableur (*.ods)|*.ods"_s}, {u"Carte"_s, u"carte|*.vcf"_s}};
    }
    void Exporter(const QString& nom, Categorie& doc, const QString& chemin) override
    {
        faits.append(nom + u' ' + doc.filename() + u' ' + chemin);
    }

    int cherches = 0;
    QStringList faits;

private:
    ExporteursAjoutes* m_avant;
};

} // namespace

TEST_F(ExporterCategorieTest, PluginsAddTypesBehindTheProgramsOwn)
{
    DeuxExporteurs plugins;
    const QString chemin = Cible(u"disques.vcf"_s, PremierPlugin + 1);
    Exporter();
    ASSERT_EQ(fichiers.Demandes().size(), 1);
    const auto& types = fichiers.Demandes()[0].types;
    ASSERT_EQ(types.size(), 8);
    EXPECT_EQ(types[6].libelle, "tableur (*.ods)");
    EXPECT_EQ(types[6].motifs, "*.ods");
    EXPECT_EQ(NomsPluginsExport, QStringList({"", "Tableur", "Carte", ""}));
    EXPECT_EQ(plugins.faits, QStringList(u"Carte mes disques.qrt "_s + chemin));
    EXPECT_FALSE(QFile::exists(chemin)) << "the plug-in writes it";
    EXPECT_TRUE(PlateformeDeTest::Courante().programmes.fichiers.isEmpty());

    fichiers.PreparerAnnulation();
    Exporter();
    EXPECT_EQ(NomsPluginsExport, QStringList({"", "Tableur", "Carte", ""})) << "looked for anew each time";
    EXPECT_EQ(plugins.cherches, 2);
    EXPECT_EQ(plugins.faits.size(), 1);
}

TEST_F(ExporterCategorieTest, PluginsAreNotLookedForWithoutAChoiceOfColumns)
{
    DeuxExporteurs plugins;
    Exporter([](QWidget& form) { form.close(); });
    EXPECT_EQ(plugins.cherches, 0);
    EXPECT_EQ(NomsPluginsExport, QStringList({"", ""}));
}
