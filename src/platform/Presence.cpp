#include "platform/Presence.h"

#include <QFile>

#include <cerrno>
#include <sys/stat.h>

bool PeutExister(const QString& chemin)
{
    struct stat etat;
    if (stat(QFile::encodeName(chemin).constData(), &etat) == 0)
        return true;
    switch (errno) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return false;
    default:
        return true;
    }
}
