// Writes a catalogue: calls around Categorie::Ecrire, and the bare text of form 1.4.
#pragma once

class Categorie;
class QrtClass;

/// Categorie::Ecrire for who asks no more than whether the category counts as saved. That is so also where the archive
/// is not whole, as the data live in TmpFolder then.
bool EcrireFichier(Categorie& doc, bool selection);
/// Tells that the archive is not whole and where the data are.
void MsgArchiveIncomplete(const QrtClass& doc);

/// Writes the bare text of form 1.4 at CheminReel. False when there are no columns or the text could not be written.
bool EcrireFichier14(Categorie& doc, bool selection);
/// Writes the text files of the folder alone, all or none: what was just saved in form 1.4 is what a search finds.
/// False when they stay as they were.
bool EcrireTextesDuDossier(const Categorie& doc);
/// Asks whether characters that form 1.4 cannot hold may become "?"; true at once when there are none. For whoever is
/// about to call EcrireFichier14.
bool AccepterPerteDeCaracteres(const QrtClass& doc);
