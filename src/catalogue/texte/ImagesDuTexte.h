// The image names in a catalogue's text, as bytes: for who changes them before the text is read.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>

/// All names that entries have.
QSet<QByteArray> ImagesNommees(const QByteArray& texte);

struct TexteRenomme
{
    QByteArray texte;
    QSet<QByteArray> vus; ///< the names that entries had
};

/// The text with image names replaced where entries have them, everything else as it stands. `noms`: the new name for
/// each old one, in the text's own encoding.
TexteRenomme RenommerImages(const QByteArray& texte, const QHash<QByteArray, QByteArray>& noms);
