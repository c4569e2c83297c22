// General routines of the whole program: named settings, ini files, paths, temporary folders.
#pragma once

#include "base/AfficherMsg.h"

#include <QString>
#include <QVariant>

/// The named setting `cle` (any case) of the section "Options" as text, or `defaut` as given if there is none.
QVariant LireOption(const QString& cle, const QVariant& defaut);
/// Stores `valeur` as text under `cle`.
void EcrireOption(const QString& cle, const QVariant& valeur);
/// True when a setting's value equals `nombre` as a number; a text that is no number never does.
bool OptionEgale(const QVariant& valeur, double nombre);

/// One key of an ini file in the code page, at most 1024 characters; `defaut` when file, section or key is missing.
QString LireIni(const QString& fichier, const QString& section, const QString& cle, const QString& defaut);

/// "1" or "0".
QString BoolVersTexte(bool valeur);
/// False for "0", true for anything else, the empty text too.
bool TexteVersBool(const QString& texte);
/// The larger of the text's length and the number.
int LongueurMax(const QString& texte, int nombre);
/// The larger number.
int PlusGrand(int a, int b);

/// `chemin` with a trailing separator; "\" counts as one too.
QString AjouterSlash(const QString& chemin);
/// What follows the last separator.
QString NomDeFichier(const QString& chemin);
/// What follows the last ".", in lower case; the whole name in lower case when it has none.
QString ExtensionDe(const QString& nom);

/// Deletes the folder with all it holds, errors ignored; unless `sansRecreer`, creates it again, empty.
/// Links are removed, never followed.
void SupprimerDossier(const QString& chemin, bool sansRecreer);

/// Base of the documents' temporary folders.
extern QString TempFolder;
/// Draws the folder of a document below TempFolder, "cat" and a number from 1 to 500, creates it and returns its path
/// with a trailing separator. A folder that an open document of this run holds is never drawn.
QString CreerDossierTemp();

/// The program's folder with a trailing separator: lang, plugins, Zelvane.ini, astuces.txt.
QString DossierProgramme();

/// 1-based index of the first selected entry, 0 when none is. For anything with ListItems as MyLV has them.
template<class Table> int PremiereSelection(const Table& table) { return table.PremiereSelection(); }
