// Where a user finds help: the pages that come with the program, the project's home page, the makers' address.
#pragma once

#include "base/PageDAccueil.h"

#include <QString>

/// Where the makers read mail.
inline const QString AdresseDuFabricant = QStringLiteral("morvenal@zelvane.example");

/// Shows the first page of the help that lies in AideQrt below the program's folder. Where it is not there, "msg98"
/// says so if `direAbsence`; where no program can show it, "msgAide" says where it lies.
void AfficherAide(bool direAbsence);
/// Shows a page of the help by the name of its file, the first page where there is none of the name.
void AfficherPageDAide(const QString& page);
/// Shows the home page in the browser.
void AfficherPageDAccueil();
/// Begins a mail to `adresse`.
void EcrireA(const QString& adresse);
