// Whether a picture file can become an image of a category as it is, and what it becomes when it cannot. Categories
// hold pictures of the forms that all their readers know: BMP, JPEG and GIF.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

enum class Aptitude {
    TelleQuelle, ///< the file can be copied byte by byte
    Convertie,   ///< `octets` hold it in another form
    Illisible,   ///< no picture, or a broken one
    TropGrande,  ///< would take too much memory or time
};

struct ImageConvertie
{
    Aptitude aptitude = Aptitude::Illisible;
    QString extension; ///< of a form that it has then; empty where the name that it came with will do
    QByteArray octets;
};

/// `chemin`: of a file of any kind; `nom`: what it was called, with an extension or without one. The bytes tell what
/// the file is.
ImageConvertie ConvertirImage(const QString& chemin, const QString& nom);
/// A picture that was never a file.
ImageConvertie ConvertirImage(const QImage& image);
