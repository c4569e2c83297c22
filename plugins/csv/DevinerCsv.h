// What a table of text seems to be: encoding, separator, quotes, titles, and its columns.
#pragma once

#include "LecteurCsv.h"

/// The first rows of a file, and what they tell of its columns.
struct ApercuCsv
{
    QList<LigneCsv> lignes; ///< without empty ones; the first holds the titles where there are some
    qsizetype colonnes = 0; ///< as many as the titles or most of the rows have
};

/// The rows that a preview looks at. Of a longer text only its beginning is read.
ApercuCsv LireApercu(QIODevice& texte, const FormatCsv& format);

/// The format that makes the rows most alike. `extension` ("tsv") counts where the text does not tell.
FormatCsv DevinerFormat(QIODevice& texte, const QString& extension);
/// Separator, quotes and titles anew, of a text in this encoding.
FormatCsv DevinerFormat(QIODevice& texte, const QString& extension, CodageCsv codage);

/// One title a column: that of the file, or "Colonne 3" where it has none. No two are equal, and none holds what no
/// title can.
QStringList TitresDeColonnes(const ApercuCsv& apercu, bool entete);
/// The column that holds nothing but paths of images, some of which are there, from 0; -1 for none. `dossier`: that of
/// the file, with its trailing separator.
qsizetype ColonneDImages(const ApercuCsv& apercu, bool entete, const QString& dossier);
