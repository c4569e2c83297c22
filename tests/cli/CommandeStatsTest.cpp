#include "CommandeDeTest.h"

namespace {

using CommandeStats = CommandeDeTest;

} // namespace

TEST_F(CommandeStats, PrintsTheReportWithItsLineEnds)
{
    TexteDeCatalogue texte = Catalogue();
    texte.dependante = "2";
    texte.entrees.append("Milestones|Miles Davis|Éric - 03/02/2026|");
    const Resultat resultat = Lancer({"stats", dossier.Ecrire("a.qrt", texte.Texte())});
    EXPECT_EQ(resultat.statut, 0);
    EXPECT_EQ(resultat.erreurs, "");
    EXPECT_EQ(resultat.sortie,
              Lignes({"Zelvane v2.2 by Morvenal", "^^^^^^^^^^^^^^", "___________________________________", "a.qrt",
                      "___________________________________", "", "[Total]", "  Nombre d'entrées(sans dépendance):3",
                      "  Nombre d'entrées pretées(dépendance):1", "", "[Éric]", "  Nb entrées prêtées(dépendance):1",
                      "  Date plus vieux prêt:01/02/2026", "  Date du plus récent:03/02/2026"}));
}

TEST_F(CommandeStats, RefusesWhatIsNoCatalogueAndOtherUsage)
{
    const Resultat autre = Lancer({"stats", dossier.Ecrire("autre.txt", "bonjour")});
    EXPECT_EQ(autre.statut, 1);
    EXPECT_EQ(autre.sortie, "");
    EXPECT_TRUE(autre.erreurs.startsWith("msg50: "));
    AttendreUneErreurDUsage(Lancer({"stats"}));
    AttendreUneErreurDUsage(Lancer({"stats", Bare(), "--json"}));
}
