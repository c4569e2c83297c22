// A picture that was dropped, or that is on the clipboard, on its way into a category.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>

class QMimeData;
class QWidget;

/// What came, kept: the data itself goes with the event that brought it.
struct ImageRecue
{
    QStringList fichiers;  ///< of this computer
    QByteArray octets;     ///< a picture file without a name
    QImage image;          ///< one that is no file
    bool ailleurs = false; ///< all there is are addresses of other computers
};

/// Whether there may be a picture in it, or a file that is one.
bool PeutDonnerUneImage(const QMimeData& donnees);
ImageRecue RecevoirImage(const QMimeData& donnees);

/// Puts the picture into `dossier`, the category's, under the name of its file, and returns the name that it has there;
/// empty when there is none, of which the user has been told, or that he did not want. One that is there already with
/// the same bytes is taken as it is. `parent`: where questions stand over.
QString PrendreImage(const ImageRecue& recue, const QString& dossier, QWidget* parent);
