// zelvane-cli as its users run it.
#include "CommandeDeTest.h"

#include "catalogue/archive/PlaceDuFichier.h"
#include "catalogue/texte/TypeFichier.h"
#include "platform/NomsSysteme.h"
#include "support/ArchiveDeTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStorageInfo>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// 'T' where it stands still, 'Z' where it has ended and nobody has asked how.
char EtatDuProcessus(pid_t pid)
{
    QFile fichier(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!fichier.open(QIODevice::ReadOnly))
        return 'Z';
    const QByteArray texte = fichier.readAll();
    return texte.at(texte.lastIndexOf(')') + 2);
}

class ZelvaneCli : public CommandeDeTest
{
protected:
    /// The folders of documents of runs that are at work, or were.
    QStringList Documents() const
    {
        const QDir temp(dossier.Fichier("programme/temp"));
        const QStringList runs = temp.entryList({"cli-*"});
        return runs.isEmpty() ? QStringList() : QDir(temp.filePath(runs.first())).entryList({"cat*"});
    }

    /// Whether "sortie.qrt" or something of it lies there.
    bool AEcrit() const
    {
        return !QDir(dossier.Chemin())
                    .entryList({"sortie.qrt", ".zelvane*"}, QDir::AllEntries | QDir::Hidden)
                    .isEmpty();
    }

    /// Begins to convert "grand.qrt" to "sortie.qrt" and makes the process stand still while its document has a folder
    /// and nothing is written yet. It may be faster than this is, and is begun anew then.
    bool ConvertirJusquAuMilieu(QProcess& processus) const
    {
        processus.setProcessEnvironment(environnement);
        for (int essai = 0; essai < 50; ++essai) {
            QFile::remove(dossier.Fichier("sortie.qrt"));
            processus.start(ZELVANE_CLI, {"convert", dossier.Fichier("grand.qrt"), dossier.Fichier("sortie.qrt")});
            if (!processus.waitForStarted())
                return false;
            const auto pid = static_cast<pid_t>(processus.processId());
            while (Documents().isEmpty() && EtatDuProcessus(pid) != 'Z')
                QThread::msleep(1);
            kill(pid, SIGSTOP);
            while (EtatDuProcessus(pid) != 'T' && EtatDuProcessus(pid) != 'Z')
                QThread::msleep(1);
            if (EtatDuProcessus(pid) == 'T' && Documents().size() == 1 && !AEcrit())
                return true;
            kill(pid, SIGCONT);
            if (!processus.waitForFinished(60000))
                return false;
        }
        return false;
    }
};

} // namespace

TEST_F(ZelvaneCli, HelpAndVersionGoToStandardOutput)
{
    EXPECT_EQ(Lancer({"--version"}).sortie, "zelvane-cli " ZELVANE_VERSION "\n");
    const Resultat aide = Lancer({"--help"});
    EXPECT_EQ(aide.statut, 0);
    for (const char* commande : {"type", "list", "convert", "search", "compare", "export", "stats"}) {
        EXPECT_TRUE(aide.sortie.contains(commande));
        const Resultat aideDeCommande = Lancer({commande, "--help"});
        EXPECT_EQ(aideDeCommande.statut, 0);
        EXPECT_TRUE(aideDeCommande.sortie.startsWith("Usage : zelvane-cli " + QByteArray(commande)));
    }
    EXPECT_TRUE(Lancer({"list", "--help"}).sortie.contains("\n  --json\n"));
    EXPECT_TRUE(Lancer({"convert", "--help"}).sortie.contains("\n  --format "));
}

TEST_F(ZelvaneCli, WrongUsageIsOneLineAndTouchesNothing)
{
    AttendreUneErreurDUsage(Lancer({}));
    AttendreUneErreurDUsage(Lancer({"--xyz"}));
    AttendreUneErreurDUsage(Lancer({"lister", "x"}));
    AttendreUneErreurDUsage(Lancer({"type"}));
    AttendreUneErreurDUsage(Lancer({"list", Bare(), "--xml"}));
    AttendreUneErreurDUsage(Lancer({"convert", Bare(), dossier.Fichier("x.qrt"), "--format", "3"}));
    EXPECT_FALSE(dossier.Existe("x.qrt"));
    EXPECT_FALSE(dossier.Existe("programme/temp")) << "not even a temporary folder";
}

