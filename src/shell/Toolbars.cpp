#include "shell/Toolbars.h"

#include "base/AfficherMsg.h"
#include "shell/Commandes.h"
#include "shell/MDIForm1.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int PlaceDEditcat = 4;
constexpr int PlaceDAide = 15;

constexpr std::array<BoutonDeBarre, 16> Petits{{
    {u"addentree", u"Ajouter une entree (Ctrl+E)", u"addentree"},
    {u"editentree", u"Editer une entrée (Entree)", u"editentree"},
    {u"delentree", u"Supprimer Entrée (Suppr)", u"delentree"},
    {u"addcat", u"Nouvelle Catégorie (Ctrl+N)", u"addcat"},
    {u"editcat", u"Editer catégorie (Ctrl+M)", u"editcat"},
    {u"ouvrir", u"ouvrir une catégorie", u"open"},
    {u"save", u"Enregistrer la catégorie", u"save"},
    {u"print", u"Imprimer", u"print"},
    {u"preter", u"Marquer comme Prete", u"prete"},
    {u"rendu", u"Marquer comme Rendu", u"rendu"},
    {u"rechercher", u"Rechercher", u"rechercher"},
    {u"grille", u"Afficher/Cacher la grille", u"grille"},
    {u"image", u"Afficher/Cacher les images", u"image"},
    // Its blank is meant: the button ends in "Rien", and callers that mean the comments pass the key without it.
    {u"commentaire ", u"Afficher/Cacher les commentaires", u"showtexte"},
    {u"apropos", u"Boite de dialogue A porpos", u"apropos"},
    {u"aide", u"Afficher l'aide", u"aide"},
}};

constexpr std::array<BoutonDeBarre, 16> FaireGrands()
{
    auto grands = Petits;
    grands[PlaceDEditcat].infoBulle = u"Editer catégorie";
    grands[PlaceDAide].image = u"help";
    return grands;
}

constexpr std::array<BoutonDeBarre, 16> Grands = FaireGrands();

bool EstDesBarres(QStringView cle)
{
    return cle == u"commentaire" ||
           std::ranges::any_of(Petits, [cle](const BoutonDeBarre& bouton) { return QStringView(bouton.cle) == cle; });
}

} // namespace

void Commande(MDIForm1& cadre, const QString& cle)
{
    const LieuDeCommande lieu = cadre.Lieu();
    if (EstDesBarres(cle))
        Executer(cle, lieu);
    else if (lieu.document)
        AfficherMsg(u"Rien"_s, MsgOk, QString());
}

std::span<const BoutonDeBarre> BoutonsDeToolbar1()
{
    return Petits;
}

std::span<const BoutonDeBarre> BoutonsDeToolbar2()
{
    return Grands;
}
