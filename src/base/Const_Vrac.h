// General routines of the whole program: named settings, ini files, paths, temporary folders.
#pragma once

#include "base/AfficherMsg.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

/// The named setting `cle` (any case) of the section "Options" as text, or `defaut` as given if there is none. The keys
/// that the program has, with their types and defaults, are those of Options.h.
QVariant LireOption(const QString& cle, const QVariant& defaut);
/// Stores `valeur` as text under `cle`, a boolean as "1" or "0", and tells who follows the key (SuivreOption).
void EcrireOption(const QString& cle, const QVariant& valeur);
/// A setting's value as a number, read with a comma or a point; nothing when it is none.
std::optional<double> OptionEnNombre(const QVariant& valeur);
/// True when a setting's value equals `nombre` as a number, read with a comma or a point; a text that is no number
/// never does.
bool OptionEgale(const QVariant& valeur, double nombre);

/// One key of an ini file in the code page, at most 1024 characters; `defaut` when file, section or key is missing.
QString LireIni(const QString& fichier, const QString& section, const QString& cle, const QString& defaut);

/// Writes one key of an ini file; creates file and section as needed. False when the file cannot be written or hold
/// the text (see TexteIni::Ecrire): it is then as it was.
bool EcrireIni(const QString& fichier, const QString& section, const QString& cle, const QString& valeur);

/// Associates catalogue files with the program. Failures are not looked at.
void EnregistrerAssociation();

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
/// What follows the last separator, "/" or "\".
QString NomDeFichier(const QString& chemin);
/// What follows the last ".", in lower case; the whole name in lower case when it has none.
QString ExtensionDe(const QString& nom);

/// Deletes the folder with all it holds, errors ignored; unless `sansRecreer`, creates it again, empty. Links are
/// removed, never followed. With `sansRecreer` the folder is free to be drawn again, and the rescue copy of a
/// document's folder goes with it. An empty path is no folder.
void SupprimerDossier(const QString& chemin, bool sansRecreer);

/// Base of the documents' temporary folders.
extern QString TempFolder;
/// Takes TempFolder from the settings; when there is no such folder, it is "temp" in the program's folder, which is
/// created. Also done by CreerDossierTemp when nobody has.
void InitialiserTempFolder();
/// Draws the folder of a document below TempFolder, "cat" and a number from 1 to 500, creates it and returns its path
/// with a trailing separator. A folder that an open document of this run or of another process holds is drawn again,
/// and so is a link, and what an earlier run left behind. When no number is left, those from 501 up are tried in order.
QString CreerDossierTemp();
/// Makes the folder of a document anew where it was taken away from outside, as CreerDossierTemp made it, and holds it
/// again. Returns its path: another one where somebody else's folder has taken the place.
QString RetablirDossierTemp(const QString& dossier);
/// The rescue copy that belongs to a document's folder: a file beside it, named like it and ".secours".
QString FichierDeSecours(const QString& dossier);
/// The folders drawn by this run and not deleted since, for a program that tidies up before it ends.
QStringList DossiersTempTenus();

/// The program's folder with a trailing separator: lang, plugins, Zelvane.ini, astuces.txt.
QString DossierProgramme();
/// Full path of the settings file "Zelvane.ini".
QString FichierZelvaneIni();

/// 1-based index of the first selected entry, 0 when none is. For anything with ListItems as MyLV has them.
template<class Table> int PremiereSelection(const Table& table)
{
    return table.PremiereSelection();
}