TEST_F(ZelvaneCli, TypeTellsTheThreeForms)
{
    const QString archive = dossier.Fichier("archive.qrt");
    ASSERT_EQ(Lancer({"convert", Bare(), archive}).statut, 0);
    EXPECT_EQ(Lancer({"type", Bare()}).sortie, "1\n");
    EXPECT_EQ(Lancer({"type", archive}).sortie, "2\n");
    const Resultat autre = Lancer({"type", dossier.Ecrire("autre.txt", "bonjour")});
    EXPECT_EQ(autre.sortie, "0\n");
    EXPECT_EQ(autre.statut, 0);
}

TEST_F(ZelvaneCli, AFileThatDoesNotExistIsToldByEveryCommand)
{
    const QString absent = dossier.Fichier("absent.qrt");
    for (const QStringList& arguments : {QStringList{"type", absent},
                                         {"list", absent},
                                         {"convert", absent, dossier.Fichier("x.qrt")},
                                         {"search", absent, "x"},
                                         {"compare", absent, Bare()},
                                         {"compare", Bare(), absent},
                                         {"export", absent, dossier.Fichier("x.qrt"), "--as", "csv"},
                                         {"stats", absent}}) {
        const Resultat resultat = Lancer(arguments);
        EXPECT_EQ(resultat.statut, 1);
        EXPECT_EQ(resultat.sortie, "");
        EXPECT_EQ(resultat.erreurs, "msg49: Erreur lors de l'ouverture : le fichier n'existe pas\n");
    }
    EXPECT_FALSE(dossier.Existe("x.qrt"));
}

TEST_F(ZelvaneCli, NamesMayBeAnyBytes)
{
    dossier.Ecrire(CheminDesOctets("\xE9t\xE9.qrt"), Catalogue().Texte());
    QProcess coquille;
    coquille.setProcessEnvironment(environnement);
    coquille.setProgram("/bin/sh");
    coquille.setArguments({"-ec",
                           "cd \"$1\"; a=$(printf '\\351t\\351.qrt'); b=$(printf '\\374.qrt'); "
                           "\"$0\" type \"$a\"; \"$0\" convert \"$a\" \"$b\"; \"$0\" convert \"$a\" \"$b\" --force; "
                           "\"$0\" type \"$b\"",
                           ZELVANE_CLI, dossier.Chemin()});
    coquille.start();
    ASSERT_TRUE(coquille.waitForFinished());
    EXPECT_EQ(coquille.readAllStandardOutput(), "1\n2\n");
    EXPECT_EQ(coquille.readAllStandardError(), "");
    EXPECT_EQ(TypeFichier(dossier.Fichier(CheminDesOctets("\xFC.qrt"))), 2);
}

TEST_F(ZelvaneCli, WhatIsNoCatalogueIsRefused)
{
    const Resultat autre = Lancer({"list", dossier.Ecrire("autre.txt", "bonjour")});
    EXPECT_EQ(autre.statut, 1);
    EXPECT_TRUE(autre.erreurs.startsWith("msg50: ") && autre.erreurs.endsWith("correcte\n"));
    const Resultat faux = Lancer({"list", dossier.Ecrire("faux.qrt", "[FileInfo]\r\nType=AUTRE\r\n")});
    EXPECT_EQ(faux.statut, 1);
    EXPECT_EQ(faux.sortie, "");
    EXPECT_TRUE(faux.erreurs.startsWith("msg50: ") && faux.erreurs.endsWith("valide\n"));
    const QString sortie = dossier.Fichier("x.qrt");
    EXPECT_EQ(Lancer({"convert", dossier.Fichier("faux.qrt"), sortie}).statut, 1);
    EXPECT_FALSE(QFileInfo::exists(sortie));
}

TEST_F(ZelvaneCli, ListPrintsTitlesAndEntriesSeparatedByTabs)
{
    const Resultat liste = Lancer({"list", Bare()});
    EXPECT_EQ(liste.statut, 0);
    EXPECT_EQ(liste.erreurs, "");
    EXPECT_EQ(liste.sortie, "Titre\tArtiste\tPrêté\tImage\n"
                            "Ça\tAbba\t\tperdue.gif\n"
                            "Kind of \"Blue\"\tMiles Davis\tÉric - 01/02/2026\t\n");
}

