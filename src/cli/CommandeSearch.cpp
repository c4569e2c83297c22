#include "cli/CommandeSearch.h"

#include "base/AfficherMsg.h"
#include "cli/Catalogue.h"
#include "cli/Console.h"
#include "cli/Json.h"
#include "cli/ListeDeNombres.h"
#include "cli/Lister.h"
#include "search/ResultatsDeRecherche.h"

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

void EcrireEnJson(const ResultatsDeRecherche& resultats, SortieStandard& sortie)
{
    const MyLV& table = resultats.Table;
    const int nombre = table.ListItems.Count();
    Json json;
    json.Debut('{').Cle("count").Nombre(nombre).Cle("results").Debut('[');
    QByteArray tampon;
    for (int i = 1; i <= nombre && sortie.EstOuverte(); ++i) {
        EcrireEntree(json, table, i, tampon);
        json.Cle("toolTip").Texte(resultats.Infobulle(table.ListItems(i))).Fin('}');
        if (json.Taille() >= TailleMorceau)
            sortie.Ecrire(json.Prendre());
    }
    json.Fin(']').Fin('}');
    sortie.Ecrire(json.Prendre() + '\n');
}

} // namespace

Statut ExecuterSearch(const LigneDeCommande& ligne)
{
    const QString texteDeListe = ligne.Valeur(u"columns"_s, u"1"_s);
    const std::optional<ListeDeNombres> liste = ListeDeNombres::Lire(texteDeListe);
    if (!liste)
        return RefuserUsage(u"ce n'est pas une liste de colonnes : "_s + texteDeListe, u"search"_s);
    const auto catalogue = CatalogueOuvert::Ouvrir(ligne.arguments[0], Etendue::SansEntrees);
    if (!catalogue)
        return Echec;
    const Categorie& doc = catalogue->doc;
    PorteeDeRecherche colonnes;
    if (ligne.A(u"columns"_s)) {
        std::optional<std::vector<bool>> choix = liste->Parmi(doc.ColCount());
        if (!choix)
            return RefuserUsage(u"il n'y a pas de telle colonne : "_s + texteDeListe, u"search"_s);
        colonnes = PorteeDeRecherche::DeChoix(std::move(*choix));
    }

    Recherche recherche(doc.TmpFolder, doc.ColCount(), ligne.arguments[1], std::move(colonnes));
    while (recherche.Avancer(std::numeric_limits<qsizetype>::max())) {
    }
    if (recherche.Issue() != IssueDeRecherche::Trouve) {
        AfficherMsg(MessageDeRecherche(recherche.Issue()), MsgOk, QString());
        return Echec;
    }
    ResultatsDeRecherche resultats(doc);
    resultats.Prendre(recherche);
    SortieStandard sortie;
    if (ligne.A(u"json"_s))
        EcrireEnJson(resultats, sortie);
    else
        ListerEnTexte(resultats.Table, sortie);
    return FinirSortie(sortie);
}
