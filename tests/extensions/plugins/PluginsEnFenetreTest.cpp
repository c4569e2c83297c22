// Plug-ins that open and export, through the flows of the program.
#include "extensions/plugins/PluginsEnFenetre.h"

#include "DossierDePlugins.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "extensions/plugins/QrtScript.h"
#include "output/ExporterCategorie.h"
#include "platform/Retenue.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<DocumentDeTest> s_document;

/// An exporter that lets events run, in which the end of the session closes the document.
class ExporteurPendantLaFin : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void initme(QObject* document, int) { m_document = document; }
    Q_INVOKABLE void ExportToFile(const QString&)
    {
        s_document.reset();
        if (m_document->property("ItemsCount").toInt() != 0)
            throw std::runtime_error("still there");
    }

private:
    QObject* m_document = nullptr;
};

/// An exporter with a filter of its own, which notes what waits while it works and then changes the document.
class ExporteurDEssai : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString ExportFilter MEMBER filtre CONSTANT)

public:
    Q_INVOKABLE void WhatIsIt(QString& genres) { genres = u"export"_s; }
    Q_INVOKABLE void initme(QObject* document, int) { m_document = document; }
    Q_INVOKABLE void ExportToFile(const QString&)
    {
        retenue = Retenue::EnCours();
        m_document->setProperty("dependantcol", 1);
    }

    static inline QString filtre;
    static inline bool retenue = false;

private:
    QObject* m_document = nullptr;
};

class PluginsEnFenetreTest : public testing::Test
{
protected:
    DossierDePlugins dossier;
    DossierDeTest fichiersDeTest;
    FileDeReponses reponses;
    FileDeFichiers fichiers;
    CadreDeTest cadre;
    OuvreursDePlugins ouvreurs;
    ExporteursDePlugins exporteurs;
};

} // namespace

TEST_F(PluginsEnFenetreTest, OneThatOpensAddsItsTypeAndFillsANewDocument)
{
    DossierDePlugins::Mettre({u"autre1"_s, u"fichiers"_s});
    const QString chemin = fichiersDeTest.Ecrire(u"a.lst"_s, "un\nquatre\n");
    fichiers.Preparer({chemin}, 4);
    OuvrirDialogue(cadre);
    EXPECT_EQ(PlugIns, QStringList({"fichiers", ""}));
    ASSERT_EQ(fichiers.Demandes().size(), 1);
    ASSERT_EQ(fichiers.Demandes()[0].types.size(), 4);
    EXPECT_EQ(fichiers.Demandes()[0].types[3].libelle, "fichiers (*.lst)");
    EXPECT_EQ(fichiers.Demandes()[0].types[3].motifs, "*.lst");
    ASSERT_EQ(cadre.fenetres.size(), 1);
    FenetreDocument& neuve = *cadre.fenetres[0];
    EXPECT_EQ(neuve.Caption(), "a.lst");
    EXPECT_EQ(ColonneDe(neuve.myqrt.Table, 1), QStringList({"un", "quatre"}));
    EXPECT_EQ(ClesDe(neuve.myqrt.Table), QStringList({"k1", "k2"}));
    EXPECT_EQ(neuve.myqrt.CheminReel(), "") << "a save asks where to";
    EXPECT_EQ(neuve.myqrt.FileType, "");
    EXPECT_FALSE(neuve.myqrt.IlFautSauver);
    EXPECT_TRUE(neuve.myqrt.Table.GridLines());
    fichiers.Preparer({chemin}, 4);
    OuvrirDialogue(cadre);
    EXPECT_EQ(cadre.fenetres.size(), 2) << "such a document is never open already";
}

TEST_F(PluginsEnFenetreTest, OneThatTheUserGaveUpLeavesNoWindow)
{
    DossierDePlugins::Mettre(u"fichiers"_s);
    fichiers.Preparer({fichiersDeTest.Ecrire(u"a.lst"_s, "renoncer\n")}, 4);
    fichiers.PreparerAnnulation();
    OuvrirDialogue(cadre);
    EXPECT_EQ(fichiers.Demandes().size(), 2) << "the open dialog comes back";
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_TRUE(reponses.Cles().isEmpty()) << "no failure";
    FenetreDocument& fenetre = cadre.NouvelleFenetre();
    EXPECT_FALSE(ouvreurs.Ouvrir(u"fichiers"_s, fenetre, fichiersDeTest.Fichier(u"a.lst"_s)));
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver) << "its window asks no question when it goes";
}

TEST_F(PluginsEnFenetreTest, OfSeveralFilesThoseThatTheUserGaveUpAreNoErrors)
{
    DossierDePlugins::Mettre(u"fichiers"_s);
    fichiers.Preparer({fichiersDeTest.Ecrire(u"a.lst"_s, "renoncer\n"), fichiersDeTest.Ecrire(u"b.lst"_s, "un\n")}, 4);
    OuvrirDialogue(cadre);
    EXPECT_TRUE(reponses.Cles().isEmpty());
    ASSERT_EQ(cadre.fenetres.size(), 1);
    EXPECT_EQ(cadre.fenetres[0]->Caption(), "b.lst");
}

