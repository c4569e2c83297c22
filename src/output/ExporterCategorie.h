// The export of a category into a file of another kind.
#pragma once

class Categorie;

/// Asks for the columns, then for the file, and writes it. `SelectionUniquement` is overwritten: whether only the
/// selected entries were asked for.
///
/// The export is to come: nothing is asked or written. Whoever would call it keeps its button disabled.
void ExporterCategorie(Categorie& doc, bool& SelectionUniquement);
