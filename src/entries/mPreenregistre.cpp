#include "entries/mPreenregistre.h"

#include "catalogue/texte/QrtClass.h"
#include "entries/frmPreEnregistre.h"
#include "kit/FenetreDessous.h"

void GererPreEnregistres(QrtClass& document)
{
    ColumnHeaders& colonnes = document.MyLV->ColumnHeaders;
    ListesDeColonnes listes;
    listes.reserve(static_cast<size_t>(colonnes.Count()));
    for (int i = 1; i <= colonnes.Count(); ++i)
        listes.push_back({colonnes(i).Text(), colonnes(i).Tag()});
    frmPreEnregistre form(std::move(listes), FenetreDessous());
    form.exec();
    if (!form.Valide)
        return;
    for (int i = 1; i <= colonnes.Count(); ++i)
        colonnes(i).SetTag(form.Colonnes()[static_cast<size_t>(i - 1)].liste);
    document.IlFautSauver = true;
}
