// A column of a category gets a second one to its right: with a part of its values, or with a copy of them.
#pragma once

#include "columns/ChoixDeColonne.h"

#include <QString>

class Avancement;
class QrtClass;

/// Refuses, with its message, no column ("msg19"), one that there is not ("msg20") and an empty new title ("msg21").
/// The title may be one that there is: that is meant. It holds no "|" and no line break.
bool PeutSeparer(const QrtClass& doc, const ChoixDeColonne& source, const QString& titre);
/// Refuses an empty separator ("msg22").
bool SeparateurDonne(const QString& separateur);

// Both mark the document as changed. `position` is the source's, from 0. The numbers of the loan column and of the
// dependant one stay as they are: that is meant.

/// Cuts the values at the first `separateur`, which goes: what stands before it stays, and the rest goes to the new
/// column. The two share the source's width.
void Separer(QrtClass& doc, int position, const QString& titre, const QString& separateur, Avancement& avancement);

/// Copies the values into the new column, which is as wide.
void Dupliquer(QrtClass& doc, int position, const QString& titre, Avancement& avancement);
