#include "base/TraceDeFichier.h"

#include "platform/NomsSysteme.h"

#include <QList>

#include <sys/stat.h>

TraceDeFichier TraceDe(const QString& chemin)
{
    constexpr int64_t parSeconde = 1'000'000'000;
    struct stat etat;
    if (stat(OctetsDuChemin(chemin).constData(), &etat) != 0 || !S_ISREG(etat.st_mode))
        return {};
    return {etat.st_dev, etat.st_ino, static_cast<uint64_t>(etat.st_size),
            static_cast<int64_t>(etat.st_mtim.tv_sec) * parSeconde + etat.st_mtim.tv_nsec};
}

QByteArray VersMot(const TraceDeFichier& trace)
{
    return QByteArray::number(qulonglong(trace.inode)) + ':' + QByteArray::number(qulonglong(trace.taille)) + ':' +
           QByteArray::number(qlonglong(trace.modifie));
}

std::optional<TraceDeFichier> DepuisMot(const QByteArray& mot)
{
    const QList<QByteArray> nombres = mot.split(':');
    if (nombres.size() != 3)
        return std::nullopt;
    bool inode = false, taille = false, modifie = false;
    const TraceDeFichier trace{0, nombres[0].toULongLong(&inode), nombres[1].toULongLong(&taille),
                               nombres[2].toLongLong(&modifie)};
    return inode && taille && modifie ? std::optional(trace) : std::nullopt;
}
