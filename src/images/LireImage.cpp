#include "images/LireImage.h"

#include "images/EnteteImage.h"
#include "images/LireBmp.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace {

/// The largest size of these proportions inside `place`; a small picture is not blown up.
QSize TailleMontree(const QSize& image, const QSize& place)
{
    if (image.width() <= place.width() && image.height() <= place.height())
        return image;
    return image.scaled(place, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

/// What the decoder could not reduce itself. A large one goes there in two steps: smooth scaling makes a copy of all.
QImage Reduire(const QImage& image, const QSize& place)
{
    constexpr int avance = 3;
    const QSize but = TailleMontree(image.size(), place);
    if (but == image.size())
        return image;
    const bool grande = image.width() > avance * but.width() && image.height() > avance * but.height();
    return (grande ? image.scaled(avance * but) : image).scaled(but, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage LireParQt(QFile& fichier, const EnteteImage& entete, const QSize& place)
{
    fichier.seek(0);
    // The kind is settled: no other decoder is to see the bytes.
    QImageReader lecteur(&fichier, entete.format);
    lecteur.setAutoDetectImageFormat(false);
    lecteur.setAutoTransform(true);
    if (lecteur.supportsOption(QImageIOHandler::ScaledSize)) {
        const bool couchee = lecteur.transformation() & QImageIOHandler::TransformationRotate90;
        lecteur.setScaledSize(TailleMontree(entete.taille, couchee ? place.transposed() : place));
    }
    return lecteur.read();
}

} // namespace

QImage LireImage(const QString& chemin, const QSize& place)
{
    // A pipe would keep whoever opens it waiting.
    if (!QFileInfo(chemin).isFile())
        return {};
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        return {};
    const std::optional<EnteteImage> entete = LireEntete(fichier);
    if (!entete)
        return {};
    if (EstSupportable(*entete))
        return Reduire(LireParQt(fichier, *entete, place), place);
    return Reduire(LireBmpReduit(fichier, place), place);
}
