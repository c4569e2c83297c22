// Changes of a category's columns: each takes effect at once and marks the document as changed. A refusal is told, and
// then nothing is changed.
#pragma once

#include <QString>

class QrtClass;

/// Adds a column at the end; entries stay as they are, and it reads empty in them. Refuses an empty title ("msg4") and
/// one that another column has, whatever the case ("msg5"). A title holds no "|" and no line break.
bool AjouterColonne(QrtClass& doc, const QString& titre);

/// Makes column `numero` the dependant one; 0 for none. Entries stay as they are.
void ChoisirDependante(QrtClass& doc, int numero);
