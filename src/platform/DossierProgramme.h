// The program's folder: lang, plugins, AideQrt, Zelvane.ini, astuces.txt. The program writes into it.
#pragma once

#include <QString>

/// Where the folder may be.
struct LieuxProgramme
{
    QString demande;      ///< asked for by the user (ZELVANE_DOSSIER); may be empty
    QString executable;   ///< folder of the executable
    QString utilisateur;  ///< the user's own: made when it is needed
    QString installation; ///< what an installation shares among users

    /// From the environment and the place of the executable: $XDG_DATA_HOME/zelvane, <prefix>/share/zelvane.
    static LieuxProgramme DuSysteme();
};

/// The program's folder with a trailing separator: the one asked for, else the executable's when it can be written and
/// holds "lang" (a portable copy), else the user's own. In the latter, links to the installed files are set where
/// they are missing.
QString ChoisirDossierProgramme(const LieuxProgramme& lieux);
