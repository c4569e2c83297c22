// The built library at work on a document of the program.
#include "DossierDePlugins.h"
#include "FormeDeDoublons.h"
#include "extensions/plugins/PluginsEnFenetre.h"
#include "extensions/plugins/QrtScript.h"
#include "extensions/plugins/mPlugin.h"
#include "support/CadreDeTest.h"
#include "support/FileDeReponses.h"
#include "support/SuiteDeModales.h"
#include "support/TableDeTest.h"

#include <QImage>

using namespace Qt::StringLiterals;

namespace {

class BibliothequeTest : public testing::Test
{
protected:
    BibliothequeTest()
    {
        InscrireScripts(dossier.composants);
        EXPECT_TRUE(EnregistrerDll(DossierDePlugins::Mettre(u"Doublons"_s), true));
    }

    DossierDePlugins dossier;
    FileDeReponses reponses;
    CadreDeTest cadre;
};

void Presser(QWidget& fenetre, const char* nom)
{
    QTest::mouseClick(fenetre.findChild<QAbstractButton*>(QString::fromLatin1(nom)), Qt::LeftButton);
}

void PresserTexte(QWidget& fenetre, const QString& texte)
{
    for (QAbstractButton* bouton : fenetre.findChildren<QAbstractButton*>()) {
        if (bouton->text() == texte)
            return QTest::mouseClick(bouton, Qt::LeftButton);
    }
    ADD_FAILURE() << texte.toStdString();
}

} // namespace

TEST_F(BibliothequeTest, IsACommandThatTellsOfItself)
{
    EXPECT_TRUE(PluginEstAutre(u"Doublons"_s));
    EXPECT_FALSE(PluginEstOuvreur(u"Doublons"_s));
    EXPECT_FALSE(PluginEstExporteur(u"Doublons"_s));
    const auto texte = PluginAuTravail(u"Doublons"_s).APropos();
    ASSERT_TRUE(texte);
    EXPECT_TRUE(texte->startsWith("Doublons\r\n\r\nDescription : Trouve")) << texte->toStdString();
}

TEST_F(BibliothequeTest, DeletesByTheRulesOfTheProgram)
{
    FenetreDocument& fenetre = cadre.NouvelleFenetre();
    Categorie& doc = fenetre.myqrt;
    const DossierDeTest images;
    doc.TmpFolder = images.Chemin();
    MettreColonnes(doc.Table, {u"Titre"_s, u"Prêté"_s});
    AjouterEntrees(doc.Table, {{"Aja"}, {"Blue"}, {"Aja"}, {"Aja"}, {"Chet"}});
    doc.IndexColPrete = 2;
    doc.Table.ListItems(4).SetSubItems(1, u"Paul - 13/09/2005"_s);
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(images.Fichier(u"aja.png"_s)));
    doc.Table.ListItems(3).SetTag(u"aja.png"_s);
    doc.IlFautSauver = false;
    {
        const SuiteDeModales suite({{u"frmDoublons"_s,
                                     [](QWidget& form) {
                                         Presser(form, "Chercher");
                                         Presser(form, "SaufPremier");
                                         Presser(form, "Supprimer");
                                         form.close();
                                     }},
                                    {u"Confirmer"_s,
                                     [](QWidget& question) {
                                         EXPECT_EQ(Trouves(*question.parentWidget()->window()), u"1 3x 4 (prêtée)"_s);
                                         PresserTexte(question, u"&Supprimer"_s);
                                     }},
                                    {u"frmSupprImg"_s, [](QWidget& question) { Presser(question, "btOui"); }}});
        LancerPlugin(u"Doublons"_s, fenetre);
    }
    EXPECT_EQ(ColonneDe(doc.Table, 1), QStringList({"Aja", "Blue", "Aja", "Chet"}));
    EXPECT_EQ(ClesDe(doc.Table), QStringList({"k1", "k2", "k3", "k4"})) << "numbered anew";
    EXPECT_EQ(doc.Table.ListItems(3).SubItems(1), "Paul - 13/09/2005");
    EXPECT_FALSE(QFile::exists(images.Fichier(u"aja.png"_s)));
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(BibliothequeTest, LeavingItChangesNothing)
{
    FenetreDocument& fenetre = cadre.NouvelleFenetre();
    MettreColonnes(fenetre.myqrt.Table, {u"Titre"_s});
    AjouterEntrees(fenetre.myqrt.Table, {{"Aja"}, {"Aja"}});
    {
        const SuiteDeModales suite({{u"frmDoublons"_s, [](QWidget& form) {
                                         Presser(form, "Chercher");
                                         Presser(form, "SaufPremier");
                                         QTest::keyClick(&form, Qt::Key_Escape);
                                     }}});
        LancerPlugin(u"Doublons"_s, fenetre);
    }
    EXPECT_EQ(fenetre.myqrt.ItemsCount(), 2);
    EXPECT_FALSE(fenetre.myqrt.IlFautSauver);
}
