#include "images/FichierImage.h"

#include "base/Const_Vrac.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

QString FichierImage(const QString& dossier, const QString& nom)
{
    const bool nu = !nom.isEmpty() && NomDeFichier(nom) == nom;
    const QString fichier = dossier + nom;
    return nu && QFileInfo(fichier).isFile() ? fichier : QString();
}

QString IconeImage(const QString& dossier, const QString& nom)
{
    if (nom.isEmpty())
        return u"noico"_s;
    return FichierImage(dossier, nom).isEmpty() ? u"icoerror"_s : u"ico"_s;
}
