// Paths as the system has them. To the system a name is bytes, which need not be UTF-8: disks hold names that older
// systems wrote in other code pages. In a QString such a byte is a low surrogate without its high one, U+DC80 to
// U+DCFF, which no text has; Qt's own functions know nothing of that, so that paths of the user's files go through
// these.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QIODevice>
#include <QString>

#include <sys/stat.h>

#include <optional>

class QFile;

/// The bytes of a path. OctetsDuChemin(CheminDesOctets(octets)) == octets for any bytes but zero; a path with a zero in
/// it names nothing, and has none.
QByteArray OctetsDuChemin(const QString& chemin);
QString CheminDesOctets(QByteArrayView octets);
/// Whether a path has bytes that are not UTF-8.
bool AOctetsBruts(const QString& chemin);
/// The path as a text that can be written anywhere: such a byte is the character that Windows-1252 has for it, in which
/// most of those names were written. It names the file no longer.
QString NomLisible(QString chemin);

/// The file that is meant by a path that somebody decoded with U+FFFD in the place of such bytes: the one whose name
/// looks so, as long as there is one only. The path itself where it names something or nothing is found.
QString RetrouverChemin(const QString& chemin);

/// The path from the root on, without "." and ".."; links stay as they are.
QString CheminAbsolu(const QString& chemin);
/// The folder in which the last name of CheminAbsolu stands, without a trailing separator; "/" for the root.
QString DossierDuChemin(const QString& chemin);

/// What lies at a path, links followed; nothing where that cannot be told.
std::optional<struct stat> EtatDuChemin(const QString& chemin);
bool EstFichier(const QString& chemin);
bool EstDossier(const QString& chemin);
/// Whether the path itself is a symbolic link.
bool EstLien(const QString& chemin);

/// Opens the file of a path in `fichier`, which is new and never opened; a missing file is made when it is to be
/// written to. False as QFile::open, and the error is that of the system (errno).
bool OuvrirParChemin(QFile& fichier, const QString& chemin, QIODevice::OpenMode mode);
bool SupprimerParChemin(const QString& chemin);
/// Puts a file in the place of another one.
bool RenommerParChemin(const QString& de, const QString& vers);
/// Copies the bytes and the rights of a file to a place where there is none; nothing is left there when that fails.
bool CopierParChemin(const QString& de, const QString& vers);
/// Makes a symbolic link: `vers` stands for `de` then, whose name need not be text.
bool LierParChemin(const QString& de, const QString& vers);
