#include "cli/CommandePaste.h"

#include "base/AfficherMsg.h"
#include "base/Avancement.h"
#include "catalogue/archive/FichierDuDossier.h"
#include "catalogue/texte/Categorie.h"
#include "cli/ListeDeNombres.h"
#include "cli/Modification.h"
#include "entries/AjouterEchange.h"
#include "entries/CopierImages.h"
#include "entries/Echange.h"
#include "entries/OperationsEntrees.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

QString NomDeCommande()
{
    return u"paste"_s;
}

/// An image of the category stays as it is, and the new one is not kept.
class NiLUnNiLAutre : public QuestionsDImage
{
public:
    bool Remplacer(const QString&, const QString&) override { return false; }
    bool Renommer() override { return false; }
};

struct Demande
{
    std::vector<int> sources; ///< by row, from the first: the number of a source, 0 for none
    int copies = 1;
};

std::optional<std::vector<int>> LireSources(const LigneDeCommande& ligne)
{
    std::vector<int> sources;
    if (!ligne.A(u"map"_s))
        return sources;
    const QStringList parties = ligne.Valeur(u"map"_s).split(u',');
    sources.reserve(static_cast<size_t>(parties.size()));
    for (const QString& partie : parties) {
        const std::optional<int> numero = LireNombre(partie);
        if (!numero)
            return std::nullopt;
        sources.push_back(*numero);
    }
    return sources;
}

/// Nothing, with a word, where an option is not what it should be.
std::optional<Demande> LireDemande(const LigneDeCommande& ligne)
{
    const std::optional<std::vector<int>> sources = LireSources(ligne);
    if (!sources) {
        RefuserUsage(u"ce n'est pas une liste de colonnes : "_s + ligne.Valeur(u"map"_s), NomDeCommande());
        return std::nullopt;
    }
    const std::optional<int> copies = LireNombre(ligne.Valeur(u"copies"_s, u"1"_s));
    if (!copies || *copies < 1 || *copies > std::numeric_limits<int16_t>::max()) {
        RefuserUsage(u"ce n'est pas un nombre de copies : "_s + ligne.Valeur(u"copies"_s), NomDeCommande());
        return std::nullopt;
    }
    return Demande{*sources, *copies};
}

/// The rows as the dialog shows them, with those that were named led elsewhere. Nothing, with a word, when one names
/// what is not there.
std::optional<Correspondance> Mener(const Correspondance& depart, const std::vector<int>& sources, qsizetype titres)
{
    const bool trop = static_cast<qsizetype>(sources.size()) > depart.Rangs();
    const auto inconnue = std::ranges::find_if(sources, [titres](int source) { return source > titres; });
    if (trop || inconnue != sources.end()) {
        RefuserUsage(trop ? u"--map a plus de rangs qu'il n'y a de colonnes"_s
                          : u"il n'y a pas de telle colonne de départ : %1"_s.arg(*inconnue),
                     NomDeCommande());
        return std::nullopt;
    }
    Correspondance rangs = depart;
    for (size_t i = 0; i < sources.size(); ++i)
        rangs.departs[static_cast<qsizetype>(i)] = sources[i] > 0 ? depart.departs[sources[i] - 1] : QString();
    return rangs;
}

Statut Coller(Categorie& doc, const EchangeLu& echange, const Demande& demande)
{
    if (!echange.EstEchange())
        return Echec;
    const QStringList titres = echange.Titres();
    MyLV& table = *doc.MyLV;
    const auto rangs = Mener(Correspondre(titres, TitresDe(table)), demande.sources, titres.size());
    if (!rangs)
        return MauvaisUsage;
    if (!PeutTenir(table, echange, demande.copies))
        return Echec;
    ToutDeselectionner(table);
    SansAvancement sans;
    const auto images = AjouterEchange(table, echange, *rangs, {Arrivee::Collees, demande.copies}, sans);
    NiLUnNiLAutre questions;
    DireImagesNonCopiees(CopierImages(images.value_or(QStringList()), echange.Dossier(), doc.TmpFolder, questions));
    return Fait;
}

Statut ExecuterPaste(const LigneDeCommande& ligne)
{
    const std::optional<Demande> demande = LireDemande(ligne);
    if (!demande)
        return MauvaisUsage;
    const QString& chemin = ligne.arguments[2];
    const std::optional<QByteArray> texte = LireFichier(chemin);
    if (!texte) {
        AfficherMsg(Message(u"Le fichier ne peut pas être lu : "_s + NomLisible(chemin)), MsgOk, QString());
        return Echec;
    }
    const EchangeLu echange(QString::fromUtf8(*texte));
    return ModifierCatalogue(ligne, [&](Categorie& doc) { return Coller(doc, echange, *demande); });
}

} // namespace

Commande CommandePaste(const QList<OptionConnue>& options)
{
    const QList<OptionConnue> propres{
        {u"map"_s, u"LISTE"_s, u"la colonne de départ de chaque colonne, 0 pour aucune : 2,0,1"_s},
        {u"copies"_s, u"N"_s, u"nombre d'exemplaires de chaque entrée, 1 par défaut"_s},
    };
    return {NomDeCommande(),
            u"ENTREE SORTIE TEXTE"_s,
            3,
            u"ajoute les entrées d'un texte copié"_s,
            propres + OptionsDeModification() + options,
            ExecuterPaste};
}
