#include "catalogue/texte/Categorie.h"

#include "support/DossierDeTest.h"
#include "support/TableDeTest.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

class CategorieTest : public testing::Test
{
protected:
    /// Makes a category with a folder, does `acte` with it, has it go, and tells whether its folder stayed.
    static bool DossierReste(const std::function<void(Categorie&)>& acte)
    {
        auto doc = std::make_unique<Categorie>();
        doc->CreerDossier();
        QString dossier = doc->TmpFolder;
        EXPECT_TRUE(QFileInfo(dossier).isDir());
        QFile image(dossier + "pochette.jpg");
        EXPECT_TRUE(image.open(QIODevice::WriteOnly));
        acte(*doc);
        doc.reset();
        return QFileInfo::exists(dossier);
    }
};

} // namespace

TEST_F(CategorieTest, OwnsTheTableThatItsDocumentShows)
{
    Categorie doc;
    EXPECT_EQ(doc.MyLV, &doc.Table);
    MettreColonnes(doc.Table, {"Titre"});
    EXPECT_EQ(doc.ColCount(), 1);
}

TEST_F(CategorieTest, TakesItsFolderAlong)
{
    EXPECT_FALSE(DossierReste([](Categorie&) {}));
}

TEST_F(CategorieTest, LeavesAFolderThatHoldsWhatIsNowhereElse)
{
    EXPECT_TRUE(DossierReste([](Categorie& doc) { doc.IlFautSauver = true; })) << "unsaved changes";
    EXPECT_TRUE(DossierReste([](Categorie& doc) { doc.EnEcriture = true; })) << "an archive is being made of it";
    EXPECT_TRUE(DossierReste([](Categorie& doc) { doc.GarderDossier(); })) << "it was told to";
    EXPECT_TRUE(DossierReste([](Categorie& doc) { doc.AForcer = "/proc/self/stat"; })) << "the disk refuses its file";
}

TEST_F(CategorieTest, LeavesAFolderThatItDidNotMake)
{
    const DossierDeTest autre;
    {
        Categorie doc;
        doc.TmpFolder = autre.Chemin();
    }
    EXPECT_TRUE(QFileInfo::exists(autre.Chemin()));
}

TEST_F(CategorieTest, ClosesItsFolderWhenToldUnlessThatIsToBeKept)
{
    Categorie doc;
    doc.FermerDossier(); // there is none
    doc.CreerDossier();
    const QString dossier = doc.TmpFolder;
    doc.IlFautSauver = true; // the user has given his changes up
    doc.FermerDossier();
    EXPECT_FALSE(QFileInfo::exists(dossier));
    EXPECT_EQ(doc.TmpFolder, "");

    doc.CreerDossier();
    doc.GarderDossier();
    doc.FermerDossier();
    EXPECT_TRUE(QFileInfo(doc.TmpFolder).isDir());
}

TEST_F(CategorieTest, KnowsARecoveredFileUntilItHasOneOfItsOwn)
{
    Categorie doc;
    EXPECT_EQ(doc.CheminConnu(), "");
    doc.CheminAvantSecours = "/home/ida/jazz.qrt";
    EXPECT_EQ(doc.CheminConnu(), "/home/ida/jazz.qrt");
    doc.SetCheminReel("/home/ida/blues.qrt");
    EXPECT_EQ(doc.CheminConnu(), "/home/ida/blues.qrt");
}
