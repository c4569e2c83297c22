// A file becomes an image of a category: what the library calls it, and what is asked where it has that name already.
#pragma once

#include <QString>

#include <optional>

class QWidget;

/// Copies `fichier` into `dossier`, the category's, under `nom`. Where a file has that name, the user chooses between
/// the two, or another name for the new one; what is asked stands over `parent`. Returns the name that the image has
/// now: empty when the user wants neither; nothing when it could not be copied.
std::optional<QString> AjouterImage(const QString& dossier, const QString& fichier, const QString& nom,
                                    QWidget* parent);
