#include "extensions/plugins/mPlugin.h"

#include "DossierDePlugins.h"
#include "extensions/plugins/QrtScript.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class MPluginTest : public testing::Test
{
protected:
    static bool Enregistrer(const QString& nom) { return EnregistrerDll(DossierDePlugins::Mettre(nom), true); }

    DossierDePlugins dossier;
    FileDeReponses reponses;
};

} // namespace

TEST_F(MPluginTest, AFolderThatIsMissingHasNoPlugins)
{
    QDir(DossierDePlugins::Chemin()).removeRecursively();
    EXPECT_EQ(FichiersDePlugins(), QStringList());
}

TEST_F(MPluginTest, PluginsAreTheFilesOfTheirExtension)
{
    DossierDePlugins::Mettre({u"deux.points"_s, u"autre2"_s, u"autre1"_s});
    for (const char* autre : {"plugins/lisezmoi.txt", "plugins/.dll", "plugins/a.dll.bak"})
        PlateformeDeTest::Courante().dossier.Ecrire(QString::fromLatin1(autre), "x");
    QDir().mkpath(DossierDePlugins::Chemin() + u"dossier.dll"_s);
    EXPECT_EQ(FichiersDePlugins(), QStringList({"autre1.dll", "autre2.dll", "deux.points.dll"}));
    EXPECT_EQ(NomDObjet(u"deux.points.dll"_s), "deux.points");
    EXPECT_EQ(NomDePlugin(u"deux.points.dll"_s), "deux.points");
}

TEST_F(MPluginTest, AnEntryPointThatRunsToItsEndRegistersTheObject)
{
    EXPECT_FALSE(PluginEstAutre(u"autre1"_s)) << "not registered yet";
    EXPECT_TRUE(Enregistrer(u"autre1"_s));
    EXPECT_TRUE(PluginEstAutre(u"autre1"_s));
    EXPECT_FALSE(PluginEstOuvreur(u"autre1"_s));
    EXPECT_FALSE(PluginEstExporteur(u"autre1"_s));
    EXPECT_TRUE(EnregistrerDll(DossierDePlugins::Chemin() + u"autre1.dll"_s, false));
    EXPECT_TRUE(PluginEstAutre(u"autre1"_s)) << "nothing undoes a registration";
}

TEST_F(MPluginTest, WordsAreLookedForAsTheyStand)
{
    EXPECT_TRUE(Enregistrer(u"fichiers"_s));
    EXPECT_TRUE(PluginEstOuvreur(u"fichiers"_s));
    EXPECT_TRUE(PluginEstExporteur(u"fichiers"_s));
    EXPECT_FALSE(PluginEstAutre(u"fichiers"_s));
    EXPECT_TRUE(Enregistrer(u"majuscules"_s));
    EXPECT_FALSE(PluginEstExporteur(u"majuscules"_s));
    EXPECT_FALSE(PluginEstOuvreur(u"majuscules"_s));
    EXPECT_FALSE(PluginEstAutre(u"majuscules"_s));
}

