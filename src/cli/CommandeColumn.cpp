#include "cli/CommandeColumn.h"

#include "base/Avancement.h"
#include "base/SurUneLigne.h"
#include "catalogue/texte/Categorie.h"
#include "cli/ListeDeNombres.h"
#include "cli/Modification.h"
#include "columns/EditerColonnes.h"
#include "columns/FusionnerColonnes.h"
#include "columns/SeparerColonne.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// What stands behind IN and OUT: the number of a column, 0 only where `zero` says so.
std::optional<int> LireColonne(const LigneDeCommande& ligne, int argument, const QString& commande, bool zero = false)
{
    const std::optional<int> numero = LireNombre(ligne.arguments[argument]);
    if (numero && (zero || *numero > 0))
        return numero;
    RefuserUsage(u"ce n'est pas un numéro de colonne : "_s + ligne.arguments[argument], commande);
    return std::nullopt;
}

bool ColonneExiste(const QrtClass& doc, int numero, const QString& commande)
{
    if (doc.MyLV->ColumnHeaders.Existe(numero))
        return true;
    RefuserUsage(u"il n'y a pas de telle colonne : %1"_s.arg(numero), commande);
    return false;
}

/// A title stands in one line of the file, and "|" ends it there.
bool TitrePossible(const QString& titre, const QString& commande)
{
    if (SurUneLigne(titre) == titre && !titre.contains(u'|'))
        return true;
    RefuserUsage(u"un titre ne contient ni « | » ni saut de ligne"_s, commande);
    return false;
}

Statut StatutDe(bool fait)
{
    return fait ? Fait : Echec;
}

Statut ExecuterAdd(const LigneDeCommande& ligne)
{
    const QString& titre = ligne.arguments[2];
    if (!TitrePossible(titre, u"column add"_s))
        return MauvaisUsage;
    return ModifierCatalogue(ligne, [&](Categorie& doc) { return StatutDe(AjouterColonne(doc, titre)); });
}

/// Changes column N, which stands behind IN and OUT.
Statut ModifierColonne(const LigneDeCommande& ligne, const QString& commande,
                       const std::function<Statut(Categorie&, int)>& changer)
{
    const std::optional<int> numero = LireColonne(ligne, 2, commande);
    if (!numero)
        return MauvaisUsage;
    return ModifierCatalogue(ligne, [&](Categorie& doc) {
        return ColonneExiste(doc, *numero, commande) ? changer(doc, *numero) : MauvaisUsage;
    });
}

Statut ExecuterDelete(const LigneDeCommande& ligne)
{
    return ModifierColonne(ligne, u"column delete"_s, [](Categorie& doc, int numero) {
        const ChoixDeColonne choix = ChoixDeColonne::Numero(doc, numero);
        if (!PeutSupprimer(doc, choix))
            return Echec;
        SansAvancement avancement;
        SupprimerColonne(doc, choix.position, avancement);
        return Fait;
    });
}

Statut ExecuterRename(const LigneDeCommande& ligne)
{
    const QString commande = u"column rename"_s;
    const QString& titre = ligne.arguments[3];
    if (!TitrePossible(titre, commande))
        return MauvaisUsage;
    return ModifierColonne(ligne, commande, [&](Categorie& doc, int numero) {
        return StatutDe(RenommerColonne(doc, ChoixDeColonne::Numero(doc, numero), titre, QString()));
    });
}

Statut ExecuterMove(const LigneDeCommande& ligne)
{
    const QString commande = u"column move"_s;
    const QString& mot = ligne.arguments[3];
    if (mot != u"left" && mot != u"right")
        return RefuserUsage(u"ce n'est ni « left » ni « right » : "_s + mot, commande);
    const Sens sens = mot == u"left" ? Sens::Gauche : Sens::Droite;
    return ModifierColonne(ligne, commande, [sens](Categorie& doc, int numero) {
        SansAvancement avancement;
        DeplacerColonne(doc, numero - 1, sens, LigneDependante(doc), avancement);
        return Fait; // also where there is no place to go to
    });
}

Statut ExecuterDependant(const LigneDeCommande& ligne)
{
    const QString commande = u"column dependant"_s;
    const std::optional<int> numero = LireColonne(ligne, 2, commande, true);
    if (!numero)
        return MauvaisUsage;
    return ModifierCatalogue(ligne, [&](Categorie& doc) {
        if (*numero != 0 && !ColonneExiste(doc, *numero, commande))
            return MauvaisUsage;
        ChoisirDependante(doc, *numero);
        return Fait;
    });
}

