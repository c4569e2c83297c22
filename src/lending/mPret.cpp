#include "lending/mPret.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/Dates.h"
#include "catalogue/texte/QrtClass.h"
#include "columns/ColonnePrete.h"
#include "entries/frmSuppDependant.h"
#include "extensions/langue/modLang.h"
#include "kit/FenetreDessous.h"
#include "kit/frmAvancement.h"
#include "lending/MessagesDuPret.h"
#include "lending/Prets.h"
#include "lending/frmPreter.h"
#include "platform/Plateforme.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Nothing when the user cancels. The words are those of lending also where things come back: it is meant.
std::optional<Portee> DemanderPortee()
{
    frmSuppDependant form(FenetreDessous());
    form.setWindowTitle(LangMsg(u"msg88"_s, u"Prêter des Entrées"_s).texte);
    form.SetOptions(LangMsg(u"msg89"_s, u"Prêter les entrées sélectionnées"_s).texte,
                    LangMsg(u"msg90"_s, u"Prêter les entrées dépendantes"_s).texte);
    form.exec();
    switch (form.Choix) {
    case 0:
        return Portee::Selection;
    case 1:
        return Portee::Dependantes;
    default:
        return std::nullopt;
    }
}

} // namespace

void MarquerPrete(QrtClass& document)
{
    if (!AUneSelection(document))
        return;
    if (!ChercherColPrete(document)) {
        AfficherMsg(Message(u"toto"_s), MsgOk, QString()); // it is meant
        DireColonneDisparue();
        return;
    }
    frmPreter form(document.ZelvaneIni(), FenetreDessous());
    form.exec();
    if (!form.accepted)
        return;
    const Contact emprunteur = form.Emprunteur();
    InscrireEmprunteur(document.ZelvaneIni(), emprunteur);

    std::optional<Portee> portee = Portee::Selection;
    if (document.dependantcol != 0)
        portee = DemanderPortee();
    if (!portee)
        return;
    AvancementEnFenetre avancement;
    PreterEntrees(document, {emprunteur.nom, DateCourte(plateforme().horloge->Maintenant().date())}, *portee,
                  AccepterRemplacement, avancement);
}

void MarquerRendu(QrtClass& document)
{
    if (!AUneSelection(document))
        return;
    if (!ChercherColPrete(document)) {
        DireColonneDisparue();
        return;
    }
    std::optional<Portee> portee = Portee::Selection;
    if (document.dependantcol != 0)
        portee = DemanderPortee();
    else if (!AccepterRetour())
        return;
    if (!portee)
        return;
    AvancementEnFenetre avancement;
    RendreEntrees(document, *portee, avancement);
}
