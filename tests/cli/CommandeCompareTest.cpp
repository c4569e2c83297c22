#include "CommandeDeTest.h"

using CommandeCompare = CommandeDeTest;

TEST_F(CommandeCompare, PrintsWhatEachCategoryLacks)
{
    TexteDeCatalogue texte = Catalogue();
    texte.entrees = {"Zut|Abba||z.gif", "ça|Dick||", "Aja|Abba||"};
    const QString autre = dossier.Ecrire("b.qrt", texte.Texte());
    const Resultat resultat = Lancer({"compare", Bare(), autre});
    EXPECT_EQ(resultat.statut, 0);
    EXPECT_EQ(resultat.erreurs, "");
    EXPECT_EQ(resultat.sortie, "< Kind of \"Blue\"\tMiles Davis\tÉric - 01/02/2026\n> Aja\tAbba\t\n> Zut\tAbba\t\n");
    EXPECT_EQ(Lancer({"compare", "--columns", "2,2", Bare(), autre}).sortie,
              "< Kind of \"Blue\"\tMiles Davis\tÉric - 01/02/2026\n> Aja\tAbba\t\n> ça\tDick\t\n");
    EXPECT_EQ(Lancer({"compare", Bare(), autre, "--columns=1,2"}).sortie.count('\n'), 5) << "no title is an artist";
}

TEST_F(CommandeCompare, EndsWithItsVerdict)
{
    TexteDeCatalogue texte = Catalogue();
    texte.entrees = {"ÇA|||"};
    const QString autre = dossier.Ecrire("b.qrt", texte.Texte());
    const QByteArray phrase = "Toutes les entrees du fichier \"" + Bare().toUtf8() +
                              "\"  sont presentes dans le fichier \"" + autre.toUtf8() + '"';
    EXPECT_EQ(Lancer({"compare", Bare(), autre}).sortie,
              "< Kind of \"Blue\"\tMiles Davis\tÉric - 01/02/2026\n" + phrase + '\n');
    const Resultat pareils = Lancer({"compare", Bare(), dossier.Ecrire("c.qrt", Catalogue().Texte())});
    EXPECT_EQ(pareils.statut, 0);
    EXPECT_EQ(pareils.sortie, "Aucune difference ! les fichiers sont identiques\n");
}

TEST_F(CommandeCompare, JsonIsOneLineWithItsKeysInOrder)
{
    TexteDeCatalogue texte = Catalogue();
    texte.entrees = {"ça|\"x\"||", "Kind of \"Blue\"|||", "Zut|a||"};
    const QString autre = dossier.Ecrire("b.qrt", texte.Texte());
    EXPECT_EQ(
        Lancer({"compare", "--json", Bare(), autre, "--columns", "2,2"}).sortie,
        "{\"onlyInFirst\":[[\"Ça\",\"Abba\",\"\"],[\"Kind of \\\"Blue\\\"\",\"Miles Davis\",\"Éric - 01/02/2026\"]],"
        "\"onlyInSecond\":[[\"Kind of \\\"Blue\\\"\",\"\",\"\"],[\"ça\",\"\\\"x\\\"\",\"\"],[\"Zut\",\"a\",\"\"]],"
        "\"caption\":\"Resultats: 2>1: 3 - 1>2: 2\",\"verdict\":\"\"}\n");
    EXPECT_EQ(Lancer({"compare", "--json", Bare(), dossier.Ecrire("c.qrt", Catalogue().Texte())}).sortie,
              "{\"onlyInFirst\":[],\"onlyInSecond\":[],\"caption\":\"Resultats: 2>1: 0 - 1>2: 0\","
              "\"verdict\":\"Aucune difference ! les fichiers sont identiques\"}\n");
}

TEST_F(CommandeCompare, ReadsArchivesAndBareTexts)
{
    const QString archive = dossier.Fichier("archive.qrt");
    ASSERT_EQ(Lancer({"convert", Bare(), archive}).statut, 0);
    EXPECT_EQ(Lancer({"compare", archive, Bare()}).sortie, "Aucune difference ! les fichiers sont identiques\n");
}

TEST_F(CommandeCompare, TellsACategoryWithoutEntries)
{
    TexteDeCatalogue texte = Catalogue();
    texte.entrees = {};
    const QString vide = dossier.Ecrire("vide.qrt", texte.Texte());
    const Resultat premiere = Lancer({"compare", vide, Bare()});
    EXPECT_EQ(premiere.statut, 1);
    EXPECT_EQ(premiere.sortie, "");
    EXPECT_EQ(premiere.erreurs,
              "La première catégorie ne contient pas d'entrée.\nIl n'y a pas de comparaison à faire\n");
    const Resultat seconde = Lancer({"compare", "--json", Bare(), vide});
    EXPECT_EQ(seconde.statut, 1);
    EXPECT_EQ(seconde.erreurs,
              "La deuxième catégorie ne contient pas d'entrée.\nIl n'y a pas de comparaison à faire\n");
}

TEST_F(CommandeCompare, RefusesColumnsThatAreNoPairOrNotThere)
{
    for (const char* paire :
         {"", "1", "1,", ",1", "1,2,3", "0,1", "1,0", "1-2,1", "x,1", "+1,1", "99999999999,1", "1, 1"})
        AttendreUneErreurDUsage(Lancer({"compare", Bare(), Bare(), "--columns", paire}));
    for (const char* paire : {"4,1", "1,4"})
        AttendreUneErreurDUsage(Lancer({"compare", Bare(), Bare(), "--columns", paire}));
    AttendreUneErreurDUsage(Lancer({"compare", Bare()}));
}