Statut ExecuterMerge(const LigneDeCommande& ligne)
{
    const QString commande = u"column merge"_s;
    const std::optional<int> seconde = LireColonne(ligne, 3, commande);
    if (!seconde)
        return MauvaisUsage;
    const QString& separateur = ligne.arguments[4];
    if (SurUneLigne(separateur) != separateur)
        return RefuserUsage(u"le séparateur ne contient pas de saut de ligne"_s, commande);
    return ModifierColonne(ligne, commande, [&](Categorie& doc, int premiere) {
        if (!ColonneExiste(doc, *seconde, commande))
            return MauvaisUsage;
        const FusionDeColonnes fusion{ChoixDeColonne::Numero(doc, premiere), ChoixDeColonne::Numero(doc, *seconde),
                                      separateur};
        if (!PeutFusionner(doc, fusion))
            return Echec;
        SansAvancement avancement;
        Fusionner(doc, fusion, avancement);
        return Fait;
    });
}

Statut ExecuterSplit(const LigneDeCommande& ligne)
{
    const QString commande = u"column split"_s;
    const QString& titre = ligne.arguments[3];
    const QString& separateur = ligne.arguments[4];
    if (!TitrePossible(titre, commande))
        return MauvaisUsage;
    return ModifierColonne(ligne, commande, [&](Categorie& doc, int numero) {
        const ChoixDeColonne source = ChoixDeColonne::Numero(doc, numero);
        if (!PeutSeparer(doc, source, titre) || !SeparateurDonne(separateur))
            return Echec;
        SansAvancement avancement;
        Separer(doc, source.position, titre, separateur, avancement);
        return Fait;
    });
}

Statut ExecuterDuplicate(const LigneDeCommande& ligne)
{
    const QString commande = u"column duplicate"_s;
    const QString& titre = ligne.arguments[3];
    if (!TitrePossible(titre, commande))
        return MauvaisUsage;
    return ModifierColonne(ligne, commande, [&](Categorie& doc, int numero) {
        const ChoixDeColonne source = ChoixDeColonne::Numero(doc, numero);
        if (!PeutSeparer(doc, source, titre))
            return Echec;
        SansAvancement avancement;
        Dupliquer(doc, source.position, titre, avancement);
        return Fait;
    });
}

} // namespace

QList<Commande> CommandesColumn(const QList<OptionConnue>& options)
{
    const QList<OptionConnue> toutes = OptionsDeModification() + options;
    return {
        {u"column add"_s, u"ENTREE SORTIE TITRE"_s, 3, u"ajoute une colonne à la fin"_s, toutes, ExecuterAdd},
        {u"column delete"_s, u"ENTREE SORTIE N"_s, 3, u"supprime la colonne N et ses valeurs"_s, toutes,
         ExecuterDelete},
        {u"column rename"_s, u"ENTREE SORTIE N TITRE"_s, 4, u"donne à la colonne N un autre titre"_s, toutes,
         ExecuterRename},
        {u"column move"_s, u"ENTREE SORTIE N left|right"_s, 4,
         u"déplace la colonne N d'une place vers la gauche ou la droite"_s, toutes, ExecuterMove},
        {u"column dependant"_s, u"ENTREE SORTIE N"_s, 3,
         u"fait de la colonne N la colonne dépendante ; 0 : il n'y en a pas"_s, toutes, ExecuterDependant},
        {u"column merge"_s, u"ENTREE SORTIE N M SEPARATEUR"_s, 5,
         u"joint les valeurs de la colonne M à celles de la colonne N ; M disparaît"_s, toutes, ExecuterMerge},
        {u"column split"_s, u"ENTREE SORTIE N TITRE SEPARATEUR"_s, 5,
         u"met ce qui suit le premier séparateur dans une nouvelle colonne, à droite de N"_s, toutes, ExecuterSplit},
        {u"column duplicate"_s, u"ENTREE SORTIE N TITRE"_s, 4,
         u"copie la colonne N dans une nouvelle colonne, à sa droite"_s, toutes, ExecuterDuplicate},
    };
}
