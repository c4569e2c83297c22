// Saves that go wrong: what is told, and where the data are afterwards.
#include "catalogue/documents/Sauver.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/documents/Commentaires.h"
#include "catalogue/texte/TypeFichier.h"
#include "support/ArchiveDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class SauvegardeManquee : public testing::Test
{
protected:
    SauvegardeManquee()
    {
        d.doc.FileType = "2";
        d.doc.SetCheminReel(dossier.Ecrire("mes.qrt", "ancien"));
        d.dossier.Ecrire("a.jpg", QByteArray(50000, 'a'));
        MettreColonnes(d.table, {"Titre", "Prêté"});
        AjouterEntrees(d.table, {{"un", ""}});
        d.doc.IlFautSauver = true;
    }
    ~SauvegardeManquee() override { EnCoursDeSauvegarde = false; }

    /// Nothing was written: the window still has its changes, and the old file stands.
    void AttendreRefus()
    {
        EXPECT_FALSE(Enregistrer(d.doc, false, true));
        EXPECT_EQ(messages.Cles(), QStringList("msg62"));
        EXPECT_TRUE(d.doc.IlFautSauver);
        EXPECT_FALSE(EnCoursDeSauvegarde);
    }
    /// The old file is gone, the new one is not: the folder holds all and is kept.
    void AttendreDossierGarde()
    {
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
        EXPECT_EQ(messages.Cles(), QStringList("msgArchive"));
        EXPECT_TRUE(d.doc.GardeDossier());
        EXPECT_FALSE(EnCoursDeSauvegarde);
        EXPECT_TRUE(d.dossier.Lire("Zelvane.qrt").contains("It1=un|"));
        EXPECT_EQ(d.dossier.Lire("a.jpg"), QByteArray(50000, 'a'));
    }
    void AttendreNouvelEssai(const QString& chemin)
    {
        d.doc.SetCheminReel(chemin);
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
        EXPECT_FALSE(d.doc.GardeDossier());
        EXPECT_EQ(TypeFichier(chemin), 2);
    }
    QStringList DansLeDossier() const
    {
        return QDir(dossier.Chemin())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    FileDeReponses messages;
    FileDeFichiers dialogues;
    DocumentDeTest d;
    DossierDeTest dossier;
};

} // namespace

TEST_F(SauvegardeManquee, ADiskFullForTheTextLeavesTheOldFile)
{
    const int resultat = DansUnEnfant([&] {
        LimiterTailleDesFichiers(10);
        const bool enregistre = Enregistrer(d.doc, false, true);
        return !enregistre && d.doc.IlFautSauver && messages.Cles() == QStringList("msg62") ? 0 : 1;
    });
    EXPECT_EQ(resultat, 0);
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    EXPECT_EQ(DansLeDossier(), QStringList("mes.qrt"));
}

TEST_F(SauvegardeManquee, ADiskFullForTheExactTextLeavesTheTextsThatBelongTogether)
{
    ASSERT_TRUE(Commentaires::Ecrire(d.doc.TmpFolder, "Lu \u2605"));
    d.table.ListItems(1).SetText("日本");
    ASSERT_TRUE(Enregistrer(d.doc, false, true));
    const QByteArray texte = d.dossier.Lire("Zelvane.qrt"), exact = d.dossier.Lire("Zelvane.utf8");
    ASSERT_TRUE(exact.contains("日本"));

    d.doc.IlFautSauver = true;
    d.table.ListItems(1).SetText(QString(3000, u'Я'));
    const int resultat = DansUnEnfant([&] {
        LimiterTailleDesFichiers(5000); // the 8-bit text has room
        const bool enregistre = Enregistrer(d.doc, false, true);
        return !enregistre && d.doc.IlFautSauver && messages.Cles() == QStringList("msg62") ? 0 : 1;
    });

    EXPECT_EQ(resultat, 0);
    EXPECT_EQ(d.dossier.Lire("Zelvane.qrt"), texte);
    EXPECT_EQ(d.dossier.Lire("Zelvane.utf8"), exact);
    EXPECT_EQ(QDir(d.dossier.Chemin()).entryList({"*~"}), QStringList());
    EXPECT_TRUE(Enregistrer(d.doc, false, true)) << "once there is room again";
    EXPECT_EQ(Commentaires::Lire(d.doc.TmpFolder), "Lu \u2605");
}

