#include "kit/PlaceDeFenetre.h"

#include "base/Options.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>

namespace {

/// What a window manager puts around a window; it says how much that is only when the window is there.
constexpr QSize Bordure(16, 40);

class GardienDePlace : public QObject
{
public:
    GardienDePlace(QWidget& fenetre, const OptionTexte& option)
        : QObject(&fenetre), m_fenetre(fenetre), m_option(option)
    {
        m_fenetre.installEventFilter(this);
    }

    bool eventFilter(QObject* objet, QEvent* event) override
    {
        // Spontaneous: the desktop took it away, and brings it back as it was.
        if (event->type() == QEvent::Hide && !event->spontaneous())
            EcrireOption(m_option, QString::fromLatin1(m_fenetre.saveGeometry().toBase64()));
        return QObject::eventFilter(objet, event);
    }

private:
    QWidget& m_fenetre;
    const OptionTexte& m_option;
};

} // namespace

QSize PlaceDansLEcran(const QWidget& fenetre)
{
    return fenetre.screen()->availableSize() - Bordure;
}

void GarderLaPlace(QWidget& fenetre, const OptionTexte& option)
{
    const QByteArray gardee = QByteArray::fromBase64(LireOption(option).toLatin1());
    if (!gardee.isEmpty() && fenetre.restoreGeometry(gardee))
        fenetre.resize(fenetre.size().boundedTo(PlaceDansLEcran(fenetre)));
    new GardienDePlace(fenetre, option);
}
