#include "base/DossiersTemp.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/TypeFichier.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

namespace {

class EnregistrerToutTest : public testing::Test
{
protected:
    ~EnregistrerToutTest() override { EnCoursDeSauvegarde = false; }

    /// A window with one entry, named `titre`; without a path when `chemin` is empty.
    FenetreDeTest& Fenetre(const QString& titre, const QString& chemin)
    {
        auto& fenetre = static_cast<FenetreDeTest&>(cadre.NouvelleFenetre());
        fenetre.myqrt.TmpFolder = CreerDossierTemp();
        fenetre.SetCaption(titre);
        cadre.AjouterOnglet(fenetre);
        MettreColonnes(fenetre.table, {"Titre", "Prêté"});
        AjouterEntrees(fenetre.table, {{titre, ""}});
        fenetre.myqrt.IlFautSauver = true;
        if (!chemin.isEmpty()) {
            fenetre.myqrt.SetCheminReel(chemin);
            fenetre.myqrt.FileType = "2";
        }
        return fenetre;
    }

    DossierDeTest dossier;
    FileDeReponses messages;
    FileDeFichiers dialogues;
    CadreDeTest cadre;
};

} // namespace

TEST_F(EnregistrerToutTest, EveryDocumentIsWrittenWithoutAQuestion)
{
    const FenetreDeTest& a = Fenetre("a", dossier.Fichier("a.qrt"));
    const FenetreDeTest& b = Fenetre("b", dossier.Fichier("b.qrt"));
    EnregistrerTout(cadre);
    EXPECT_EQ(TypeFichier(dossier.Fichier("a.qrt")), 2);
    EXPECT_EQ(TypeFichier(dossier.Fichier("b.qrt")), 2);
    EXPECT_FALSE(a.myqrt.IlFautSauver);
    EXPECT_FALSE(b.myqrt.IlFautSauver);
    EXPECT_TRUE(messages.Affiches().isEmpty());
}

TEST_F(EnregistrerToutTest, AnUnchangedDocumentIsWrittenToo)
{
    Fenetre("a", dossier.Ecrire("a.qrt", "ancien")).myqrt.IlFautSauver = false;
    EnregistrerTout(cadre);
    EXPECT_EQ(TypeFichier(dossier.Fichier("a.qrt")), 2);
}

TEST_F(EnregistrerToutTest, ANewCategoryBringsUpSaveAsInItsTurn)
{
    Fenetre("a", dossier.Fichier("a.qrt"));
    Fenetre("Nouvelle", QString());
    Fenetre("c", dossier.Fichier("c.qrt"));
    dialogues.Preparer({dossier.Fichier("neuve.qrt")}, 2);
    EnregistrerTout(cadre);
    EXPECT_EQ(TypeFichier(dossier.Fichier("neuve.qrt")), 2);
    EXPECT_EQ(TypeFichier(dossier.Fichier("c.qrt")), 2);
    EXPECT_EQ(cadre.TitresDesOnglets(), QStringList({"a.qrt", "neuve.qrt", "c.qrt"}));
}

TEST_F(EnregistrerToutTest, TheTabsShowTheNamesOfTheFiles)
{
    Fenetre("vieux titre", dossier.Fichier("a.qrt"));
    EnregistrerTout(cadre);
    EXPECT_EQ(cadre.TitresDesOnglets(), QStringList{"a.qrt"});
}

TEST_F(EnregistrerToutTest, ADocumentThatIsNotSavedDoesNotKeepTheNextFromIt)
{
    const FenetreDeTest& neuve = Fenetre("Nouvelle", QString());
    const FenetreDeTest& vide = Fenetre("vide", dossier.Fichier("vide.qrt"));
    vide.myqrt.MyLV->ColumnHeaders.Clear();
    Fenetre("c", dossier.Fichier("c.qrt"));
    dialogues.PreparerAnnulation();
    EnregistrerTout(cadre);
    EXPECT_TRUE(neuve.myqrt.IlFautSauver);
    EXPECT_TRUE(vide.myqrt.IlFautSauver);
    EXPECT_EQ(messages.Cles(), QStringList{"msg62"});
    EXPECT_EQ(TypeFichier(dossier.Fichier("c.qrt")), 2);
    EXPECT_EQ(cadre.TitresDesOnglets(), QStringList({"", "vide.qrt", "c.qrt"}))
        << "a tab shows the file's name, and a document that was never saved has none";
}

TEST_F(EnregistrerToutTest, WithoutADocumentNothingHappens)
{
    EnregistrerTout(cadre);
    EXPECT_TRUE(messages.Affiches().isEmpty());
    EXPECT_TRUE(dialogues.Demandes().isEmpty());
}
