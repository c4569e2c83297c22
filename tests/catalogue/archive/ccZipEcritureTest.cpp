#include "catalogue/archive/ccZip.h"
#include "support/ArchiveDeTest.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class ArchiveEcrite : public testing::Test
{
protected:
    ArchiveEcrite() { zip.Init(archive); }

    /// Adds a file of the folder `source`.
    int Ajouter(const QString& nom, const QByteArray& contenu)
    {
        return zip.AddFile(source.Ecrire(nom, contenu), 0, true);
    }
    QByteArray Contenu(const QString& nom) const { return Lancer("unzip", {"-p", archive, nom}); }
    QStringList Noms() const { return Liste(archive).Col; }
    QString Commentaire() const { return Liste(archive).Comm; }
    /// What lies in the folder of the archive, hidden files too.
    QStringList DansLeDossier() const
    {
        return QDir(cible.Chemin()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    QByteArray Octets() const { return cible.Lire("essai.qrt"); }

    struct Lue
    {
        QStringList Col;
        QString Comm;
    };
    static Lue Liste(const QString& chemin)
    {
        ccZip lue;
        lue.Init(chemin);
        return {lue.Col, lue.Comm};
    }

    DossierDeTest source;
    DossierDeTest cible;
    QString archive = cible.Fichier("essai.qrt");
    ccZip zip;
};

QByteArray Texte(int lignes)
{
    QByteArray texte;
    for (int i = 0; i < lignes; ++i)
        texte += "It" + QByteArray::number(i) + "=Kind of Blue|Miles Davis|" + QByteArray::number(i * 7919) + "|\r\n";
    return texte;
}

/// Bytes that do not compress, the same on every run.
QByteArray Bruit(int taille)
{
    QRandomGenerator hasard(1);
    QByteArray bruit(taille, Qt::Uninitialized);
    for (char& octet : bruit)
        octet = static_cast<char>(hasard.generate());
    return bruit;
}

} // namespace

TEST_F(ArchiveEcrite, InfoZipFindsTheArchiveWhole)
{
    zip.Comm = "Zelvane v2.2 by Morvenal";
    EXPECT_EQ(Ajouter("Zelvane.qrt", Texte(1000)), ZipFait);
    EXPECT_EQ(Ajouter("vide.txt", ""), ZipFait);
    EXPECT_EQ(Ajouter("Été.jpg", Bruit(100000)), ZipFait);
    EXPECT_EQ(zip.Fermer(), ZipFait) << zip.GetZipInfo().toStdString();

    EXPECT_TRUE(Octets().startsWith("PK\3\4"));
    Lancer("unzip", {"-t", archive});
    EXPECT_EQ(Lancer("zipinfo", {"-z", archive}).split('\n').value(1), "Zelvane v2.2 by Morvenal");
    EXPECT_EQ(Lancer("zipinfo", {"-1", archive}), "Zelvane.qrt\nvide.txt\nÉté.jpg\n");
    EXPECT_EQ(Contenu("Zelvane.qrt"), Texte(1000));
    EXPECT_EQ(Contenu("Été.jpg"), Bruit(100000));
    EXPECT_EQ(Contenu("vide.txt"), "");
}

TEST_F(ArchiveEcrite, PythonFindsTheArchiveWholeAndItsNamesMarked)
{
    zip.Comm = "Zelvane v2.2 by Morvenal";
    Ajouter("Zelvane.qrt", Texte(1000));
    Ajouter("Été.jpg", "image");
    ASSERT_EQ(zip.Fermer(), ZipFait);
    const QByteArray dit = Lancer("/usr/bin/python3", {"-c",
                                                       "import sys, zipfile\n"
                                                       "z = zipfile.ZipFile(sys.argv[1])\n"
                                                       "print(z.testzip(), z.comment.decode())\n"
                                                       "for i in z.infolist():\n"
                                                       "    print(i.filename, i.flag_bits & 0x801, i.compress_type)\n",
                                                       archive});
    EXPECT_EQ(dit, "None Zelvane v2.2 by Morvenal\nZelvane.qrt 0 8\nÉté.jpg 2048 8\n");
}

TEST_F(ArchiveEcrite, WhatWasWrittenIsReadAgainEqualToTheByte)
{
    Ajouter("Zelvane.qrt", Texte(30000));
    Ajouter("bruit.jpg", Bruit(3000000));
    ASSERT_EQ(zip.Fermer(), ZipFait);
    const DossierDeTest sortie;
    ccZip lue;
    lue.Init(archive);
    ASSERT_EQ(lue.Decompress(sortie.Chemin(), QString()), ZipFait);
    EXPECT_EQ(sortie.Lire("Zelvane.qrt"), Texte(30000));
    EXPECT_EQ(sortie.Lire("bruit.jpg"), Bruit(3000000));
}

TEST_F(ArchiveEcrite, TheLevelDecidesTheSize)
{
    const auto taille = [this](int niveau) {
        ccZip z;
        z.Init(archive);
        z.Level = niveau;
        EXPECT_EQ(z.AddFile(source.Ecrire("Zelvane.qrt", Texte(20000)), 0, true), ZipFait);
        EXPECT_EQ(z.Fermer(), ZipFait);
        const qint64 n = QFileInfo(archive).size();
        EXPECT_EQ(Contenu("Zelvane.qrt"), Texte(20000));
        QFile::remove(archive);
        return n;
    };
    EXPECT_LT(taille(9), taille(1));
    EXPECT_LT(taille(5), taille(1));
    EXPECT_GT(taille(0), Texte(20000).size());
    EXPECT_EQ(taille(12), taille(1)) << "the first digit counts";
    EXPECT_EQ(taille(-3), taille(5));
}

TEST_F(ArchiveEcrite, ACommentInTheCodePageComesBack)
{
    zip.Comm = "Collection d'Éric € 日本";
    Ajouter("a", "x");
    ASSERT_EQ(zip.Fermer(), ZipFait);
    EXPECT_TRUE(Octets().endsWith("Collection d'\xC9ric \x80 ??"));
    EXPECT_EQ(Commentaire(), "Collection d'Éric € ??");
    Lancer("unzip", {"-t", archive});
}

TEST_F(ArchiveEcrite, ACommentHasAtMost4096Characters)
{
    zip.Comm = QString(5000, u'é');
    Ajouter("a", "x");
    ASSERT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Commentaire(), QString(4096, u'é'));
}

