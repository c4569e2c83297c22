#include "images/ConvertirImage.h"

#include "images/Bibliotheque.h"
#include "images/EnteteImage.h"
#include "images/LireImage.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QXmlStreamReader>

#include <algorithm>

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

/// A picture among vectors that is none of theirs: it may be any file or pipe of this computer.
bool EstRenvoi(const QXmlStreamReader& element)
{
    if (element.name() != u"image")
        return false;
    return std::ranges::any_of(element.attributes(), [](const QXmlStreamAttribute& attribut) {
        return attribut.name() == u"href" && !attribut.value().trimmed().startsWith(u"data:");
    });
}

/// Reads vectors without drawing them: those that lead elsewhere are refused, and those that could go on for ever.
Aptitude JugerVecteurs(QIODevice& fichier)
{
    // What is drawn again where it stands may itself draw others again: so few in a row cannot become many.
    constexpr int reprisesAuPlus = 16;
    int reprises = 0;
    QList<bool> nommes; // whether this element, or one that it stands in, can be drawn again
    QXmlStreamReader lecteur(&fichier);
    while (!lecteur.atEnd()) {
        const QXmlStreamReader::TokenType genre = lecteur.readNext();
        if (genre == QXmlStreamReader::EndElement)
            nommes.removeLast();
        if (genre != QXmlStreamReader::StartElement)
            continue;
        if (EstRenvoi(lecteur))
            return Aptitude::Illisible;
        const bool dessous = !nommes.isEmpty() && nommes.last();
        reprises += lecteur.name() == u"use" && dessous ? 1 : 0;
        if (reprises > reprisesAuPlus)
            return Aptitude::TropGrande;
        // The outermost one is not drawn again inside of itself.
        nommes.append(dessous || (!nommes.isEmpty() && lecteur.attributes().hasAttribute(u"id"_s)));
    }
    return lecteur.hasError() ? Aptitude::Illisible : Aptitude::Convertie;
}

/// Vectors have no size of their own: they are drawn as large as covers are.
Aptitude PreparerVecteurs(QImageReader& lecteur)
{
    constexpr qint64 octetsAuPlus = qint64(4) << 20;
    constexpr QSize place(1024, 1024);
    QIODevice& fichier = *lecteur.device();
    if (lecteur.format() != "svg")
        return Aptitude::Illisible; // packed ones cannot be looked through
    if (fichier.size() > octetsAuPlus)
        return Aptitude::TropGrande;
    fichier.seek(0);
    const Aptitude jugee = JugerVecteurs(fichier);
    fichier.seek(0);
    if (jugee != Aptitude::Convertie)
        return jugee;
    lecteur.setScaledSize(lecteur.size().scaled(place, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return Aptitude::Convertie;
}

/// A picture of a form that only Qt knows.
ImageConvertie ConvertirAutre(QFile& fichier)
{
    fichier.seek(0);
    QImageReader lecteur(&fichier);
    lecteur.setDecideFormatFromContent(true);
    lecteur.setAutoTransform(true);
    if (!lecteur.canRead())
        return {};
    const QSize taille = lecteur.size();
    if (lecteur.format().startsWith("svg")) {
        if (const Aptitude vecteurs = PreparerVecteurs(lecteur); vecteurs != Aptitude::Convertie)
            return {vecteurs, {}, {}};
    } else if (!EstSupportable({lecteur.format(), taille, 4 * qint64(taille.width()) * taille.height()})) {
        return {Aptitude::TropGrande, {}, {}};
    }
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
        return ConvertirAutre(fichier);
    const QString extension = ExtensionDeForme(entete->format);
    // Files are often named for another form, which no reader minds.
    if (extension.isEmpty() && !EstNomDImage(nom))
        return EstSupportable(*entete) ? ConvertirAutre(fichier) : ImageConvertie{Aptitude::TropGrande, {}, {}};
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
