#include "catalogue/OuvrirFichiersQrt.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "catalogue/Cadre.h"
#include "catalogue/ChargerCatalogue.h"
#include "catalogue/FichierRecent.h"
#include "extensions/modLang.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The window in which the file is open. Paths are compared as they are spelled: the same file under another name
/// opens a second time.
FenetreDocument* FenetreDe(const Cadre& cadre, const QString& chemin)
{
    const auto fenetres = cadre.Documents();
    const auto trouvee = std::ranges::find_if(
        fenetres, [&](const FenetreDocument* fenetre) { return fenetre->myqrt.CheminReel() == chemin; });
    return trouvee == fenetres.end() ? nullptr : *trouvee;
}

} // namespace

bool OuvrirFichier(Cadre& cadre, const QString& chemin, int type, bool montrerMessages)
{
    if (FenetreDocument* dejaLa = FenetreDe(cadre, chemin)) {
        if (montrerMessages)
            AfficherMsg(LangMsg(u"msg48"_s, u"Le fichier est deja ouvert :"_s) + (u'\n' + chemin), MsgOk, QString());
        cadre.AmenerDevant(*dejaLa);
        return false;
    }
    if (!QFileInfo(chemin).isFile()) {
        MsgFichierAbsent();
        RetirerRecent(chemin);
        return false;
    }
    if (type >= PremierTypePlugIn)
        return false;
    const std::optional<FormeFichier> forme = FormeDuFichier(chemin);
    if (!forme)
        return false;

    FenetreDocument& fenetre = cadre.NouvelleFenetre();
    QrtClass& doc = fenetre.myqrt;
    doc.TmpFolder = CreerDossierTemp();
    fenetre.SetCaption(NomDeFichier(chemin));
    if (!ChargerCatalogue(doc, chemin, *forme)) {
        fenetre.Decharger();
        return false;
    }
    AjouterRecent(chemin);
    // Nothing that happened so far is a change of the user's, a loan column added by the reader included.
    doc.IlFautSauver = false;
    doc.Ouvrir->Montrer(false);
    return true;
}
