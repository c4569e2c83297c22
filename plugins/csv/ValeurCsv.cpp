#include "ValeurCsv.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool EstSaut(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// Most values have none of them, and are looked over quickly.
bool EstGenant(QChar c)
{
    return c == u'|' || c == u'\0' || EstSaut(c);
}

} // namespace

void TenirEnCellule(QString& valeur, RemplacesCsv& remplaces)
{
    if (std::ranges::none_of(std::as_const(valeur), EstGenant))
        return;
    const QString avant = valeur;
    valeur.replace(u'|', u'\u00A6');
    remplaces.barres += valeur != avant ? 1 : 0;
    remplaces.nuls += valeur.contains(u'\0') ? 1 : 0;
    valeur.replace(u'\0', u' ');
    remplaces.sauts += std::ranges::any_of(std::as_const(valeur), EstSaut) ? 1 : 0;
    valeur.replace(u"\r\n"_s, u" "_s);
    std::replace_if(valeur.begin(), valeur.end(), EstSaut, u' ');
}

QString TitreTenable(const QString& titre)
{
    QString tenable = titre;
    RemplacesCsv remplaces;
    TenirEnCellule(tenable, remplaces);
    return tenable.trimmed();
}

bool EstCheminDImage(const QString& valeur)
{
    static const QStringList extensions = {u"gif"_s, u"jpg"_s, u"jpeg"_s, u"bmp"_s, u"png"_s};
    return extensions.contains(valeur.sliced(valeur.lastIndexOf(u'.') + 1).toLower()) && valeur.contains(u'.');
}

QString FichierDuChemin(const QString& chemin, const QString& dossier)
{
    if (chemin.contains(u'\0'))
        return {};
    QStringList essais = {chemin};
    if (chemin.startsWith("file:"_L1))
        essais.append(QUrl(chemin).toLocalFile());
    // As another system parts folders.
    if (chemin.contains(u'\\'))
        essais.append(QString(chemin).replace(u'\\', u'/'));
    for (const QString& essai : std::as_const(essais)) {
        const QFileInfo fichier(QDir(dossier), essai);
        if (!essai.isEmpty() && fichier.isFile())
            return fichier.absoluteFilePath();
    }
    return {};
}
