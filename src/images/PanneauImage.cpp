#include "images/PanneauImage.h"

#include <QFileInfo>
#include <QImageReader>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int Marge = 4;

/// The largest size of these proportions inside `place`; a small picture is not blown up.
QSize TailleMontree(const QSize& image, const QSize& place)
{
    if (image.width() <= place.width() && image.height() <= place.height())
        return image;
    return image.scaled(place, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

QImage Lire(const QString& fichier, const QSize& place)
{
    QImageReader lecteur(fichier);
    lecteur.setAutoTransform(true);
    // The bytes tell the format: covers are often named for another one.
    lecteur.setDecideFormatFromContent(true);
    const QSize taille = lecteur.size();
    if (taille.isValid()) {
        const bool couchee = lecteur.transformation() & QImageIOHandler::TransformationRotate90;
        lecteur.setScaledSize(TailleMontree(taille, couchee ? place.transposed() : place));
    }
    const QImage image = lecteur.read();
    if (image.isNull() || (image.width() <= place.width() && image.height() <= place.height()))
        return image;
    return image.scaled(place, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

PanneauImage::PanneauImage(QWidget* parent) : QWidget(parent) {}

bool PanneauImage::Charger(const QString& fichier)
{
    const QFileInfo info(fichier);
    const Lecture lecture{fichier, info.lastModified(), info.size()};
    const QSize place = Place() * devicePixelRatioF();
    if (lecture != m_lecture || place != m_place) {
        const QImage image = Lire(fichier, place);
        if (image.isNull())
            return false;
        m_lecture = lecture;
        m_place = place;
        m_image = QPixmap::fromImage(image);
        m_image.setDevicePixelRatio(devicePixelRatioF());
    }
    m_montree = true;
    update();
    return true;
}

void PanneauImage::Vider()
{
    m_montree = false;
    update();
}

void PanneauImage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_montree)
        Charger(QString(m_lecture.fichier));
}

QSize PanneauImage::Place() const
{
    return contentsRect().adjusted(Marge, Marge, -Marge, -Marge).size().expandedTo(QSize(1, 1));
}

void PanneauImage::paintEvent(QPaintEvent*)
{
    if (!m_montree)
        return;
    QRect place(QPoint(), m_image.deviceIndependentSize().toSize());
    place.moveCenter(contentsRect().center());
    QPainter(this).drawPixmap(place.topLeft(), m_image);
}

void PanneauImage::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit DoubleClic();
}

void PanneauImage::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton)
        emit ClicDroit(event->globalPosition().toPoint());
}
