// The temporary folders of documents: drawing, holding and deleting them.
#pragma once

#include <QString>
#include <QStringList>

/// Deletes the folder with all it holds, errors ignored; unless `sansRecreer`, creates it again, empty. Links are
/// removed, never followed. With `sansRecreer` the folder is free to be drawn again, and the rescue copy of a
/// document's folder goes with it. An empty path is no folder.
void SupprimerDossier(const QString& chemin, bool sansRecreer);

/// Base of the documents' temporary folders.
extern QString TempFolder;
/// Takes TempFolder from the settings; when there is no such folder, it is "temp" in the program's folder, which is
/// created. Also done by CreerDossierTemp when nobody has.
void InitialiserTempFolder();
/// Draws the folder of a document below TempFolder, "cat" and a number from 1 to 500, creates it and returns its path
/// with a trailing separator. A folder that an open document of this run or of another process holds is drawn again,
/// and so is a link, and what an earlier run left behind. When no number is left, those from 501 up are tried in order.
QString CreerDossierTemp();
/// Makes the folder of a document anew where it was taken away from outside, as CreerDossierTemp made it, and holds it
/// again. Returns its path: another one where somebody else's folder has taken the place.
QString RetablirDossierTemp(const QString& dossier);
/// The rescue copy that belongs to a document's folder: a file beside it, named like it and ".secours".
QString FichierDeSecours(const QString& dossier);
/// The folders drawn by this run and not deleted since, for a program that tidies up before it ends.
QStringList DossiersTempTenus();
