#include "catalogue/documents/Sauver.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/DialogueFichier.h"
#include "base/Options.h"
#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/FichierRecent.h"
#include "catalogue/documents/FichiersDisparus.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/EcritureQrt.h"
#include "extensions/langue/modLang.h"
#include "kit/ManqueDeMemoire.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"
#include "platform/Presence.h"

#include <QScopeGuard>

#include <utility>

using namespace Qt::StringLiterals;

bool EnCoursDeSauvegarde = false;

namespace {

/// How a step of the flow ends.
enum class Issue {
    Reussie,    ///< written: the document is unchanged from here on
    Manquee,    ///< not written; the flow ends in order
    SortieNette ///< the flow ends at once: the flag and the panel stay until a later save ends in order
};

/// Types of the dialog, 1-based.
enum TypeEnregistrement { TypeTousLesFichiers = 1, TypeArchive = 2, TypeTexte14 = 3 };

int Demander(const QString& cle, const QString& texte, const QString& titre)
{
    return AfficherMsg(LangMsg(cle, texte), MsgOuiNonAnnuler, titre);
}

void Dire(const QString& cle, const QString& texte)
{
    AfficherMsg(LangMsg(cle, texte), MsgOk, QString());
}

bool EstLectureSeule(const QString& chemin)
{
    return plateforme().attributs->EstLectureSeule(chemin);
}

Issue DireErreurDEnregistrement()
{
    Dire(u"msg62"_s, u"Erreur d'enregistrement !"_s);
    return Issue::Manquee;
}

Issue DireRienEnregistre(Issue issue)
{
    Dire(u"msg63"_s, u"Rien n'a été enregistré"_s);
    return issue;
}

/// Asks before a file is replaced that another program has written since this one saw it: what it wrote would be lost.
bool AccepterChangement(const Categorie& doc, const QString& chemin)
{
    if (!doc.FichierEstUnAutre(chemin))
        return true;
    const Message question = LangMsg(
        u"msgFichierChange"_s,
        u"Le fichier a changé depuis que la catégorie a été ouverte ou enregistrée : un autre programme l'a sans doute modifié. Voulez-vous le remplacer?"_s);
    return AfficherMsg(question.ParDefaut(RepNon), MsgOuiNon, NomDeFichier(chemin)) == RepOui;
}

/// Nothing is left that is not in the file.
void DireEnregistree(Categorie& doc)
{
    doc.ChangementsTus = false;
    if (doc.AEteEnregistree)
        doc.AEteEnregistree();
}

/// Writes the archive. One that is not whole is told: its data are in the document's folder, which is kept.
Issue EcrireArchiveEtDire(Categorie& doc)
{
    if (!RetablirDisparus(doc))
        return Issue::Manquee;
    // Events run while the archive is written: a change that comes with one is not in it, and is still to be saved.
    const bool modifie = std::exchange(doc.IlFautSauver, false);
    switch (doc.Ecrire(false)) {
    case IssueEcriture::RienTouche:
        doc.IlFautSauver = doc.IlFautSauver || modifie;
        return DireErreurDEnregistrement();
    case IssueEcriture::Incomplete:
        MsgArchiveIncomplete(doc);
        break;
    case IssueEcriture::Entiere:
        DireEnregistree(doc);
        break;
    }
    return Issue::Reussie;
}

/// Writes the bare text, once the user has agreed to lose the characters that it cannot hold.
Issue EcrireTexteEtDire(Categorie& doc)
{
    if (!AccepterPerteDeCaracteres(doc))
        return Issue::Manquee;
    if (!EcrireFichier14(doc, false))
        return DireErreurDEnregistrement();
    // Where the folder is full a search goes on to find what was there: the file is saved all the same.
    EcrireTextesDuDossier(doc);
    doc.IlFautSauver = false;
    DireEnregistree(doc);
    return Issue::Reussie;
}

// ---- Save As

/// What a question about the chosen file means for the dialog.
enum class Choix { Prendre, Recommencer, Abandonner, SortirNet };

/// Asks before an existing file is replaced, and again when it is read-only. The keys of the two questions stand
/// crossed with those of plain Save: translations follow them.
Choix AccepterFichier(const QString& fichier)
{
    if (!PeutExister(fichier))
        return Choix::Prendre;
    const int remplacer = Demander(u"msg59"_s, u"Le fichier existe deja, voulez-vous le remplacer?"_s, fichier);
    if (remplacer != RepOui)
        return remplacer == RepNon ? Choix::Recommencer : Choix::SortirNet;
    if (!EstLectureSeule(fichier))
        return Choix::Prendre;
    const int forcer =
        Demander(u"msg60"_s, u"Le fichier est en lecture seule. Continuer l'enregistrement?"_s, QString());
    if (forcer != RepOui)
        return forcer == RepNon ? Choix::Recommencer : Choix::Abandonner;
    return plateforme().attributs->MettreLectureSeule(fichier, false) ? Choix::Prendre : Choix::Abandonner;
}

/// The path that was typed; a catalogue type gives it its extension where none was typed.
QString CheminComplet(const ReponseFichier& reponse)
{
    const QString chemin = reponse.fichiers.value(0);
    const bool catalogue = reponse.type == TypeArchive || reponse.type == TypeTexte14;
    return catalogue && !NomDeFichier(chemin).contains(u'.') ? chemin + u".qrt"_s : chemin;
}

struct CibleChoisie
{
    Choix choix;
    int type = 0;
};

/// Shows the dialog until a file and a form are chosen. The document has its new path from the moment that a file was
/// accepted, also when the form is then refused.
CibleChoisie ChoisirCible(Categorie& doc)
{
    DemandeFichier demande;
    demande.titre = LangMsg(u"msg72"_s, u"Enregistrer La Categorie Sous"_s);
    demande.types = TypesDuFiltre(FiltreDesCatalogues());
    demande.type = TypeArchive;
    for (;;) {
        const QString dossier = LireOption(Options::SaveInitDir);
        const QString connu = doc.CheminConnu();
        demande.depart = dossier.isEmpty() ? connu : AjouterSlash(dossier) + NomDeFichier(connu);
        const std::optional<ReponseFichier> reponse = DialogueEnregistrer(demande);
        if (!reponse)
            return {Choix::Abandonner};
        const QString chemin = CheminComplet(*reponse);
        EcrireOption(Options::SaveInitDir, chemin.chopped(NomDeFichier(chemin).size()));
        if (reponse->type == TypeTousLesFichiers) {
            Dire(u"msg46"_s, u"Veuillez selectionner un type pour votre fichier"_s);
            continue;
        }
        const Choix choix = AccepterFichier(chemin);
        if (choix == Choix::Recommencer)
            continue;
        if (choix != Choix::Prendre)
            return {choix};
        if (chemin == connu && !AccepterChangement(doc, chemin))
            continue;
        doc.SetCheminReel(chemin);
        doc.RegarderFichier();
        // Yes goes back to the dialog and No saves, the other way round from the wording. It is meant.
        if (reponse->type == TypeTexte14 &&
            Demander(u"msg61"_s,
                     u"Le format que vous avez choisit ne permet pas de conserver les images. Donc si la catégorie que "
                     u"vous souhaitez enregistrer contient des images, elles seront perdues. Souhaitez-vous continuer "
                     u"l'enregistrement ?"_s,
                     QString()) == RepOui)
            continue;
        return {Choix::Prendre, reponse->type};
    }
}

Issue EnregistrerSous(Categorie& doc)
{
    const CibleChoisie cible = ChoisirCible(doc);
    if (cible.choix == Choix::SortirNet)
        return Issue::SortieNette;
    if (cible.choix != Choix::Prendre)
        return Issue::Manquee;
    doc.FileType = QString::number(cible.type);
    switch (cible.type) {
    case TypeArchive:
        return EcrireArchiveEtDire(doc);
    case TypeTexte14:
        return EcrireTexteEtDire(doc);
    default:
        return DireRienEnregistre(Issue::Manquee);
    }
}

// ---- Plain Save

/// Copies the file beside itself, under its whole name and ".bak". A copy that fails does not stop the save.
void CopierEnBak(Categorie& doc)
{
    if (!LireOption(Options::SauvegardeLBK))
        return;
    const bool toujours = LireOption(Options::SauvegardeLBK_1);
    if (!toujours && doc.NbSauv() != u"0")
        return;
    doc.SetNbSauv(QString::number(doc.NbSauv().toInt() + 1));
    // The backup before stays until the new one is whole. The name of the copy is short: the other one may be as long
    // as a name can be.
    const QString copie = doc.CheminReel() + u".bak"_s;
    const QString neuve = DossierDuChemin(copie) + u"/.zelvane-bak~"_s;
    SupprimerParChemin(neuve);
    if (!CopierParChemin(doc.CheminReel(), neuve) || !RenommerParChemin(neuve, copie))
        SupprimerParChemin(neuve);
}

Issue EnregistrerSurPlace(Categorie& doc)
{
    const bool archive = doc.FileType == u"2", texte = doc.FileType == u"1";
    if ((archive || texte) && !AccepterChangement(doc, doc.CheminReel()))
        return Issue::Manquee;
    CopierEnBak(doc);
    if (archive)
        return EcrireArchiveEtDire(doc);
    if (texte)
        return EcrireTexteEtDire(doc);
    return DireRienEnregistre(Issue::SortieNette);
}

/// The question about a read-only file; nothing when the user gives up or the file stays read-only, else whether to go
/// to Save As.
std::optional<bool> VerifierLectureSeule(const Categorie& doc, bool saveAs)
{
    if (!EstLectureSeule(doc.CheminReel()))
        return saveAs;
    switch (Demander(u"msg59"_s, u"Le fichier est en lecture seule. Continuer l'enregistrement?"_s, QString())) {
    case RepOui:
        return plateforme().attributs->MettreLectureSeule(doc.CheminReel(), false) ? std::optional(saveAs)
                                                                                   : std::nullopt;
    case RepNon:
        return true;
    default:
        return std::nullopt;
    }
}

Issue Ecrire(Categorie& doc, bool saveAs)
{
    if (doc.wait)
        doc.wait->Montrer(true);
    const std::optional<bool> sous = VerifierLectureSeule(doc, saveAs);
    if (!sous)
        return Issue::Manquee;
    const Issue issue = doc.CheminReel().isEmpty() || *sous ? EnregistrerSous(doc) : EnregistrerSurPlace(doc);
    if (issue == Issue::Reussie)
        AjouterRecent(doc.CheminReel());
    return issue;
}

bool Terminer(const Categorie& doc, bool resultat)
{
    EnCoursDeSauvegarde = false;
    if (doc.wait)
        doc.wait->Montrer(false);
    return resultat;
}

} // namespace

