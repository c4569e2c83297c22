// Where runs may have left temporary folders.
#pragma once

#include <QDir>
#include <QList>
#include <QString>

/// The folder that temporary ones are made in, its default place, and the places that earlier runs had by other
/// settings; those that exist, as absolute paths without links. They may be the same. Without a place nothing stands
/// for it: an empty path would mean the folder that happens to be the current one.
QList<QDir> LieuxTemporaires();

/// Remembers that temporary folders are made in `dossier`, for runs that will have another setting. The last sixteen
/// are remembered; one that is gone stays, it may be on a disk that comes back.
void NoterLieuTemporaire(const QString& dossier);
