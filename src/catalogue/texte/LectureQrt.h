// Reads the text of a catalogue into its table.
#pragma once

#include <QByteArrayView>
#include <QString>

class QrtClass;

/// The text behind the first "="; all of the line when it has none.
QString ValeurLigne(const QString& ligne);
/// The same of a line in any encoding of catalogues.
QByteArrayView ValeurEnOctets(QByteArrayView ligne);

/// Larger texts are not read, in bytes: slices of the table have 32-bit lengths.
constexpr qint64 TailleDeTexteAuPlus = 0xFFFFFFF0LL;

/// Title of the loan column, "Prêté": the reader adds it where it is missing, and of several the last one is it.
QString TitrePrete();

/// What of a catalogue is wanted.
enum class Etendue {
    Tout,
    SansEntrees, ///< the same text is refused, and the table then has its columns alone
};

/// Fills the table from "Zelvane.qrt" in TmpFolder. A malformed value leaves what was there; a file that is none is
/// told ("msg50") and leaves an empty table. Sets IndexColPrete and dependantcol, and IlFautSauver when it had to add
/// the loan column.
void ChargerFichier(QrtClass& doc, Etendue etendue = Etendue::Tout);
/// The same, without a message: false when the text is none, and what the table then holds means nothing.
bool ChargerDossier(QrtClass& doc, Etendue etendue = Etendue::Tout);
/// The same, with a text in UTF-8 in place of the folder's.
bool ChargerTexteExact(QrtClass& doc, QByteArrayView utf8);
