// Values and titles have one line.
#pragma once

#include <QString>

/// `texte` with a blank in place of each line break.
QString SurUneLigne(QString texte);
