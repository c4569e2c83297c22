#include "base/LieuxTemporaires.h"

#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"

using namespace Qt::StringLiterals;

QList<QDir> LieuxTemporaires()
{
    QList<QDir> lieux;
    for (const QString& base : {TempFolder, QString(DossierProgramme() + u"temp"_s)}) {
        const QDir lieu(QDir(base).canonicalPath());
        if (lieu.isAbsolute())
            lieux.append(lieu);
    }
    return lieux;
}
