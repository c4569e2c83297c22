#include "entries/CreerCategorie.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "extensions/langue/modLang.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

class CreerCategorieTest : public testing::Test
{
protected:
    ~CreerCategorieTest() override { EnCoursDeSauvegarde = false; }

    FenetreDeTest& Creer(const QStringList& titres, int dependante = 0)
    {
        return dynamic_cast<FenetreDeTest&>(*CreerCategorie(cadre, titres, dependante));
    }
    static QStringList Titres(const FenetreDocument& fenetre)
    {
        QStringList titres;
        for (int i = 1; i <= fenetre.myqrt.ColCount(); ++i)
            titres.append(fenetre.myqrt.MyLV->ColumnHeaders(i).Text());
        return titres;
    }

    DossierDeTest dossier;
    FileDeReponses reponses;
    FileDeFichiers dialogues;
    CadreDeTest cadre;
};

} // namespace

TEST_F(CreerCategorieTest, TheTableHasTheColumnsAndTheLoanColumnBehindThem)
{
    const FenetreDeTest& fenetre = Creer({"Titre", "Artiste"});
    EXPECT_EQ(Titres(fenetre), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_EQ(fenetre.myqrt.IndexColPrete, 3);
    EXPECT_EQ(fenetre.myqrt.ItemsCount(), 0);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(fenetre.table.ColumnHeaders(i).Width(), 1200) << i;
        EXPECT_EQ(fenetre.table.ColumnHeaders(i).Tag(), "") << i << ": no pre-recorded texts";
    }
}

TEST_F(CreerCategorieTest, TheDependantColumnIsCountedAmongTheUsersColumns)
{
    EXPECT_EQ(Creer({"Titre", "Artiste"}, 2).myqrt.dependantcol, 2);
    EXPECT_EQ(Creer({"Titre", "Artiste"}).myqrt.dependantcol, 0);
}

TEST_F(CreerCategorieTest, AUsersColumnOfThatTitleIsNotTheLoanColumn)
{
    const FenetreDeTest& fenetre = Creer({"Prêté", "Titre"});
    EXPECT_EQ(Titres(fenetre), QStringList({"Prêté", "Titre", "Prêté"}));
    EXPECT_EQ(fenetre.myqrt.IndexColPrete, 3);
}

TEST_F(CreerCategorieTest, AnEmptyTitleMakesNoColumn)
{
    const FenetreDeTest& fenetre = Creer({"", "Titre", ""});
    EXPECT_EQ(Titres(fenetre), QStringList({"Titre", "Prêté"}));
    EXPECT_EQ(fenetre.myqrt.IndexColPrete, 2);
}