TEST_F(ZelvaneCli, ListJsonIsOneLineWithItsKeysInOrder)
{
    const QString bare = Bare();
    const Resultat liste = Lancer({"list", "--json", bare});
    EXPECT_EQ(liste.sortie,
              "{\"file\":\"" + bare.toUtf8() +
                  "\",\"type\":1,\"comment\":\"\",\"gridLines\":true,\"sorted\":true,\"sortKey\":1,\"sortOrder\":0,"
                  "\"dependantColumn\":0,\"loanColumn\":3,\"modified\":false,\"columns\":["
                  "{\"title\":\"Titre\",\"width\":4200.5,\"icon\":\"\",\"texts\":\"\"},"
                  "{\"title\":\"Artiste\",\"width\":3300,\"icon\":\"down\",\"texts\":\"rock|jazz\"},"
                  "{\"title\":\"Prêté\",\"width\":600,\"icon\":\"\",\"texts\":\"\"}],\"entries\":["
                  "{\"key\":\"k1\",\"values\":[\"Ça\",\"Abba\",\"\"],\"image\":\"perdue.gif\",\"icon\":\"icoerror\"},"
                  "{\"key\":\"k2\",\"values\":[\"Kind of \\\"Blue\\\"\",\"Miles Davis\",\"Éric - 01/02/2026\"],"
                  "\"image\":\"\",\"icon\":\"noico\"}]}\n");
}

TEST_F(ZelvaneCli, ListJsonTellsTheArchiveCommentAndAnAddedLoanColumn)
{
    TexteDeCatalogue texte = Catalogue();
    texte.colonnes.removeLast();
    const QString archive = dossier.Fichier("archive.qrt");
    ASSERT_EQ(Lancer({"convert", Bare(), archive}).statut, 0);
    const QJsonObject objet = QJsonDocument::fromJson(Lancer({"list", archive, "--json"}).sortie).object();
    EXPECT_EQ(objet["comment"].toString(), "Zelvane v2.2 by Morvenal");
    EXPECT_EQ(objet["type"].toInt(), 2);
    EXPECT_FALSE(objet["modified"].toBool());
    const QJsonObject sansPret =
        QJsonDocument::fromJson(Lancer({"list", dossier.Ecrire("b.qrt", texte.Texte()), "--json"}).sortie).object();
    EXPECT_TRUE(sansPret["modified"].toBool());
    EXPECT_EQ(sansPret["columns"].toArray().last().toObject()["title"].toString(), "Prêté");
}

TEST_F(ZelvaneCli, ConvertGoesBothWaysWithoutLoss)
{
    const QString archive = dossier.Fichier("archive.qrt"), retour = dossier.Fichier("retour.qrt");
    ASSERT_EQ(Lancer({"convert", Bare(), archive}).statut, 0);
    ASSERT_EQ(Lancer({"convert", "--format=1.4", archive, retour}).statut, 0);
    EXPECT_EQ(dossier.Lire("retour.qrt"), Catalogue().Texte());
    EXPECT_EQ(QDir(dossier.Chemin()).entryList({".zelvane*"}, QDir::AllEntries | QDir::Hidden), QStringList());
}

TEST_F(ZelvaneCli, ConvertTakesImagesAndCommentsAlong)
{
    dossier.Ecrire("source/Zelvane.qrt", Catalogue().Texte());
    dossier.Ecrire("source/Zelvane.txt", "Mon commentaire");
    dossier.Ecrire("source/perdue.gif", "GIF89a");
    QProcess zip;
    zip.setWorkingDirectory(dossier.Fichier("source"));
    zip.start("zip", {"-q", dossier.Fichier("a.qrt"), "Zelvane.qrt", "Zelvane.txt", "perdue.gif"});
    ASSERT_TRUE(zip.waitForFinished() && zip.exitCode() == 0);
    ASSERT_EQ(Lancer({"convert", dossier.Fichier("a.qrt"), dossier.Fichier("b.qrt")}).statut, 0);
    QProcess unzip;
    unzip.start("unzip", {"-p", dossier.Fichier("b.qrt"), "Zelvane.txt", "perdue.gif"});
    ASSERT_TRUE(unzip.waitForFinished());
    const QByteArray contenu = unzip.readAllStandardOutput();
    EXPECT_TRUE(contenu == "Mon commentaireGIF89a" || contenu == "GIF89aMon commentaire") << contenu.toStdString();
    EXPECT_TRUE(Lancer({"list", "--json", dossier.Fichier("b.qrt")}).sortie.contains("\"icon\":\"ico\""));
}