TEST_F(ArchiveEcrite, WithoutACommentTheArchiveKeepsTheOneItHas)
{
    cible.Ecrire("essai.qrt", FaireArchive({{"a", "1"}}, "d'\xC9ric"));
    zip.Init(archive);
    zip.Comm.clear();
    Ajouter("b", "2");
    ASSERT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Commentaire(), "d'Éric");
}

TEST_F(ArchiveEcrite, FilesJoinTheArchiveThatIsThere)
{
    Ajouter("a.txt", "un");
    Ajouter("b.txt", "deux");
    ASSERT_EQ(zip.Fermer(), ZipFait);

    zip.Init(archive);
    EXPECT_EQ(Ajouter("b.txt", "deux bis"), ZipFait);
    EXPECT_EQ(Ajouter("c.txt", "trois"), ZipFait);
    EXPECT_EQ(zip.Col, QStringList({"a.txt", "b.txt", "c.txt"}));
    ASSERT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Noms(), QStringList({"a.txt", "b.txt", "c.txt"}));
    EXPECT_EQ(Contenu("a.txt"), "un");
    EXPECT_EQ(Contenu("b.txt"), "deux bis");
}

TEST_F(ArchiveEcrite, ANameTakenTwiceIsWrittenOnceWithTheLaterBytes)
{
    EXPECT_EQ(Ajouter("un/a.txt", "premier"), ZipFait);
    EXPECT_EQ(Ajouter("deux/a.txt", "second"), ZipFait);
    EXPECT_EQ(zip.Col, QStringList("a.txt"));
    ASSERT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Noms(), QStringList("a.txt"));
    EXPECT_EQ(Contenu("a.txt"), "second");
}

TEST_F(ArchiveEcrite, AFolderIsTakenOnlyWithRecurse)
{
    source.Ecrire("dossier/a.txt", "un");
    source.Ecrire("dossier/sous/.b", "deux");
    EXPECT_EQ(zip.AddFile(source.Fichier("dossier"), 0, true), ZipAvertissement);
    EXPECT_EQ(zip.Col, QStringList());
    EXPECT_EQ(zip.AddFile(source.Fichier("dossier"), -1, true), ZipFait);
    zip.Col.sort();
    EXPECT_EQ(zip.Col, QStringList({".b", "a.txt"}));
    ASSERT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Contenu("a.txt"), "un");
    EXPECT_EQ(Contenu(".b"), "deux");
}