TEST_F(CreerCategorieTest, TheDocumentIsNewUnnamedAndChanged)
{
    const FenetreDeTest& fenetre = Creer({"Titre"});
    const Categorie& doc = fenetre.myqrt;
    EXPECT_EQ(doc.CheminReel(), "");
    EXPECT_EQ(doc.filename(), "");
    EXPECT_EQ(doc.FileType, "");
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_TRUE(fenetre.table.GridLines());
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(CreerCategorieTest, TheWindowStandsInTheFrame)
{
    FenetreDeTest& fenetre = Creer({"Titre"});
    EXPECT_EQ(cadre.FenetreActive(), &fenetre);
    EXPECT_EQ(fenetre.Caption(), "Nouveau");
    EXPECT_EQ(cadre.onglets, QList<CadreDeTest::Onglet>({{fenetre.Tag, "Nouveau"}}));
    EXPECT_FALSE(fenetre.fOuvrir.visible) << "the loading panel was on show";
    EXPECT_EQ(fenetre.rafraichissements, 2) << "before the columns and after them";
}

TEST_F(CreerCategorieTest, TheCaptionIsTranslatedForTheTabToo)
{
    FichierLangue = dossier.Ecrire("lang/english.ini", "[other]\r\nmsg79=New\r\n");
    EXPECT_EQ(Creer({"Titre"}).Caption(), "New");
    EXPECT_EQ(cadre.TitresDesOnglets(), QStringList({"New"}));
}

TEST_F(CreerCategorieTest, EachDocumentHasAFolderOfItsOwn)
{
    const QString premier = Creer({"Titre"}).myqrt.TmpFolder;
    const QString second = Creer({"Titre"}).myqrt.TmpFolder;
    EXPECT_TRUE(premier.startsWith(TempFolder)) << premier.toStdString();
    EXPECT_NE(premier, second);
    for (const QString& tmp : {premier, second}) {
        EXPECT_TRUE(QFileInfo(tmp).isDir());
        EXPECT_TRUE(QDir(tmp).isEmpty());
        EXPECT_TRUE(tmp.endsWith(u'/'));
    }
    EXPECT_EQ(cadre.onglets.size(), 2);
}

TEST_F(CreerCategorieTest, NeitherTheColumnsNorTheirTitlesHaveALimit)
{
    QStringList titres;
    for (int i = 1; i <= 2000; ++i)
        titres.append(QStringLiteral("Colonne %1").arg(i));
    titres[0] = QString(100000, u'x');
    const FenetreDeTest& fenetre = Creer(titres);
    EXPECT_EQ(fenetre.myqrt.ColCount(), 2001);
    EXPECT_EQ(fenetre.table.ColumnHeaders(1).Text().size(), 100000);
}

TEST_F(CreerCategorieTest, TheFirstSaveAsksForAPathAndReadsBackTheSame)
{
    FenetreDeTest& nouvelle = Creer({"Titre", "Prêté", "Piste = n°", "été 東京"}, 3);
    const QString chemin = dossier.Fichier("disques.qrt");
    dialogues.Preparer({chemin}, TypeQrt2);
    EXPECT_TRUE(Enregistrer(nouvelle.myqrt, false, true));
    EXPECT_EQ(nouvelle.myqrt.CheminReel(), chemin);
    EXPECT_EQ(nouvelle.myqrt.FileType, "2");
    EXPECT_FALSE(nouvelle.myqrt.IlFautSauver);
    nouvelle.Decharger();

    ASSERT_TRUE(OuvrirFichier(cadre, chemin, TypeQrt2, true));
    const FenetreDocument& relue = *cadre.Documents().back();
    EXPECT_EQ(Titres(relue), QStringList({"Titre", "Prêté", "Piste = n°", "été 東京", "Prêté"}));
    EXPECT_EQ(relue.myqrt.IndexColPrete, 5);
    EXPECT_EQ(relue.myqrt.dependantcol, 3);
    EXPECT_EQ(relue.myqrt.ItemsCount(), 0);
    EXPECT_TRUE(relue.myqrt.MyLV->GridLines());
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(relue.myqrt.MyLV->ColumnHeaders(i).Width(), 1200) << i;
    EXPECT_FALSE(relue.myqrt.IlFautSauver) << "no loan column had to be added";
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(CreerCategorieTest, TheBareTextReadsBackTheSameToo)
{
    FenetreDeTest& nouvelle = Creer({"Titre", "Artiste"}, 1);
    const QString chemin = dossier.Fichier("disques.qrt");
    dialogues.Preparer({chemin}, 3);
    reponses.Preparer(RepNon); // saves without images: see Enregistrer
    EXPECT_TRUE(Enregistrer(nouvelle.myqrt, false, true));
    nouvelle.Decharger();

    ASSERT_TRUE(OuvrirFichier(cadre, chemin, TypeQrt2, true));
    const FenetreDocument& relue = *cadre.Documents().back();
    EXPECT_EQ(Titres(relue), QStringList({"Titre", "Artiste", "Prêté"}));
    EXPECT_EQ(relue.myqrt.IndexColPrete, 3);
    EXPECT_EQ(relue.myqrt.dependantcol, 1);
}

TEST_F(CreerCategorieTest, AFirstSaveThatIsCancelledLeavesTheDocumentNewAndChanged)
{
    FenetreDeTest& nouvelle = Creer({"Titre"});
    dialogues.PreparerAnnulation();
    EXPECT_FALSE(Enregistrer(nouvelle.myqrt, false, true));
    EXPECT_EQ(nouvelle.myqrt.CheminReel(), "");
    EXPECT_TRUE(nouvelle.myqrt.IlFautSauver);
    EXPECT_TRUE(QFileInfo(nouvelle.myqrt.TmpFolder).isDir());
}
