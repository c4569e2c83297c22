// The files that something dragged or copied names.
#pragma once

#include <QStringList>

class QMimeData;

/// Paths of the files of this computer, as NomsSysteme spells them, in their order. Other addresses are left out.
QStringList FichiersDeposes(const QMimeData& donnees);
