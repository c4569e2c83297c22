// Which column of a document records what is lent.
#pragma once

class QrtClass;

/// Looks for the loan column by its title and sets IndexColPrete: of several columns of that title the last one is it,
/// and -1 stands for none. True when there is one.
bool ChercherColPrete(QrtClass& doc);
