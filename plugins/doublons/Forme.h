// What of a cell is compared when entries are to be nearly equal.
#pragma once

#include <QStringView>

#include <string>

/// A cell without what people write now so, now so: case, accents, punctuation, blanks, and an article at the start or,
/// after a comma or in brackets, at the end.
struct Forme
{
    std::u16string suite; ///< its words in their order, without blanks between them
    std::u16string triee; ///< the same, the words sorted
    std::u16string
        nombres; ///< the numbers in it, sorted and each followed by a blank: one that differs is no typing error
};

/// A text in which nothing but such things stands, as "?!", keeps them.
Forme FormeDe(QStringView texte);

/// The shortest text that may have a typing error, and the shortest that may have two: in a shorter one, a letter makes
/// another word of it.
constexpr qsizetype AvecFaute = 6;
constexpr qsizetype AvecDeux = 16;
/// Beyond this length no errors are looked for.
constexpr qsizetype LongueurMax = 200;

/// How many typing errors two texts of these lengths may differ by: one letter more or less, another one, or two
/// neighbours swapped.
int FautesPermises(qsizetype a, qsizetype b);

/// Whether `a` becomes `b` by at most `fautes` typing errors (0 to 2).
bool AFautesPres(std::u16string_view a, std::u16string_view b, int fautes);

/// Whether two cells are nearly equal.
bool PresqueEgales(const Forme& a, const Forme& b);
