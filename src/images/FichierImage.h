// From the image name of an entry to its file.
//
// An image is a bare name of a file in the document's folder. A name with a separator in it, "/" or "\", leads
// elsewhere and names no file: such a file is never opened, copied or deleted. Whoever needs the file of an entry's
// image asks here.
#pragma once

#include <QString>

/// The full path of the image `nom` in `dossier` (with its trailing separator); empty when it names no file there.
QString FichierImage(const QString& dossier, const QString& nom);

/// The marker of an entry with this image: "noico" without one, "ico" when its file is there, "icoerror" when not.
QString IconeImage(const QString& dossier, const QString& nom);
