// The program's drawn icons, named as the image keys are named ("ico", "up", "zelvane"). They stand here, below every
// form, because forms of all floors show them.
#pragma once

#include <QIcon>
#include <QString>

/// The icon `nom`; a null icon for a name that there is none of. It is drawn from its vectors at the size and
/// resolution asked for, and what is drawn in "currentColor" takes the text colour of the theme in force at that
/// moment.
QIcon Icone(const QString& nom);