TEST_F(ZelvaneCli, ConvertRefusesAnExistingOutputUnlessForced)
{
    const QString sortie = dossier.Ecrire("x.qrt", "ancien");
    const Resultat refus = Lancer({"convert", Bare(), sortie});
    EXPECT_EQ(refus.statut, 1);
    EXPECT_TRUE(refus.erreurs.startsWith("msg59: "));
    EXPECT_EQ(dossier.Lire("x.qrt"), "ancien");
    EXPECT_EQ(Lancer({"convert", Bare(), sortie, "--force"}).statut, 0);
    EXPECT_EQ(Lancer({"type", sortie}).sortie, "2\n");
    EXPECT_EQ(Lancer({"convert", sortie, sortie, "--force", "--format", "1.4"}).statut, 0) << "also onto itself";
    EXPECT_EQ(dossier.Lire("x.qrt"), Catalogue().Texte());
}

TEST_F(ZelvaneCli, AFailedConversionLeavesTheOldFile)
{
    const QString sortie = dossier.Ecrire("x.qrt", "ancien");
    const QString faux = dossier.Ecrire("faux.qrt", "[FileInfo]\r\nType=AUTRE\r\n");
    EXPECT_EQ(Lancer({"convert", faux, sortie, "--force"}).statut, 1);
    EXPECT_EQ(dossier.Lire("x.qrt"), "ancien");
    const Resultat resultat = Lancer({"convert", Bare(), dossier.Fichier("absent/x.qrt")});
    EXPECT_EQ(resultat.statut, 1);
    EXPECT_TRUE(resultat.erreurs.startsWith("msg62: ")) << resultat.erreurs.toStdString();
    EXPECT_EQ(Lancer({"convert", Bare(), dossier.Fichier("programme"), "--force"}).statut, 1) << "a folder stays one";
}

