// The comments of a category: the file "Zelvane.txt" of the document's folder, which travels in the archive.
//
// It is text in the code page with CR LF at the line ends. Comments that the code page cannot hold have their exact
// text in "Zelvane.utf8" beside it, see TexteExact. A folder is given by its path with a trailing separator.
#pragma once

#include <QString>

#include <optional>

namespace Commentaires {

/// Name of the file in a document's folder.
QString NomDuFichier();

/// The comments as they were last written, their lines divided by "\n" whatever the file's line ends are. Nothing
/// without a file.
std::optional<QString> Lire(const QString& dossier);

/// Writes the comments; an empty text becomes a single line end. What "Zelvane.utf8" holds for the catalogue's text
/// stays. False when that fails; as long as the files can be replaced at all, both are then as they were.
bool Ecrire(const QString& dossier, const QString& texte);

/// Whether there is something to show when the category opens: a file that holds anything but a single line end.
bool AMontrer(const QString& dossier);

} // namespace Commentaires
