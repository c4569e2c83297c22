// Values and titles have one line.
#pragma once

#include <QString>

/// `texte` with a blank in place of each line break.
QString SurUneLigne(QString texte);

/// A text as a field of a catalogue's line can hold it: on one line, with broken bars in the place of the bars that
/// part fields. For texts that nobody can be asked to change, which would be lost.
QString SansSeparateurs(const QString& texte);
