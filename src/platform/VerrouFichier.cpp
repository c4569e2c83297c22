#include "platform/VerrouFichier.h"

#include "platform/NomsSysteme.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool EstRefuse(int issue)
{
    return issue != 0 && (errno == EWOULDBLOCK || errno == EACCES);
}

} // namespace

VerrouFichier::VerrouFichier(const QString& chemin) : m_octets(OctetsDuChemin(chemin))
{
    constexpr int communs = O_NONBLOCK | O_CLOEXEC;
    m_descripteur = open(m_octets.constData(), O_RDWR | communs);
    if (m_descripteur < 0)
        m_descripteur = open(m_octets.constData(), O_RDONLY | communs);
    m_refuse = m_descripteur >= 0 && !Poser();
}

VerrouFichier::~VerrouFichier()
{
    if (m_descripteur >= 0)
        close(m_descripteur);
}

/// False when somebody else has a lock of either kind. One that the file system does not know counts as taken.
bool VerrouFichier::Poser() const
{
    if (EstRefuse(flock(m_descripteur, LOCK_EX | LOCK_NB)))
        return false;
    struct flock parPlage
    {
    };
    parPlage.l_type = F_WRLCK;
    parPlage.l_whence = SEEK_SET;
    return !EstRefuse(fcntl(m_descripteur, F_OFD_SETLK, &parPlage));
}

bool VerrouFichier::Tient() const
{
    if (m_refuse || m_descripteur < 0)
        return !m_refuse;
    struct stat tenu, la;
    return fstat(m_descripteur, &tenu) == 0 && stat(m_octets.constData(), &la) == 0 && tenu.st_dev == la.st_dev &&
           tenu.st_ino == la.st_ino;
}
