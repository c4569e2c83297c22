#include "entries/mClipBoard.h"

#include "base/AfficherMsg.h"
#include "base/Evenements.h"
#include "catalogue/texte/Categorie.h"
#include "entries/AjouterEchange.h"
#include "entries/CopierImages.h"
#include "entries/Echange.h"
#include "entries/FichierDEchange.h"
#include "entries/OperationsEntrees.h"
#include "entries/frmCopieParLot.h"
#include "entries/frmDragAndDrop.h"
#include "extensions/langue/modLang.h"
#include "images/frmRemplacerImg.h"
#include "kit/FenetreDessous.h"
#include "kit/frmAvancement.h"
#include "platform/Plateforme.h"
#include "platform/Retenue.h"

using namespace Qt::StringLiterals;

namespace {

class QuestionsEnFenetre : public QuestionsDImage
{
public:
    bool Remplacer(const QString& gauche, const QString& droite) override
    {
        frmRemplacerImg form(gauche, droite, FenetreDessous());
        form.exec();
        return form.Resultat;
    }
    bool Renommer() override
    {
        const Message question = LangMsg(u"msg27"_s, u"Voulez vous que l'image a ajouter soit renomée?"_s);
        return AfficherMsg(question, MsgOuiNonAnnuler, QString()) == RepOui;
    }
};

std::optional<Correspondance> DemanderColonnes(const EchangeLu& echange, const MyLV& table)
{
    frmDragAndDrop form(Correspondre(echange.Titres(), TitresDe(table)), FenetreDessous());
    form.setWindowTitle(LangMsg(u"msg78"_s, u"Coller"_s).texte);
    form.exec();
    return form.Valide ? std::optional(form.Rangs()) : std::nullopt;
}

std::optional<QStringList> Ajouter(MyLV& table, const EchangeLu& echange, const Correspondance& rangs, int16_t copies)
{
    if (!PeutTenir(table, echange, copies))
        return std::nullopt;
    ToutDeselectionner(table);
    // Events run while they are added: what would open, close or change a document waits.
    const Retenue retenue;
    AvancementEnFenetre avancement(AvancementEnFenetre::DelaiUsuel, Abandon::Permis);
    return AjouterEchange(table, echange, rangs, {Arrivee::Collees, copies}, avancement);
}

void CollerDans(Categorie& doc, int16_t copies)
{
    // Before the questions about images, so that the rescue copy has the entries while they stand open.
    doc.EcraserIlFautSauver(CollerEntrees(*doc.MyLV, doc.TmpFolder, copies, [&doc] { doc.IlFautSauver = true; }));
}

} // namespace

void CopierSelection(const MyLV& table, const QString& tmpFolder)
{
    if (table.NombreDeSelectionnees() == 0) {
        AfficherMsg(LangMsg(u"msg97"_s, u"Rien n'a ete copié !"_s), MsgOk, QString());
        return;
    }
    plateforme().pressePapiers->Vider();
    FichierDEchange fichier;
    {
        const Retenue retenue;
        AvancementEnFenetre avancement;
        EcrireEchange(table, tmpFolder, avancement, [&fichier](QByteArrayView octets) { fichier.Ecrire(octets); });
    }
    PoserSurPressePapiers(fichier);
}

bool CollerEntrees(MyLV& table, const QString& tmpFolder, int16_t copies, const std::function<void()>& ajoutees)
{
    const std::optional<QString> texte = plateforme().pressePapiers->Texte();
    if (!texte)
        return false;
    const EchangeLu echange(*texte);
    if (!echange.EstEchange())
        return false;
    const std::optional<Correspondance> rangs = DemanderColonnes(echange, table);
    const std::optional<QStringList> images = rangs ? Ajouter(table, echange, *rangs, copies) : std::nullopt;
    if (!images)
        return false;
    if (ajoutees)
        ajoutees();
    QuestionsEnFenetre questions;
    DireImagesNonCopiees(CopierImages(*images, echange.Dossier(), tmpFolder, questions, LaisserPasserEvenements));
    return true;
}

void Coller(Categorie& doc)
{
    CollerDans(doc, 1);
}

void CollerParLot(Categorie& doc)
{
    frmCopieParLot form(FenetreDessous());
    form.exec();
    if (form.NbCopies != 0)
        CollerDans(doc, form.NbCopies);
}
