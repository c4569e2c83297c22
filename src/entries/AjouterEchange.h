// Makes entries of a category from the text in which they travel.
#pragma once

#include "entries/Correspondance.h"

#include <QStringList>

#include <optional>

class Avancement;
class EchangeLu;
class MyLV;

enum class Arrivee {
    Collees,  ///< with keys and images; the last field of a line is an image, and goes into no column but the first
    Deposees, ///< without keys and images; any field goes into any column
};

/// How entries arrive.
struct FaconDAjouter
{
    Arrivee arrivee = Arrivee::Collees;
    int copies = 1; ///< of each entry, itself included; less than one is one
};

/// False, with a word, when a category cannot hold so many entries more.
bool PeutTenir(const MyLV& table, const EchangeLu& echange, int copies);

/// The titles of a table's columns, for Correspondre.
QStringList TitresDe(const MyLV& table);

/// Adds an entry for each line, selected, with the values that `rangs` leads to its columns; copies stand behind it and
/// are not selected. In a sorted table all go to their places at the end. A value stands in the table as it came, on
/// one line. Returns the images of the entries, in the order of the lines; nothing when the user has given up: no entry
/// was added then.
std::optional<QStringList> AjouterEchange(MyLV& table, const EchangeLu& echange, const Correspondance& rangs,
                                          const FaconDAjouter& facon, Avancement& avancement);
