// Prints a table: a category's, the results of a search, what a comparison found.
#pragma once

#include <QString>

class MyLV;

/// `dossier`, with a trailing separator, is where the print options and the picture at the top of the page lie; a
/// folder that there is not has neither. Returns whether the options changed: they are part of the document's file
/// then.
///
/// Printing is to come: nothing is printed, and nothing changes. Whoever would call it keeps its button disabled.
bool ImprimerListe(MyLV& table, const QString& dossier, const QString& titre);