QString FiltreDesCatalogues()
{
    return u"(*.*)|*.*|Zelvane 2/1.5|*.qrt|Zelvane 1.4|*.qrt"_s;
}

bool Enregistrer(Categorie& doc, bool saveAs, bool sansQuestion)
{
    // The flag of the windows will not do here: it may stay up after a save.
    static bool enregistre = false;
    if (enregistre)
        return false;
    enregistre = true;
    const auto fini = qScopeGuard([] { enregistre = false; });

    EnCoursDeSauvegarde = true;
    if (!sansQuestion) {
        if (!doc.IlFautSauver && !saveAs)
            return Terminer(doc, true);
        const int reponse = AfficherMsg(Message(u"Voulez-vous enregistrer les changement dans cette catégorie?"_s),
                                        MsgOuiNonAnnuler, doc.filename());
        if (reponse != RepOui)
            return Terminer(doc, reponse == RepNon);
    }
    const bool modifie = doc.IlFautSauver;
    const auto finie = AvecMemoire<std::optional<Issue>>([&] { return Ecrire(doc, saveAs); }, std::nullopt);
    if (!finie)
        doc.IlFautSauver = doc.IlFautSauver || modifie; // wherever it broke off
    const Issue issue = finie.value_or(Issue::Manquee);
    if (issue == Issue::SortieNette)
        return false;
    return Terminer(doc, issue == Issue::Reussie);
}

bool PeutFermer(Categorie& doc)
{
    if (EnCoursDeSauvegarde || doc.EnEcriture)
        return false;
    // A save may leave the flag up: the window then waits for one that ends in order.
    if (doc.IlFautSauver && (!Enregistrer(doc, false, false) || EnCoursDeSauvegarde))
        return false;
    if (!doc.Forcer())
        MsgArchiveIncomplete(doc);
    return true;
}

bool PeutFermer(Cadre& cadre, FenetreDocument& fenetre)
{
    const Categorie& doc = fenetre.myqrt;
    if (doc.IlFautSauver && !EnCoursDeSauvegarde && !doc.EnEcriture)
        cadre.AmenerDevant(fenetre);
    return PeutFermer(fenetre.myqrt);
}

void EnregistrerTout(Cadre& cadre)
{
    for (FenetreDocument* fenetre : cadre.Documents()) {
        Enregistrer(fenetre->myqrt, false, true);
        cadre.MettreTitreOnglet(*fenetre, NomDeFichier(fenetre->myqrt.CheminReel()));
    }
}