TEST_F(ArchiveEcrite, WithoutJunkTheNamesKeepTheirFoldersButNoRoot)
{
    source.Ecrire("dossier/a.txt", "un");
    ASSERT_EQ(zip.AddFile(source.Fichier("dossier"), 1, false), ZipFait);
    ASSERT_EQ(zip.Fermer(), ZipFait);
    const QString racine = source.Chemin().mid(1);
    EXPECT_EQ(Noms(), QStringList({racine + "dossier/", racine + "dossier/a.txt"}));
    Lancer("unzip", {"-t", archive});
}

TEST_F(ArchiveEcrite, LinksToFoldersAreNotWalked)
{
    source.Ecrire("dossier/a.txt", "un");
    ASSERT_TRUE(QFile::link(source.Fichier("dossier"), source.Fichier("dossier/boucle")));
    EXPECT_EQ(zip.AddFile(source.Fichier("dossier"), 1, true), ZipFait);
    EXPECT_EQ(zip.Col, QStringList("a.txt"));
}

TEST_F(ArchiveEcrite, NothingTakenWritesNothing)
{
    EXPECT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(DansLeDossier(), QStringList());
}

TEST_F(ArchiveEcrite, TheEndOfTheObjectWritesToo)
{
    {
        ccZip passager;
        passager.Init(archive);
        passager.AddFile(source.Ecrire("a.txt", "un"), 0, true);
        EXPECT_FALSE(QFile::exists(archive));
    }
    EXPECT_EQ(Contenu("a.txt"), "un");
    EXPECT_EQ(DansLeDossier(), QStringList("essai.qrt")) << "nothing else is left behind";
}

TEST_F(ArchiveEcrite, WhatCannotBeReadIsNotTaken)
{
    EXPECT_EQ(zip.AddFile(source.Fichier("absent"), 0, true), ZipLecture);
    const QString tube = source.Fichier("tube");
    ASSERT_EQ(mkfifo(tube.toUtf8().constData(), 0600), 0);
    EXPECT_EQ(zip.AddFile(tube, 0, true), ZipLecture);
    EXPECT_EQ(zip.AddFile("/dev/zero", 0, true), ZipLecture);
    ASSERT_TRUE(QFile::link(source.Fichier("absent"), source.Fichier("lien")));
    EXPECT_EQ(zip.AddFile(source.Fichier("lien"), 0, true), ZipLecture);
    EXPECT_TRUE(zip.GetZipInfo().contains("lien"));
    EXPECT_EQ(zip.Col, QStringList());
}

TEST_F(ArchiveEcrite, AFolderThatCannotBeReadIsNotPassedOverInSilence)
{
    source.Ecrire("dossier/a.txt", "un");
    source.Ecrire("dossier/sous/b.txt", "deux");
    ASSERT_EQ(chmod(source.Chemin().toUtf8().constData(), 0755), 0);
    const mode_t pourMoiSeul = geteuid() == 0 ? 0700 : 0;
    ASSERT_EQ(chmod(source.Fichier("dossier/sous").toUtf8().constData(), pourMoiSeul), 0);
    const int resultat = DansUnEnfant([&] {
        if (geteuid() == 0 && setuid(65534) != 0)
            return -1;
        return zip.AddFile(source.Fichier("dossier"), 1, true);
    });
    EXPECT_EQ(resultat, ZipLecture);
    chmod(source.Fichier("dossier/sous").toUtf8().constData(), 0700);
}

TEST_F(ArchiveEcrite, ANameWithAControlCharacterIsNotTakenAndSpoilsNothing)
{
    EXPECT_EQ(Ajouter("a\x01.jpg", "un"), ZipLecture);
    EXPECT_EQ(Ajouter("a\n.jpg", "deux"), ZipFait);
    EXPECT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Noms(), QStringList("a\n.jpg"));
}

TEST_F(ArchiveEcrite, ANameThatWouldComeBackAsAnotherOneIsNotTaken)
{
    EXPECT_EQ(Ajouter("dossier\\b.jpg", "un"), ZipLecture);
    EXPECT_EQ(Ajouter("b.jpg", "deux"), ZipFait);
    EXPECT_EQ(Ajouter(QStringLiteral("\uFEFFb.jpg"), "trois"), ZipFait);
    EXPECT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Noms(), QStringList({"b.jpg", QStringLiteral("\uFEFFb.jpg")}));
}

