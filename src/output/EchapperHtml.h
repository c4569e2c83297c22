// The entities that a page with images has for small letters with accents. Nothing else is replaced, as the routine is
// given texts that hold tags of the page already.
#pragma once

#include <QByteArrayView>
#include <QString>

class PlumeOctets;

/// Replaces in `texte` and returns it, too.
QString EchapperHtml(QString& texte);

/// Writes bytes of the code page with the same replacements.
void EcrireEchappe(PlumeOctets& plume, QByteArrayView octets);
