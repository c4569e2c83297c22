// The temporary folders of zelvane-cli: each run has one of its own, in which it works on copies.
#pragma once

#include <QString>

/// Makes the folder of this run below TempFolder, "cli-", the number of the process and what makes the name new, and
/// holds it until the process ends. Returns its path with a trailing separator; there is no such folder when it could
/// not be made.
QString CreerDossierDeCommande();

/// Deletes what killed runs left below TempFolder and in its default place. A folder that a living process holds, that
/// is another user's, or that holds anything but what a run makes there, is left alone.
void SupprimerDossiersDeCommande();