TEST_F(PluginsEnFenetreTest, TheLinesOfCellsAreAsInTheWindowInFront)
{
    DossierDePlugins::Mettre(u"fichiers"_s);
    cadre.NouvelleFenetre().myqrt.Table.SetGridLines(false);
    fichiers.Preparer({fichiersDeTest.Ecrire(u"a.lst"_s, "un\n")}, 4);
    OuvrirDialogue(cadre);
    EXPECT_FALSE(cadre.fenetres.back()->myqrt.Table.GridLines());
}

TEST_F(PluginsEnFenetreTest, TheTypeOfAllFilesIsRefusedHereToo)
{
    DossierDePlugins::Mettre(u"fichiers"_s);
    const QString chemin = fichiersDeTest.Ecrire(u"a.lst"_s, "un\n");
    fichiers.Preparer({chemin}, 1);
    fichiers.PreparerAnnulation();
    OuvrirDialogue(cadre);
    EXPECT_EQ(reponses.Cles(), QStringList({"msg46"}));
    EXPECT_TRUE(cadre.fenetres.empty());
}

TEST_F(PluginsEnFenetreTest, AReaderThatFailsIsToldAndItsWindowStays)
{
    DossierDePlugins::Mettre(u"leve"_s);
    fichiers.Preparer({fichiersDeTest.Ecrire(u"a.lst"_s, "un\n")}, 4);
    OuvrirDialogue(cadre);
    EXPECT_EQ(reponses.Cles(), QStringList({"msgPluginEchec"}));
    EXPECT_EQ(cadre.fenetres.size(), 1);
}

TEST_F(PluginsEnFenetreTest, OneThatExportsWritesTheDocument)
{
    InscrireScripts(dossier.composants);
    DossierDePlugins::Mettre(u"fichiers"_s);
    const auto exporteursTrouves = exporteurs.Chercher();
    ASSERT_EQ(exporteursTrouves.size(), 1);
    EXPECT_EQ(exporteursTrouves[0].nom, "fichiers");
    EXPECT_EQ(exporteursTrouves[0].filtre, "fichiers (*.out)|*.out");
    DocumentDeTest d;
    MettreColonnes(d.table, {"Titre"});
    AjouterEntrees(d.table, {{"Aja"}, {"Blue"}});
    exporteurs.Exporter(u"fichiers"_s, d.doc, fichiersDeTest.Fichier(u"a.out"_s));
    EXPECT_EQ(fichiersDeTest.Lire(u"a.out"_s), "Aja\nBlue\na+b\n0\n") << "0 stands for the window";
    EXPECT_FALSE(d.doc.IlFautSauver);
}

TEST_F(PluginsEnFenetreTest, AWriterThatFailsIsTold)
{
    DossierDePlugins::Mettre(u"leve"_s);
    ASSERT_EQ(exporteurs.Chercher().size(), 1);
    DocumentDeTest d;
    exporteurs.Exporter(u"leve"_s, d.doc, fichiersDeTest.Fichier(u"a.out"_s));
    EXPECT_EQ(reponses.Cles(), QStringList({"msgPluginEchec"}));
}

TEST_F(PluginsEnFenetreTest, AFilterIsALabelAndAPattern)
{
    dossier.composants.Inscrire(u"PlugQRT.essai"_s, []() -> QObject* { return new ExporteurDEssai; });
    QFile fichier(DossierDePlugins::Chemin() + u"essai.dll"_s); // which only its name is taken of
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    for (const QString& faux : {u""_s, u"JSON"_s, u"JSON|"_s, u"|*.json"_s, u"a|*.a|b|*.b"_s}) {
        ExporteurDEssai::filtre = faux;
        EXPECT_TRUE(exporteurs.Chercher().isEmpty()) << faux.toStdString();
    }
    ExporteurDEssai::filtre = u"JSON|*.json"_s;
    EXPECT_EQ(exporteurs.Chercher().size(), 1);
}

TEST_F(PluginsEnFenetreTest, WhileOneExportsTheRestWaitsAndWhatItChangesIsToBeSaved)
{
    dossier.composants.Inscrire(u"PlugQRT.essai"_s, []() -> QObject* { return new ExporteurDEssai; });
    DocumentDeTest d;
    MettreColonnes(d.table, {"Titre"});
    exporteurs.Exporter(u"essai"_s, d.doc, fichiersDeTest.Fichier(u"a.out"_s));
    EXPECT_TRUE(ExporteurDEssai::retenue);
    EXPECT_FALSE(Retenue::EnCours());
    EXPECT_EQ(d.doc.dependantcol, 1);
    EXPECT_TRUE(d.doc.IlFautSauver) << "the file holds the dependant column";
}

TEST_F(PluginsEnFenetreTest, ADocumentThatIsClosedMeanwhileIsNotTouchedAgain)
{
    dossier.composants.Inscrire(u"PlugQRT.fin"_s, []() -> QObject* { return new ExporteurPendantLaFin; });
    s_document = std::make_unique<DocumentDeTest>();
    AjouterEntrees(s_document->table, {{"Aja"}});
    exporteurs.Exporter(u"fin"_s, s_document->doc, fichiersDeTest.Fichier(u"a.out"_s));
    EXPECT_EQ(s_document, nullptr);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

#include "PluginsEnFenetreTest.moc"
