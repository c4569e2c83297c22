// Numbers in texts, without regard to the locale: settings, ini files and catalogue files travel between machines.
//
// "Whole text" below: blanks around the number, then a sign, digits with at most one comma or point before decimals,
// and an exponent ("-1,5e2"). Anything else in the text makes it no number, and so does a number out of range.
#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

/// The number that a text starts with, its decimals behind a point; 0 when it starts with none. Blanks before it are
/// skipped, exponents and whatever else follows the digits are not read.
double Val(QStringView texte);

/// The whole text as a number.
std::optional<double> VersDouble(QStringView texte);
/// The whole text as a single-precision number. One too small to be told from 0 is 0.
std::optional<float> VersSimple(QStringView texte);
/// The whole text as an integer; decimals are rounded, a half goes to the even neighbour.
std::optional<int16_t> VersEntier16(QStringView texte);
std::optional<int32_t> VersEntier32(QStringView texte);

/// A number rounded to an integer as above; nothing when it is out of range or no number.
std::optional<int16_t> ArrondirEntier16(double nombre);
std::optional<int32_t> ArrondirEntier32(double nombre);

/// The shortest text that VersSimple reads back as the same number, with a comma before decimals: "1000", "8,25". From
/// 1E+15 up and below 0.0001 it has an exponent: "1,5E+20". What is no finite number is "0".
QString SimpleVersTexte(float nombre);
