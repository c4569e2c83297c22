#include "extensions/dialogues/Aide.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "extensions/langue/modLang.h"
#include "platform/Plateforme.h"

using namespace Qt::StringLiterals;

namespace {

/// Without a program for it, the user sees the address at least.
void Suivre(const QString& lien, const QString& adresse)
{
    if (!plateforme().programmes->OuvrirAdresse(lien))
        AfficherMsg(adresse, MsgOk, QString());
}

} // namespace

void AfficherAide()
{
    if (!plateforme().programmes->OuvrirFichier(DossierProgramme() + u"AideQrt/aideZelvane.html"_s))
        AfficherMsg(LangMsg(u"msg98"_s, u"Fichier non trouvé"_s), MsgOk, QString());
}

void AfficherPageDAccueil()
{
    Suivre(PageDAccueil, PageDAccueil);
}

void EcrireA(const QString& adresse)
{
    Suivre(u"mailto:"_s + adresse, adresse);
}
