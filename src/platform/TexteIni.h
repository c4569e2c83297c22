// The text of an ini file, byte for byte: looking a key up, and writing or removing one line without touching another.
//
// A section starts at a line "[name]" and ends before the next one. A key's line is "name=value". Names are compared
// without case, the first match wins, and blanks around names and values do not count. Lines that start with ";" are
// comments. Lines end with CR LF, LF or CR; the text is in the code page.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace TexteIni {

/// A value read has at most so many characters.
constexpr qsizetype LongueurMax = 1024;

/// The value of a key, without one pair of enclosing quotes, cut to LongueurMax and at the first NUL. Nothing when
/// there is no such key in the first section of that name.
std::optional<QString> Lire(QByteArrayView texte, QStringView section, QStringView cle);

/// Hands over each key of the first section of that name with the bytes behind its "=", in file order, from first to
/// last in one pass. Of two keys that share a name Lire knows the first.
void Parcourir(QByteArrayView texte, QStringView section,
               const std::function<void(QByteArrayView cle, QByteArrayView valeur)>& visiter);
/// What Lire gives for these bytes behind a "=".
QString Valeur(QByteArrayView octets);
/// What Lire gives once this value was written.
QString CommeRelue(QStringView valeur);

/// The text with the key's line replaced or added, and the section added at the end when it is missing. Nothing when
/// an ini file cannot hold it: a line break in name or value, an empty key, a key with "=" in it or that starts with
/// "[" or ";", a section with "]" in it. A value is cut at the first NUL.
std::optional<QByteArray> Ecrire(QByteArrayView texte, QStringView section, QStringView cle, QStringView valeur);

/// The same for several keys, as if they were written one after the other, in one pass. Nothing when one of them cannot
/// be held.
using Cles = std::vector<std::pair<QString, QString>>; ///< names and values
std::optional<QByteArray> EcrireCles(QByteArrayView texte, QStringView section, const Cles& cles);

/// The text without the key's line.
QByteArray SupprimerCle(QByteArrayView texte, QStringView section, QStringView cle);

/// The text without the section, its comments included.
QByteArray SupprimerSection(QByteArrayView texte, QStringView section);

} // namespace TexteIni
