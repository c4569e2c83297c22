// The 8-bit code page of catalogue files, ini files and tips: Windows-1252.
//
// The table comes from ICU. The five bytes that the code page leaves open (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the
// control characters of the same number and back, so that every byte survives a load and a save.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <array>

namespace PageDeCode {

/// The UTF-16 unit of each byte; every byte has one.
const std::array<char16_t, 256>& TableVersUnicode();

/// The byte of a UTF-16 unit, or -1 when the code page lacks it. No best-fit replacement.
int OctetDe(char16_t unite);

/// Decodes bytes; never fails.
QString VersTexte(QByteArrayView octets);

/// Appends the bytes as UTF-8, as VersTexte(octets).toUtf8() would give them.
void AjouterEnUtf8(QByteArray& sortie, QByteArrayView octets);

/// Encodes a text; each character (a surrogate pair is one) that the code page lacks becomes "?".
QByteArray VersOctets(QStringView texte);

/// True when VersOctets(texte) loses nothing.
bool EstRepresentable(QStringView texte);

/// Decodes UTF-8 as it stands, a byte order mark in front included: that is a character of the value or the name. Never
/// fails.
QString DeUtf8(QByteArrayView utf8);

/// Reduces UTF-8 to the code page as VersOctets does. What is not UTF-8 becomes "?".
QByteArray ReduireUtf8(QByteArrayView utf8);

} // namespace PageDeCode
