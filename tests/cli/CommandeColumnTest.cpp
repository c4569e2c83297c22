// zelvane-cli column, and what all commands have in common that change a catalogue.
#include "CommandeDeTest.h"

#include "catalogue/texte/TypeFichier.h"
#include "support/ArchiveDeTest.h"

#include <QDirIterator>
#include <QFile>

namespace {

class CommandeColumn : public CommandeDeTest
{
protected:
    QString Sortie() const { return dossier.Fichier("sortie.qrt"); }
    /// The output as a table.
    QByteArray Liste() const { return Lancer({"list", Sortie()}).sortie; }
    /// Runs the action on the bare catalogue.
    Resultat Agir(const QString& action, const QStringList& suite) const
    {
        return Lancer(QStringList{"column", action, Bare(), Sortie()} + suite);
    }
};

void AttendreLeSilence(const Resultat& resultat)
{
    EXPECT_EQ(resultat.statut, 0);
    EXPECT_EQ(resultat.sortie, "");
    EXPECT_EQ(resultat.erreurs, "");
}

} // namespace

TEST_F(CommandeColumn, AddWritesTheCatalogueWithOneColumnMore)
{
    AttendreLeSilence(Agir("add", {"Année"}));
    EXPECT_EQ(Liste(), "Titre\tArtiste\tPrêté\tAnnée\tImage\n"
                       "Ça\tAbba\t\t\tperdue.gif\n"
                       "Kind of \"Blue\"\tMiles Davis\tÉric - 01/02/2026\t\t\n");
    EXPECT_EQ(dossier.Lire("bare.qrt"), Catalogue().Texte());
}

TEST_F(CommandeColumn, DependantNamesAColumnOrNone)
{
    AttendreLeSilence(Agir("dependant", {"2"}));
    EXPECT_TRUE(dossier.Lire("sortie.qrt").contains("Dependant=2\r\n"));
    AttendreLeSilence(Lancer({"column", "dependant", Sortie(), Sortie(), "0", "--force"}));
    EXPECT_TRUE(dossier.Lire("sortie.qrt").contains("Dependant=0\r\n"));
}

TEST_F(CommandeColumn, EachActionDoesWhatItsDialogDoes)
{
    const auto apres = [this](const QString& action, const QStringList& suite) {
        AttendreLeSilence(Agir(action, suite + QStringList{"--force"}));
        return Liste().split('\n').mid(0, 2).join(" / ");
    };
    EXPECT_EQ(apres("delete", {"2"}), "Titre\tPrêté\tImage / Ça\t\tperdue.gif");
    EXPECT_EQ(apres("rename", {"1", "Album"}), "Album\tArtiste\tPrêté\tImage / Ça\tAbba\t\tperdue.gif");
    EXPECT_EQ(apres("move", {"2", "left"}), "Artiste\tTitre\tPrêté\tImage / Abba\tÇa\t\tperdue.gif");
    EXPECT_EQ(apres("move", {"2", "right"}), "Titre\tPrêté\tArtiste\tImage / Ça\t\tAbba\tperdue.gif");
    EXPECT_EQ(apres("move", {"1", "left"}), "Titre\tArtiste\tPrêté\tImage / Ça\tAbba\t\tperdue.gif");
    EXPECT_EQ(apres("merge", {"2", "1", ""}), "Artiste\tPrêté\tImage / AbbaÇa\t\tperdue.gif");
    EXPECT_EQ(apres("split", {"2", "Fin", "b"}), "Titre\tArtiste\tFin\tPrêté\tImage / Ça\tA\tba\t\tperdue.gif");
    EXPECT_EQ(apres("duplicate", {"1", "Fin"}), "Titre\tFin\tArtiste\tPrêté\tImage / Ça\tÇa\tAbba\t\tperdue.gif");
}

TEST_F(CommandeColumn, TheNamedSettingsAreLeftAlone)
{
    AttendreLeSilence(Agir("merge", {"2", "1", "#"}));
    AttendreLeSilence(Agir("split", {"2", "X", "#", "--force"}));
    QDirIterator fichiers(dossier.Fichier("config"), QDir::Files, QDirIterator::Subdirectories);
    while (fichiers.hasNext()) {
        QFile fichier(fichiers.next());
        ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
        EXPECT_FALSE(fichier.readAll().contains('#')) << fichier.fileName().toStdString();
    }
}