TEST_F(ArchiveEcrite, AFileThatVanishesBeforeTheEndFailsAndLeavesTheOldArchive)
{
    cible.Ecrire("essai.qrt", FaireArchive({{"ancien", "1"}}));
    const QByteArray avant = Octets();
    zip.Init(archive);
    Ajouter("a.txt", "un");
    Ajouter("b.txt", "deux");
    QFile::remove(source.Fichier("b.txt"));
    EXPECT_EQ(zip.Fermer(), ZipLecture);
    EXPECT_EQ(Octets(), avant);
    EXPECT_EQ(DansLeDossier(), QStringList("essai.qrt"));
    EXPECT_EQ(zip.Fermer(), ZipFait) << "what failed is over";
}

TEST_F(ArchiveEcrite, AFileIsWrittenAsItIsAtTheEnd)
{
    Ajouter("a.txt", "court");
    source.Ecrire("a.txt", "un texte plus long");
    ASSERT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Contenu("a.txt"), "un texte plus long");
}

TEST_F(ArchiveEcrite, SomethingElseInTheArchivesPlaceIsNotTouched)
{
    cible.Ecrire("essai.qrt", "a text that is no archive");
    zip.Init(archive);
    Ajouter("a.txt", "un");
    EXPECT_EQ(zip.Fermer(), ZipFormat);
    EXPECT_EQ(Octets(), "a text that is no archive");
    EXPECT_EQ(DansLeDossier(), QStringList("essai.qrt"));
}

TEST_F(ArchiveEcrite, AMissingFolderFails)
{
    zip.Init(cible.Fichier("absent/essai.qrt"));
    Ajouter("a.txt", "un");
    EXPECT_EQ(zip.Fermer(), ZipCreation);
    EXPECT_EQ(DansLeDossier(), QStringList());
}

TEST_F(ArchiveEcrite, AFolderInTheArchivesPlaceFails)
{
    QDir().mkpath(archive);
    zip.Init(archive);
    Ajouter("a.txt", "un");
    EXPECT_EQ(zip.Fermer(), ZipCreation);
    EXPECT_EQ(DansLeDossier(), QStringList("essai.qrt"));
}

TEST_F(ArchiveEcrite, AFolderWithoutWritePermissionFails)
{
    const QByteArray texte = source.Ecrire("a.txt", "un").toUtf8();
    for (const QString& dossier : {source.Chemin(), cible.Chemin()})
        ASSERT_EQ(chmod(dossier.toUtf8().constData(), 0555), 0);
    const int resultat = DansUnEnfant([&] {
        // Root may write everywhere; nobody may not.
        if (geteuid() == 0 && setuid(65534) != 0)
            return -1;
        return zip.AddFile(QString::fromUtf8(texte), 0, true) == ZipFait ? zip.Fermer() : -2;
    });
    for (const QString& dossier : {source.Chemin(), cible.Chemin()})
        ASSERT_EQ(chmod(dossier.toUtf8().constData(), 0755), 0);
    EXPECT_EQ(resultat, ZipCreation);
    EXPECT_EQ(DansLeDossier(), QStringList());
}

TEST_F(ArchiveEcrite, AFullDiskFailsAtEverySizeAndLeavesTheOldArchive)
{
    cible.Ecrire("essai.qrt", FaireArchive({{"ancien", "1"}}));
    const QByteArray avant = Octets();
    const QString bruit = source.Ecrire("bruit.jpg", Bruit(200000));
    for (const uint64_t place : {0, 40, 150, 4096, 100000, 200000, 200100, 200150}) {
        const int resultat = DansUnEnfant([&] {
            LimiterTailleDesFichiers(place);
            zip.Init(archive);
            return zip.AddFile(bruit, 0, true) == ZipFait ? zip.Fermer() : -1;
        });
        EXPECT_GE(resultat, 2) << place;
        EXPECT_LT(resultat, 100) << place;
        EXPECT_EQ(Octets(), avant) << place;
        EXPECT_EQ(DansLeDossier(), QStringList("essai.qrt")) << place;
    }
}

TEST_F(ArchiveEcrite, TwentyThousandFilesTakeNoQuadraticTime)
{
    for (int i = 0; i < 20000; ++i)
        ASSERT_EQ(Ajouter(QStringLiteral("image%1.jpg").arg(i), QByteArray::number(i)), ZipFait);
    ASSERT_EQ(zip.Fermer(), ZipFait);
    EXPECT_EQ(Noms().size(), 20000);
    EXPECT_EQ(Contenu("image19999.jpg"), "19999");
}
