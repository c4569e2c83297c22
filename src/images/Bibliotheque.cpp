#include "images/Bibliotheque.h"

#include "base/Const_Vrac.h"
#include "catalogue/archive/FichierDuDossier.h"
#include "catalogue/archive/NomsTenables.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

bool Copier(QFile& source, FichierDuDossier& cible)
{
    constexpr qint64 morceau = 1 << 20;
    while (true) {
        const QByteArray octets = source.read(morceau);
        if (octets.isEmpty())
            return source.error() == QFileDevice::NoError;
        if (cible.Fichier().write(octets) != octets.size())
            return false;
    }
}

} // namespace

bool EstNomDImage(const QString& nom)
{
    // Not "jpe", though the file dialog offers such files: they can be added and are not listed. This is meant.
    static const QStringList extensions = {u"gif"_s, u"jpg"_s, u"jpeg"_s, u"bmp"_s};
    return extensions.contains(ExtensionDe(nom));
}

QStringList ListerImages(const QString& dossier, const EntreDeuxPas& entreDeuxNoms)
{
    QStringList images;
    QDirIterator parcours(dossier, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (parcours.hasNext()) {
        parcours.next();
        const QString nom = parcours.fileName();
        if (EstNomDImage(nom) && NomTenable(nom) == nom)
            images.append(nom);
        if (entreDeuxNoms)
            entreDeuxNoms();
    }
    return images;
}

QString NomTenable(const QString& chemin)
{
    return RendreTenable(NomDeFichier(chemin));
}

QString NomLibre(const QString& dossier, const QString& nom, const EntreDeuxPas& entreDeuxEssais, int premierNumero)
{
    int numero = premierNumero;
    while (QFileInfo::exists(dossier + QString::number(numero) + nom)) {
        ++numero;
        if (entreDeuxEssais)
            entreDeuxEssais();
    }
    return QString::number(numero) + nom;
}

bool CopierImage(const QString& source, const QString& cible, SiLeFichierExiste siExiste)
{
    const QFileInfo lieu(cible);
    const QFileInfo origine(source);
    if (!origine.isFile() || lieu.isDir() || (lieu.exists() && siExiste == SiLeFichierExiste::Echouer))
        return false;
    if (lieu.exists() && lieu.canonicalFilePath() == origine.canonicalFilePath())
        return true;
    QFile lecture(source);
    FichierDuDossier ecriture(cible);
    return lecture.open(QIODevice::ReadOnly) && ecriture.Ouvrir() && Copier(lecture, ecriture) && ecriture.Valider();
}

bool SupprimerImage(const QString& chemin, int& mode, const QuestionSupprImg& demander)
{
    if (!QFileInfo(chemin).isFile() || mode == SupprImgNonTous)
        return false;
    if (mode != SupprImgOuiTous) {
        mode = demander(chemin);
        if (mode != SupprImgOui && mode != SupprImgOuiTous)
            return false;
    }
    // A file that resists counts as deleted all the same: a batch goes on without a word. This is meant.
    SupprimerDuDossier(chemin);
    return true;
}
