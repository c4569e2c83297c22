#include "output/modImprimerLV.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/DialogueFichier.h"
#include "base/Options.h"
#include "catalogue/table/MyLV.h"
#include "extensions/langue/modLang.h"
#include "kit/FenetreDessous.h"
#include "kit/frmAvancement.h"
#include "output/MiseEnPages.h"
#include "output/PeindrePages.h"
#include "output/PoliceSurPapier.h"
#include "output/TravailEnPdf.h"
#include "output/frmApercu.h"
#include "output/frmPrint.h"
#include "output/frmPrintOptions.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"
#include "platform/Retenue.h"
#include "vue/PoliceDeTable.h"

#include <QDir>
#include <QPainter>

#include <cmath>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int RangeesParPas = 64;

/// Without a yes to either the picture is cleared; the program's own stands for one that is missing, and is shown where
/// it was chosen and is not printed. It is meant.
void MontrerImage(frmPrint& form, const OptionsDImpression& options)
{
    QImage image = ImageDEnteteParDefaut();
    if (options.AffImg() == 0 && options.ImgDefaut() == 0) {
        image = QImage();
    } else if (options.AffImg() == 1 && options.ImgDefaut() == 0) {
        const QImage duDossier = ImageDEntete(options);
        if (!duDossier.isNull())
            image = duDossier;
    }
    form.MontrerImage(image);
}

/// The columns have on the sheet the part of its width that they have of the list's.
void MontrerColonnes(frmPrint& form, const MyLV& table, const OptionsDImpression& options)
{
    double largeur = table.Width();
    const int nombre = table.ColumnHeaders.Count();
    for (int i = 1; i <= nombre && table.Width() <= 0; ++i)
        largeur += table.ColumnHeaders(i).Width();
    const double rapport = largeur > 0 ? Feuille().largeurDeLV1 / largeur : 0;
    std::vector<Feuille::Colonne> colonnes;
    std::vector<double> largeurs;
    colonnes.reserve(static_cast<size_t>(nombre));
    largeurs.reserve(static_cast<size_t>(nombre));
    for (int i = 1; i <= nombre; ++i)
        largeurs.push_back(table.ColumnHeaders(i).Width() * rapport);
    largeurs = options.Largeurs(std::move(largeurs));
    for (int i = 1; i <= nombre; ++i)
        colonnes.push_back({table.ColumnHeaders(i).Text(), largeurs[static_cast<size_t>(i - 1)]});
    form.MontrerColonnes(colonnes);
    form.MontrerRangees(table.ListItems.Count());
}

/// The sheet as it goes to paper: with the count of all entries, also where only the selection is printed.
Feuille PourLePapier(const frmPrint& form, const MyLV& table)
{
    Feuille feuille = form.Disposition();
    feuille.NomCat.texte = TexteDEntete(form.TexteEntete, form.TitreImpression,
                                        QString::number(table.ListItems.Count()), form.NomCategorie);
    feuille.iconeMontree = OptionsDImpression(form.DossierImpression).AffImg() == 1 && !form.Image().isNull();
    return feuille;
}

/// Nothing when the user gives it up.
std::optional<PagesComposees> Composer(const frmPrint& form, const MyLV& table)
{
    const Retenue retenue;
    AvancementEnFenetre avancement(AvancementEnFenetre::DelaiUsuel, Abandon::Permis);
    MesureSurPapier mesure;
    MiseEnPages mise(table, PourLePapier(form, table), PoliceDeTable().family(), form.SelectionSeule(), mesure);
    while (mise.Avancer(RangeesParPas)) {
        avancement.Signaler(mise.Fait(), table.ListItems.Count());
        if (avancement.EstAbandonne())
            return std::nullopt;
    }
    return std::move(mise.Pages);
}

void MontrerPages(frmPrint& form, const MyLV& table)
{
    const std::optional<PagesComposees> pages = Composer(form, table);
    if (pages)
        frmApercu(*pages, form.Image(), &form).exec();
}

