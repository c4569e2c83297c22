// What a folder holds, where an error must not pass for an empty folder.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The names of all that lies in the folder, hidden or not, in no order; nothing when it cannot be read to its end.
std::optional<QStringList> NomsDuDossier(const QString& dossier);
/// The same of its files alone, and of links to files.
std::optional<QStringList> FichiersDuDossier(const QString& dossier);
