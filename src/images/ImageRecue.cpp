#include "images/ImageRecue.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/Evenements.h"
#include "extensions/langue/modLang.h"
#include "images/AjouterImage.h"
#include "images/Bibliotheque.h"
#include "images/ConvertirImage.h"
#include "kit/FichiersDeposes.h"
#include "platform/NomsSysteme.h"

#include <QFileInfo>
#include <QMimeData>
#include <QTemporaryDir>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// What a picture without a name is called.
const QString s_sansNom = u"image"_s;

QString Refuser(const Message& message)
{
    AfficherMsg(message, MsgOk, QString());
    return {};
}

bool EstFormatDImage(const QString& format)
{
    return format.startsWith("image/"_L1);
}

QString DireNonCopiee()
{
    return Refuser(
        LangMsg(u"msgImageNonCopiee"_s, u"L'image n'a pas pu être copiée dans le dossier de la catégorie."_s));
}

/// The picture among the formats that a program offers: those first from which nothing gets lost.
QByteArray OctetsDImage(const QMimeData& donnees)
{
    QStringList formats{u"image/png"_s, u"image/bmp"_s, u"image/gif"_s, u"image/jpeg"_s};
    for (const QString& format : donnees.formats()) {
        if (EstFormatDImage(format))
            formats.append(format);
    }
    for (const QString& format : formats) {
        if (const QByteArray octets = donnees.data(format); !octets.isEmpty())
            return octets;
    }
    return {};
}

bool Ecrire(const QString& chemin, const QByteArray& octets)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size() && fichier.flush();
}

/// False, too, where one of them is no file.
bool MemesOctets(const QString& gauche, const QString& droite)
{
    constexpr qint64 morceau = 1 << 20;
    QFile a(gauche);
    QFile b(droite);
    if (!QFileInfo(gauche).isFile() || QFileInfo(gauche).size() != QFileInfo(droite).size() ||
        !a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly))
        return false;
    while (!a.atEnd()) {
        if (a.read(morceau) != b.read(morceau))
            return false;
    }
    return a.error() == QFileDevice::NoError && b.error() == QFileDevice::NoError;
}

/// `nom` with another extension: cover.webp becomes cover.jpg.
QString AvecExtension(const QString& nom, const QString& extension)
{
    const qsizetype point = nom.lastIndexOf(u'.');
    const QString souche = point < 0 ? nom : nom.left(point);
    return (souche.isEmpty() ? s_sansNom : souche) + u'.' + extension;
}

/// A picture on its way: the file that is to be copied, and what it is to be called.
struct EnRoute
{
    QString chemin;
    QString nom;
    bool nommee = false; ///< by whoever made its file
};

/// Where the picture waits until it is copied. Names that are no text are not for the decoders: a link stands for them.
std::optional<EnRoute> Poser(const ImageRecue& recue, const QTemporaryDir& attente)
{
    const QString ici = attente.filePath(u"recue"_s);
    if (recue.fichiers.isEmpty())
        return Ecrire(ici, recue.octets) ? std::optional(EnRoute{ici, s_sansNom, false}) : std::nullopt;
    const QString& fichier = recue.fichiers.first();
    const QString nom = NomTenable(NomLisible(fichier));
    if (!AOctetsBruts(fichier))
        return EnRoute{fichier, nom, true};
    return LierParChemin(fichier, ici) ? std::optional(EnRoute{ici, nom, true}) : std::nullopt;
}

/// What a picture to which nobody gave a name is called: as the one with the same bytes that is there already, or the
/// first name that is free.
QString NomDeSansNom(const QString& dossier, const EnRoute& enRoute)
{
    QString nom = enRoute.nom;
    for (int numero = 0; QFileInfo::exists(dossier + nom); ++numero) {
        if (MemesOctets(dossier + nom, enRoute.chemin))
            return nom;
        nom = QString::number(numero) + enRoute.nom;
        LaisserPasserEvenements();
    }
    return nom;
}

QString Ranger(EnRoute enRoute, const QString& dossier, QWidget* parent)
{
    if (!enRoute.nommee)
        enRoute.nom = NomDeSansNom(dossier, enRoute);
    if (MemesOctets(dossier + enRoute.nom, enRoute.chemin))
        return enRoute.nom;
    const std::optional<QString> ajoutee = AjouterImage(dossier, enRoute.chemin, enRoute.nom, parent);
    return ajoutee ? *ajoutee : DireNonCopiee();
}

} // namespace

bool PeutDonnerUneImage(const QMimeData& donnees)
{
    // The data itself is not fetched before it is taken: it may be large.
    return donnees.hasUrls() || donnees.hasImage() || std::ranges::any_of(donnees.formats(), EstFormatDImage);
}

ImageRecue RecevoirImage(const QMimeData& donnees)
{
    ImageRecue recue;
    recue.fichiers = FichiersDeposes(donnees);
    // Browsers give the address of a picture, and the picture.
    if (recue.fichiers.isEmpty())
        recue.octets = OctetsDImage(donnees);
    if (recue.fichiers.isEmpty() && recue.octets.isEmpty())
        recue.image = qvariant_cast<QImage>(donnees.imageData());
    recue.ailleurs = recue.fichiers.isEmpty() && recue.octets.isEmpty() && recue.image.isNull() && donnees.hasUrls();
    return recue;
}

QString PrendreImage(const ImageRecue& recue, const QString& dossier, QWidget* parent)
{
    if (recue.ailleurs)
        return Refuser(
            LangMsg(u"msgImageAilleurs"_s,
                    u"Cette image est sur un autre ordinateur. Enregistrez-la, puis déposez son fichier."_s));
    if (recue.fichiers.size() > 1)
        return Refuser(LangMsg(u"msgUneSeuleImage"_s, u"Une entrée n'a qu'une image. Déposez un seul fichier."_s));
    const QTemporaryDir attente;
    std::optional<EnRoute> enRoute = Poser(recue, attente);
    if (!enRoute)
        return DireNonCopiee();
    const bool sansFichier = recue.fichiers.isEmpty() && recue.octets.isEmpty();
    const ImageConvertie convertie =
        sansFichier ? ConvertirImage(recue.image) : ConvertirImage(enRoute->chemin, enRoute->nom);
    if (convertie.aptitude == Aptitude::Illisible)
        return Refuser(LangMsg(u"msgImageIllisible"_s, u"Ce n'est pas une image que le programme sait lire."_s));
    if (convertie.aptitude == Aptitude::TropGrande)
        return Refuser(LangMsg(u"msgImageTropGrande"_s,
                               u"Cette image est trop grande : elle prendrait trop de mémoire ou de temps."_s));
    if (convertie.aptitude == Aptitude::Convertie) {
        enRoute->chemin = attente.filePath(u"convertie"_s);
        if (!Ecrire(enRoute->chemin, convertie.octets))
            return DireNonCopiee();
    }
    if (!convertie.extension.isEmpty())
        enRoute->nom = AvecExtension(enRoute->nom, convertie.extension);
    return Ranger(*enRoute, dossier, parent);
}
