#include "vue/Infobulle.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "vue/ModeleTable.h"
#include "vue/VueTable.h"

#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Intervalle = std::chrono::milliseconds(500);
// Units of 1/1440 inch, from the corner of the cell.
constexpr double EcartHaut = 60;
constexpr double EcartGauche = 50;

constexpr int Marge = 2;           // pixels
constexpr int SignesAuPlus = 2000; // more than a screen shows

} // namespace

Infobulle::Infobulle(VueTable& vue, QLabel& myToolTipText, QObject* parent)
    : QObject(parent), m_vue(vue), m_texte(myToolTipText)
{
    // What a cell holds is text, whatever signs are in it.
    m_texte.setTextFormat(Qt::PlainText);
    m_texte.setWordWrap(true);
    m_texte.setBackgroundRole(QPalette::ToolTipBase);
    m_texte.setForegroundRole(QPalette::ToolTipText);
    m_texte.setAutoFillBackground(true);
    m_texte.setFrameShape(QFrame::Box);
    m_texte.setMargin(Marge);
    m_texte.setAttribute(Qt::WA_TransparentForMouseEvents);
    m_texte.hide();
    m_minuteur.setObjectName(u"ToolTipTimer"_s);
    m_minuteur.setInterval(Intervalle);
    connect(&m_minuteur, &QTimer::timeout, this, &Infobulle::Battre);
    m_vue.viewport()->setMouseTracking(true);
    m_vue.viewport()->installEventFilter(this);
    m_vue.installEventFilter(this);
    for (const QScrollBar* barre : {m_vue.horizontalScrollBar(), m_vue.verticalScrollBar()})
        connect(barre, &QScrollBar::valueChanged, this, &Infobulle::Oublier);
    connect(&m_vue, &VueTable::TableRafraichie, this, [this] { m_texte.hide(); });
}

bool Infobulle::eventFilter(QObject* objet, QEvent* event)
{
    if (objet == m_vue.viewport() && event->type() == QEvent::MouseMove) {
        PointeurEn(static_cast<QMouseEvent*>(event)->position().toPoint());
    } else if (objet == m_vue.viewport() && (event->type() == QEvent::Leave || event->type() == QEvent::Wheel)) {
        Oublier();
    } else if (objet == &m_vue && event->type() == QEvent::FocusIn) {
        if (LireOption(Options::showInfobulles))
            m_minuteur.start();
        else
            m_minuteur.stop();
    }
    return QObject::eventFilter(objet, event);
}

void Infobulle::PointeurEn(const QPoint& position)
{
    m_texte.hide();
    m_pointeur = position;
    m_dessus = true;
}

/// What lies under the pointer is no longer what was looked at.
void Infobulle::Oublier()
{
    m_dessus = false;
    m_texte.hide();
}

void Infobulle::Battre()
{
    if (m_texte.isVisible() || !m_dessus)
        return;
    const MyLV& table = m_vue.Modele().Table();
    const int ligne = m_vue.LigneSous(m_pointeur);
    const int colonne = m_vue.ColonneSous(m_pointeur);
    if (!table.ListItems.Existe(ligne) || !table.ColumnHeaders.Existe(colonne))
        return;
    const QString texte = table.ListItems(ligne).Valeur(colonne);
    if (texte.isEmpty() || m_vue.EstEntiere(ligne, colonne))
        return;
    m_texte.setPalette(QToolTip::palette()); // it may have become another one since
    m_texte.setText(texte.left(SignesAuPlus));
    Placer(m_vue.visualRect(m_vue.model()->index(ligne - 1, colonne - 1)));
    m_texte.raise();
    m_texte.show();
}

/// As wide as the column, a little off the corner of the cell; at the table's edges only as far as it is seen whole.
void Infobulle::Placer(const QRect& cellule)
{
    const auto ici = [this](const QPoint& point) { return m_vue.viewport()->mapTo(m_texte.parentWidget(), point); };
    const QSize taille(cellule.width(), m_texte.heightForWidth(cellule.width()));
    const QPoint coin = ici(cellule.topLeft() + QPoint(m_vue.PixelsDe(EcartGauche), m_vue.PixelsDe(EcartHaut)));
    const QPoint premier = ici(QPoint(0, 0));
    const QSize reste = m_vue.viewport()->size() - taille;
    const QPoint dernier = ici(QPoint(reste.width(), reste.height()));
    m_texte.resize(taille);
    m_texte.move(qMax(qMin(coin.x(), dernier.x()), premier.x()), qMax(qMin(coin.y(), dernier.y()), premier.y()));
}
