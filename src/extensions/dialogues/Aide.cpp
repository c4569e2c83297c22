#include "extensions/dialogues/Aide.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "extensions/langue/modLang.h"
#include "platform/Plateforme.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Without a program for it, the user sees the address at least.
void Suivre(const QString& lien, const QString& adresse)
{
    if (!plateforme().programmes->OuvrirAdresse(lien))
        AfficherMsg(adresse, MsgOk, QString());
}

} // namespace

void AfficherAide(bool direAbsence)
{
    const QString aide = DossierProgramme() + u"AideQrt/aideZelvane.html"_s;
    if (!QFileInfo::exists(aide)) {
        if (direAbsence)
            AfficherMsg(LangMsg(u"msg98"_s, u"Fichier non trouvé"_s), MsgOk, QString());
    } else if (!plateforme().programmes->OuvrirFichier(aide)) {
        const Message sansProgramme =
            LangMsg(u"msgAide"_s, u"Aucun programme ne peut afficher l'aide, qui est ici : %1"_s);
        AfficherMsg(sansProgramme.Remplacer(u"%1"_s, aide), MsgOk, QString());
    }
}

void AfficherPageDAccueil()
{
    Suivre(PageDAccueil, PageDAccueil);
}

void EcrireA(const QString& adresse)
{
    Suivre(u"mailto:"_s + adresse, adresse);
}
