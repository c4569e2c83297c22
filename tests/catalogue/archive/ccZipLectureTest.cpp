#include "catalogue/archive/ccZip.h"
#include "catalogue/archive/ccZipRepertoire.h"
#include "support/ArchiveDeTest.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <gtest/gtest.h>

namespace {

class ArchiveListee : public testing::Test
{
protected:
    QString Archive(const QList<EntreeZip>& entrees, const QByteArray& commentaire = QByteArray())
    {
        return dossier.Ecrire("essai.qrt", FaireArchive(entrees, commentaire));
    }
    QStringList Noms(const QString& chemin)
    {
        zip.Init(chemin);
        return zip.Col;
    }

    DossierDeTest dossier;
    ccZip zip;
};

} // namespace

TEST_F(ArchiveListee, AMissingPathLeavesColEmpty)
{
    EXPECT_EQ(Noms(dossier.Fichier("absent.qrt")), QStringList());
    EXPECT_EQ(zip.count(), 0);
    EXPECT_EQ(zip.Name(), dossier.Fichier("absent.qrt"));
}

TEST_F(ArchiveListee, AFileThatIsNoArchiveLeavesColEmpty)
{
    EXPECT_EQ(Noms(dossier.Ecrire("a", "PK\3\4 and nothing of it is true")), QStringList());
    EXPECT_EQ(Noms(dossier.Ecrire("b", "")), QStringList());
    EXPECT_EQ(Noms(dossier.Chemin()), QStringList());
}

TEST_F(ArchiveListee, NamesStandInTheArchivesOrder)
{
    EXPECT_EQ(Noms(Archive({{"b.jpg", "x"}, {"Zelvane.qrt", "y"}, {"sous/a.jpg", "z"}})),
              QStringList({"b.jpg", "Zelvane.qrt", "sous/a.jpg"}));
    EXPECT_EQ(zip.count(), 3);
}

TEST_F(ArchiveListee, GetFileCountsFromOneAndIsEmptyOutside)
{
    Noms(Archive({{"a", ""}, {"b", ""}}));
    EXPECT_EQ(zip.GetFile(0), "");
    EXPECT_EQ(zip.GetFile(1), "a");
    EXPECT_EQ(zip.GetFile(2), "b");
    EXPECT_EQ(zip.GetFile(3), "");
    EXPECT_EQ(zip.GetFile(-1), "");
}

TEST_F(ArchiveListee, TheCommentIsReadInTheCodePage)
{
    Noms(Archive({{"a", ""}}, "Collection d'\xC9ric \x80"));
    EXPECT_EQ(zip.Comm, "Collection d'Éric €");
    EXPECT_EQ(zip.GetZipInfo(), zip.Comm);
}

TEST_F(ArchiveListee, ACommentEndsAtAZeroByte)
{
    Noms(Archive({{"a", ""}}, QByteArray("avant\0apr\xE8s", 11)));
    EXPECT_EQ(zip.Comm, "avant");
}

TEST_F(ArchiveListee, ANextInitForgetsTheFormerArchive)
{
    Noms(Archive({{"a", ""}}, "commentaire"));
    zip.Level = 9;
    EXPECT_EQ(Noms(dossier.Fichier("absent.qrt")), QStringList());
    EXPECT_EQ(zip.Comm, "");
    EXPECT_EQ(zip.Level, 5);
}

TEST_F(ArchiveListee, NamesAreCodePage437UnlessMarkedUtf8)
{
    const QList<EntreeZip> entrees = {{"\x90t\x82.jpg", ""}, {"\xC3\x89t\xC3\xA9.jpg", ""}};
    EXPECT_EQ(Noms(Archive(entrees)), QStringList({"Été.jpg", "├ët├⌐.jpg"}));
    EntreeZip marquee = entrees[1];
    marquee.drapeaux = DrapeauUtf8;
    EXPECT_EQ(Noms(Archive({marquee})), QStringList("Été.jpg"));
}

TEST_F(ArchiveListee, ANameStopsAtAZeroByteAndKeepsItsBlanks)
{
    EXPECT_EQ(Noms(Archive({{QByteArray("pochette 1.jpg\0.exe", 19), ""}, {"pochette 2.jpg", ""}})),
              QStringList({"pochette 1.jpg", "pochette 2.jpg"}));
    EXPECT_EQ(Noms(Archive({{QByteArray("\xC3\x89 \0x", 5), "", false, DrapeauUtf8}})), QStringList("É "));
    EXPECT_EQ(Noms(Archive({{QByteArray("\x90 \0x", 4), ""}})), QStringList("É "));
}

TEST_F(ArchiveListee, ZeroBytesAreFoundInTheSixtyFourBitFormToo)
{
    QList<EntreeZip> entrees(65536, {"pochette 2.jpg", ""});
    entrees.append({QByteArray("pochette 1.jpg\0.exe", 19), ""});
    EXPECT_EQ(Noms(Archive(entrees, "PK\5\6 is no end record")).last(), "pochette 1.jpg");
    EXPECT_EQ(zip.GetFile(1), "pochette 2.jpg");
}

TEST_F(ArchiveListee, WhatInfoZipPackedIsListedEvenEncrypted)
{
    dossier.Ecrire("Zelvane.qrt", "[FileInfo]");
    dossier.Ecrire("image.jpg", "image");
    Lancer("zip", {"-q", "-P", "secret", "x.qrt", "Zelvane.qrt", "image.jpg"}, dossier.Chemin());
    EXPECT_EQ(Noms(dossier.Fichier("x.qrt")), QStringList({"Zelvane.qrt", "image.jpg"}));
}

TEST(EntreeDeRepertoire, IsThereWholeOrNotAtAll)
{
    QByteArray entree = QByteArray("PK\1\2").leftJustified(46, '\0');
    entree[28] = 3;
    entree[32] = 2;
    entree += "nom"
              "!?";
    EXPECT_EQ(zipinterne::LireEntree(entree + "PK").taille, entree.size());
    EXPECT_EQ(zipinterne::LireEntree(entree).nom, "nom");
    EXPECT_EQ(zipinterne::LireEntree(entree).commentaire, "!?");
    for (qsizetype taille = 0; taille < entree.size(); ++taille)
        EXPECT_EQ(zipinterne::LireEntree(QByteArrayView(entree).first(taille)).taille, 0) << taille;
    entree[3] = 3;
    EXPECT_EQ(zipinterne::LireEntree(entree).taille, 0);
}
