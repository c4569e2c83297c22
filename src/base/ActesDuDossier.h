// What the program itself did last to the files of its temporary folders, in memory. Who finds a file gone can tell by
// it whether the user wanted that, and whether an older copy would do.
//
// Paths are full paths. Who draws or deletes a folder has its acts forgotten.
#pragma once

#include "base/TraceDeFichier.h"

#include <QByteArray>
#include <QHash>
#include <QString>

struct ActeSurFichier
{
    bool supprime = false;
    TraceDeFichier ecrit; ///< as it was left, unless it was deleted
};

/// The file was written just now.
void NoterEcriture(const QString& fichier);
/// The file was deleted on purpose.
void NoterSuppression(const QString& fichier);

/// The last act on each file of the folder, by the file's name as the disk has it.
QHash<QByteArray, ActeSurFichier> ActesDuDossier(const QString& dossier);

void OublierActe(const QString& dossier, const QByteArray& nom);
void OublierActes(const QString& dossier);
