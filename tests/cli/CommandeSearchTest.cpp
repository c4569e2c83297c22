#include "CommandeDeTest.h"

using CommandeSearch = CommandeDeTest;

TEST_F(CommandeSearch, PrintsTheEntriesFoundAsListDoes)
{
    TexteDeCatalogue texte = Catalogue();
    texte.entrees.append("abba gold|Divers||");
    const QString fichier = dossier.Ecrire("a.qrt", texte.Texte());
    const Resultat ligne = Lancer({"search", fichier, "ABBA"});
    EXPECT_EQ(ligne.statut, 0);
    EXPECT_EQ(ligne.erreurs, "");
    EXPECT_EQ(ligne.sortie, "Titre\tArtiste\tPrêté\tImage\nÇa\tAbba\t\tperdue.gif\nabba gold\tDivers\t\t\n");
    EXPECT_EQ(Lancer({"search", fichier, "abba", "--columns", "1"}).sortie,
              "Titre\tArtiste\tPrêté\tImage\nabba gold\tDivers\t\t\n");
    EXPECT_EQ(Lancer({"search", fichier, "--columns=2", "ABBA"}).sortie,
              "Titre\tArtiste\tPrêté\tImage\nÇa\tAbba\t\tperdue.gif\n");
}

TEST_F(CommandeSearch, InAllColumnsIsThatOfTheWholeLine)
{
    EXPECT_EQ(Lancer({"search", Bare(), "perdue", "--columns", "1-3"}).statut, 0);
    EXPECT_EQ(Lancer({"search", Bare(), "perdue", "--columns", "1-2"}).statut, 1);
}

TEST_F(CommandeSearch, ReadsAnArchive)
{
    const QString archive = dossier.Fichier("archive.qrt");
    ASSERT_EQ(Lancer({"convert", Bare(), archive}).statut, 0);
    EXPECT_EQ(Lancer({"search", archive, "éric"}).sortie,
              "Titre\tArtiste\tPrêté\tImage\nKind of \"Blue\"\tMiles Davis\tÉric - 01/02/2026\t\n");
}

TEST_F(CommandeSearch, JsonIsOneLineWithItsKeysInOrder)
{
    EXPECT_EQ(Lancer({"search", "--json", Bare(), "miles"}).sortie,
              "{\"count\":1,\"results\":[{\"key\":\"k2\",\"values\":[\"Kind of \\\"Blue\\\"\",\"Miles Davis\","
              "\"Éric - 01/02/2026\"],\"image\":\"\",\"icon\":\"noico\","
              "\"toolTip\":\"Kind of \\\"Blue\\\" <> Miles Davis\"}]}\n");
}

TEST_F(CommandeSearch, ScansAFileWithoutALoanColumnAsItLies)
{
    TexteDeCatalogue texte = Catalogue();
    texte.colonnes.removeLast();
    texte.entrees = {"Ça|Abba|image.jpg"};
    const QString fichier = dossier.Ecrire("b.qrt", texte.Texte());
    const Resultat resultat = Lancer({"search", fichier, "ABBA"});
    EXPECT_EQ(resultat.sortie, "Titre\tArtiste\tPrêté\tImage\nÇa\tAbba\timage.jpg\t\n");
    EXPECT_EQ(Lancer({"search", fichier, "image", "--columns", "3"}).statut, 0);
}

TEST_F(CommandeSearch, TellsThatNothingWasFound)
{
    const Resultat rien = Lancer({"search", Bare(), "Zazie"});
    EXPECT_EQ(rien.statut, 1);
    EXPECT_EQ(rien.sortie, "");
    EXPECT_EQ(rien.erreurs, "msg14: Désolé rien n'a été trouvé\n");
    EXPECT_EQ(Lancer({"search", "--json", Bare(), "Zazie"}).sortie, "");
    const Resultat vide = Lancer({"search", Bare(), ""});
    EXPECT_EQ(vide.statut, 1);
    EXPECT_EQ(vide.erreurs, "msg13: Veuillez entrer un texte à rechercher\n");
}

TEST_F(CommandeSearch, RefusesColumnsThatAreNotThere)
{
    for (const char* liste : {"0", "4", "2-1", "x", ""})
        AttendreUneErreurDUsage(Lancer({"search", Bare(), "abba", "--columns", liste}));
}
