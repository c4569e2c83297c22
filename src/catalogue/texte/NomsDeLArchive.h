// Entries of an archive whose names no file can have: the pictures among them keep their place in the catalogue.
#pragma once

class QrtClass;
class ccZip;

/// For an archive that was extracted into the document's folder, before the text is read. What got another name there
/// and is the picture of an entry keeps it, and the text of the folder names it so; anything else is deleted. The user
/// is told then ("msgNoms"). False when the text cannot be written.
bool AccorderNoms(const QrtClass& doc, ccZip& archive);
