#include "Brouillon.h"

#include <QRandomGenerator>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The place that a link stands for, though there may be no file yet. A ring of links stays one, and is told as what it
/// is when the file is looked at.
QByteArray SuivreLesLiens(QByteArray chemin)
{
    constexpr int liensAuPlus = 40; // as the system
    for (int i = 0; i < liensAuPlus; ++i) {
        QByteArray cible(PATH_MAX, '\0');
        const ssize_t longueur = readlink(chemin.constData(), cible.data(), static_cast<size_t>(cible.size()));
        if (longueur < 0)
            break;
        cible.truncate(longueur);
        chemin = cible.startsWith('/') ? cible : chemin.first(chemin.lastIndexOf('/') + 1) + cible;
    }
    return chemin;
}

} // namespace

Fin FinDeLErreur(int numero)
{
    switch (numero) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return Fin::DisquePlein;
    case EACCES:
    case EPERM:
    case EROFS:
        return Fin::Interdit;
    case ENOENT:
    case ENOTDIR:
        return Fin::DossierAbsent;
    default:
        return Fin::EcritureRefusee;
    }
}

QByteArray OctetsDuNom(const QString& chemin)
{
    QByteArray octets;
    qsizetype debut = 0;
    for (qsizetype i = 0; i < chemin.size(); ++i) {
        const char16_t unite = chemin[i].unicode();
        if (unite < 0xDC80 || unite > 0xDCFF || (i > 0 && chemin[i - 1].isHighSurrogate()))
            continue;
        octets += QStringView(chemin).sliced(debut, i - debut).toUtf8();
        octets += static_cast<char>(unite & 0xFFU);
        debut = i + 1;
    }
    return octets + QStringView(chemin).sliced(debut).toUtf8();
}

Brouillon::Brouillon(const QString& definitif) : m_definitif(SuivreLesLiens(OctetsDuNom(definitif)))
{
    const QByteArray hasard = QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    m_chemin = m_definitif.first(m_definitif.lastIndexOf('/') + 1) + ".zelvane-" + hasard;
}

Brouillon::~Brouillon()
{
    Fermer();
    unlink(m_chemin.constData());
}

// A folder lets a file be replaced that its owner has made read-only.
Fin Brouillon::Examiner() const
{
    struct stat etat;
    if (stat(m_definitif.constData(), &etat) != 0)
        return errno == ENOENT ? Fin::Faite : FinDeLErreur(errno);
    if (!S_ISREG(etat.st_mode))
        return Fin::EcritureRefusee;
    return access(m_definitif.constData(), W_OK) == 0 ? Fin::Faite : FinDeLErreur(errno);
}

Fin Brouillon::Ouvrir()
{
    if (const Fin fin = Examiner(); fin != Fin::Faite)
        return fin;
    m_descripteur = open(m_chemin.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    return m_descripteur >= 0 ? Fin::Faite : FinDeLErreur(errno);
}

Fin Brouillon::Ecrire(QByteArrayView octets)
{
    while (!octets.isEmpty()) {
        const ssize_t ecrits = write(m_descripteur, octets.data(), static_cast<size_t>(octets.size()));
        if (ecrits < 0 && errno != EINTR)
            return FinDeLErreur(errno);
        octets = octets.sliced(std::max<ssize_t>(ecrits, 0));
    }
    return Fin::Faite;
}

Fin Brouillon::Deposer()
{
    if (m_descripteur < 0)
        m_descripteur = open(m_chemin.constData(), O_WRONLY | O_CLOEXEC);
    struct stat avant;
    if (m_descripteur >= 0 && stat(m_definitif.constData(), &avant) == 0)
        fchmod(m_descripteur, avant.st_mode & 07777);
    if (m_descripteur < 0 || fsync(m_descripteur) != 0)
        return FinDeLErreur(errno);
    Fermer();
    return std::rename(m_chemin.constData(), m_definitif.constData()) == 0 ? Fin::Faite : FinDeLErreur(errno);
}

void Brouillon::Fermer()
{
    if (m_descripteur >= 0)
        close(m_descripteur);
    m_descripteur = -1;
}
