// Printing of a table. The command is not there yet.
#pragma once

#include <QString>

class MyLV;

/// Prints a table under a title; its print options lie in `folder`. True when the options were changed.
bool ImprimerListe(MyLV& table, const QString& folder, const QString& title);
