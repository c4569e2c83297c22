// General routines of the whole program: named settings, ini files, paths.
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

/// Makes an ini file with this text, in the code page. False when there is a file already, or none can be made.
bool CreerIni(const QString& fichier, const QString& texte);

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

/// The program's folder with a trailing separator: lang, plugins, Zelvane.ini, astuces.txt.
QString DossierProgramme();
/// Full path of the settings file "Zelvane.ini".
QString FichierZelvaneIni();

/// 1-based index of the first selected entry, 0 when none is. For anything with ListItems as MyLV has them.
template<class Table> int PremiereSelection(const Table& table)
{
    return table.PremiereSelection();
}
