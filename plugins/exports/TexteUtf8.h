// Texts as they stand in the files that are written.
#pragma once

#include <QByteArray>
#include <QStringView>

/// A text in quotes, as JSON has it. Quotes, backslashes, controls and the separators U+2028 and U+2029 are escaped; so
/// is half of a pair, which has no other spelling and comes back from there.
void AjouterJson(QByteArray& sortie, QStringView texte);

/// A text for the content of an element or an attribute in double quotes. What XML cannot hold is U+FFFD.
void AjouterXml(QByteArray& sortie, QStringView texte);

/// The paragraphs of a cell of a spreadsheet, whose blanks a reader would else take for one: a line each.
void AjouterParagraphes(QByteArray& sortie, QStringView texte);
/// How many bytes that adds.
qsizetype OctetsDesParagraphes(QStringView texte);
