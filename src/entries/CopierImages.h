// The images of entries that came from another category: their files are copied from its folder.
#pragma once

#include "images/Bibliotheque.h"

#include <QString>
#include <QStringList>

/// What is asked where the category has a file of that name already. For each image anew.
class QuestionsDImage
{
public:
    virtual ~QuestionsDImage() = default;
    /// Whether the file on the left, the category's, is to be replaced by the one on the right. Full paths.
    virtual bool Remplacer(const QString& gauche, const QString& droite) = 0;
    /// Whether the new file is to be kept under another name. No entry shows it then: entries keep the name that they
    /// came with. It is meant.
    virtual bool Renommer() = 0;
};

/// Copies the images from the folder `source` into `cible`; returns how many could not be. Nothing else than these two
/// folders is read or written: neither what a name with a path in it leads to, nor what a link does, and no file that
/// is not named like an image.
int CopierImages(const QStringList& noms, const QString& source, const QString& cible, QuestionsDImage& questions,
                 const EntreDeuxPas& entreDeuxPas = {});

/// One word for all that could not be copied; none for none.
void DireImagesNonCopiees(int nombre);
