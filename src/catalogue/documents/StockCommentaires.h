// Where the comments of a category lie, as their dialog sees it. The catalogue, a floor above, implements it.
#pragma once

#include <QString>

#include <optional>

class StockCommentaires
{
public:
    virtual ~StockCommentaires() = default;

    /// The whole text of the comment file `chemin`, its lines divided by "\n". Nothing when there is no such file.
    virtual std::optional<QString> Lire(const QString& chemin) = 0;
    /// Replaces the comment file or creates it; an empty text becomes a single line break. False when that fails: the
    /// comments are then what they were.
    virtual bool Ecrire(const QString& chemin, const QString& texte) = 0;
};
