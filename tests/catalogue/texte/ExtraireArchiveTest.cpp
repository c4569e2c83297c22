#include "catalogue/texte/ExtraireArchive.h"

#include "catalogue/archive/ccZip.h"
#include "catalogue/archive/mZipDLLProc.h"
#include "support/ArchiveDeTest.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <QDir>

#include <gtest/gtest.h>

#include <new>

namespace {
bool s_sansMemoire = false;
}

// The one failure to make an archive object is a lack of memory.
void* operator new(std::size_t taille, const std::nothrow_t&) noexcept
{
    return s_sansMemoire ? nullptr : ::operator new(taille);
}

namespace {

class ArchiveOuverte : public testing::Test
{
protected:
    ArchiveOuverte()
    {
        MettreColonnes(d.table, {"Titre", "Prêté"});
        AjouterEntrees(d.table, {{"un", ""}});
    }
    bool Ouvrir(const QByteArray& archive)
    {
        d.doc.SetCheminReel(ailleurs.Ecrire("x.qrt", archive));
        return ExtraireArchive(d.doc);
    }
    QStringList Extraits() const { return QDir(d.dossier.Chemin()).entryList(QDir::Files, QDir::Name); }
    bool TableVide() const { return d.doc.ItemsCount() == 0 && d.doc.ColCount() == 0; }

    FileDeReponses messages;
    DocumentDeTest d;
    DossierDeTest ailleurs;
};

} // namespace

TEST_F(ArchiveOuverte, TheFolderBecomesThePictureOfTheArchive)
{
    EXPECT_TRUE(Ouvrir(FaireArchive({{"Zelvane.qrt", "[FileInfo]"}, {"image.jpg", "image"}})));
    EXPECT_EQ(Extraits(), QStringList({"Zelvane.qrt", "image.jpg"}));
    EXPECT_EQ(d.dossier.Lire("image.jpg"), "image");
    EXPECT_FALSE(TableVide()) << "the table is the reader's matter";
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(ArchiveOuverte, AWarningCountsAsSuccess)
{
    EXPECT_TRUE(Ouvrir(FaireArchive({{"Zelvane.qrt", "[FileInfo]"}, {"..", "hostile"}})));
    EXPECT_EQ(Extraits(), QStringList("Zelvane.qrt"));
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(ArchiveOuverte, AFailureIsToldAndClearsTheTable)
{
    EXPECT_FALSE(Ouvrir(FaireArchive({{"Zelvane.qrt", "[FileInfo]"}, {.nom = "a", .contenu = "b", .crc = 1}})));
    ASSERT_EQ(messages.Affiches().size(), 1);
    EXPECT_EQ(messages.Affiches()[0].message.cle, "msg52");
    EXPECT_EQ(messages.Affiches()[0].message.texte, "Une erreur s'est produite pendant la décompression");
    EXPECT_EQ(messages.Affiches()[0].genre, MsgOk);
    EXPECT_TRUE(TableVide());
    EXPECT_EQ(Extraits(), QStringList());
}

TEST_F(ArchiveOuverte, AFileThatIsNotThereFailsToo)
{
    d.doc.SetCheminReel(ailleurs.Fichier("absent.qrt"));
    EXPECT_FALSE(ExtraireArchive(d.doc));
    EXPECT_EQ(messages.Cles(), QStringList("msg52"));
}

TEST_F(ArchiveOuverte, WithoutAnArchiveObjectTheOtherMessageIsShown)
{
    d.doc.SetCheminReel(ailleurs.Ecrire("x.qrt", FaireArchive({{"Zelvane.qrt", "[FileInfo]"}})));
    s_sansMemoire = true;
    const bool ouvert = ExtraireArchive(d.doc);
    s_sansMemoire = false;
    EXPECT_FALSE(ouvert);
    ASSERT_EQ(messages.Affiches().size(), 1);
    EXPECT_EQ(messages.Affiches()[0].message.cle, "msg51");
    EXPECT_EQ(messages.Affiches()[0].message.texte, "Erreur lors de l'ouverture du fichier. Opération annulée");
    EXPECT_FALSE(TableVide());
}

TEST_F(ArchiveOuverte, ANextFileAsksAfreshAfterAnEmptyAnswer)
{
    ailleurs.Ecrire("Zelvane.qrt", "[FileInfo]");
    Lancer("zip", {"-q", "-P", "secret", "chiffre.qrt", "Zelvane.qrt"}, ailleurs.Chemin());
    d.doc.SetCheminReel(ailleurs.Fichier("chiffre.qrt"));
    messages.PreparerMotDePasse("");
    EXPECT_FALSE(ExtraireArchive(d.doc));
    EXPECT_EQ(messages.Cles(), QStringList("msg52"));
    messages.PreparerMotDePasse("secret");
    EXPECT_TRUE(ExtraireArchive(d.doc));
    EXPECT_EQ(messages.QuestionsDeMotDePasse(), 2);
    EXPECT_EQ(d.dossier.Lire("Zelvane.qrt"), "[FileInfo]");
}

TEST_F(ArchiveOuverte, WhatIsSavedAfterAPasswordHasNone)
{
    ailleurs.Ecrire("Zelvane.qrt", "[FileInfo]");
    Lancer("zip", {"-q", "-P", "secret", "chiffre.qrt", "Zelvane.qrt"}, ailleurs.Chemin());
    d.doc.SetCheminReel(ailleurs.Fichier("chiffre.qrt"));
    messages.PreparerMotDePasse("secret");
    ASSERT_TRUE(ExtraireArchive(d.doc));
    ccZip zip;
    zip.Init(ailleurs.Fichier("clair.qrt"));
    zip.AddFile(d.doc.TmpFolder + "Zelvane.qrt", 0, true);
    ASSERT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Lancer("unzip", {"-p", ailleurs.Fichier("clair.qrt")}), "[FileInfo]");
}
