#include "cli/Commandes.h"

#include "base/AfficherMsg.h"
#include "base/Nombres.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/documents/ChargerCatalogue.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/TypeFichier.h"
#include "cli/Catalogue.h"
#include "cli/CommandeColumn.h"
#include "cli/CommandeCompare.h"
#include "cli/CommandeExport.h"
#include "cli/CommandePaste.h"
#include "cli/CommandeSearch.h"
#include "cli/CommandeStats.h"
#include "cli/CommandesPret.h"
#include "cli/Console.h"
#include "cli/Json.h"
#include "cli/Lister.h"
#include "cli/Sortie.h"
#include "extensions/langue/modLang.h"
#include "platform/Presence.h"

using namespace Qt::StringLiterals;

namespace {

// ---- type

Statut ExecuterType(const LigneDeCommande& ligne)
{
    const QString& chemin = ligne.arguments[0];
    if (!PeutExister(chemin)) {
        MsgFichierAbsent();
        return Echec;
    }
    SortieStandard sortie;
    sortie.Ecrire(QByteArray::number(TypeFichier(chemin)) + '\n');
    return FinirSortie(sortie);
}

// ---- list

void EcrireColonne(Json& json, const ColumnHeader& colonne)
{
    json.Debut('{').Cle("title").Texte(colonne.Text());
    json.Cle("width").NombreTel(SimpleVersTexte(colonne.Width()).replace(u',', u'.').toLatin1());
    json.Cle("icon").Texte(colonne.Icon()).Cle("texts").Texte(colonne.Tag()).Fin('}');
}

/// Nothing, with a message, when the archive can be read no more.
std::optional<QString> CommentaireDArchive(const CatalogueOuvert& catalogue)
{
    if (catalogue.type != Archive)
        return QString();
    ccZip zip;
    zip.Init(catalogue.doc.CheminReel());
    if (zip.count() > 0)
        return zip.Comm;
    AfficherMsg(LangMsg(u"msg51"_s, u"Erreur lors de l'ouverture du fichier. Opération annulée"_s), MsgOk, QString());
    return std::nullopt;
}

void ListerEnJson(const CatalogueOuvert& catalogue, const QString& commentaire, SortieStandard& sortie)
{
    const MyLV& table = catalogue.doc.Table;
    Json json;
    json.Debut('{').Cle("file").Texte(catalogue.doc.CheminReel()).Cle("type").Nombre(catalogue.type);
    json.Cle("comment").Texte(commentaire).Cle("gridLines").Booleen(table.GridLines());
    json.Cle("sorted").Booleen(table.Sorted()).Cle("sortKey").Nombre(table.SortKey());
    json.Cle("sortOrder").Nombre(table.SortOrder()).Cle("dependantColumn").Nombre(catalogue.doc.dependantcol);
    json.Cle("loanColumn").Nombre(catalogue.doc.IndexColPrete);
    json.Cle("modified").Booleen(catalogue.doc.IlFautSauver).Cle("columns").Debut('[');
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
        EcrireColonne(json, table.ColumnHeaders(i));
    json.Fin(']').Cle("entries").Debut('[');
    QByteArray tampon;
    for (int i = 1; i <= table.ListItems.Count() && sortie.EstOuverte(); ++i) {
        EcrireEntree(json, table, i, tampon);
        json.Fin('}');
        if (json.Taille() >= TailleMorceau)
            sortie.Ecrire(json.Prendre());
    }
    json.Fin(']').Fin('}');
    sortie.Ecrire(json.Prendre() + '\n');
}

Statut ExecuterList(const LigneDeCommande& ligne)
{
    const auto catalogue = CatalogueOuvert::Ouvrir(ligne.arguments[0]);
    if (!catalogue)
        return Echec;
    const bool json = ligne.A(u"json"_s);
    const std::optional<QString> commentaire = json ? CommentaireDArchive(*catalogue) : QString();
    if (!commentaire)
        return Echec;
    SortieStandard sortie;
    if (json)
        ListerEnJson(*catalogue, *commentaire, sortie);
    else
        ListerEnTexte(catalogue->doc.Table, sortie);
    return FinirSortie(sortie);
}

// ---- convert

Statut ExecuterConvert(const LigneDeCommande& ligne)
{
    const QString& sortie = ligne.arguments[1];
    if (!SortieLibre(ligne, sortie))
        return Echec;
    const auto catalogue = CatalogueOuvert::Ouvrir(ligne.arguments[0]);
    return catalogue ? EcrireSortie(ligne, catalogue->doc, sortie, FormeDemandee(ligne, Archive)) : Echec;
}

} // namespace

