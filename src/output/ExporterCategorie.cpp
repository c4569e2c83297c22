#include "output/ExporterCategorie.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/DialogueFichier.h"
#include "base/Options.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/TypeFichier.h"
#include "extensions/langue/modLang.h"
#include "kit/FenetreDessous.h"
#include "kit/frmAvancement.h"
#include "output/EcrireExport.h"
#include "output/ExporteursAjoutes.h"
#include "output/frmExport.h"
#include "platform/DossierProgramme.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"
#include "platform/Retenue.h"

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

QStringList NomsPluginsExport;

namespace {

ExporteursAjoutes* s_exporteurs = nullptr;

/// The types of the dialog, by their places in its list.
enum TypeDExport { TypeQuelconque = 1, TypeAvecImages, TypeSansImages, TypeTexte, TypeCsv, TypeTabulations };

// The label of the fifth says comma, and semicolons are written. It is meant.
QList<TypeDeFichier> TypesDuProgramme()
{
    return {{u"(*.*)"_s, u"*.*"_s},
            {LangMsg(u"msgExportAvecImages"_s, u"Internet files with images"_s), u"*.htm"_s},
            {LangMsg(u"msgExportSansImages"_s, u"Internet files without images(*.htm)"_s), u"*.htm"_s},
            {LangMsg(u"msgExportTexte"_s, u"text file (*.txt)"_s), u"*.txt"_s},
            {LangMsg(u"msgExportCsv"_s, u"csv file (séparateur virgule)(*.csv)"_s), u"*.csv"_s},
            {LangMsg(u"msgExportTabulations"_s, u"text file (tabulation)"_s), u"*.txt"_s}};
}

/// What the user wants exported, and how it is shown then.
struct Choix
{
    ChoixExport quoi;
    bool voir;
};

std::optional<Choix> DemanderColonnes(const Categorie& doc)
{
    frmExport form(FenetreDessous());
    const ColumnHeaders& colonnes = doc.MyLV->ColumnHeaders;
    for (int i = 1; i <= colonnes.Count(); ++i)
        form.AjouterColonne(colonnes(i).Text(), true);
    form.exec();
    if (!form.Valide)
        return std::nullopt;
    return Choix{{form.Cochees(), form.SelectionUniquement(), form.Numeroter()}, form.VoirLeResultat()};
}

struct Cible
{
    QString chemin;
    int type;
};

/// Their names go behind each other from 1 on, with an empty one at either end; returned is what their types add to the
/// filter, each behind a bar.
QString ChercherExporteurs()
{
    QString filtre;
    for (const auto& exporteur : s_exporteurs ? s_exporteurs->Chercher() : QList<ExporteursAjoutes::Exporteur>()) {
        filtre += u'|' + exporteur.filtre;
        NomsPluginsExport.last() = exporteur.nom;
        NomsPluginsExport.append(QString());
    }
    return filtre;
}

std::optional<Cible> DemanderFichier()
{
    DemandeFichier demande;
    const QString dossier = LireOption(Options::ExportInitDir);
    demande.depart = dossier.isEmpty() ? DossierProgramme() : dossier;
    demande.types = TypesDuProgramme() + TypesDuFiltre(ChercherExporteurs().mid(1));
    demande.type = TypeAvecImages;
    const std::optional<ReponseFichier> reponse = DialogueEnregistrer(demande);
    if (!reponse || reponse->fichiers.isEmpty())
        return std::nullopt;
    const QString chemin = reponse->fichiers.first();
    EcrireOption(Options::ExportInitDir, chemin.chopped(NomDeFichier(chemin).size()));
    if (reponse->type == TypeQuelconque) {
        AfficherMsg(LangMsg(u"msg46"_s, u"Veuillez selectionner un type pour votre fichier"_s), MsgOk, QString());
        return std::nullopt;
    }
    return Cible{chemin, reponse->type};
}

/// The name of a page or a text is the user's to overwrite; a collection is too easily lost by one click in a list.
bool AccepterEcrasement(const QString& chemin)
{
    if (!EstFichier(chemin) || TypeFichier(chemin) == 0)
        return true;
    const Message question = LangMsg(u"msgExportSurCatalogue"_s,
                                     u"Ce fichier est une catégorie. L'exportation la remplacera, et tout ce qu'elle "
                                     u"contient sera perdu. Voulez-vous continuer?"_s);
    return AfficherMsg(question.ParDefaut(RepNon), MsgOuiNon, NomDeFichier(chemin)) == RepOui;
}

GenreExport GenreDuType(int type)
{
    switch (type) {
    case TypeAvecImages:
        return GenreExport::PageAvecImages;
    case TypeSansImages:
        return GenreExport::PageSansImages;
    case TypeTexte:
        return GenreExport::TexteEncadre;
    case TypeCsv:
        return GenreExport::PointsVirgules;
    default:
        return GenreExport::Tabulations;
    }
}

/// Also where nothing could be written: the viewer tells what it finds. Files with semicolons are not shown.
void Ecrire(const Categorie& doc, const Choix& choix, const Cible& cible)
{
    // Events run while it is written: what would open, close or change a document waits.
    const Retenue retenue;
    QFile fichier;
    if (CreerExport(fichier, cible.chemin)) {
        AvancementEnFenetre avancement;
        EcrireExport(doc, GenreDuType(cible.type), choix.quoi, fichier, cible.chemin, avancement);
    }
    if (choix.voir && cible.type != TypeCsv)
        plateforme().programmes->OuvrirFichier(cible.chemin);
}

} // namespace

void ExporterCategorie(Categorie& doc, bool& selectionUniquement)
{
    NomsPluginsExport = {QString(), QString()};
    const std::optional<Choix> choix = DemanderColonnes(doc);
    if (!choix)
        return;
    selectionUniquement = choix->quoi.selectionUniquement;
    const std::optional<Cible> cible = DemanderFichier();
    if (!cible || !AccepterEcrasement(cible->chemin))
        return;
    if (cible->type <= TypeTabulations)
        Ecrire(doc, *choix, *cible);
    else if (const QString nom = NomsPluginsExport.value(cible->type - TypeTabulations); !nom.isEmpty())
        s_exporteurs->Exporter(nom, doc, cible->chemin);
}

ExporteursAjoutes* InstallerExporteurs(ExporteursAjoutes* exporteurs)
{
    return std::exchange(s_exporteurs, exporteurs);
}