TEST_F(ZelvaneCli, ConvertWritesTheFileThatALinkNames)
{
    ASSERT_TRUE(QDir().mkpath(dossier.Fichier("loin")));
    ASSERT_TRUE(QFile::link("loin/x.qrt", dossier.Fichier("lien.qrt")));
    for (const char* forme : {"2", "1.4"}) {
        EXPECT_EQ(Lancer({"convert", "--format", forme, "--force", Bare(), dossier.Fichier("lien.qrt")}).statut, 0);
        EXPECT_TRUE(QFileInfo(dossier.Fichier("lien.qrt")).isSymLink());
        EXPECT_EQ(Lancer({"type", dossier.Fichier("loin/x.qrt")}).sortie, *forme == '2' ? "2\n" : "1\n");
    }
    EXPECT_EQ(QDir(dossier.Fichier("loin")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList("x.qrt"));
}

TEST_F(ZelvaneCli, ConvertLeavesRightsAndOwnerOfTheFileThatItReplaces)
{
    const QByteArray sortie = QFile::encodeName(dossier.Ecrire("x.qrt", "ancien"));
    const bool superutilisateur = geteuid() == 0; // others give no files away
    ASSERT_EQ(chmod(sortie.constData(), 0640), 0);
    if (superutilisateur) {
        ASSERT_EQ(chown(sortie.constData(), 12345, 12346), 0);
    }
    EXPECT_EQ(Lancer({"convert", "--force", Bare(), dossier.Fichier("x.qrt")}).statut, 0);
    struct stat etat;
    ASSERT_EQ(stat(sortie.constData(), &etat), 0);
    EXPECT_EQ(etat.st_mode & 07777U, 0640U);
    if (superutilisateur) {
        EXPECT_EQ(etat.st_uid, 12345U);
        EXPECT_EQ(etat.st_gid, 12346U);
    }
}

TEST_F(ZelvaneCli, ConvertLeavesAFileAloneThatAnotherProgramIsReplacing)
{
    const QString sortie = dossier.Ecrire("x.qrt", "ancien");
    PlaceDuFichier place(sortie);
    ASSERT_TRUE(place.Prendre());
    const Resultat resultat = Lancer({"convert", "--force", Bare(), sortie});
    EXPECT_EQ(resultat.statut, 1);
    EXPECT_TRUE(resultat.erreurs.startsWith("msg62: ")) << resultat.erreurs.toStdString();
    EXPECT_EQ(dossier.Lire("x.qrt"), "ancien");
}

TEST_F(ZelvaneCli, FormFourteenDoesNotDropCharactersInSilence)
{
    dossier.Ecrire("s/Zelvane.qrt", Catalogue().Texte().replace("Abba", "????"));
    dossier.Ecrire(
        "s/Zelvane.utf8",
        QString::fromLatin1(Catalogue().Texte().replace("Abba", "????")).toUtf8().replace("????", "日本日本"));
    QProcess zip;
    zip.setWorkingDirectory(dossier.Fichier("s"));
    zip.start("zip", {"-q", dossier.Fichier("a.qrt"), "Zelvane.qrt", "Zelvane.utf8"});
    ASSERT_TRUE(zip.waitForFinished() && zip.exitCode() == 0);
    EXPECT_TRUE(Lancer({"list", dossier.Fichier("a.qrt")}).sortie.contains("Ça\t日本日本\t"));
    const QString sortie = dossier.Fichier("x.qrt");
    EXPECT_EQ(Lancer({"convert", "--format", "1.4", dossier.Fichier("a.qrt"), sortie}).statut, 1);
    EXPECT_FALSE(QFileInfo::exists(sortie));
    EXPECT_EQ(Lancer({"convert", "--format", "1.4", dossier.Fichier("a.qrt"), sortie, "--force"}).statut, 0);
    EXPECT_TRUE(dossier.Lire("x.qrt").contains("|????|"));
    ASSERT_EQ(Lancer({"convert", dossier.Fichier("a.qrt"), dossier.Fichier("b.qrt")}).statut, 0);
    EXPECT_TRUE(Lancer({"list", dossier.Fichier("b.qrt")}).sortie.contains("日本日本"));
}

TEST_F(ZelvaneCli, APasswordThatIsTypedIsNotSeenOnTheTerminal)
{
    dossier.Ecrire("s/Zelvane.qrt", Catalogue().Texte());
    QProcess zip;
    zip.setWorkingDirectory(dossier.Fichier("s"));
    zip.start("zip", {"-q", "-P", "sesame42", dossier.Fichier("p.qrt"), "Zelvane.qrt"});
    ASSERT_TRUE(zip.waitForFinished() && zip.exitCode() == 0);

    QProcess terminal; // script gives its command a terminal and copies what stands on it
    terminal.setProcessEnvironment(environnement);
    terminal.setProcessChannelMode(QProcess::MergedChannels);
    terminal.start("script", {"-qec", ZELVANE_CLI " list " + dossier.Fichier("p.qrt"), "/dev/null"});
    QByteArray vu;
    while (!vu.contains("Mot de passe : ") && terminal.waitForReadyRead(60000))
        vu += terminal.readAll();
    terminal.write("sesame42\n");
    EXPECT_TRUE(terminal.waitForFinished(60000));
    vu += terminal.readAll();
    EXPECT_TRUE(vu.contains("Miles Davis")) << vu.toStdString();
    EXPECT_FALSE(vu.contains("sesame42")) << vu.toStdString();
}

TEST_F(ZelvaneCli, PasswordsComeFromAFileOrAVariable)
{
    dossier.Ecrire("s/Zelvane.qrt", Catalogue().Texte());
    QProcess zip;
    zip.setWorkingDirectory(dossier.Fichier("s"));
    zip.start("zip", {"-q", "-P", "zelvane", dossier.Fichier("p.qrt"), "Zelvane.qrt"});
    ASSERT_TRUE(zip.waitForFinished() && zip.exitCode() == 0);
    const QString protege = dossier.Fichier("p.qrt");

    const Resultat sans = Lancer({"list", protege});
    EXPECT_EQ(sans.statut, 1);
    EXPECT_TRUE(sans.erreurs.startsWith("msg52: ")) << sans.erreurs.toStdString();
    EXPECT_TRUE(sans.erreurs.contains("--password-file")) << "how to give it is told";
    const QString fichier = dossier.Ecrire("mdp", "zelvane\nautre");
    EXPECT_EQ(Lancer({"list", protege, "--password-file", fichier}).statut, 0);
    const Resultat absent = Lancer({"list", protege, "--password-file", dossier.Fichier("absent")});
    EXPECT_EQ(absent.statut, 1);
    EXPECT_TRUE(absent.erreurs.contains(dossier.Fichier("absent").toUtf8())) << absent.erreurs.toStdString();
    environnement.insert("ZELVANE_MOT_DE_PASSE", "faux");
    const Resultat faux = Lancer({"list", protege});
    EXPECT_EQ(faux.statut, 1);
    EXPECT_FALSE(faux.erreurs.contains("--password-file")) << "it was given";
    environnement.insert("ZELVANE_MOT_DE_PASSE", "zelvane");
    EXPECT_EQ(Lancer({"list", protege}).sortie, Lancer({"list", Bare()}).sortie);
    EXPECT_EQ(Lancer({"convert", protege, dossier.Fichier("ouvert.qrt")}).statut, 0);
    environnement.remove("ZELVANE_MOT_DE_PASSE");
    EXPECT_EQ(Lancer({"list", dossier.Fichier("ouvert.qrt")}).statut, 0) << "a written archive has no password";
}

TEST_F(ZelvaneCli, AReaderThatHasEnoughEndsItQuietly)
{
    TexteDeCatalogue texte = Catalogue();
    texte.entrees.resize(20000, "Titre|Artiste||");
    const QString grand = dossier.Ecrire("grand.qrt", texte.Texte());
    for (const QStringList& options : {QStringList(), QStringList{"--json"}}) {
        int tuyau[2];
        ASSERT_EQ(pipe(tuyau), 0);
        close(tuyau[0]); // the reader is gone before the first byte comes
        QProcess processus;
        processus.setProcessEnvironment(environnement);
        processus.setStandardInputFile(QProcess::nullDevice());
        processus.setChildProcessModifier([&tuyau] { dup2(tuyau[1], STDOUT_FILENO); });
        processus.start(ZELVANE_CLI, QStringList{"list", grand} + options);
        EXPECT_TRUE(processus.waitForFinished(60000));
        close(tuyau[1]);
        EXPECT_EQ(processus.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(processus.exitCode(), 0);
        EXPECT_EQ(processus.readAllStandardError(), "");
    }
}

TEST_F(ZelvaneCli, LinesOfAnyNumberOfFieldsAreListedUnderTheirColumns)
{
    TexteDeCatalogue texte = Catalogue();
    texte.entrees = {"a|b|c|i.gif", "court", "long|b|c|i.gif|trop", "", "€|é||", "r|s|r.gif"};
    EXPECT_EQ(Lancer({"list", dossier.Ecrire("a.qrt", texte.Texte())}).sortie,
              "Titre\tArtiste\tPrêté\tImage\ncourt\t\t\t\n\t\t\t\na\tb\tc\ti.gif\nlong\tb\tc\ti.gif\n€\té\t\t\nr\ts\tr."
              "gif\t\n");
    texte.colonnes.removeLast();
    EXPECT_EQ(Lancer({"list", dossier.Ecrire("b.qrt", texte.Texte())}).sortie,
              "Titre\tArtiste\tPrêté\tImage\ncourt\t\t\t\n\t\t\t\na\tb\t\tc\nlong\tb\t\tc\n€\té\t\t\nr\ts\t\tr.gif\n")
        << "a loan column that the file lacks stands behind its own";
}

TEST_F(ZelvaneCli, AnInterruptLeavesNoFolderBehind)
{
    TexteDeCatalogue texte = Catalogue();
    texte.nombreDEntrees = "900000";
    dossier.Ecrire("grand.qrt", texte.Texte());
    for (const int signal : {SIGINT, SIGTERM}) {
        QProcess processus;
        ASSERT_TRUE(ConvertirJusquAuMilieu(processus));
        const auto pid = static_cast<pid_t>(processus.processId());
        ASSERT_EQ(kill(pid, signal), 0);
        ASSERT_EQ(kill(pid, SIGCONT), 0);
        ASSERT_TRUE(processus.waitForFinished(20000));
        EXPECT_EQ(processus.exitCode(), 128 + signal);
        EXPECT_TRUE(QDir(dossier.Fichier("programme/temp")).isEmpty());
        EXPECT_FALSE(AEcrit());
    }
}

TEST_F(ZelvaneCli, WhatAKilledRunLeavesGoesWithTheNextOne)
{
    TexteDeCatalogue texte = Catalogue();
    texte.nombreDEntrees = "900000";
    dossier.Ecrire("grand.qrt", texte.Texte());
    QProcess processus;
    ASSERT_TRUE(ConvertirJusquAuMilieu(processus));
    ASSERT_EQ(Lancer({"type", Bare()}).statut, 0);
    EXPECT_EQ(Documents().size(), 1) << "it lives";

    processus.kill();
    ASSERT_TRUE(processus.waitForFinished(20000));
    EXPECT_EQ(Documents().size(), 1);
    EXPECT_EQ(Lancer({"type", Bare()}).statut, 0);
    EXPECT_EQ(Documents(), QStringList());
}

TEST_F(ZelvaneCli, NamesThatNoFileCanHaveAreToldAndTheRestIsDone)
{
    const QByteArray nom = QByteArray(300, 'L') + ".jpg";
    TexteDeCatalogue texte;
    texte.entrees = {"un||" + nom};
    const QString archive =
        dossier.Ecrire("long.qrt", FaireArchive({{"Zelvane.qrt", texte.Texte()}, {nom, "image"}, {"\x01", "x"}}));
    const Resultat liste = Lancer({"list", "--json", archive});
    EXPECT_EQ(liste.statut, 0);
    EXPECT_TRUE(liste.sortie.contains("\"icon\":\"ico\""));
    EXPECT_TRUE(liste.erreurs.startsWith("msgNoms: ")) << liste.erreurs.toStdString();
    const QString copie = dossier.Fichier("copie.qrt");
    EXPECT_EQ(Lancer({"convert", archive, copie}).statut, 0);
    EXPECT_EQ(Lancer({"list", copie}).erreurs, "");
    EXPECT_EQ(Lancer({"list", copie}).sortie, Lancer({"list", archive}).sortie);
}

TEST_F(ZelvaneCli, AnArchiveThatWouldBecomeUnusuallyLargeIsRefused)
{
    constexpr uint64_t troisGo = uint64_t(3) << 30;
    if (QStorageInfo(dossier.Chemin()).bytesAvailable() < static_cast<qint64>(troisGo + troisGo / 2))
        GTEST_SKIP() << "the disk has no room for what the archive announces";
    const QString archive = dossier.Ecrire(
        "enorme.qrt",
        FaireArchive({{"Zelvane.qrt", TexteDeCatalogue().Texte()}, {.nom = "a", .contenu = "", .taille = troisGo}}));
    for (const QStringList& commande : {QStringList{"list", archive}, {"convert", archive, dossier.Fichier("x.qrt")}}) {
        const Resultat resultat = Lancer(commande);
        EXPECT_EQ(resultat.statut, 1);
        EXPECT_EQ(resultat.sortie, "");
        EXPECT_TRUE(resultat.erreurs.startsWith("msgVolume: ")) << resultat.erreurs.toStdString();
        EXPECT_EQ(resultat.erreurs.count('\n'), 1);
    }
    EXPECT_FALSE(dossier.Existe("x.qrt"));
}

TEST_F(ZelvaneCli, AFullOutputIsAFailure)
{
    QProcess processus;
    processus.setProcessEnvironment(environnement);
    processus.setStandardOutputFile("/dev/full");
    processus.start(ZELVANE_CLI, {"list", Bare()});
    ASSERT_TRUE(processus.waitForFinished());
    EXPECT_EQ(processus.exitCode(), 1);
}
