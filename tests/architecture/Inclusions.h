// Reads the includes of a source tree and tells those that break the house: a lower floor that includes a higher one,
// and a screen header that is reached from the core.
#pragma once

#include <QString>
#include <QStringList>

#include <map>

/// Floors by folder, the ground floor has the lowest number. A file may include files of its own floor and of lower
/// ones.
using Etages = std::map<QString, int>;

struct ArbreDeSources
{
    QString racine;        ///< the folder below which every #include "..." is looked up
    Etages etages;         ///< a file in a folder without a floor is told
    QString enTetesQtCore; ///< folder of Qt Core's own headers: any other Qt header is not Qt Core's
};

/// All headers and sources below the root, as paths relative to it, in order.
QStringList FichiersDe(const ArbreDeSources& arbre);

/// One line for every #include "..." that leads upward, or to no file below the root.
QStringList InclusionsMontantes(const ArbreDeSources& arbre);

/// One line for every Qt header beyond Qt Core that the given files (relative to the root) include, themselves or
/// through headers of the tree.
QStringList InclusionsHorsQtCore(const ArbreDeSources& arbre, const QStringList& fichiers);

/// One line for every file of more than `lignes` lines.
QStringList FichiersTropLongs(const ArbreDeSources& arbre, int lignes);
