#include "entries/ZoneImage.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/modLang.h"
#include "images/ImageAccessible.h"
#include "kit/Icones.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
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
    setAcceptDrops(true);
}

void ZoneImage::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit Clic();
}

void ZoneImage::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste)) {
        if (!event->isAutoRepeat())
            Coller();
        return;
    }
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
    if (!hasFocus() && !m_survol)
        return;
    QStylePainter dessus(this);
    dessus.setPen(QPen(palette().highlight(), 2));
    dessus.drawRect(rect().adjusted(1, 1, -1, -1));
}

// ---- what arrives

void ZoneImage::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(LangMsg(u"msgChangerImage"_s, u"&Changer l'image..."_s).texte, this, &ZoneImage::Clic);
    QAction* coller =
        menu->addAction(LangMsg(u"msgCollerImage"_s, u"C&oller l'image"_s).texte, this, &ZoneImage::Coller);
    coller->setIcon(Icone(u"paste"_s));
    coller->setShortcut(QKeySequence::Paste);
    const QMimeData* contenu = QApplication::clipboard()->mimeData();
    coller->setEnabled(contenu && PeutDonnerUneImage(*contenu));
    menu->popup(event->globalPos());
}

void ZoneImage::Coller()
{
    const QMimeData* contenu = QApplication::clipboard()->mimeData();
    if (contenu && PeutDonnerUneImage(*contenu))
        emit Recue(RecevoirImage(*contenu));
    else
        AfficherMsg(LangMsg(u"msgRienAColler"_s, u"Le presse-papiers ne contient pas d'image."_s), MsgOk, QString());
}

/// While a dialog stands over the editor, that one has its turn.
bool ZoneImage::Accueillir(QDropEvent& event) const
{
    const QWidget* modale = QApplication::activeModalWidget();
    const bool prend = (event.possibleActions() & Qt::CopyAction) && (!modale || modale == window()) &&
                       PeutDonnerUneImage(*event.mimeData());
    event.setDropAction(prend ? Qt::CopyAction : event.dropAction());
    event.setAccepted(prend);
    return prend;
}

void ZoneImage::MarquerSurvol(bool survol)
{
    m_survol = survol;
    update();
}

void ZoneImage::dragEnterEvent(QDragEnterEvent* event)
{
    MarquerSurvol(Accueillir(*event));
}

void ZoneImage::dragMoveEvent(QDragMoveEvent* event)
{
    Accueillir(*event);
}

void ZoneImage::dragLeaveEvent(QDragLeaveEvent*)
{
    MarquerSurvol(false);
}

void ZoneImage::dropEvent(QDropEvent* event)
{
    MarquerSurvol(false);
    if (!Accueillir(*event))
        return;
    // Later: the program that it comes from waits for the end of this event, and a question would keep it.
    const auto recevoir = [this, recue = RecevoirImage(*event->mimeData())] {
        if (isVisible())
            emit Recue(recue);
    };
    QMetaObject::invokeMethod(this, recevoir, Qt::QueuedConnection);
}
