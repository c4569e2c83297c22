// What lending and return do to the table of a document. A loan is a text in the cell of the loan column
// (IndexColPrete): the borrower, " - " and a date; an empty cell is not lent. A cell that was never written reads as
// empty.
#pragma once

#include <QString>

#include <functional>

class Avancement;
class QrtClass;

/// Which entries a command acts on, in a category with a dependant column.
enum class Portee {
    Selection,
    Dependantes, ///< also those that have the dependant value of a selected one; they are selected then
};

struct Pret
{
    QString nom;
    QString date;
};

/// What a loan writes: "Paul - 13/09/2005".
QString TexteDuPret(const Pret& pret);

// Both below: IndexColPrete is that of a column.

/// Marks the selected entries as lent, from the last to the first. Those that are lent already keep their loan until
/// `remplacer`, asked for each of them, says yes once. A loan that is replaced in the first column is the bare name: it
/// is meant. The document has changed then.
void PreterEntrees(QrtClass& doc, const Pret& pret, Portee portee, const std::function<bool()>& remplacer,
                   Avancement& avancement);

/// Empties the loans of the selected entries. Where the document has a dependant column, whatever `portee` says, those
/// that have the very loan of a selected one are selected too: what went together comes back together, and all that is
/// not lent counts as one loan. The document has changed then.
void RendreEntrees(QrtClass& doc, Portee portee, Avancement& avancement);
