// Where a user finds help: the pages that come with the program, the project's home page, the makers' address.
#pragma once

#include "base/PageDAccueil.h"

#include <QString>

/// Where the makers read mail.
inline const QString AdresseDuFabricant = QStringLiteral("morvenal@zelvane.example");

/// Shows the help that lies in AideQrt below the program's folder. Where it is not there, "msg98" says so if
/// `direAbsence`; where no program can show it, "msgAide" says where it lies.
void AfficherAide(bool direAbsence);
/// Shows the home page in the browser.
void AfficherPageDAccueil();
/// Begins a mail to `adresse`.
void EcrireA(const QString& adresse);
