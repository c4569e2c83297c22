// Prints a table: a category's, the results of a search, what a comparison found.
#pragma once

#include <QString>

class MyLV;

/// Asks by frmPrint, composes the pages, asks whether to go on, and prints. `dossier`, with a trailing separator, is
/// where the print options and the picture at the top of the page lie; a folder that there is not has neither. `titre`
/// names the table in the heading. Events run meanwhile; the table must stay.
///
/// Returns whether the options changed, printed or not: they are part of the document's file then.
bool ImprimerListe(MyLV& table, const QString& dossier, const QString& titre);