TEST_F(MPluginTest, WhatIsNoPluginIsPassedOverWithoutAMessage)
{
    EXPECT_FALSE(EnregistrerDll(DossierDePlugins::Chemin() + u"absent.dll"_s, true));
    const QString texte = PlateformeDeTest::Courante().dossier.Ecrire(u"plugins/texte.dll"_s, "pas une bibliothèque");
    EXPECT_FALSE(EnregistrerDll(texte, true));
    const QString vide = PlateformeDeTest::Courante().dossier.Ecrire(u"plugins/vide.dll"_s, "");
    EXPECT_FALSE(EnregistrerDll(vide, true));
    EXPECT_FALSE(Enregistrer(u"sansentree"_s));
    EXPECT_FALSE(Enregistrer(u"entreeleve"_s)) << "it threw";
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(MPluginTest, ALibraryThatOthersCanWriteIsNotLoaded)
{
    const QString chemin = DossierDePlugins::Mettre(u"autre1"_s);
    const auto siens = QFile::ReadOwner | QFile::WriteOwner;
    for (const auto autres : {QFile::WriteOther, QFile::WriteGroup}) {
        QFile::setPermissions(chemin, siens | autres);
        EXPECT_FALSE(EstDeConfiance(chemin));
        EXPECT_FALSE(EnregistrerDll(chemin, true));
    }
    QFile::setPermissions(chemin, siens);
    EXPECT_TRUE(EnregistrerDll(chemin, true));
    QFile::setPermissions(DossierDePlugins::Chemin(), siens | QFile::ExeOwner | QFile::WriteOther);
    EXPECT_FALSE(EnregistrerDll(chemin, true));
}

TEST_F(MPluginTest, ALinkIsTrustedByWhereItLeads)
{
    const DossierDeTest ailleurs;
    QFile::copy(QStringLiteral(ESSAIS "autre1.dll"), ailleurs.Fichier(u"autre1.dll"_s));
    QFile::setPermissions(ailleurs.Fichier(u"autre1.dll"_s), QFile::ReadOwner);
    const QString lien = DossierDePlugins::Chemin() + u"autre1.dll"_s;
    QFile::link(ailleurs.Fichier(u"autre1.dll"_s), lien);
    EXPECT_TRUE(EstDeConfiance(lien));
    QFile::setPermissions(ailleurs.Chemin(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::WriteOther);
    EXPECT_FALSE(EstDeConfiance(lien));
}

TEST(MarqueDePlugin, TellsTheProgramAndTheQt)
{
    const auto avec = [](const QByteArray& qt) { return "\177ELF...ZelvanePlugin;interface=1;qt=" + qt + ";..."; };
    EXPECT_TRUE(AMarqueDePlugin(avec(QT_VERSION_STR)));
    EXPECT_TRUE(AMarqueDePlugin(avec("6.0.0"))) << "an older one of the same kind";
    EXPECT_FALSE(AMarqueDePlugin(avec("6.99.0")));
    EXPECT_FALSE(AMarqueDePlugin(avec("5.15.2")));
    EXPECT_FALSE(AMarqueDePlugin(avec("7.0.0")));
    EXPECT_FALSE(AMarqueDePlugin(avec("")));
    EXPECT_FALSE(AMarqueDePlugin("\177ELF...")) << "another program's";
    EXPECT_FALSE(AMarqueDePlugin(avec("6.0.0").mid(1))) << "no library";
    EXPECT_FALSE(AMarqueDePlugin("\177ELF ZelvanePlugin;interface=1;qt=")) << "cut short";
}

TEST_F(MPluginTest, AnEntryPointThatHangsEndsTheProgramAfterTenSeconds)
{
    QList<int> delais;
    bool secouru = false;
    dossier.composants.attente = [&](const auto&, int delai) {
        delais.append(delai);
        return false;
    };
    dossier.composants.AvantLaFin = [&] { secouru = dossier.composants.fins.isEmpty(); };
    const QString chemin = DossierDePlugins::Mettre(u"pend"_s);
    EXPECT_FALSE(EnregistrerDll(chemin, true));
    EXPECT_EQ(delais, QList<int>({10000}));
    EXPECT_EQ(dossier.composants.fins, QStringList({chemin}));
    EXPECT_TRUE(secouru) << "before the end";
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST(ComposantsDuSysteme, TheEndSavesFirstAndHasAStatus)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    ComposantsDuSysteme composants;
    composants.AvantLaFin = [] { fputs("secours\n", stderr); };
    EXPECT_EXIT(composants.FinirLeProcessus(u"/plugins/pend.dll"_s), testing::ExitedWithCode(EXIT_FAILURE),
                "secours\nzelvane: le plug-in /plugins/pend.dll ");
}

TEST_F(MPluginTest, ACommandGetsTheDocumentAndItsWindow)
{
    DocumentDeTest d;
    MettreColonnes(d.table, {"Titre"});
    AjouterEntrees(d.table, {{"Aja"}});
    ASSERT_TRUE(Enregistrer(u"autre1"_s));
    PluginAuTravail plugin(u"autre1"_s);
    EXPECT_TRUE(plugin.initme(d.doc, 77, PluginAuTravail::Passage::ParReference));
    EXPECT_TRUE(plugin.showForm());
    EXPECT_EQ(ColonneDe(d.table, 1), QStringList({u"venu¦de loin"_s, "Aja"}));
    EXPECT_EQ(d.doc.ScriptChemin, "avec fenetre");
    const auto texte = plugin.APropos();
    ASSERT_TRUE(texte);
    EXPECT_EQ(*texte, "autre1\r\n\r\nDescription : Essaie\r\n\r\nVersion : 1.2b.3\r\n\r\nAuthor : Ida\r\n\r\n"
                      "Website : https://exemple.invalid\r\n\r\nEmail : ida@exemple.invalid");
}

TEST_F(MPluginTest, AReaderAndAWriterDoTheirWork)
{
    InscrireScripts(dossier.composants);
    DocumentDeTest d;
    ASSERT_TRUE(Enregistrer(u"fichiers"_s));
    PluginAuTravail plugin(u"fichiers"_s);
    ASSERT_TRUE(plugin.initme(d.doc, 0, PluginAuTravail::Passage::ParValeur));
    EXPECT_TRUE(plugin.openFile(d.dossier.Ecrire(u"a.lst"_s, "un\nquatre\n")));
    EXPECT_EQ(ColonneDe(d.table, 2), QStringList({"2", "6"}));
    EXPECT_TRUE(plugin.ExportToFile(d.dossier.Fichier(u"a.out"_s)));
    EXPECT_EQ(d.dossier.Lire(u"a.out"_s), "un\nquatre\na+b\n0\n");
    EXPECT_FALSE(plugin.openFile(d.dossier.Fichier(u"absent"_s)));
    EXPECT_EQ(reponses.Cles(), QStringList({"msgPluginEchec"}));
}

TEST_F(MPluginTest, EveryFailureIsTold)
{
    DocumentDeTest d;
    ASSERT_TRUE(Enregistrer(u"leve"_s));
    EXPECT_FALSE(PluginAuTravail(u"leve"_s).initme(d.doc, 0, PluginAuTravail::Passage::ParReference));
    ASSERT_TRUE(Enregistrer(u"sansmembre"_s));
    PluginAuTravail sans(u"sansmembre"_s);
    ASSERT_TRUE(sans.initme(d.doc, 0, PluginAuTravail::Passage::ParReference));
    EXPECT_FALSE(sans.showForm());
    EXPECT_EQ(sans.APropos(), std::nullopt);
    EXPECT_FALSE(PluginAuTravail(u"absent"_s).initme(d.doc, 0, PluginAuTravail::Passage::ParReference));
    ASSERT_EQ(reponses.Affiches().size(), 4);
    EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Le plug-in leve a échoué : initme : cassé"_s);
    EXPECT_EQ(reponses.Affiches()[1].message.texte, u"Le plug-in sansmembre a échoué : showForm ?"_s);
    EXPECT_EQ(reponses.Affiches()[2].message.texte, u"Le plug-in sansmembre a échoué : AuthorUrl ?"_s);
    EXPECT_EQ(reponses.Affiches()[3].message.texte, u"Le plug-in absent a échoué : PlugQRT.absent"_s);
}

TEST_F(MPluginTest, TypesOfDialogsComeFromTheFolder)
{
    DossierDePlugins::Mettre({u"autre1"_s, u"fichiers"_s, u"sansentree"_s, u"majuscules"_s});
    const QList<TypeDePlugin> ouverture = TypesDOuverture();
    ASSERT_EQ(ouverture.size(), 1);
    EXPECT_EQ(ouverture[0].nom, "fichiers");
    EXPECT_EQ(ouverture[0].filtre, "fichiers (*.lst)|*.lst");
    const QList<TypeDePlugin> exports = TypesDExport();
    ASSERT_EQ(exports.size(), 1);
    EXPECT_EQ(exports[0].filtre, "fichiers (*.out)|*.out");
}
