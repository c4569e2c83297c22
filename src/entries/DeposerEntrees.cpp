#include "entries/DeposerEntrees.h"

#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/FenetreDocument.h"
#include "entries/AjouterEchange.h"
#include "entries/Echange.h"
#include "entries/frmDragAndDrop.h"
#include "kit/FenetreDessous.h"
#include "kit/ManqueDeMemoire.h"
#include "kit/frmAvancement.h"
#include "platform/Retenue.h"

#include <QApplication>

namespace {

/// The rows as the user leaves them; nothing when he cancels.
std::optional<Correspondance> Demander(const Correspondance& rangs)
{
    frmDragAndDrop form(rangs, FenetreDessous());
    form.exec();
    return form.Valide ? std::optional(form.Rangs()) : std::nullopt;
}

void Deposer(Cadre& cadre, FenetreDocument& fenetre, const QString& texte)
{
    const EchangeLu echange(texte);
    if (echange.Champs().isEmpty())
        return;
    Categorie& doc = fenetre.myqrt;
    const std::weak_ptr<const void> vie = doc.Table.Vie();
    // The folder that the entries come from has a row of its own, behind the titles: it stands for the names of the
    // images, which else stay behind.
    const std::optional<Correspondance> rangs = Demander(Correspondre(echange.Champs(), TitresDe(doc.Table)));
    if (!rangs || vie.expired() || !PeutTenir(doc.Table, echange, 1))
        return;
    cadre.AmenerDevant(fenetre);
    doc.IlFautSauver = true; // also where memory does not suffice for all of them
    {
        // Events run while they are added: what would open, close or change a document waits.
        const Retenue retenue;
        AvancementEnFenetre avancement;
        AjouterEchange(doc.Table, echange, *rangs, {.arrivee = Arrivee::Deposees}, avancement);
    }
    fenetre.RedrawAll();
}

} // namespace

void DeposerEntrees(Cadre& cadre, FenetreDocument& fenetre, const QString& texte)
{
    if (QApplication::activeModalWidget())
        return;
    AvecMemoire([&] { return Deposer(cadre, fenetre, texte), true; }, false);
}
