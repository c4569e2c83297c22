// Reads the includes of a source tree and tells those that break the house: a lower floor that includes a higher one,
// and a screen header that is reached from the core.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>

/// Floors by room, which is a folder: the ground floor has the lowest number. A file may include files of its own room
/// and of lower floors.
using Etages = std::map<QString, int>;

/// Reads a list of rooms: the lowest floor first, the rooms of a floor on one line; lines that begin with # are
/// comments.
Etages LireEtages(const QByteArray& liste);

struct ArbreDeSources
{
    QString racine;        ///< the folder below which every #include "..." is looked up
    Etages etages;         ///< a file in a folder that is no room is told
    QString enTetesQtCore; ///< folder of Qt Core's own headers: any other Qt header is not Qt Core's
};

/// All headers and sources below the root, as paths relative to it, in order.
QStringList FichiersDe(const ArbreDeSources& arbre);

/// One line for every #include "..." that leads upward, to another room of the same floor, or to no file below the
/// root.
QStringList InclusionsMontantes(const ArbreDeSources& arbre);

/// One line for every Qt header beyond Qt Core that the given files (relative to the root) include, themselves or
/// through headers of the tree.
QStringList InclusionsHorsQtCore(const ArbreDeSources& arbre, const QStringList& fichiers);

/// One line for every file of more than `lignes` lines.
QStringList FichiersTropLongs(const ArbreDeSources& arbre, int lignes);
