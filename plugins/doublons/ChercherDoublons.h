// Finds the entries of a table that are equal, or nearly equal, in some of its columns.
//
// Every entry of a group is so to the first one of the group, not only to some other one: what is deleted because of
// the first has always been compared with it.
#pragma once

#include "Groupes.h"

#include <QList>
#include <QStringList>

#include <optional>

class Suivi;

/// The table that is searched. Rows and columns count from 1.
class Source
{
public:
    virtual ~Source() = default;
    virtual int Lignes() const = 0;
    virtual int Colonnes() const = 0;
    /// The cells of these columns in `nombre` rows, row by row; fewer where the table ends.
    virtual QStringList Lire(const QList<int>& colonnes, int premiere, int nombre) const = 0;
    /// The images of these rows, an empty text where there is none; fewer where the table ends.
    virtual QStringList Images(int premiere, int nombre) const = 0;
};

enum class Mesure {
    Egales,        ///< the same text, but for blanks at its ends
    PresqueEgales, ///< see Forme.h
};

enum class Vides {
    CommeLesAutres, ///< an empty cell is equal to an empty one
    SaufToutes,     ///< entries with nothing at all in the columns are left out
    SaufUne,        ///< entries with nothing in one of them are left out
};

struct Demande
{
    QList<int> colonnes; ///< at least one
    Mesure mesure = Mesure::Egales;
    Vides vides = Vides::SaufToutes;
    int colonnePret = 0; ///< where a text says that the entry is lent; 0 for none
};

/// The groups in the order of their first entries; nothing when it was given up. Of each group it knows the most
/// complete entry: that with the most cells filled, its image among them, then with the longest texts, then the first.
std::optional<Groupes> ChercherDoublons(const Source& source, const Demande& demande, Suivi& suivi);
