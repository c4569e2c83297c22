// Sorting a table at the user's request.
#pragma once

#include <QString>

class MyLV;
class QrtClass;

/// The marker of the column that a list is sorted by. It says where the next click leads: "up" while the order is
/// descending.
QString MarqueDeTri(bool descendant);

/// A click on the title of column `colonne` (from 1): sorts by it, ascending, or turns the order round when it is the
/// column sorted by already. Its title alone then carries a marker. Entries with equal texts keep the order they had.
/// False, and nothing happens, when there is no such column.
bool TrierParColonne(MyLV& table, int colonne);
/// The same in a document, which has changed then.
bool TrierParColonne(QrtClass& doc, int colonne);

/// Puts the entries in order again, after values were written. Sorts also a table that was not sorted so far.
void Retrier(MyLV& table);
