// From the archive of a document to its folder.
#pragma once

class Categorie;

/// Extracts CheminReel into TmpFolder, asking for a password where one is needed, and first of all when it would become
/// unusually large ("msgVolume"). Entries that cannot keep their names are told ("msgNoms"). Shows "msg51" or "msg52",
/// clears the table and returns false when that fails; after a no to the size without another message.
bool ExtraireArchive(Categorie& doc);
