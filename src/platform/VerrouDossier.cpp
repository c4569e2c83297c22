#include "platform/VerrouDossier.h"

#include "platform/NomsSysteme.h"
#include "platform/Presence.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

VerrouDossier::VerrouDossier(VerrouDossier&& autre) noexcept
    : m_descripteur(std::exchange(autre.m_descripteur, -1)), m_tient(std::exchange(autre.m_tient, false))
{
}

VerrouDossier& VerrouDossier::operator=(VerrouDossier&& autre) noexcept
{
    std::swap(m_descripteur, autre.m_descripteur);
    std::swap(m_tient, autre.m_tient);
    return *this;
}

std::optional<VerrouDossier> VerrouDossier::Prendre(const QString& dossier)
{
    VerrouDossier verrou;
    verrou.m_descripteur = open(OctetsDuChemin(dossier).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    verrou.m_tient = verrou.m_descripteur >= 0 && flock(verrou.m_descripteur, LOCK_EX | LOCK_NB) == 0;
    if (verrou.m_descripteur >= 0 && !verrou.m_tient && errno == EWOULDBLOCK)
        return std::nullopt;
    return verrou;
}

bool VerrouDossier::EstCelui(const QString& dossier) const
{
    struct stat tenu, la;
    if (fstat(m_descripteur, &tenu) != 0)
        return false;
    if (lstat(OctetsDuChemin(dossier).constData(), &la) != 0)
        return !EstAbsence(errno) && tenu.st_nlink > 0;
    return tenu.st_dev == la.st_dev && tenu.st_ino == la.st_ino;
}

void VerrouDossier::Rendre()
{
    if (m_descripteur >= 0)
        close(m_descripteur);
}
