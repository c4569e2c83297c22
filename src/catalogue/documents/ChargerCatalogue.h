// From a path to a filled document: what the open flow and the command-line tool share.
#pragma once

#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"

#include <QString>

#include <optional>

/// What TypeFichier tells.
enum FormeFichier { PasUnCatalogue = 0, TexteSeul = 1, Archive = 2 };

/// Tells that there is no such file ("msg49").
void MsgFichierAbsent();

/// The form of the file. Nothing, with a message, when it does not exist ("msg49"), is a folder ("msgDossier") or
/// anything else that is no file ("msgTube"), or is no catalogue ("msg50").
std::optional<FormeFichier> FormeDuFichier(const QString& chemin);

/// Sets CheminReel and FileType, brings the file's text, images and comment into TmpFolder and reads the table. False,
/// with a message, when the file could not be copied ("msg51") or extracted ("msg51", "msg52"). A text that the reader
/// refuses leaves an empty table, and the result is true.
bool ChargerCatalogue(Categorie& doc, const QString& chemin, FormeFichier forme, Etendue etendue = Etendue::Tout);
