// Where runs may have left temporary folders.
#pragma once

#include <QDir>
#include <QList>

/// The folder that temporary ones are made in, and its default place, for a run that had other settings; those that
/// exist, as absolute paths without links. They may be the same. Without a place nothing stands for it: an empty path
/// would mean the folder that happens to be the current one.
QList<QDir> LieuxTemporaires();
