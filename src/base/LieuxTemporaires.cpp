#include "base/LieuxTemporaires.h"

#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "platform/NomsSysteme.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LieuxRetenus = 16;

QString LieuParDefaut()
{
    return DossierProgramme() + u"temp"_s;
}

/// A path as one word of plain letters, whatever it is made of.
QString EnUnMot(const QString& chemin)
{
    return QString::fromLatin1(OctetsDuChemin(chemin).toPercentEncoding("/"));
}

QStringList Passes()
{
    QStringList lieux = LireOption(Options::LieuxTemporaires).split(u' ', Qt::SkipEmptyParts);
    for (QString& lieu : lieux)
        lieu = CheminDesOctets(QByteArray::fromPercentEncoding(lieu.toLatin1()));
    return lieux;
}

} // namespace

QList<QDir> LieuxTemporaires()
{
    QList<QDir> lieux;
    for (const QString& base : QStringList{TempFolder, LieuParDefaut()} + Passes()) {
        const QDir lieu(QDir(base).canonicalPath());
        if (lieu.isAbsolute())
            lieux.append(lieu);
    }
    return lieux;
}

void NoterLieuTemporaire(const QString& dossier)
{
    const QString lieu = CheminAbsolu(dossier);
    QStringList lieux = Passes();
    if (lieu == CheminAbsolu(LieuParDefaut()) || lieux.value(0) == lieu)
        return;
    lieux.removeAll(lieu);
    lieux.prepend(lieu);
    QStringList mots;
    mots.reserve(LieuxRetenus);
    for (const QString& passe : lieux.first(qMin(lieux.size(), LieuxRetenus)))
        mots.append(EnUnMot(passe));
    EcrireOption(Options::LieuxTemporaires, mots.join(u' '));
}