TEST_F(SauvegardeManquee, ADiskFullForTheArchiveKeepsTheFolder)
{
    QByteArray bruit;
    for (int i = 0; i < 20000; ++i)
        bruit += QByteArray::number(i * 7919LL);
    d.dossier.Ecrire("b.jpg", bruit);
    const int resultat = DansUnEnfant([&] {
        LimiterTailleDesFichiers(4000);
        const bool enregistre = Enregistrer(d.doc, false, true);
        return enregistre && d.doc.GardeDossier() && messages.Cles() == QStringList("msgArchive") ? 0 : 1;
    });
    EXPECT_EQ(resultat, 0);
    EXPECT_EQ(DansLeDossier(), QStringList()) << "no half archive";
    EXPECT_TRUE(d.dossier.Lire("Zelvane.qrt").contains("It1=un|"));
    EXPECT_EQ(d.dossier.Lire("b.jpg"), bruit);
}

TEST_F(SauvegardeManquee, WhereItsFolderCannotBeMadeAgainADocumentLeavesTheOldFile)
{
    ASSERT_TRUE(QDir(d.dossier.Chemin()).removeRecursively());
    QFile obstacle(d.dossier.Chemin().chopped(1));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    AttendreRefus();
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
    EXPECT_TRUE(obstacle.remove());
}

TEST_F(SauvegardeManquee, ATargetFolderThatIsGoneKeepsTheFolderForAnotherTry)
{
    d.doc.SetCheminReel(dossier.Fichier("parti/mes.qrt"));
    AttendreDossierGarde();
    AttendreNouvelEssai(dossier.Fichier("neuf.qrt"));
}

TEST_F(SauvegardeManquee, ATargetBelowAFileKeepsTheFolder)
{
    d.doc.SetCheminReel(dossier.Fichier("mes.qrt/mes.qrt"));
    AttendreDossierGarde();
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
}

TEST_F(SauvegardeManquee, AFileThatCannotBeDeletedStaysAsItIs)
{
    ASSERT_EQ(chmod(QFile::encodeName(dossier.Chemin()).constData(), 0555), 0);
    ASSERT_EQ(chmod(QFile::encodeName(d.dossier.Chemin()).constData(), 0777), 0);
    const int resultat = DansUnEnfant([&] {
        if (geteuid() == 0 && setuid(65534) != 0) // root may delete everything
            return 2;
        const bool enregistre = Enregistrer(d.doc, false, true);
        return !enregistre && d.doc.IlFautSauver && messages.Cles() == QStringList("msg62") ? 0 : 1;
    });
    ASSERT_EQ(chmod(QFile::encodeName(dossier.Chemin()).constData(), 0755), 0);
    EXPECT_EQ(resultat, 0);
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
}

TEST_F(SauvegardeManquee, AFolderOrAPipeInTheFilesPlaceIsNotTouched)
{
    ASSERT_TRUE(QDir().mkpath(dossier.Fichier("dossier.qrt")));
    ASSERT_EQ(mkfifo(QFile::encodeName(dossier.Fichier("tube.qrt")).constData(), 0600), 0);
    for (const char* nom : {"dossier.qrt", "tube.qrt"}) {
        d.doc.SetCheminReel(dossier.Fichier(nom));
        EXPECT_FALSE(Enregistrer(d.doc, false, true)) << nom;
        EXPECT_TRUE(d.doc.IlFautSauver);
    }
    EXPECT_EQ(messages.Cles(), QStringList({"msg62", "msg62"}));
    EXPECT_EQ(DansLeDossier(), QStringList({"dossier.qrt", "mes.qrt", "tube.qrt"}));
}

