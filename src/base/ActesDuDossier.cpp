#include "base/ActesDuDossier.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

QHash<QString, QHash<QByteArray, ActeSurFichier>>& Actes()
{
    static QHash<QString, QHash<QByteArray, ActeSurFichier>> actes;
    return actes;
}

QString CleDe(const QString& dossier)
{
    return QDir::cleanPath(QFileInfo(dossier).absoluteFilePath());
}

void Noter(const QString& fichier, const ActeSurFichier& acte)
{
    const QFileInfo info(fichier);
    Actes()[CleDe(info.absolutePath())].insert(QFile::encodeName(info.fileName()), acte);
}

} // namespace

void NoterEcriture(const QString& fichier)
{
    constexpr int64_t parSeconde = 1'000'000'000;
    struct stat etat;
    if (stat(QFile::encodeName(fichier).constData(), &etat) != 0)
        return;
    Noter(fichier, {false,
                    {etat.st_dev, etat.st_ino, static_cast<uint64_t>(etat.st_size),
                     static_cast<int64_t>(etat.st_mtim.tv_sec) * parSeconde + etat.st_mtim.tv_nsec}});
}

void NoterSuppression(const QString& fichier)
{
    Noter(fichier, {true, {}});
}

QHash<QByteArray, ActeSurFichier> ActesDuDossier(const QString& dossier)
{
    return Actes().value(CleDe(dossier));
}

void OublierActe(const QString& dossier, const QByteArray& nom)
{
    if (const auto actes = Actes().find(CleDe(dossier)); actes != Actes().end())
        actes->remove(nom);
}

void OublierActes(const QString& dossier)
{
    Actes().remove(CleDe(dossier));
}
