#include "extensions/dialogues/Aide.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "extensions/langue/modLang.h"
#include "platform/Plateforme.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Without a program for it, the user sees the address at least.
void Suivre(const QString& lien, const QString& adresse)
{
    if (!plateforme().programmes->OuvrirAdresse(lien))
        AfficherMsg(adresse, MsgOk, QString());
}

const QString PremierePage = u"aideZelvane.html"_s;

/// The path of a page: in the folder of the language in force ("Aide" of its file names one below AideQrt), else in
/// French; empty when there is none.
QString CheminDeLaPage(const QString& page)
{
    const QString aide = DossierProgramme() + u"AideQrt/"_s;
    const QString langue = LireProfil(u"Aide"_s, QString(), u"Traducteur"_s, FichierLangue);
    const bool estUnNom = !langue.isEmpty() && std::ranges::all_of(langue, [](QChar c) { return c.isLetter(); });
    if (const QString chemin = aide + langue + u'/' + page; estUnNom && QFileInfo::exists(chemin))
        return chemin;
    return QFileInfo::exists(aide + page) ? aide + page : QString();
}

void Montrer(const QString& aide, bool direAbsence)
{
    if (aide.isEmpty()) {
        if (direAbsence)
            AfficherMsg(LangMsg(u"msg98"_s, u"Fichier non trouvé"_s), MsgOk, QString());
    } else if (!plateforme().programmes->OuvrirFichier(aide)) {
        const Message sansProgramme =
            LangMsg(u"msgAide"_s, u"Aucun programme ne peut afficher l'aide, qui est ici : %1"_s);
        AfficherMsg(sansProgramme.Remplacer(u"%1"_s, aide), MsgOk, QString());
    }
}

} // namespace

void AfficherAide(bool direAbsence)
{
    Montrer(CheminDeLaPage(PremierePage), direAbsence);
}

void AfficherPageDAide(const QString& page)
{
    const QString chemin = CheminDeLaPage(page);
    Montrer(chemin.isEmpty() ? CheminDeLaPage(PremierePage) : chemin, true);
}

void AfficherPageDAccueil()
{
    Suivre(PageDAccueil, PageDAccueil);
}

void EcrireA(const QString& adresse)
{
    Suivre(u"mailto:"_s + adresse, adresse);
}