TEST_F(SauvegardeManquee, ThroughALinkTheFileThatItNamesIsWrittenInBothForms)
{
    const QString cible = dossier.Ecrire("cible.qrt", "cible");
    ASSERT_TRUE(QDir().mkpath(dossier.Fichier("loin")));
    for (const char* forme : {"2", "1"}) {
        for (const QString& vers : {cible, QStringLiteral("loin/absent.qrt")}) {
            ASSERT_TRUE(QFile::remove(d.doc.CheminReel()) && QFile::link(vers, d.doc.CheminReel()));
            d.doc.RegarderFichier();
            d.doc.FileType = forme;
            EXPECT_TRUE(Enregistrer(d.doc, false, true));
            EXPECT_FALSE(d.doc.GardeDossier());
            EXPECT_TRUE(QFileInfo(d.doc.CheminReel()).isSymLink());
            const int type = *forme == '2' ? 2 : 1;
            EXPECT_EQ(TypeFichier(dossier.Fichier(vers == cible ? "cible.qrt" : "loin/absent.qrt")), type);
        }
        ASSERT_TRUE(QFile::remove(dossier.Fichier("loin/absent.qrt")));
    }
    EXPECT_EQ(DansLeDossier(), QStringList({"cible.qrt", "loin", "mes.qrt"}));
}

TEST_F(SauvegardeManquee, WhoMayReadAndWhoOwnsTheFileStaysInBothForms)
{
    const QByteArray chemin = QFile::encodeName(d.doc.CheminReel());
    const bool superutilisateur = geteuid() == 0; // others give no files away
    for (const char* forme : {"2", "1"}) {
        d.doc.FileType = forme;
        ASSERT_EQ(chmod(chemin.constData(), 0640), 0);
        if (superutilisateur) {
            ASSERT_EQ(chown(chemin.constData(), 12345, 12346), 0);
        }
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
        struct stat etat;
        ASSERT_EQ(stat(chemin.constData(), &etat), 0);
        EXPECT_EQ(etat.st_mode & 07777U, 0640U);
        if (superutilisateur) {
            EXPECT_EQ(etat.st_uid, 12345U);
            EXPECT_EQ(etat.st_gid, 12346U);
        }
    }
}

