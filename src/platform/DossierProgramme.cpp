#include "platform/DossierProgramme.h"

#include "platform/Attributs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

/// A folder that others can write is not trusted with plug-ins.
constexpr QFile::Permissions PourMoiSeul = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

/// Sets a link unless something that exists has its name; a link to nothing is replaced.
void Lier(const QString& cible, const QString& lien)
{
    if (!QFileInfo::exists(cible) || QFileInfo::exists(lien))
        return;
    if (QFileInfo(lien).isSymLink())
        QFile::remove(lien);
    QFile::link(cible, lien);
}

/// One link a library: the user's own lie beside them.
void LierPlugins(const QDir& installes, const QDir& dossier)
{
    const QStringList noms = installes.entryList({"*.dll"}, QDir::Files);
    const QString plugins = dossier.filePath("plugins");
    // Once it was a link to the whole folder, in which nobody could put one of his own.
    if (QFileInfo(plugins).symLinkTarget() == installes.absolutePath())
        QFile::remove(plugins);
    if (noms.isEmpty() || (!QFileInfo::exists(plugins) && !dossier.mkdir("plugins", PourMoiSeul)))
        return;
    for (const QString& nom : noms)
        Lier(installes.filePath(nom), plugins + '/' + nom);
}

void LierInstallation(const QDir& installation, const QDir& dossier)
{
    for (const char* nom : {"astuces.txt", "AideQrt", "IcoFile.ico"})
        Lier(installation.filePath(nom), dossier.filePath(nom));

    LierPlugins(QDir(installation.filePath("plugins")), dossier);
    dossier.mkpath("lang");
    const QDir langues(installation.filePath("lang"));
    for (const QString& nom : langues.entryList({"*.ini"}, QDir::Files)) {
        const QString lien = dossier.filePath("lang/" + nom);
        // The program writes into this one; the installed one is not the user's to write.
        if (nom != "default.ini")
            Lier(langues.filePath(nom), lien);
        else if (QFile::copy(langues.filePath(nom), lien))
            AttributsDisque().MettreLectureSeule(lien, false);
    }
}

QString AvecSeparateur(const QString& dossier)
{
    return dossier.endsWith(u'/') ? dossier : dossier + u'/';
}

bool EstCopiePortable(const QString& dossier)
{
    return QFileInfo(dossier).isWritable() && QFileInfo(dossier + "/lang").isDir();
}

} // namespace

LieuxProgramme LieuxProgramme::DuSysteme()
{
    const QString executable = QCoreApplication::applicationDirPath();
    LieuxProgramme lieux;
    lieux.demande = qEnvironmentVariable("ZELVANE_DOSSIER");
    lieux.executable = executable;
    lieux.utilisateur = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/zelvane";
    lieux.installation = QDir::cleanPath(executable + "/../share/zelvane");
    return lieux;
}

QString ChoisirDossierProgramme(const LieuxProgramme& lieux)
{
    if (!lieux.demande.isEmpty()) {
        const QString dossier = QDir::cleanPath(QDir(lieux.demande).absolutePath());
        QDir().mkpath(dossier);
        return AvecSeparateur(dossier);
    }
    if (EstCopiePortable(lieux.executable))
        return AvecSeparateur(lieux.executable);
    QDir().mkpath(lieux.utilisateur);
    LierInstallation(QDir(lieux.installation), QDir(lieux.utilisateur));
    return AvecSeparateur(lieux.utilisateur);
}
