#include "CommandeDeTest.h"

#include "platform/NomsSysteme.h"
#include "platform/PageDeCode.h"
#include "support/ArchiveDeTest.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

class CommandeExport : public CommandeDeTest
{
protected:
    QString Sortie() const { return dossier.Fichier("sortie"); }
    QByteArray Ecrit() const { return dossier.Lire("sortie"); }
    Resultat Exporter(const QString& genre, const QStringList& options = {}) const
    {
        return Lancer(QStringList{"export", Bare(), Sortie(), "--as", genre} + options);
    }
    /// An archive with two images, one of which an entry names.
    QString AvecImages() const
    {
        TexteDeCatalogue texte = Catalogue();
        texte.entrees[1].append("bleu.jpg");
        return dossier.Ecrire(
            "images.qrt",
            FaireArchive({{"Zelvane.qrt", texte.Texte()}, {"bleu.jpg", "une image"}, {"autre.jpg", "une autre"}}));
    }
};

QByteArray EnHuitBits(const QByteArray& utf8)
{
    return PageDeCode::VersOctets(QString::fromUtf8(utf8));
}

/// What xmllint finds wrong, but for what is meant: entries with one first letter have one anchor name, and a "&" in a
/// value stands in the page as it was typed.
QStringList FautesDeLaPage(const QByteArray& erreurs)
{
    static const QRegularExpression autres("error : (?!ID .+ already defined$|htmlParseEntityRef: no name$)");
    return QString::fromUtf8(erreurs).split('\n').filter(autres);
}

} // namespace

TEST_F(CommandeExport, WritesEachKind)
{
    const std::pair<const char*, QByteArray> debuts[] = {{"html-images", "<!DOCTYPE html PUBLIC"},
                                                         {"html", "<HTML>\r\n<BODY BGCOLOR"},
                                                         {"text", "        \\\\\\|///\r\n"},
                                                         {"csv", EnHuitBits("Titre;Artiste;Prêté;\r\n")},
                                                         {"tab", EnHuitBits("Titre\tArtiste\tPrêté\r\n")}};
    for (const auto& [genre, debut] : debuts) {
        const Resultat resultat = Exporter(genre);
        EXPECT_EQ(resultat.statut, 0) << genre;
        EXPECT_EQ(resultat.sortie, "");
        EXPECT_EQ(resultat.erreurs, "");
        EXPECT_TRUE(Ecrit().startsWith(debut)) << Ecrit().toStdString();
    }
}

TEST_F(CommandeExport, TakesColumnsEntriesAndNumbers)
{
    EXPECT_EQ(Exporter("csv", {"--columns", "1,3", "--number"}).statut, 0);
    EXPECT_EQ(Ecrit(), EnHuitBits("N°;Titre;Prêté;\r\n1;Ça;\r\n2;Kind of \"Blue\";Éric - 01/02/2026\r\n"));
    EXPECT_EQ(Exporter("csv", {"--select=2", "--number"}).statut, 0);
    EXPECT_EQ(Ecrit(), EnHuitBits("N°;Titre;Artiste;Prêté;\r\n2;Kind of \"Blue\";Miles Davis;Éric - 01/02/2026\r\n"));
    EXPECT_EQ(Exporter("csv", {"--select", "1-2", "--columns=2"}).statut, 0);
    EXPECT_EQ(Ecrit(), "Artiste;\r\nAbba\r\nMiles Davis\r\n");
}

TEST_F(CommandeExport, WrongUsageTouchesNothing)
{
    AttendreUneErreurDUsage(Lancer({"export", Bare(), Sortie()}));
    AttendreUneErreurDUsage(Lancer({"export", Bare(), "--as", "csv"}));
    AttendreUneErreurDUsage(Exporter("xml"));
    for (const char* liste : {"0", "4", "2-1", "x", ""})
        AttendreUneErreurDUsage(Exporter("csv", {"--columns", liste}));
    for (const char* liste : {"0", "3", "2-1", "x", ""})
        AttendreUneErreurDUsage(Exporter("html-images", {"--select", liste}));
    EXPECT_FALSE(dossier.Existe("sortie"));
    EXPECT_FALSE(dossier.Existe("images"));
}

TEST_F(CommandeExport, OverwritesWhatIsThere)
{
    dossier.Ecrire("sortie", "un texte bien plus long que tout ce qui va le remplacer, et qui ne doit pas rester");
    EXPECT_EQ(Exporter("csv", {"--columns", "2"}).statut, 0);
    EXPECT_EQ(Ecrit(), "Artiste;\r\nAbba\r\nMiles Davis\r\n");
}

TEST_F(CommandeExport, LeavesWhatIsThereWhenTheCategoryCannotBeRead)
{
    const QString sortie = dossier.Ecrire("sortie", "ancien");
    const Resultat resultat = Lancer({"export", dossier.Ecrire("autre.txt", "bonjour"), sortie, "--as", "csv"});
    EXPECT_EQ(resultat.statut, 1);
    EXPECT_TRUE(resultat.erreurs.startsWith("msg50: "));
    EXPECT_EQ(Ecrit(), "ancien");
}

