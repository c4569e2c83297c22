// Lets the user choose an image of the category, with the dialog frmChangeImage.
#pragma once

#include <QString>

/// `dossier`: the document's folder with its trailing separator; `nomActuel`: the entry's image, or empty. Returns the
/// name of the image chosen, "#" for no image, or the empty text for no change. The folder's files may have changed in
/// any case: images are added and deleted at once.
QString ChoisirImage(const QString& dossier, const QString& nomActuel);
