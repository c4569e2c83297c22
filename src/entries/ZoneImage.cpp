#include "entries/ZoneImage.h"

#include "images/ImageAccessible.h"
#include "kit/Icones.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionFrame>
#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int CoteIcone = 48;
constexpr double OpaciteIcone = 0.35; // a sign that nothing is there yet, not a picture

/// A button with a picture on it.
class ZoneAccessible : public ImageAccessible
{
public:
    explicit ZoneAccessible(ZoneImage& zone) : ImageAccessible(zone, QAccessible::PushButton), m_zone(zone) {}

    QStringList actionNames() const override { return ImageAccessible::actionNames() << pressAction(); }
    void doAction(const QString& action) override
    {
        if (action != pressAction())
            return ImageAccessible::doAction(action);
        // Later: who asks waits for the answer, and the dialog that opens stays for long.
        if (m_zone.isEnabled())
            QMetaObject::invokeMethod(&m_zone, &ZoneImage::Clic, Qt::QueuedConnection);
    }

private:
    ZoneImage& m_zone;
};

QAccessibleInterface* FaceDe(const QString& classe, QObject* objet)
{
    auto* zone = classe == u"ZoneImage" ? qobject_cast<ZoneImage*>(objet) : nullptr;
    return zone ? new ZoneAccessible(*zone) : nullptr;
}

} // namespace

ZoneImage::ZoneImage(QWidget* parent) : PanneauImage(parent)
{
    QAccessible::installFactory(FaceDe);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void ZoneImage::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit Clic();
}

void ZoneImage::keyPressEvent(QKeyEvent* event)
{
    const bool presse =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!presse || event->modifiers() & ~Qt::KeypadModifier)
        return PanneauImage::keyPressEvent(event);
    if (!event->isAutoRepeat())
        emit Clic();
}

void ZoneImage::paintEvent(QPaintEvent* event)
{
    {
        QStylePainter fond(this);
        QStyleOptionFrame cadre;
        cadre.initFrom(this);
        cadre.frameShape = QFrame::StyledPanel;
        cadre.lineWidth = 1;
        cadre.midLineWidth = 0;
        cadre.state |= QStyle::State_Sunken;
        fond.fillRect(rect(), palette().base());
        if (Image().isNull()) {
            QRect place(0, 0, CoteIcone, CoteIcone);
            place.moveCenter(rect().center());
            fond.setOpacity(OpaciteIcone);
            Icone(u"image"_s).paint(&fond, place);
            fond.setOpacity(1);
        }
        fond.drawControl(QStyle::CE_ShapedFrame, cadre);
    }
    PanneauImage::paintEvent(event);
    if (!hasFocus())
        return;
    QStylePainter dessus(this);
    dessus.setPen(QPen(palette().highlight(), 2));
    dessus.drawRect(rect().adjusted(1, 1, -1, -1));
}
