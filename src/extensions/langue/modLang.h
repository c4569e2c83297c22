// Messages and languages: every text shown is looked up here, and recorded in lang/default.ini when it is not found.
//
// A language is an ini file in the folder "lang" of the program's folder; its messages stand in the section [other].
// Texts in it have escapes for line breaks. A look-up answers from what the file holds at that moment.
#pragma once

#include "base/Message.h"

#include <QString>
#include <QStringList>

/// Full path of the current language file; empty when there is none and the program speaks French.
extern QString FichierLangue;

/// The text of message `cle` in the language in force, or `defaut`, which is then recorded for translators. Place
/// holders ("%1") are the caller's to replace. While lang/default.ini is the language in force, a text there that the
/// program recorded from another place with the same key is none: `defaut` is taken, and recorded in its place.
Message LangMsg(const QString& cle, const QString& defaut);

/// All texts of a key that several places use with different texts; empty for any other key.
QStringList TextesDuProgramme(const QString& cle);

/// Records a message in lang/default.ini. Nothing happens without a folder lang, or when the file cannot be written.
void EnregistrerDefaut(const QString& cle, const QString& defaut);

/// Makes the language `nom` (no folder, no extension) the one in force. False when there is no such file: the language
/// stays, unless `nom` is empty, which is French.
bool ChargerLangue(const QString& nom);

/// Names of the languages there are, in the order in which the file system tells them; "default" is one like any other.
QStringList ListeLangues();

/// A key of an ini file, or `defaut` when it is missing or empty. An empty `section` is the program's name, an empty
/// `fichier` the file of that name and ".ini" in the program's folder. A failing read is shown; a missing file is none.
QString LireProfil(const QString& cle, const QString& defaut, const QString& section, const QString& fichier);

/// Writes a key, with the same two defaults. False when that fails.
bool EcrireProfil(const QString& cle, const QString& valeur, const QString& section, const QString& fichier);

/// Puts the escapes in: "\\" for a backslash, "\r" for a carriage return, "\f" for a line feed.
QString EncoderTexte(const QString& texte);
/// Takes the escapes out, "\r" first: a backslash before an "r" or an "f" does not come back. Files rely on that order.
QString DecoderTexte(const QString& texte);
