// The catalogue file: telling its form, reading its text into the table, writing it.
#pragma once

#include "catalogue/texte/Categorie.h"

#include <QByteArrayView>
#include <QString>

/// 0: not a catalogue file; 1: bare text file; 2: archive that holds "Zelvane.qrt". Shows "trap" and returns 0 when
/// the file cannot be read.
int TypeFichier(const QString& chemin);

/// The text behind the first "="; all of the line when it has none.
QString ValeurLigne(const QString& ligne);

/// Title of the loan column, "Prêté": the reader adds it where it is missing, and of several the last one is it.
QString TitrePrete();

/// Fills the table from "Zelvane.qrt" in TmpFolder. A malformed value leaves what was there; a file that is none is
/// told ("msg50") and leaves an empty table. Sets IndexColPrete and dependantcol, and IlFautSauver when it had to add
/// the loan column.
void ChargerFichier(QrtClass& doc);
/// The same, without a message: false when the text is none, and what the table then holds means nothing.
bool ChargerDossier(QrtClass& doc);
/// The same, with a text in UTF-8 in place of the folder's.
bool ChargerTexteExact(QrtClass& doc, QByteArrayView utf8);

/// Categorie::Ecrire for who asks no more than whether the category counts as saved. That is so also where the archive
/// is not whole, as the data live in TmpFolder then.
bool EcrireFichier(Categorie& doc, bool selection);
/// Tells that the archive is not whole and where the data are.
void MsgArchiveIncomplete(const QrtClass& doc);

/// Writes the bare text of form 1.4 at CheminReel. False when there are no columns or the text could not be written.
bool EcrireFichier14(Categorie& doc, bool selection);
/// Asks whether characters that form 1.4 cannot hold may become "?"; true at once when there are none. For whoever is
/// about to call EcrireFichier14.
bool AccepterPerteDeCaracteres(const QrtClass& doc);
