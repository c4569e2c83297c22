#include "shell/BandeOnglets.h"

#include "kit/Icones.h"
#include "kit/TexteDInfobulle.h"
#include "shell/OngletsAccessibles.h"
#include "vue/VueTable.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Widths of tabs, in characters.
constexpr int AuPlus = 48;
constexpr int AuMoins = 20; // for those that would be wider

constexpr std::chrono::milliseconds DelaiDuSurvol(500);

/// Names of files are no captions with mnemonics.
QString SansMnemonique(QString titre)
{
    return titre.replace(u'&', u"&&"_s);
}

} // namespace

BandeOnglets::BandeOnglets(QWidget* parent) : QTabBar(parent)
{
    InstallerOngletsAccessibles();
    connect(this, &QTabBar::currentChanged, this, &BandeOnglets::OngletChoisi);
    setAcceptDrops(true);
    setMovable(true);
    setIconSize(QSize(fontMetrics().ascent(), fontMetrics().ascent()));
    m_survolement.setSingleShot(true);
    m_survolement.setInterval(DelaiDuSurvol);
    m_survolement.setObjectName(u"Survol"_s);
    m_survolement.setParent(this);
    connect(&m_survolement, &QTimer::timeout, this, [this] { Presser(m_survole + 1); });
}

void BandeOnglets::Ajouter(const QString& cle, const QString& titre)
{
    // The key first: the strip tells of its first tab while it is added.
    const QSignalBlocker silence(this);
    setTabData(addTab(SansMnemonique(titre)), cle);
    MettreEtat(cle, QString(), false);
}

void BandeOnglets::Retirer(const QString& cle)
{
    removeTab(IndexDe(cle));
}

void BandeOnglets::MettreTitre(const QString& cle, const QString& titre)
{
    const int index = IndexDe(cle);
    setTabText(index, SansMnemonique(titre));
}

/// Every tab has a picture, so that none moves when it is marked.
void BandeOnglets::MettreEtat(const QString& cle, const QString& chemin, bool modifie)
{
    const int index = IndexDe(cle);
    if (index < 0)
        return;
    setTabToolTip(index, TexteDInfobulle(chemin.isEmpty() ? Titre(index + 1) : chemin));
    if (!tabIcon(index).isNull() && m_marques.contains(cle) == modifie)
        return;
    if (modifie)
        m_marques.insert(cle);
    else
        m_marques.remove(cle);
    setTabIcon(index, Icone(modifie ? u"modifie"_s : u"categorie"_s));
}

void BandeOnglets::Selectionner(const QString& cle)
{
    setCurrentIndex(IndexDe(cle));
}

void BandeOnglets::Presser(int numero)
{
    // The tab that is selected already counts as well: its window may be reduced.
    if (numero - 1 == currentIndex())
        emit OngletChoisi();
    else
        setCurrentIndex(numero - 1);
}

void BandeOnglets::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        emit Quittee();
    else
        QTabBar::keyPressEvent(event);
}

QString BandeOnglets::Cle(int numero) const
{
    return tabData(numero - 1).toString();
}

QString BandeOnglets::Titre(int numero) const
{
    return tabText(numero - 1).replace(u"&&"_s, u"&"_s);
}

bool BandeOnglets::EstMarque(int numero) const
{
    return m_marques.contains(Cle(numero));
}

void BandeOnglets::mousePressEvent(QMouseEvent* event)
{
    const int avant = currentIndex();
    QTabBar::mousePressEvent(event);
    m_presse = event->button() == Qt::MiddleButton ? tabAt(event->pos()) : -1;
    // A click on the tab that is selected already counts as well: its window may be reduced.
    if (event->button() == Qt::LeftButton && avant >= 0 && tabAt(event->pos()) == avant)
        emit OngletChoisi();
}

void BandeOnglets::mouseReleaseEvent(QMouseEvent* event)
{
    QTabBar::mouseReleaseEvent(event);
    const int x = event->pos().x();
    for (int index = 0; index < count(); ++index) {
        const QRect onglet = tabRect(index);
        if (x >= onglet.left() && x <= onglet.left() + onglet.width()) {
            Tag = QString::number(index + 1);
            break;
        }
    }
    const int presse = std::exchange(m_presse, -1);
    if (event->button() == Qt::RightButton)
        emit MenuDemande(event->globalPosition().toPoint());
    else if (event->button() == Qt::MiddleButton && presse >= 0 && presse == tabAt(event->pos()))
        emit FermetureDemandee(presse + 1);
}

QSize BandeOnglets::tabSizeHint(int index) const
{
    const QSize taille = QTabBar::tabSizeHint(index);
    return taille.boundedTo(QSize(AuPlus * fontMetrics().averageCharWidth(), taille.height()));
}

QSize BandeOnglets::minimumTabSizeHint(int index) const
{
    const QSize taille = tabSizeHint(index);
    return taille.boundedTo(QSize(AuMoins * fontMetrics().averageCharWidth(), taille.height()));
}

int BandeOnglets::IndexDe(const QString& cle) const
{
    for (int index = 0; index < count(); ++index) {
        if (tabData(index).toString() == cle)
            return index;
    }
    return -1;
}

// ---- what is dragged over the tabs

/// What is held over a tab for a moment brings its window to the front, to be dropped there.
void BandeOnglets::Survoler(int index)
{
    if (index == m_survole)
        return;
    m_survole = index;
    m_survolement.stop();
    if (index >= 0)
        m_survolement.start();
}

/// Files pass through to the frame, which opens them wherever they are dropped.
void BandeOnglets::dragEnterEvent(QDragEnterEvent* event)
{
    const bool texte = VueTable::PorteUnTexte(*event);
    event->setAccepted(texte);
    Survoler(texte ? tabAt(event->position().toPoint()) : -1);
}

/// Nothing can be dropped on a tab itself.
void BandeOnglets::dragMoveEvent(QDragMoveEvent* event)
{
    Survoler(VueTable::PorteUnTexte(*event) ? tabAt(event->position().toPoint()) : -1);
    event->ignore();
}

void BandeOnglets::dragLeaveEvent(QDragLeaveEvent*)
{
    Survoler(-1);
}

void BandeOnglets::dropEvent(QDropEvent* event)
{
    Survoler(-1);
    event->ignore();
}