TEST_F(CommandeColumn, TheOutputHasTheFormOfTheInputUnlessAnotherIsAskedFor)
{
    AttendreLeSilence(Agir("add", {"X"}));
    EXPECT_EQ(TypeFichier(Sortie()), 1);
    AttendreLeSilence(Agir("add", {"X", "--format", "2", "--force"}));
    EXPECT_EQ(TypeFichier(Sortie()), 2);
    AttendreLeSilence(Lancer({"column", "add", Sortie(), dossier.Fichier("b.qrt"), "Y"}));
    EXPECT_EQ(TypeFichier(dossier.Fichier("b.qrt")), 2);
    AttendreLeSilence(Lancer({"column", "add", Sortie(), dossier.Fichier("c.qrt"), "Y", "--format=1.4"}));
    EXPECT_EQ(TypeFichier(dossier.Fichier("c.qrt")), 1);
}

TEST_F(CommandeColumn, ImagesAndCommentsGoAlong)
{
    const QString source = dossier.Ecrire("a.qrt", FaireArchive({{"Zelvane.qrt", Catalogue().Texte()},
                                                                 {"Zelvane.txt", "Mon commentaire"},
                                                                 {"perdue.gif", "GIF"}}));
    AttendreLeSilence(Lancer({"column", "add", source, Sortie(), "X"}));
    EXPECT_EQ(::Lancer("unzip", {"-p", Sortie(), "Zelvane.txt"}), "Mon commentaire");
    EXPECT_EQ(::Lancer("unzip", {"-p", Sortie(), "perdue.gif"}), "GIF");
}

TEST_F(CommandeColumn, AnOutputThatExistsIsLeftUnlessForced)
{
    dossier.Ecrire("sortie.qrt", "ancien");
    const Resultat refus = Agir("add", {"X"});
    EXPECT_EQ(refus.statut, 1);
    EXPECT_TRUE(refus.erreurs.startsWith("msg59: ")) << refus.erreurs.toStdString();
    EXPECT_EQ(dossier.Lire("sortie.qrt"), "ancien");
    AttendreLeSilence(Agir("add", {"X", "--force"}));
    EXPECT_TRUE(Liste().startsWith("Titre\tArtiste\tPrêté\tX\t"));
}

TEST_F(CommandeColumn, TheOutputMayBeTheInputItself)
{
    const QString bare = Bare();
    EXPECT_EQ(Lancer({"column", "add", bare, bare, "X"}).statut, 1);
    EXPECT_EQ(dossier.Lire("bare.qrt"), Catalogue().Texte());
    AttendreLeSilence(Lancer({"column", "add", bare, bare, "X", "--force"}));
    EXPECT_TRUE(Lancer({"list", bare}).sortie.startsWith("Titre\tArtiste\tPrêté\tX\t"));
}

TEST_F(CommandeColumn, ARefusalIsItsMessageAndWritesNothing)
{
    const Resultat vide = Agir("add", {""});
    EXPECT_EQ(vide.statut, 1);
    EXPECT_EQ(vide.sortie, "");
    EXPECT_EQ(vide.erreurs, "msg4: Veuillez entrer un nom\n");
    const Resultat pris = Agir("add", {"ARTISTE"});
    EXPECT_EQ(pris.statut, 1);
    EXPECT_EQ(pris.erreurs, "msg5: Une colonne porte déjà le même nom veuillez en changer\n");
    EXPECT_FALSE(dossier.Existe("sortie.qrt"));
    dossier.Ecrire("sortie.qrt", "ancien");
    EXPECT_EQ(Agir("add", {"titre", "--force"}).statut, 1);
    EXPECT_EQ(dossier.Lire("sortie.qrt"), "ancien");
}

TEST_F(CommandeColumn, WhatCannotBeReadOrWrittenIsTold)
{
    EXPECT_TRUE(Lancer({"column", "add", dossier.Fichier("absent"), Sortie(), "X"}).erreurs.startsWith("msg49: "));
    EXPECT_TRUE(
        Lancer({"column", "add", dossier.Ecrire("autre", "bonjour"), Sortie(), "X"}).erreurs.startsWith("msg50: "));
    EXPECT_FALSE(dossier.Existe("sortie.qrt"));
    const Resultat nullePart = Lancer({"column", "add", Bare(), dossier.Fichier("absent/x.qrt"), "X"});
    EXPECT_EQ(nullePart.statut, 1);
    EXPECT_TRUE(nullePart.erreurs.startsWith("msg62: ")) << nullePart.erreurs.toStdString();
}

