// Files of a document's folder that somebody else has deleted, such as a cleaner of temporary folders.
#pragma once

class Categorie;

/// Before the archive is written: has all in the folder that the old archive had. What is gone from there and was not
/// deleted by the program comes back from that archive, the folder itself too. Where a picture of an entry or a file of
/// the program's own cannot come back as it was last, the user is asked whether to save without it ("msgDisparus").
/// False after a no: then nothing is to be written. For whoever is about to call EcrireFichier.
///
/// A picture that was not there when the document was opened is not asked about.
bool RetablirDisparus(Categorie& doc);