Statut RefuserUsage(const QString& erreur, const QString& commande)
{
    const QString aide = commande.isEmpty() ? u"zelvane-cli --help"_s : u"zelvane-cli %1 --help"_s.arg(commande);
    DireErreur(u"zelvane-cli : %1 (voir %2)"_s.arg(erreur, aide));
    return MauvaisUsage;
}

Statut FinirSortie(SortieStandard& sortie)
{
    if (sortie.Finir() != SortieStandard::Etat::Cassee)
        return Fait;
    DireErreur(u"La sortie standard n'accepte plus rien."_s);
    return Echec;
}

const QList<Commande>& LesCommandes()
{
    static const OptionConnue motDePasse{u"password-file"_s, u"FICHIER"_s,
                                         u"fichier dont la première ligne est le mot de passe"_s};
    static const QList<Commande> commandes =
        QList<Commande>{
            {u"type"_s,
             u"FICHIER"_s,
             1,
             u"affiche 0 (pas une catégorie), 1 (texte 1.4) ou 2 (archive)"_s,
             {},
             ExecuterType},
            {u"list"_s,
             u"FICHIER"_s,
             1,
             u"affiche les colonnes et les entrées"_s,
             {{u"json"_s, QString(), u"en JSON, sur une ligne"_s}, motDePasse},
             ExecuterList},
            {u"convert"_s, u"ENTREE SORTIE"_s, 2, u"enregistre la catégorie dans l'autre format"_s,
             OptionsDeSortie(u"2"_s) + QList{motDePasse}, ExecuterConvert},
            {u"search"_s,
             u"FICHIER TEXTE"_s,
             2,
             u"affiche les entrées qui contiennent un texte"_s,
             {{u"columns"_s, u"LISTE"_s, u"cherche dans ces colonnes seulement : 1,3,5-8"_s},
              {u"json"_s, QString(), u"en JSON, sur une ligne"_s},
              motDePasse},
             ExecuterSearch},
            {u"compare"_s,
             u"FICHIER1 FICHIER2"_s,
             2,
             u"affiche les entrées qui manquent à l'une des deux catégories"_s,
             {{u"columns"_s, u"N,M"_s,
               u"compare la colonne N de la première et la colonne M de la seconde, 1,1 par défaut"_s},
              {u"json"_s, QString(), u"en JSON, sur une ligne"_s},
              motDePasse},
             ExecuterCompare},
            {u"export"_s,
             u"FICHIER SORTIE"_s,
             2,
             u"écrit une page, un texte encadré ou un tableau ; une sortie qui existe est remplacée"_s,
             {{u"as"_s, GenresExport().join(u'|'),
               u"page avec images ou sans, texte encadré, points-virgules, tabulations"_s, GenresExport()},
              {u"columns"_s, u"LISTE"_s, u"coche ces colonnes seulement : 1,3,5-8"_s},
              {u"select"_s, u"LISTE"_s, u"exporte ces entrées seulement : 1,3,5-8"_s},
              {u"number"_s, QString(), u"numérote les entrées"_s},
              motDePasse},
             ExecuterExport},
            {u"stats"_s,
             u"FICHIER"_s,
             1,
             u"affiche ce qui est prêté, à qui et depuis quand"_s,
             {motDePasse},
             ExecuterStats},
        } +
        CommandesColumn({motDePasse}) + CommandesPret({motDePasse}) + QList<Commande>{CommandePaste({motDePasse})};
    return commandes;
}
