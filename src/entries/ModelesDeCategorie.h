// Columns that usual collections have, for who does not want to start from an empty list.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A collection and the titles of its columns, in the language in force. The loan column is not among them.
struct ModeleDeCategorie
{
    QString nom;
    QStringList colonnes;
};

/// Records, books, films, comics, stamps, wine.
std::vector<ModeleDeCategorie> ModelesDeCategorie();
