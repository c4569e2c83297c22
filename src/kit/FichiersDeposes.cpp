#include "kit/FichiersDeposes.h"

#include "platform/NomsSysteme.h"

#include <QMimeData>
#include <QUrl>

QStringList FichiersDeposes(const QMimeData& donnees)
{
    QStringList chemins;
    for (const QUrl& adresse : donnees.urls()) {
        if (adresse.isLocalFile())
            chemins.append(CheminDesOctets(QByteArray::fromPercentEncoding(adresse.path(QUrl::FullyEncoded).toUtf8())));
    }
    return chemins;
}