TEST_F(CommandeColumn, FormFourteenDoesNotDropCharactersInSilence)
{
    const Resultat refus = Agir("add", {"日本"});
    EXPECT_EQ(refus.statut, 1);
    EXPECT_TRUE(refus.erreurs.startsWith("msgCaracteres: ")) << refus.erreurs.toStdString();
    EXPECT_FALSE(dossier.Existe("sortie.qrt"));
    AttendreLeSilence(Agir("add", {"日本", "--format", "2"}));
    EXPECT_TRUE(Liste().startsWith("Titre\tArtiste\tPrêté\t日本\t"));
}

TEST_F(CommandeColumn, OptionsMayStandBeforeTheAction)
{
    AttendreLeSilence(Lancer({"column", "--format", "2", "add", Bare(), "--force", Sortie(), "X"}));
    EXPECT_EQ(TypeFichier(Sortie()), 2);
    AttendreLeSilence(Lancer({"column", "add", "--force", Bare(), Sortie(), "--", "--X"}));
    EXPECT_TRUE(Liste().startsWith("Titre\tArtiste\tPrêté\t--X\t"));
}

TEST_F(CommandeColumn, WrongUsageTouchesNothing)
{
    AttendreUneErreurDUsage(Lancer({"column"}));
    AttendreUneErreurDUsage(Lancer({"column", "--force"}));
    AttendreUneErreurDUsage(Lancer({"column", "xyz", Bare(), Sortie()}));
    AttendreUneErreurDUsage(Lancer({"column", "add", Bare(), Sortie()}));
    AttendreUneErreurDUsage(Lancer({"column", "add", Bare(), Sortie(), "X", "Y"}));
    AttendreUneErreurDUsage(Agir("add", {"X", "--json"}));
    AttendreUneErreurDUsage(Agir("add", {"X", "--format", "3"}));
    for (const char* titre : {"a|b", "a\nb", "a\rb"})
        AttendreUneErreurDUsage(Agir("add", {titre}));
    for (const char* numero : {"", "x", "4", "-1", "1,2", "1-2", "99999999999"}) {
        AttendreUneErreurDUsage(Agir("dependant", {"--", numero}));
        AttendreUneErreurDUsage(Agir("delete", {"--", numero}));
        AttendreUneErreurDUsage(Agir("merge", {"--", numero, "1", "_"}));
        AttendreUneErreurDUsage(Agir("merge", {"--", "1", numero, "_"}));
    }
    AttendreUneErreurDUsage(Agir("delete", {"0"}));
    AttendreUneErreurDUsage(Lancer({"column", "delete", dossier.Fichier("absent"), Sortie(), "0"}));
    AttendreUneErreurDUsage(Agir("merge", {"1", "0", "_"}));
    AttendreUneErreurDUsage(Agir("merge", {"1", "2", "a\nb"}));
    AttendreUneErreurDUsage(Agir("rename", {"1", "a|b"}));
    AttendreUneErreurDUsage(Agir("split", {"1", "a|b", "_"}));
    AttendreUneErreurDUsage(Agir("duplicate", {"1", "a|b"}));
    AttendreUneErreurDUsage(Agir("move", {"1", "up"}));
    AttendreUneErreurDUsage(Agir("move", {"1"}));
    EXPECT_FALSE(dossier.Existe("sortie.qrt"));
}

TEST_F(CommandeColumn, EachActionHasItsHelp)
{
    const Resultat toutes = Lancer({"column", "--help"});
    EXPECT_EQ(toutes.statut, 0);
    EXPECT_TRUE(toutes.sortie.startsWith("Usage : zelvane-cli column ACTION "));
    const QByteArray generale = Lancer({"--help"}).sortie;
    for (const char* action : {"add", "delete", "rename", "move", "dependant", "merge", "split", "duplicate"}) {
        EXPECT_TRUE(toutes.sortie.contains(QByteArray("\n  column ") + action + ' ')) << action;
        EXPECT_TRUE(generale.contains(QByteArray("\n  column ") + action + ' ')) << action;
        const Resultat aide = Lancer({"column", action, "--help"});
        EXPECT_EQ(aide.statut, 0);
        EXPECT_TRUE(aide.sortie.startsWith(QByteArray("Usage : zelvane-cli column ") + action + " [OPTIONS] ENTREE"));
        for (const char* option : {"--format", "--force", "--password-file"})
            EXPECT_TRUE(aide.sortie.contains(option)) << option;
    }
}
