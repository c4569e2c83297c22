// The dependant column of a category: entries that carry the same text in it belong together, and what is done to one
// may be carried to all of them. Texts are compared exactly, case included; empty ones are equal too.
#pragma once

#include "catalogue/table/MyLV.h"

#include <QString>

class QrtClass;

/// Whether the category has a dependant column. A number that names no column, as after one was deleted, is none.
bool EstDependante(const QrtClass& doc);

/// The entry's text in the dependant column. The category has one.
QString ValeurDependante(const QrtClass& doc, const ListItemLu& entree);
