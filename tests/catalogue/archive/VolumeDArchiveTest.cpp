#include "catalogue/archive/VolumeDArchive.h"

#include "catalogue/archive/ccZip.h"
#include "catalogue/texte/ExtraireArchive.h"
#include "support/ArchiveDeTest.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <QDir>
#include <QStorageInfo>

#include <gtest/gtest.h>

namespace {

constexpr quint64 Go = quint64(1) << 30;

class Volume : public testing::Test
{
protected:
    /// An archive that announces 3 GB in one entry.
    QString Enorme() const
    {
        return ailleurs.Ecrire(
            "enorme.qrt", FaireArchive({{"Zelvane.qrt", "[FileInfo]"},
                                        {.nom = "a.jpg", .contenu = "image", .comprime = true, .taille = 3 * Go}}));
    }

    FileDeReponses messages;
    DossierDeTest ailleurs;
    DocumentDeTest d;
};

} // namespace

TEST_F(Volume, BothTheSizeAndTheProportionMustBeUnusual)
{
    EXPECT_TRUE(AccepterVolume(2 * Go, 100));
    EXPECT_TRUE(AccepterVolume(20 * Go, Go / 10));
    EXPECT_TRUE(AccepterVolume(2 * Go + 200, (2 * Go + 200) / 200));
    EXPECT_EQ(messages.Cles(), QStringList());
    for (const int reponse : {RepOui, RepNon}) {
        messages.Preparer(reponse);
        EXPECT_EQ(AccepterVolume(2 * Go + 200, 2 * Go / 200), reponse == RepOui);
    }
    EXPECT_EQ(messages.Cles(), QStringList({"msgVolume", "msgVolume"}));
}

TEST_F(Volume, TheQuestionTellsBothSizes)
{
    messages.Preparer(RepNon);
    EXPECT_FALSE(AccepterVolume(Go * 5 / 2, 1500000));
    EXPECT_EQ(messages.Affiches()[0].genre, MsgOuiNon);
    EXPECT_TRUE(messages.Affiches()[0].message.texte.startsWith("Ce fichier de 1,4 Mo contient 2,5 Go de données"));
    messages.Preparer(RepNon);
    EXPECT_FALSE(AccepterVolume(Go * 5 / 2, 1000));
    EXPECT_TRUE(messages.Affiches()[1].message.texte.startsWith("Ce fichier de 1000 octets contient"));
    messages.Preparer(RepNon);
    EXPECT_FALSE(AccepterVolume(Go * 5 / 2, 2048));
    EXPECT_TRUE(messages.Affiches()[2].message.texte.startsWith("Ce fichier de 2,0 Ko contient"));
}

TEST_F(Volume, ANoWritesNothing)
{
    ccZip zip;
    zip.Init(ailleurs.Ecrire("x", FaireArchive({{"a", "12345"}, {"b", "678"}})));
    uint64_t demande = 0;
    zip.Limites.accepter = [&demande](uint64_t volume) {
        demande = volume;
        return false;
    };
    EXPECT_EQ(zip.Decompress(d.dossier.Chemin(), QString()), ZipAbandon);
    EXPECT_EQ(demande, 8U);
    EXPECT_TRUE(QDir(d.dossier.Chemin()).isEmpty());
    zip.Limites.accepter = [](uint64_t) { return true; };
    EXPECT_EQ(zip.Decompress(d.dossier.Chemin(), QString()), ZipFait);
}

TEST_F(Volume, WhatDoesNotFitAnywayIsNotAskedAbout)
{
    ccZip zip;
    zip.Init(ailleurs.Ecrire("x", FaireArchive({{"a", "12345"}})));
    zip.Limites.accepter = [](uint64_t) {
        ADD_FAILURE();
        return true;
    };
    zip.Limites.parEntree = 4;
    EXPECT_EQ(zip.Decompress(d.dossier.Chemin(), QString()), ZipTropGrand);
    zip.Limites = {.placeLibre = 10, .accepter = zip.Limites.accepter};
    EXPECT_EQ(zip.Decompress(d.dossier.Chemin(), QString()), ZipDisque);
}

TEST_F(Volume, TheAnswerDecidesAboutTheOpening)
{
    if (QStorageInfo(d.dossier.Chemin()).bytesAvailable() < static_cast<qint64>(4 * Go))
        GTEST_SKIP() << "the disk has no room for what the archive announces";
    d.doc.SetCheminReel(Enorme());
    messages.Preparer(RepNon);
    EXPECT_FALSE(ExtraireArchive(d.doc));
    EXPECT_EQ(messages.Cles(), QStringList("msgVolume")) << "and no other message";
    EXPECT_TRUE(QDir(d.dossier.Chemin()).isEmpty());
    messages.Preparer(RepOui);
    EXPECT_FALSE(ExtraireArchive(d.doc)) << "the archive has lied";
    EXPECT_EQ(messages.Cles(), QStringList({"msgVolume", "msgVolume", "msg52"}));
}