TEST_F(CommandeExport, TellsThatTheOutputCannotBeMade)
{
    const QString absent = dossier.Fichier("absent/x.htm");
    for (const QString& chemin : {absent, dossier.Chemin()}) {
        const Resultat resultat = Lancer({"export", Bare(), chemin, "--as", "html-images"});
        EXPECT_EQ(resultat.statut, 1);
        EXPECT_EQ(resultat.erreurs, "Le fichier n'a pas pu être écrit : " + chemin.toUtf8() + "\n");
        EXPECT_EQ(resultat.sortie, "");
    }
    EXPECT_FALSE(dossier.Existe("images")) << "where there is no page there are no images either";
}

TEST_F(CommandeExport, TellsThatTheDiskIsFull)
{
    ASSERT_TRUE(QFile::link("/dev/full", Sortie()));
    const Resultat resultat = Exporter("csv");
    EXPECT_EQ(resultat.statut, 1);
    EXPECT_EQ(resultat.erreurs, "Le fichier n'a pas pu être écrit en entier : " + Sortie().toUtf8() + "\n");
}

TEST_F(CommandeExport, PutsImagesBesideThePage)
{
    const Resultat resultat = Lancer({"export", AvecImages(), dossier.Fichier("page.htm"), "--as", "html-images"});
    EXPECT_EQ(resultat.statut, 0);
    EXPECT_EQ(resultat.erreurs, "");
    EXPECT_EQ(dossier.Lire("images/bleu.jpg"), "une image");
    EXPECT_EQ(QDir(dossier.Fichier("images")).entryList(QDir::Files), QStringList("bleu.jpg"));
    EXPECT_TRUE(dossier.Lire("page.htm").contains("<img src=\"images\\bleu.jpg\""));
}

TEST_F(CommandeExport, TellsHowManyImagesCouldNotBeCopied)
{
    dossier.Ecrire("images", "un fichier");
    const Resultat resultat = Lancer({"export", AvecImages(), dossier.Fichier("page.htm"), "--as", "html-images"});
    EXPECT_EQ(resultat.statut, 1);
    EXPECT_EQ(resultat.erreurs, "Images qui n'ont pas pu être copiées : 1\n");
    EXPECT_TRUE(dossier.Lire("page.htm").endsWith("</html>\r\n")) << "the page is whole";
}

TEST_F(CommandeExport, NamesMayBeAnyBytes)
{
    const QString nom = CheminDesOctets("\xE9.csv");
    QProcess coquille;
    coquille.setProcessEnvironment(environnement);
    coquille.start("/bin/sh", {"-ec", "cd \"$1\"; \"$0\" export \"$2\" \"$(printf '\\351.csv')\" --as csv --columns 2",
                               ZELVANE_CLI, dossier.Chemin(), Bare()});
    ASSERT_TRUE(coquille.waitForFinished());
    EXPECT_EQ(coquille.readAllStandardError(), "");
    EXPECT_EQ(dossier.Lire(nom), "Artiste;\r\nAbba\r\nMiles Davis\r\n");
}

// ---- what other programs make of it

TEST_F(CommandeExport, PythonReadsTheSemicolonsBack)
{
    TexteDeCatalogue texte = Catalogue();
    texte.entrees = {"Ça|€|| ", "a, b|'c'|Éric - 01/02/2026|"};
    const QString fichier = dossier.Ecrire("a.qrt", texte.Texte());
    ASSERT_EQ(Lancer({"export", fichier, Sortie(), "--as", "csv", "--number"}).statut, 0);
    const QString lire = "import csv, sys; print(list(csv.reader(open(sys.argv[1], encoding=sys.argv[2], newline=''), "
                         "delimiter=';')))";
    EXPECT_EQ(Lancer("/usr/bin/python3", {"-c", lire, Sortie(), "cp1252"}).sortie,
              "[['N°', 'Titre', 'Artiste', 'Prêté', ''], ['1', 'a, b', \"'c'\", 'Éric - 01/02/2026'], "
              "['2', 'Ça', '€', '']]\n");

    const QByteArray huitBits = texte.Texte().replace("a, b", "????");
    dossier.Ecrire("b.qrt", FaireArchive({{"Zelvane.qrt", huitBits},
                                          {"Zelvane.utf8",
                                           PageDeCode::VersTexte(huitBits).toUtf8().replace("????", "日本日本")}}));
    ASSERT_EQ(Lancer({"export", dossier.Fichier("b.qrt"), Sortie(), "--as", "csv", "--columns", "1"}).statut, 0);
    EXPECT_EQ(Lancer("/usr/bin/python3", {"-c", lire, Sortie(), "utf-8-sig"}).sortie,
              "[['Titre', ''], ['日本日本'], ['Ça']]\n");
}

TEST_F(CommandeExport, PagesAreHtml)
{
    TexteDeCatalogue texte = Catalogue();
    texte.entrees.append("Tom & Jerry|||perdue.gif");
    texte.entrees.append("Tom||<b>x</b>|");
    const QString fichier = dossier.Ecrire("a.qrt", texte.Texte());
    for (const char* genre : {"html-images", "html"}) {
        ASSERT_EQ(Lancer({"export", fichier, Sortie(), "--as", genre, "--number"}).statut, 0);
        const Resultat resultat = Lancer("xmllint", {"--html", "--noout", Sortie()});
        EXPECT_EQ(resultat.statut, 0);
        EXPECT_TRUE(resultat.erreurs.contains("error : ID T already defined")) << "it was read";
        EXPECT_EQ(FautesDeLaPage(resultat.erreurs), QStringList()) << genre;
    }
}
