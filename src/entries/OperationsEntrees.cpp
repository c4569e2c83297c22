#include "entries/OperationsEntrees.h"

#include "base/Avancement.h"
#include "catalogue/documents/Cadre.h"
#include "entries/SaisieDEntree.h"
#include "images/FichierImage.h"

#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> SiNonVide(const QString& texte)
{
    return texte.isEmpty() ? std::nullopt : std::optional(texte);
}

void EcrireTextes(ColumnHeaders& colonnes, const QStringList& textes)
{
    for (int i = 1; i <= colonnes.Count(); ++i)
        colonnes(i).SetTag(textes.value(i - 1));
}

void EcrireDansSelection(const QrtClass& doc, const SaisieEntree& saisie, Avancement& avancement)
{
    if (saisie.image.isEmpty() && ToutEstVide(saisie.valeurs))
        return;
    std::vector<std::optional<QString>> valeurs;
    valeurs.reserve(static_cast<size_t>(doc.ColCount()));
    for (int i = 0; i < doc.ColCount(); ++i)
        valeurs.push_back(SiNonVide(saisie.valeurs.value(i)));
    const std::optional<QString> image = SiNonVide(saisie.image);
    const QString icone = IconeImage(doc.TmpFolder, saisie.image); // the same for all: one look at the disk

    MyLV& table = *doc.MyLV;
    const int total = table.ListItems.Count();
    for (int i = 1; i <= total; ++i) {
        avancement.Avancer(i, total);
        if (!table.EstSelectionnee(i))
            continue;
        ListItem entree = table.ListItems(i);
        entree.Modifier(valeurs, image);
        if (image)
            entree.SetSmallIcon(icone);
    }
}

/// An empty path clears the picture.
void MontrerDevant(const QString& fichier)
{
    if (FenetreDocument* active = FenetreActive())
        active->MontrerImage(fichier);
}

} // namespace

void ModifierSelection(FenetreDocument& fenetre, const SaisieEntree& saisie, Avancement& avancement)
{
    QrtClass& doc = fenetre.myqrt;
    EcrireDansSelection(doc, saisie, avancement);
    EcrireTextes(doc.MyLV->ColumnHeaders, saisie.textes);
    if (const QString fichier = FichierImage(doc.TmpFolder, saisie.image); !fichier.isEmpty())
        MontrerDevant(fichier);
    doc.IlFautSauver = true;
}

void InscrireEntree(FenetreDocument& fenetre, const SaisieEntree& saisie)
{
    QrtClass& doc = fenetre.myqrt;
    MyLV& table = *doc.MyLV;
    RecalculerCles(table);
    table.SetSorted(false);
    const QString cle = u'k' + QString::number(doc.ItemsCount() + 1);
    ListItem entree = table.ListItems.Add(0, cle, saisie.valeurs.value(0));
    entree.EcrireValeurs(saisie.valeurs);
    entree.SetTag(saisie.image);
    entree.SetSmallIcon(IconeImage(doc.TmpFolder, saisie.image));
    MontrerDevant(FichierImage(doc.TmpFolder, saisie.image));

    ToutDeselectionner(table);
    entree.SetSelected(true);
    table.SetSelectedItem(entree);
    fenetre.RendreVisible(entree.Index());
    doc.IlFautSauver = true;
    EcrireTextes(table.ColumnHeaders, saisie.textes);
}

void ToutDeselectionner(MyLV& table)
{
    table.Selectionner(1, table.ListItems.Count(), false);
}
