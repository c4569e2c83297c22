#include "platform/Attributs.h"

#include <QFile>
#include <QFileInfo>

bool AttributsDisque::EstLectureSeule(const QString& chemin) const
{
    const QFileInfo fichier(chemin);
    return fichier.exists() && !fichier.permission(QFileDevice::WriteOwner);
}

bool AttributsDisque::MettreLectureSeule(const QString& chemin, bool lectureSeule)
{
    const QFileInfo fichier(chemin);
    if (!fichier.exists())
        return false;
    // The flags of the current user only repeat what one of the three groups says; written back they would add to it.
    constexpr auto utilisateur = QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser;
    QFileDevice::Permissions permissions = fichier.permissions() & ~utilisateur;
    permissions.setFlag(QFileDevice::WriteOwner, !lectureSeule);
    return QFile::setPermissions(chemin, permissions);
}
