#include "platform/ProgrammesBureau.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

bool ProgrammesBureau::OuvrirFichier(const QString& chemin)
{
    // Absolute, or the address would be relative to nothing; "?" and "#" of a name are no query here.
    return QFileInfo::exists(chemin) &&
           QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(chemin).absoluteFilePath()));
}

bool ProgrammesBureau::OuvrirAdresse(const QString& adresse)
{
    const QUrl url(adresse);
    return url.isValid() && !url.isRelative() && QDesktopServices::openUrl(url);
}
