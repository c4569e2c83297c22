#include "cli/CommandeCompare.h"

#include "base/AfficherMsg.h"
#include "cli/Catalogue.h"
#include "cli/Console.h"
#include "cli/Json.h"
#include "cli/Lister.h"
#include "search/Comparaison.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// "2,1": a column of the first category and one of the second, from 1. Nothing when the text is no such pair.
std::optional<std::pair<int, int>> LirePaire(const QString& texte)
{
    const QStringList parties = texte.split(u',');
    const auto lire = [](const QString& partie) {
        const bool chiffres = std::all_of(partie.begin(), partie.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
        return chiffres ? partie.toInt() : 0; // too large a number is none either
    };
    if (parties.size() != 2)
        return std::nullopt;
    const std::pair paire(lire(parties[0]), lire(parties[1]));
    return paire.first > 0 && paire.second > 0 ? std::optional(paire) : std::nullopt;
}

struct Resultats
{
    MyLV seulesDeA;
    MyLV seulesDeB;
    QString verdict;
    QString titre;
};

void Ecrire(const MyLV& seules, const char* signe, SortieStandard& sortie)
{
    const int colonnes = seules.ColumnHeaders.Count();
    QByteArray lignes;
    for (int i = 1; i <= seules.ListItems.Count() && sortie.EstOuverte(); ++i) {
        const stockage::EntreeStockee vue = seules.StockageDe(i);
        lignes.append(signe);
        for (int colonne = 0; colonne < colonnes; ++colonne) {
            lignes.append(colonne == 0 ? ' ' : '\t');
            vue.Champ(colonne).AjouterEnUtf8(lignes);
        }
        lignes.append('\n');
        if (lignes.size() >= TailleMorceau || i == seules.ListItems.Count()) {
            sortie.Ecrire(lignes);
            lignes.resize(0);
        }
    }
}

void EcrireEnTexte(const Resultats& resultats, SortieStandard& sortie)
{
    Ecrire(resultats.seulesDeA, "<", sortie);
    Ecrire(resultats.seulesDeB, ">", sortie);
    if (!resultats.verdict.isEmpty())
        sortie.Ecrire(resultats.verdict.toUtf8() + '\n');
}

void EcrireListe(Json& json, const MyLV& seules, SortieStandard& sortie)
{
    const int colonnes = seules.ColumnHeaders.Count();
    json.Debut('[');
    QByteArray tampon;
    for (int i = 1; i <= seules.ListItems.Count() && sortie.EstOuverte(); ++i) {
        const stockage::EntreeStockee vue = seules.StockageDe(i);
        json.Debut('[');
        for (int colonne = 0; colonne < colonnes; ++colonne) {
            tampon.resize(0);
            vue.Champ(colonne).AjouterEnUtf8(tampon);
            json.TexteUtf8(tampon);
        }
        json.Fin(']');
        if (json.Taille() >= TailleMorceau)
            sortie.Ecrire(json.Prendre());
    }
    json.Fin(']');
}

void EcrireEnJson(const Resultats& resultats, SortieStandard& sortie)
{
    Json json;
    json.Debut('{').Cle("onlyInFirst");
    EcrireListe(json, resultats.seulesDeA, sortie);
    json.Cle("onlyInSecond");
    EcrireListe(json, resultats.seulesDeB, sortie);
    json.Cle("caption").Texte(resultats.titre).Cle("verdict").Texte(resultats.verdict).Fin('}');
    sortie.Ecrire(json.Prendre() + '\n');
}

void Comparer(MyLV& a, MyLV& b, std::pair<int, int> colonnes, Resultats& resultats)
{
    CopierColonnes(resultats.seulesDeA, a);
    CopierColonnes(resultats.seulesDeB, b);
    Comparaison comparaison(a, colonnes.first - 1, b, colonnes.second - 1);
    while (comparaison.Avancer(std::numeric_limits<int>::max()) != Comparaison::Etape::Finie) {
    }
    comparaison.Remplir(resultats.seulesDeA, resultats.seulesDeB);
}

} // namespace

Statut ExecuterCompare(const LigneDeCommande& ligne)
{
    const QString texteDePaire = ligne.Valeur(u"columns"_s, u"1,1"_s);
    const auto colonnes = LirePaire(texteDePaire);
    if (!colonnes)
        return RefuserUsage(u"ce n'est pas une paire de colonnes : "_s + texteDePaire, u"compare"_s);
    const auto a = CatalogueOuvert::Ouvrir(ligne.arguments[0]);
    if (!a)
        return Echec;
    const auto b = CatalogueOuvert::Ouvrir(ligne.arguments[1]);
    if (!b)
        return Echec;
    if (colonnes->first > a->doc.ColCount() || colonnes->second > b->doc.ColCount())
        return RefuserUsage(u"il n'y a pas de telle colonne : "_s + texteDePaire, u"compare"_s);
    if (const Message refus = RefusDeComparer(a->doc.Table, b->doc.Table); !refus.texte.isEmpty()) {
        AfficherMsg(refus, MsgOk, QString());
        return Echec;
    }

    Resultats resultats;
    Comparer(a->doc.Table, b->doc.Table, *colonnes, resultats);
    const int deA = resultats.seulesDeA.ListItems.Count();
    const int deB = resultats.seulesDeB.ListItems.Count();
    resultats.verdict = Verdict(deA, deB, ligne.arguments[0], ligne.arguments[1]);
    resultats.titre = TitreDesResultats(deA, deB);
    SortieStandard sortie;
    if (ligne.A(u"json"_s))
        EcrireEnJson(resultats, sortie);
    else
        EcrireEnTexte(resultats, sortie);
    return FinirSortie(sortie);
}
