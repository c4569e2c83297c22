#include "platform/Presence.h"

#include "platform/NomsSysteme.h"

#include <cerrno>
#include <sys/stat.h>

bool PeutExister(const QString& chemin)
{
    struct stat etat;
    return stat(OctetsDuChemin(chemin).constData(), &etat) == 0 || !EstAbsence(errno);
}

bool EstAbsence(int erreur)
{
    return erreur == ENOENT || erreur == ENOTDIR || erreur == ENAMETOOLONG || erreur == ELOOP;
}
