// Changes of a category's columns: each takes effect at once and marks the document as changed. A refusal is told, and
// then nothing is changed. A title holds no "|" and no line break.
#pragma once

#include "columns/ChoixDeColonne.h"

#include <QString>
#include <QStringList>

class Avancement;
class QrtClass;

/// Adds a column at the end; entries stay as they are, and it reads empty in them. Refuses an empty title ("msg4") and
/// one that another column has, whatever the case ("msg5").
bool AjouterColonne(QrtClass& doc, const QString& titre);

/// Whether the column may be deleted: refuses none ("msg6") and the loan column ("msg7").
bool PeutSupprimer(const QrtClass& doc, const ChoixDeColonne& choix);
/// Asks whether the column shall go with all that it holds ("msg8").
bool AccepterSuppression();
/// Deletes the column at `position`, from 0, with its values. The number of the dependant column stays, whichever
/// column it names then: that is meant.
void SupprimerColonne(QrtClass& doc, int position, Avancement& avancement);

/// Gives the column another title; entries stay as they are. Refuses the loan column ("msg9"), an empty title and a
/// column that there is not ("msg10"), and any title while `champAjout`, where the title of a column to add is typed,
/// reads like a column ("msg11"). The new title itself may be another column's: that is meant.
bool RenommerColonne(QrtClass& doc, const ChoixDeColonne& choix, const QString& titre, const QString& champAjout);

enum class Sens { Gauche, Droite };

/// The lines of the list in which the dependant column is chosen: none, then all columns.
QStringList LignesDeDependance(const QrtClass& doc);
/// The line of the dependant column; empty when its number names none.
QString LigneDependante(const QrtClass& doc);

/// Moves the column at `position`, from 0, by one place, with its values, title and width; its pre-recorded texts stay
/// where they are, which is meant. False at the end of the table, where nothing happens.
///
/// A category that has a dependant column keeps the last one that has the title `dependante`. To the left, an entry in
/// which the moved column was never written takes the value of the entry before: that is meant.
bool DeplacerColonne(QrtClass& doc, int position, Sens sens, const QString& dependante, Avancement& avancement);

/// Makes column `numero` the dependant one; 0 for none. Entries stay as they are.
void ChoisirDependante(QrtClass& doc, int numero);
