// Writes a category into a file of another kind: pages, a framed text, tables of semicolons or tabs. Nobody is told
// anything; who called asks what became of it.
#pragma once

#include "base/Avancement.h"
#include "output/Ecrivain.h"

#include <QFile>
#include <QIODevice>
#include <QString>

class QrtClass;

enum class GenreExport { PageAvecImages, PageSansImages, TexteEncadre, PointsVirgules, Tabulations };

struct IssueExport
{
    bool texteEntier = true; ///< the device took every byte
    int imagesPerdues = 0;   ///< images of the category that are not beside the page

    bool EstEntiere() const { return texteEntier && imagesPerdues == 0; }
};

/// Makes the file of an export, or empties the one that is there. `fichier` is new. False when that cannot be.
bool CreerExport(QFile& fichier, const QString& chemin);

/// Writes the export to `sortie`, which is open and without a buffer. `chemin`: where the file lies; images go to the
/// folder "images" beside it, and those that lie there already stay. The document must not change meanwhile.
///
/// The file is in Windows-1252. A character that this lacks is a numeric reference in a page; a text that would lack
/// one is in UTF-8 with its byte order mark, all of it.
IssueExport EcrireExport(const QrtClass& doc, GenreExport genre, const ChoixExport& choix, QIODevice& sortie,
                         const QString& chemin, Avancement& avancement);
