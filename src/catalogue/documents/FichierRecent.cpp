#include "catalogue/documents/FichierRecent.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"

namespace {

constexpr int NombreDeRecents = Options::FRecent.size();

/// Places count from 1, the newest.
QString Recent(int place)
{
    return LireOption(Options::FRecent.at(place - 1));
}

void EcrireRecent(int place, const QString& chemin)
{
    EcrireOption(Options::FRecent.at(place - 1), chemin);
}

} // namespace

void AjouterRecent(const QString& chemin)
{
    if (Recent(1) == chemin)
        return;
    // The fifth place is not looked at: a path found there is overwritten by what moves down.
    int decalage = 1;
    for (int i = NombreDeRecents - 1; i >= 1; --i)
        if (Recent(i) == chemin)
            decalage = 0;
    // From the bottom up: nothing moves until the path is met, which leaves a hole for those above it.
    for (int i = NombreDeRecents - 1; i >= 1; --i) {
        const QString recent = Recent(i);
        if (recent == chemin)
            decalage = 1;
        else
            EcrireRecent(i + decalage, recent);
    }
    EcrireRecent(1, chemin);
}

void RetirerRecent(const QString& chemin)
{
    int place = NombreDeRecents;
    while (place >= 1 && Recent(place) != chemin)
        --place;
    if (place < 1)
        return;
    for (int i = place + 1; i <= NombreDeRecents; ++i)
        EcrireRecent(i - 1, Recent(i));
    EcrireRecent(NombreDeRecents, QString());
}

void MajMenuRecents(MenuRecents& fenetre)
{
    for (int i = 1; i <= NombreDeRecents; ++i)
        fenetre.MettreRecent(i - 1, Recent(i));
    fenetre.MontrerBarRecent(!Recent(1).isEmpty());
}
