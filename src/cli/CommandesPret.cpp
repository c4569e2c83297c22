#include "cli/CommandesPret.h"

#include "base/Avancement.h"
#include "base/Dates.h"
#include "base/SurUneLigne.h"
#include "catalogue/texte/Categorie.h"
#include "cli/ListeDOption.h"
#include "cli/Modification.h"
#include "columns/ColonnePrete.h"
#include "lending/Contacts.h"
#include "lending/MessagesDuPret.h"
#include "lending/Prets.h"
#include "platform/Plateforme.h"

using namespace Qt::StringLiterals;

namespace {

/// The list of entries, which both commands need; nothing, with a word, without a good one.
std::optional<ListeDeNombres> LireSelection(const LigneDeCommande& ligne, const QString& commande)
{
    std::optional<ListeDeNombres> liste;
    if (LireListe(ligne, u"select"_s, commande, liste) && !liste)
        RefuserUsage(u"il manque --select"_s, commande);
    return liste;
}

/// Loans and contacts stand in one line each.
bool TiennentSurUneLigne(const LigneDeCommande& ligne)
{
    for (const QString& option : {u"to"_s, u"email"_s, u"date"_s}) {
        if (SurUneLigne(ligne.Valeur(option)) != ligne.Valeur(option)) {
            RefuserUsage(u"--%1 ne contient pas de saut de ligne"_s.arg(option), u"lend"_s);
            return false;
        }
    }
    return true;
}

Portee PorteeDemandee(const LigneDeCommande& ligne)
{
    return ligne.A(u"dependants"_s) ? Portee::Dependantes : Portee::Selection;
}

bool AUneColonne(QrtClass& doc)
{
    if (ChercherColPrete(doc))
        return true;
    DireColonneDisparue();
    return false;
}

Statut Preter(const LigneDeCommande& ligne, QrtClass& doc)
{
    if (!AUneColonne(doc))
        return Echec;
    CreerFichierDesContacts(doc.ZelvaneIni());
    const Contact emprunteur{ligne.Valeur(u"to"_s), ligne.Valeur(u"email"_s)};
    if (emprunteur.nom.isEmpty()) {
        DireNomManquant();
        return Echec;
    }
    InscrireEmprunteur(doc.ZelvaneIni(), emprunteur);
    const QString date = ligne.Valeur(u"date"_s, DateCourte(plateforme().horloge->Maintenant().date()));
    SansAvancement avancement;
    PreterEntrees(
        doc, {emprunteur.nom, date}, PorteeDemandee(ligne), [&] { return ligne.A(u"replace"_s); }, avancement);
    return Fait;
}

Statut ExecuterLend(const LigneDeCommande& ligne)
{
    const QString commande = u"lend"_s;
    if (!ligne.A(u"to"_s))
        return RefuserUsage(u"il manque --to"_s, commande);
    const std::optional<ListeDeNombres> liste = LireSelection(ligne, commande);
    if (!liste || !TiennentSurUneLigne(ligne))
        return MauvaisUsage;
    return ModifierCatalogue(ligne, [&](Categorie& doc) {
        return SelectionnerEntrees(ligne, *liste, commande, doc) ? Preter(ligne, doc) : MauvaisUsage;
    });
}

Statut ExecuterReturn(const LigneDeCommande& ligne)
{
    const QString commande = u"return"_s;
    const std::optional<ListeDeNombres> liste = LireSelection(ligne, commande);
    if (!liste)
        return MauvaisUsage;
    return ModifierCatalogue(ligne, [&](Categorie& doc) {
        if (!SelectionnerEntrees(ligne, *liste, commande, doc))
            return MauvaisUsage;
        if (!AUneColonne(doc))
            return Echec;
        SansAvancement avancement;
        RendreEntrees(doc, PorteeDemandee(ligne), avancement);
        return Fait;
    });
}

} // namespace

QList<Commande> CommandesPret(const QList<OptionConnue>& options)
{
    const QList<OptionConnue> communes =
        QList<OptionConnue>{
            {u"select"_s, u"LISTE"_s, u"les entrées : 1,3,5-8"_s},
            {u"dependants"_s, QString(), u"et celles qui en dépendent, s'il y a une colonne dépendante"_s},
        } +
        OptionsDeModification() + options;
    const QList<OptionConnue> pret = QList<OptionConnue>{
        {u"to"_s, u"NOM"_s, u"à qui ; il rejoint la liste des contacts"_s},
        {u"email"_s, u"TEXTE"_s, u"son adresse"_s},
        {u"date"_s, u"TEXTE"_s, u"date du prêt, celle du jour par défaut"_s},
        {u"replace"_s, QString(), u"remplace les prêts qui sont déjà notés"_s},
    };
    return {
        {u"lend"_s, u"ENTREE SORTIE"_s, 2, u"note des entrées comme prêtées"_s, pret + communes, ExecuterLend},
        {u"return"_s, u"ENTREE SORTIE"_s, 2, u"note des entrées comme rendues"_s, communes, ExecuterReturn},
    };
}
