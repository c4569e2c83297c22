// A list of numbers as options take it: "1,3,5-8". It is a set: order and repeats do not matter.
#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <vector>

/// A number of digits alone; nothing when the text is none, or one too large.
std::optional<int> LireNombre(const QString& texte);

class ListeDeNombres
{
public:
    /// Nothing when the text is no list: empty, something else than numbers, or a range that runs backwards.
    static std::optional<ListeDeNombres> Lire(const QString& texte);

    /// Which of the numbers 1 to `nombre` it names; nothing when it names another one.
    std::optional<std::vector<bool>> Parmi(int nombre) const;

private:
    std::vector<std::pair<int, int>> m_plages; // first and last number
};
