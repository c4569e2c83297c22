// The exact text of a catalogue whose characters go beyond the 8-bit code page: the file "Zelvane.utf8" of a
// document's folder, which travels in the archive beside "Zelvane.qrt".
//
// It holds the catalogue's text in UTF-8 and behind it, when the comment needs it, the line "[Zelvane.txt]" and the
// comment's text. Reducing replaces each character that the code page lacks by one "?", so the first n characters, n
// being the size of "Zelvane.qrt" in bytes, are the catalogue's. Text that reduces to something else than the 8-bit
// file is stale: an older program has written that file since.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace TexteExact {

/// Name of the file in a document's folder.
QString NomDuFichier();
/// The line between the catalogue's text and the comment's, with its line end.
QByteArray Separateur();

/// Where the text behind `huitBits` begins in `utf8`: as many characters further as `huitBits` has bytes. Nothing when
/// the characters before do not reduce to `huitBits`, or are not UTF-8.
std::optional<qsizetype> FinDuTexteReduit(QByteArrayView utf8, QByteArrayView huitBits);

/// What the exact file of `dossier` holds for a catalogue text and a comment text, where it is not stale.
struct Contenu
{
    std::optional<QByteArray> catalogue;
    std::optional<QByteArray> commentaire;
    QByteArray octets;      ///< all of the file, also a stale one
    bool illisible = false; ///< it is there and cannot be read: what it holds must not be taken for nothing
};
Contenu Lire(const QString& dossier, QByteArrayView catalogue, QByteArrayView commentaire);

/// The comment of the folder: exact where that is not stale, else as the 8-bit file has it. Nothing without a file.
std::optional<QString> LireCommentaire(const QString& dossier);

} // namespace TexteExact
