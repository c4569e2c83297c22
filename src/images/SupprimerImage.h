// Deletes images of a category, with the question frmSupprImg.
#pragma once

#include <QString>

/// Deletes the image file `chemin`, a full path as FichierImage makes it; see Bibliotheque for `mode` and the result.
/// An empty path is no file: false, without a question.
bool SupprimerImage(const QString& chemin, int& mode);

/// Shows the image and asks whether it is to be deleted from the category. Returns a ReponseSupprImg.
int DemanderSupprImg(const QString& chemin);
