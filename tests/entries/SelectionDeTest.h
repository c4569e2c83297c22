// The selection of a table, as tests make it and read it.
#pragma once

#include "catalogue/table/MyLV.h"

#include <QList>

#include <initializer_list>

/// Adds the entries in these positions to the selection.
inline void Choisir(MyLV& table, std::initializer_list<int> positions)
{
    for (const int position : positions)
        table.Selectionner(position, position, true);
}

/// The positions of the selected entries.
inline QList<int> Choisies(const MyLV& table)
{
    QList<int> choisies;
    for (int i = 1; i <= table.ListItems.Count(); ++i)
        if (table.EstSelectionnee(i))
            choisies.append(i);
    return choisies;
}
