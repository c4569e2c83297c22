// Tips take what looks like HTML for HTML, and would open the files that it names: what comes from a file, a title or a
// path, goes through this.
#pragma once

#include <QString>

/// `texte` so that a tip shows it as it stands.
QString TexteDInfobulle(const QString& texte);
