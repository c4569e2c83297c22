#include "base/ActesDuDossier.h"

#include "platform/NomsSysteme.h"

#include <QDir>
#include <QFileInfo>

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
    Actes()[CleDe(info.absolutePath())].insert(OctetsDuChemin(info.fileName()), acte);
}

} // namespace

void NoterEcriture(const QString& fichier)
{
    if (const TraceDeFichier trace = TraceDe(fichier))
        Noter(fichier, {false, trace});
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
