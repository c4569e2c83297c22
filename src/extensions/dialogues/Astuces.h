// The tips of the day: a text file of one tip a line, in the code page, and the drawing of one of them.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class Hasard;

/// The file's lines, empty ones too. Nothing when `chemin` is empty, names no file or one that cannot be read.
std::optional<QStringList> LireAstuces(const QString& chemin);

/// Draws a tip of `nombre`: from 1 up to it. 1 also when there is none.
int TirerAstuce(qsizetype nombre, Hasard& hasard);
