#include "entries/ModelesDeCategorie.h"

#include "catalogue/texte/LectureQrt.h"
#include "extensions/langue/modLang.h"

using namespace Qt::StringLiterals;

namespace {

/// The titles stand in one text, parted by the sign that no title can have. A translation may be anything: what cannot
/// stand in the dialog is left out.
ModeleDeCategorie Modele(const QString& nom, const QString& colonnes)
{
    QStringList titres;
    for (const QString& partie : colonnes.split(u'|')) {
        const QString titre = partie.simplified();
        if (!titre.isEmpty() && titre != TitrePrete())
            titres.append(titre);
    }
    return {nom, titres};
}

} // namespace

std::vector<ModeleDeCategorie> ModelesDeCategorie()
{
    std::vector<ModeleDeCategorie> modeles = {
        Modele(LangMsg(u"msgModeleDisques"_s, u"Disques"_s),
               LangMsg(u"msgModeleDisquesColonnes"_s, u"Artiste | Titre | Année | Label | Support | Genre"_s)),
        Modele(LangMsg(u"msgModeleLivres"_s, u"Livres"_s),
               LangMsg(u"msgModeleLivresColonnes"_s, u"Auteur | Titre | Editeur | Année | ISBN | Genre"_s)),
        Modele(LangMsg(u"msgModeleFilms"_s, u"Films"_s),
               LangMsg(u"msgModeleFilmsColonnes"_s, u"Titre | Réalisateur | Acteurs | Année | Durée | Support"_s)),
        Modele(
            LangMsg(u"msgModeleBD"_s, u"Bandes dessinées"_s),
            LangMsg(u"msgModeleBDColonnes"_s, u"Série | Tome | Titre | Dessinateur | Scénariste | Editeur | Année"_s)),
        Modele(LangMsg(u"msgModeleTimbres"_s, u"Timbres"_s),
               LangMsg(u"msgModeleTimbresColonnes"_s,
                       u"Pays | Année | Sujet | Valeur faciale | Numéro de catalogue | Etat"_s)),
        Modele(LangMsg(u"msgModeleVins"_s, u"Vins"_s),
               LangMsg(u"msgModeleVinsColonnes"_s,
                       u"Domaine | Appellation | Millésime | Couleur | Bouteilles | A boire avant"_s)),
    };
    std::erase_if(modeles, [](const ModeleDeCategorie& modele) { return modele.colonnes.isEmpty(); });
    return modeles;
}
