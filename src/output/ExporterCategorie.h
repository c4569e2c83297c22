// The export of a category into a file of another kind.
#pragma once

#include <QStringList>

class Categorie;

/// Plug-ins that export, by file type: the first one has the index 1 and goes with the seventh type of the dialog. One
/// spare element stands at the end. Made anew by each export, of what ExporteursAjoutes finds.
extern QStringList NomsPluginsExport;

/// Asks for the columns, then for the file ("msg46" without a type), and writes it; the folder is remembered. A file
/// that is there is overwritten, as the user chose it; of a catalogue he is asked first ("msgExportSurCatalogue"). What
/// fails from there on is not told. `selectionUniquement` becomes whether only the selected entries were asked for.
void ExporterCategorie(Categorie& doc, bool& selectionUniquement);
