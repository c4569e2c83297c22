#include "images/PanneauImage.h"

#include "images/ImageAccessible.h"
#include "images/LireImage.h"

#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int Marge = 4;

QAccessibleInterface* FaceDe(const QString& classe, QObject* objet)
{
    auto* panneau = classe == u"PanneauImage" ? qobject_cast<PanneauImage*>(objet) : nullptr;
    return panneau ? new ImageAccessible(*panneau) : nullptr;
}

} // namespace

PanneauImage::PanneauImage(QWidget* parent) : QWidget(parent)
{
    // Installed anew it counts once.
    QAccessible::installFactory(FaceDe);
}

bool PanneauImage::Charger(const QString& fichier)
{
    const QFileInfo info(fichier);
    const Lecture lecture{fichier, info.lastModified(), info.size()};
    const QSize place = Place() * devicePixelRatioF();
    if (lecture != m_lecture || place != m_place) {
        const QImage image = LireImage(fichier, place);
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

void PanneauImage::ChargerOuVider(const QString& fichier)
{
    if (fichier.isEmpty() || !Charger(fichier))
        Vider();
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