/// Where the pages go that no printer gets; empty for nowhere.
QString DemanderFichierPdf(const QString& titre)
{
    DemandeFichier demande;
    QString nom = NomLisible(titre);
    nom.remove(u".qrt"_s, Qt::CaseInsensitive).replace(u'/', u'-').replace(u'\\', u'-');
    const QString dossier = LireOption(Options::ExportInitDir);
    demande.depart = AjouterSlash(dossier.isEmpty() ? QDir::homePath() : dossier) + nom + u".pdf"_s;
    demande.types = TypesDuFiltre(u"PDF (*.pdf)|*.pdf"_s);
    const std::optional<ReponseFichier> reponse = DialogueEnregistrer(demande);
    if (!reponse || reponse->fichiers.isEmpty())
        return {};
    QString chemin = reponse->fichiers.first();
    if (!NomDeFichier(chemin).contains(u'.'))
        chemin += u".pdf";
    EcrireOption(Options::ExportInitDir, chemin.chopped(NomDeFichier(chemin).size()));
    if (EstFichier(chemin) &&
        AfficherMsg(LangMsg(u"msg59"_s, u"Le fichier existe deja, voulez-vous le remplacer?"_s).ParDefaut(RepNon),
                    MsgOuiNon, NomDeFichier(chemin)) != RepOui)
        return {};
    return chemin;
}

/// False when a page could not be had.
bool Peindre(const PeintreDePages& pages, TravailDImpression& travail)
{
    const Retenue retenue;
    AvancementEnFenetre avancement;
    QPainter peintre;
    if (!peintre.begin(&travail.Papier()))
        return false;
    for (size_t i = 0; i < pages.Nombre(); ++i) {
        if (i > 0 && !travail.NouvellePage())
            return false;
        pages.Peindre(peintre, i);
        avancement.Signaler(static_cast<int>(i) + 1, static_cast<int>(pages.Nombre()));
    }
    return peintre.end();
}

void Envoyer(const frmPrint& form, const PagesComposees& pages)
{
    std::unique_ptr<TravailDImpression> travail;
    if (form.VersUnFichier()) {
        const QString chemin = DemanderFichierPdf(form.NomCategorie);
        if (chemin.isEmpty())
            return;
        travail = TravailEnPdf::Commencer(chemin, form.NomCategorie);
    } else {
        travail = plateforme().imprimantes->Commencer(form.Imprimante(), form.NomCategorie);
    }
    if (travail && Peindre(PeintreDePages(pages, form.Image()), *travail) && travail->Finir())
        return;
    const Message echec =
        form.VersUnFichier()
            ? LangMsg(u"msgPdfNonEcrit"_s, u"Le fichier PDF n'a pas pu être écrit. Vérifiez que le dossier existe, que "
                                           u"vous pouvez y écrire et que le disque n'est pas plein."_s)
            : LangMsg(u"msgPasImprime"_s,
                      u"L'imprimante n'a pas accepté toutes les pages : rien n'a été imprimé, ou pas tout."_s);
    AfficherMsg(echec, MsgOk, QString());
}

/// The one way to give up pages that are composed.
bool AccepterLesPages(size_t nombre)
{
    const Message question =
        LangMsg(u"msgPagesAImprimer"_s, u"Il y a %1 page(s) à imprimer\nPoursuivre l'impression?"_s);
    return AfficherMsg(question.Remplacer(u"%1"_s, QString::number(nombre)), MsgOuiNon, QString()) == RepOui;
}

} // namespace

bool ImprimerListe(MyLV& table, const QString& dossier, const QString& titre)
{
    const OptionsDImpression options(dossier);
    frmPrint form(dossier, FenetreDessous());
    MontrerImage(form, options);
    form.TitreImpression = options.Titre();
    form.TexteEntete = options.Texte();
    form.NombreEntrees = u"##"_s;
    form.NomCategorie = titre;
    form.ActualiseNomCat();
    MontrerColonnes(form, table, options);
    QObject::connect(&form, &frmPrint::ApercuDemande, &form, [&] { MontrerPages(form, table); });
    form.exec();

    const Feuille feuille = form.Disposition();
    std::vector<double> largeurs;
    largeurs.reserve(feuille.colonnes.size());
    for (const Feuille::Colonne& colonne : feuille.colonnes)
        largeurs.push_back(colonne.largeur);
    options.EcrireLargeurs(largeurs);
    if (form.Tag != u"<>")
        return form.OptionsModifiees;

    plateforme().imprimantes->Choisir(form.Imprimante());
    const std::optional<PagesComposees> pages = Composer(form, table);
    if (pages && AccepterLesPages(pages->pages.size()))
        Envoyer(form, *pages);
    return form.OptionsModifiees;
}
