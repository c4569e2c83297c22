#include "images/ConvertirImage.h"

#include "images/Bibliotheque.h"
#include "images/EnteteImage.h"
#include "images/JugerVecteurs.h"
#include "images/LireImage.h"

#include <QBuffer>
#include <QByteArrayList>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int Qualite = 95; // of JPEG: no eye tells it from the picture

/// The extension of a form that categories hold; empty for any other.
QString ExtensionDeForme(const QByteArray& format)
{
    if (format == "jpeg")
        return u"jpg"_s;
    return format == "bmp" || format == "gif" ? QString::fromLatin1(format) : QString();
}

/// JPEG knows no transparency: paper is white.
QImage SurBlanc(const QImage& image)
{
    if (!image.hasAlphaChannel())
        return image;
    QImage fond(image.size(), QImage::Format_RGB32);
    fond.fill(Qt::white);
    QPainter(&fond).drawImage(0, 0, image);
    return fond;
}

/// Vectors have no size of their own: they are drawn as large as covers are. Nothing may be asked of the reader before
/// they are judged: it loads them whole, and what they lead to.
Aptitude PreparerVecteurs(QImageReader& lecteur)
{
    constexpr QSize place(1024, 1024);
    QIODevice& fichier = *lecteur.device();
    if (lecteur.format() != "svg")
        return Aptitude::Illisible; // packed ones cannot be looked through
    if (fichier.size() > OctetsDeVecteursAuPlus)
        return Aptitude::TropGrande;
    fichier.seek(0);
    const Aptitude jugee = JugerVecteurs(fichier.readAll());
    fichier.seek(0);
    if (jugee == Aptitude::Convertie)
        lecteur.setScaledSize(lecteur.size().scaled(place, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return jugee;
}

/// Whether the reader goes by what is known of the file's head. It recognises some files by less: what they would cost
/// is not known.
bool EstConnuComme(const QImageReader& lecteur, const std::optional<EnteteImage>& entete)
{
    static const QByteArrayList connues{"bmp", "dib", "gif", "jpeg", "png"};
    return entete ? lecteur.format() == entete->format : !connues.contains(lecteur.format());
}

/// A picture of a form that no category holds.
ImageConvertie ConvertirAutre(QFile& fichier, const std::optional<EnteteImage>& entete)
{
    fichier.seek(0);
    QImageReader lecteur(&fichier);
    lecteur.setDecideFormatFromContent(true);
    lecteur.setAutoTransform(true);
    if (!lecteur.canRead() || !EstConnuComme(lecteur, entete))
        return {};
    if (lecteur.format().startsWith("svg")) {
        if (const Aptitude vecteurs = PreparerVecteurs(lecteur); vecteurs != Aptitude::Convertie)
            return {vecteurs, {}, {}};
        return ConvertirImage(lecteur.read());
    }
    const QSize taille = lecteur.size();
    if (taille.isEmpty())
        return {}; // cannot be told before it is decoded
    if (!EstSupportable({lecteur.format(), taille, 4 * qint64(taille.width()) * taille.height()}))
        return {Aptitude::TropGrande, {}, {}};
    return ConvertirImage(lecteur.read());
}

} // namespace

ImageConvertie ConvertirImage(const QString& chemin, const QString& nom)
{
    // A pipe would keep whoever opens it waiting.
    QFile fichier(chemin);
    if (!QFileInfo(chemin).isFile() || !fichier.open(QIODevice::ReadOnly))
        return {};
    const std::optional<EnteteImage> entete = LireEntete(fichier);
    if (!entete)
        return ConvertirAutre(fichier, entete);
    const QString extension = ExtensionDeForme(entete->format);
    // Files are often named for another form, which no reader minds.
    if (extension.isEmpty() && !EstNomDImage(nom))
        return EstSupportable(*entete) ? ConvertirAutre(fichier, entete) : ImageConvertie{Aptitude::TropGrande, {}, {}};
    if (!LireImage(chemin, QSize(1, 1)).isNull())
        return {Aptitude::TelleQuelle, EstNomDImage(nom) ? QString() : extension, {}};
    return {EstSupportable(*entete) ? Aptitude::Illisible : Aptitude::TropGrande, {}, {}};
}

ImageConvertie ConvertirImage(const QImage& image)
{
    if (image.isNull())
        return {};
    QBuffer octets;
    QImageWriter ecriture(&octets, "jpeg");
    ecriture.setQuality(Qualite);
    // A side that is too long for the form is what fails.
    if (!octets.open(QIODevice::WriteOnly) || !ecriture.write(SurBlanc(image)))
        return {Aptitude::TropGrande, {}, {}};
    return {Aptitude::Convertie, u"jpg"_s, octets.data()};
}
