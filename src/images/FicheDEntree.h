// One entry as a text to read.
#pragma once

#include <QString>

class MyLV;

/// All columns of entry `numero` (from 1) but the first: for each its title in angle brackets, the value on the next
/// line, and an empty line. Empty for an entry that is not there.
QString FicheDEntree(const MyLV& table, int numero);
