#include "platform/Attributs.h"

#include "platform/NomsSysteme.h"

#include <sys/stat.h>

bool AttributsDisque::EstLectureSeule(const QString& chemin) const
{
    const auto etat = EtatDuChemin(chemin);
    return etat && (etat->st_mode & S_IWUSR) == 0;
}

bool AttributsDisque::MettreLectureSeule(const QString& chemin, bool lectureSeule)
{
    const auto etat = EtatDuChemin(chemin);
    if (!etat)
        return false;
    const mode_t droits = etat->st_mode & mode_t(~S_IFMT & ~S_IWUSR);
    return chmod(OctetsDuChemin(chemin).constData(), lectureSeule ? droits : droits | S_IWUSR) == 0;
}
