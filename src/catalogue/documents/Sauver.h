// The save flow: whether, where and in which form a document is written.
#pragma once

#include <QString>

class Cadre;
class Categorie;
class FenetreDocument;

/// True while a save runs: a window refuses to close then. One flag for the whole program.
extern bool EnCoursDeSauvegarde;

/// The types of the file dialogs for catalogues, "*.*" first; plug-ins append theirs when opening.
QString FiltreDesCatalogues();

/// Saves `doc`. `saveAs`: asks for a path and a type first, as a document without a path always does. Without
/// `sansQuestion` an unchanged document is left alone, and a changed one asks whether to save it.
/// True when the caller may go on: saved, nothing to do, or the changes are to be dropped. Messages: "msg59" to
/// "msg63", "msg46", "msg72"; "msgArchive" when the archive could not be written in full. Asked for again by an event
/// while it runs, it does nothing and returns false.
bool Enregistrer(Categorie& doc, bool saveAs, bool sansQuestion);

/// Whether the window of `doc` may close: no save runs, and its changes are saved or to be dropped. Asks about them.
/// What was saved is on the disk then: the folder may go.
bool PeutFermer(Categorie& doc);
/// The same for the document of a window, which comes to the front where there is something to ask.
bool PeutFermer(Cadre& cadre, FenetreDocument& fenetre);

/// Saves every open document without a question, changed or not, oldest window first; one without a path goes through
/// Save As. One that is not saved does not keep the next from it. Each tab then shows the name of its document's file.
void EnregistrerTout(Cadre& cadre);