TEST_F(SauvegardeManquee, AnotherDiskIsWrittenToLikeAnyOther)
{
    QTemporaryDir autre(QStringLiteral("/dev/shm/zelvane-test-XXXXXX"));
    const QString chemin = autre.filePath("mes.qrt");
    dialogues.Preparer({chemin}, 2);
    EXPECT_TRUE(Enregistrer(d.doc, true, true));
    EXPECT_EQ(TypeFichier(chemin), 2);
    EXPECT_EQ(QDir(autre.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
    EXPECT_EQ(dossier.Lire("mes.qrt"), "ancien");
}

TEST_F(SauvegardeManquee, ANameMayHoldALineBreakButNotBeTooLong)
{
    AttendreNouvelEssai(dossier.Fichier("deux\nlignes.qrt"));
    d.doc.SetCheminReel(dossier.Fichier(QString(300, u'n')));
    AttendreDossierGarde();
}

TEST_F(SauvegardeManquee, TheArchiveIsWrittenInItsPlaceAndNowhereElse)
{
    QStringList pendant;
    qint64 taille = -1;
    QTimer::singleShot(0, [&] {
        pendant = DansLeDossier();
        taille = QFileInfo(d.doc.CheminReel()).size();
    });
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(pendant, QStringList("mes.qrt"));
    EXPECT_EQ(taille, 0) << "the old file goes before the new one is written";
    EXPECT_EQ(DansLeDossier(), QStringList("mes.qrt"));
}

// ---- Backups

TEST_F(SauvegardeManquee, ABackupThatCannotTakeItsPlaceLeavesNothingAndStopsNothing)
{
    EcrireOption("SauvegardeLBK", 1);
    dossier.Ecrire("mes.qrt.bak/plein", "x");
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(TypeFichier(d.doc.CheminReel()), 2);
    EXPECT_EQ(DansLeDossier(), QStringList({"mes.qrt", "mes.qrt.bak"}));
    EXPECT_EQ(dossier.Lire("mes.qrt.bak/plein"), "x");
}

TEST_F(SauvegardeManquee, ABackupMayHaveTheLongestNameThereIs)
{
    EcrireOption("SauvegardeLBK", 1);
    const QString nom(251, u'n');
    d.doc.SetCheminReel(dossier.Ecrire(nom, "ancien"));
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(dossier.Lire(nom + ".bak"), "ancien");
}

// ---- Events that run while the archive is written

TEST_F(SauvegardeManquee, ASaveKeepsClosingAndOtherSavesOut)
{
    bool ferme = true, encore = true;
    QTimer::singleShot(0, [&] {
        ferme = PeutFermer(d.doc);
        encore = Enregistrer(d.doc, false, true);
    });
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_FALSE(ferme);
    EXPECT_FALSE(encore);
    EXPECT_EQ(TypeFichier(d.doc.CheminReel()), 2);
    EXPECT_TRUE(PeutFermer(d.doc));
}

TEST_F(SauvegardeManquee, AChangeDuringASaveIsStillToBeSaved)
{
    QTimer::singleShot(0, [&] {
        d.table.ListItems(1).SetText("deux");
        d.doc.IlFautSauver = true;
    });
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_TRUE(d.doc.IlFautSauver);
    EXPECT_TRUE(Lancer("unzip", {"-p", d.doc.CheminReel(), "Zelvane.qrt"}).contains("It1=un|"));
}

TEST_F(SauvegardeManquee, WindowsStayAliveThroughALongWrite)
{
    for (int i = 0; i < 40; ++i)
        d.dossier.Ecrire(QStringLiteral("i%1.jpg").arg(i), QByteArray(1'000'000, static_cast<char>(i)));
    ccZip zip;
    zip.Init(dossier.Fichier("long.qrt"));
    for (int i = 0; i < 40; ++i)
        zip.AddFile(d.dossier.Fichier(QStringLiteral("i%1.jpg").arg(i)), 0, true);
    zip.Level = 9;
    int tics = 0;
    QTimer minuteur;
    QObject::connect(&minuteur, &QTimer::timeout, [&tics] { ++tics; });
    minuteur.start(0);
    EXPECT_EQ(zip.Fermer(), ZipFait);
    EXPECT_GE(tics, 1);
}

TEST_F(SauvegardeManquee, WhatWasSavedIsOnTheDiskBeforeTheFolderMayGo)
{
    EXPECT_TRUE(Enregistrer(d.doc, false, true));
    EXPECT_EQ(d.doc.AForcer, d.doc.CheminReel());
    EXPECT_TRUE(PeutFermer(d.doc));
    EXPECT_EQ(d.doc.AForcer, QString());
    d.doc.AForcer = "/proc/self/stat"; // cannot be forced anywhere
    EXPECT_TRUE(PeutFermer(d.doc));
    EXPECT_TRUE(d.doc.GardeDossier()) << "the folder is all there is";
    EXPECT_EQ(messages.Cles(), QStringList("msgArchive"));
}

TEST_F(SauvegardeManquee, AFileThatIsGoneAfterTheSaveIsToldAndTheFolderStays)
{
    int messagesAttendus = 0;
    for (const char* forme : {"1", "2"}) {
        d.doc.FileType = forme;
        EXPECT_TRUE(Enregistrer(d.doc, false, true));
        ASSERT_TRUE(QFile::remove(d.doc.CheminReel()));
        EXPECT_TRUE(PeutFermer(d.doc));
        EXPECT_TRUE(d.doc.GardeDossier());
        EXPECT_EQ(messages.Cles().count("msgArchive"), ++messagesAttendus);
    }
}
