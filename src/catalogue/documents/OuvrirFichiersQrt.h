// The open flow: from the dialog or a path to a document window.
#pragma once

#include <QString>
#include <QStringList>

class Cadre;
class FenetreDocument;

/// File types, which are also the positions in the open dialog's list.
enum TypeOuverture {
    TypeTous = 1,          ///< "*.*": never a type to open with
    TypeQrt2 = 2,          ///< a catalogue; its first bytes tell the form
    TypeQrt14 = 3,         ///< the same: the type chosen does not decide
    PremierTypePlugIn = 4, ///< from here on, one for each plug-in that opens files
};

/// Opens `chemin` in a new window of `cadre`. True when a window was opened.
/// False, with a message: the file is open already ("msg48", only if `montrerMessages`; its window comes to the front),
/// does not exist ("msg49"), is no file ("msgDossier", "msgTube") or no catalogue ("msg50"), could not be copied
/// ("msg51") or extracted ("msg51", "msg52"). A file whose text the reader refuses leaves its window open with an empty
/// table, and the result is true. False without a message: no plug-in goes with `type`. With the setting
/// commentAtStartup the category's comments, if there are any, are shown before this returns. The document then has
/// nothing to save, even when the comments were changed. A file that opened becomes the most recent one; one that does
/// not exist leaves the list.
bool OuvrirFichier(Cadre& cadre, const QString& chemin, int type, bool montrerMessages);

/// Opens a catalogue as one that was never saved: it has no path, its first save asks for one, and it is not among the
/// recent files. Comments and results as with OuvrirFichier; the same file opens as often as it is asked for.
bool OuvrirCommeNeuf(Cadre& cadre, const QString& chemin);

/// Shows a document that has just been filled, in the view that the settings tell and with its comments where they
/// tell so, as one without unsaved changes.
void MontrerDocument(FenetreDocument& fenetre);

/// Plug-ins that open files, by file type: the first goes with PremierTypePlugIn. One empty element stands behind the
/// last. Rebuilt by OuvrirDialogue, of what OuvreursAjoutes finds.
extern QStringList PlugIns;

/// Shows the open dialog ("msg71") and opens what the user chooses. The dialog comes back after the type "*.*"
/// ("msg46") and after a single file that did not open; of several files each is tried, and those that did not open are
/// told ("msg47"). The folder is remembered.
void OuvrirDialogue(Cadre& cadre);
