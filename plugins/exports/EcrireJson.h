// A category as JSON. The form is told in docs/exports.md.
#pragma once

#include "Fin.h"
#include "TableExportee.h"

/// Writes the file in pieces, whatever the table's size. It takes its place when it is whole; what was there before
/// stays where the result is another one than Fin::Faite.
Fin EcrireJson(const TableExportee& contenu, const QString& chemin, Progression& progression);

/// The keys of the values in an entry: the titles, each made different from the others and from "image". One without a
/// title is "colonne" and its number.
QStringList ClesDesColonnes(const QStringList& titres);
