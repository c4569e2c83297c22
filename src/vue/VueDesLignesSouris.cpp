// The mouse in a list of rows.
#include "vue/LignesChoisies.h"
#include "vue/VueDesLignes.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

namespace {

constexpr int BattementDuDefilement = 50; // milliseconds
constexpr int Acceleration = 2;           // pixels a tick, each tick

/// The way from a view of so many pixels to a point at height `y`: -1 above it, 1 below it, 0 for a point in it.
int SensVers(double y, int hauteur)
{
    if (y < 0)
        return -1;
    return y >= hauteur ? 1 : 0;
}

} // namespace

void VueDesLignes::mousePressEvent(QMouseEvent* event)
{
    MettreAJour();
    // With any other button the base would move the focus, and leave the selection behind.
    if (event->button() != Qt::LeftButton && event->button() != Qt::RightButton)
        return;
    // Where the focus is before the base takes it to the row that was pressed.
    if (m_ancre == 0)
        m_ancre = LigneCourante();
    QTableView::mousePressEvent(event);
    const int ligne = LigneSous(event->position().toPoint());
    const bool dejaChoisie = ligne > 0 && m_choix->EstChoisie(ligne);
    m_ligneALaisser = 0;
    m_ligneTiree = 0;
    m_emportees = false;
    m_appui = event->position().toPoint();
    if (event->button() == Qt::RightButton && !dejaChoisie)
        Faire(Geste::Choisir, ligne);
    if (event->button() != Qt::LeftButton)
        return;
    m_ligneTiree = ligne;
    const Geste geste = GesteDeSouris(event->modifiers());
    if (geste == Geste::Choisir && dejaChoisie) {
        m_ligneALaisser = ligne;
        m_ancre = ligne;
    } else if (ligne > 0 || geste == Geste::Choisir) {
        Faire(geste, ligne);
    }
}

void VueDesLignes::mouseMoveEvent(QMouseEvent* event)
{
    m_touchesEnTirant = event->modifiers();
    if (Emporte(*event) || TireDehors(*event))
        return;
    QTableView::mouseMoveEvent(event);
    if (!(event->buttons() & Qt::LeftButton) || state() != DragSelectingState || m_ligneTiree == 0)
        return;
    const int ligne = LigneSous(event->position().toPoint());
    TirerJusque(ligne > 0 ? ligne : DerniereVisible());
}

/// What is selected goes with the pointer, once that is no click with an unsteady hand any more.
bool VueDesLignes::Emporte(const QMouseEvent& event)
{
    if (!m_emportable || !(event.buttons() & Qt::LeftButton) || (m_ligneALaisser == 0 && !m_emportees))
        return false;
    if (!m_emportees && (event.position().toPoint() - m_appui).manhattanLength() >= QApplication::startDragDistance()) {
        m_emportees = true;
        m_ligneALaisser = 0;
        m_ligneTiree = 0;
        emit LignesEmportees();
    }
    return true;
}

/// Above or below the rows they scroll by for as long as the pointer stays there, and are selected as they come.
/// The base would scroll only while the pointer moves: to it, rows that are not seen yet lie under the pointer.
bool VueDesLignes::TireDehors(const QMouseEvent& event)
{
    const bool tire = (event.buttons() & Qt::LeftButton) && m_ligneTiree > 0;
    m_sensDuDefilement = tire ? SensVers(event.position().y(), viewport()->height()) : 0;
    if (m_sensDuDefilement == 0) {
        m_defilement.stop();
        return false;
    }
    if (!m_defilement.isActive()) {
        setState(DragSelectingState);
        m_pasDuDefilement = 0;
        m_defilement.start(BattementDuDefilement, this);
        Defiler();
    }
    return true;
}

void VueDesLignes::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_defilement.timerId())
        Defiler();
    else
        QTableView::timerEvent(event);
}

/// Slowly at first, then faster and faster, a screenful at a time at most.
void VueDesLignes::Defiler()
{
    QScrollBar& barre = *verticalScrollBar();
    m_pasDuDefilement = qMin(m_pasDuDefilement + Acceleration, qMax(barre.pageStep(), Acceleration));
    barre.setValue(barre.value() + m_sensDuDefilement * m_pasDuDefilement);
    TirerJusque(m_sensDuDefilement < 0 ? qMax(LigneSous(QPoint(0, 0)), 1) : DerniereVisible());
}

void VueDesLignes::TirerJusque(int ligne)
{
    if (ligne == m_ligneTiree)
        return;
    m_ligneTiree = ligne;
    m_ligneALaisser = 0;
    if (MenerJusque(ligne))
        return;
    Faire(m_touchesEnTirant & Qt::ControlModifier ? Geste::Ajouter : Geste::Etendre, ligne);
}

bool VueDesLignes::MenerJusque(int)
{
    return false;
}

void VueDesLignes::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    if (m_ligneALaisser > 0)
        Faire(Geste::Choisir, m_ligneALaisser);
    m_defilement.stop();
    m_ligneALaisser = 0;
    m_ligneTiree = 0;
}
