// Two columns of a category become one: their values stand side by side in it.
#pragma once

#include "columns/ChoixDeColonne.h"

#include <QString>

class Avancement;
class QrtClass;

struct FusionDeColonnes
{
    ChoixDeColonne premiere; ///< the column that stays, with its value in front
    ChoixDeColonne seconde;  ///< the column that goes
    QString separateur;      ///< stands between the two values, empty ones too; of one line
};

/// Refuses, with its message, what are not two columns ("msg15"), one and the same title ("msg16") and a separator that
/// holds "|" ("msg17").
bool PeutFusionner(const QrtClass& doc, const FusionDeColonnes& fusion);
/// Asks whether values shall stand side by side without anything between them ("msg18"); at once true with a separator.
bool AccepterSeparateur(const QString& separateur);

/// Merges what PeutFusionner let pass, and marks the document as changed. Neither the loan column nor the dependant one
/// is spared, and their numbers stay as they are: that is meant.
void Fusionner(QrtClass& doc, const FusionDeColonnes& fusion, Avancement& avancement);
