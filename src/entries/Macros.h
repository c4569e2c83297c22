// The macros that a user can type in a value: each becomes the date or the time as soon as it stands there.
//
//   %d  05/03/2026      %j  5       %h  9:7
//   %t  2026-03-05      %m  3
//   %D  05 mars 2026    %a  2026
#pragma once

#include <QDateTime>
#include <QString>

/// A text with the place of its caret, from 0 (before the first character) to its length.
struct TexteSaisi
{
    QString texte;
    qsizetype caret = 0;
};

/// Replaces all macros by the date and time `maintenant`; case counts. The month of %D is in the language of
/// the user's region, the rest is the same everywhere. The caret moves by what one replacement adds, once for each
/// macro that was found, however often it occurs.
TexteSaisi DevelopperMacros(TexteSaisi saisi, const QDateTime& maintenant);
