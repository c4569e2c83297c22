#include "entries/ListeAOrdonner.h"

#include <QKeyEvent>
#include <QMouseEvent>

void ListeAOrdonner::mousePressEvent(QMouseEvent* event)
{
    VueDesLignes::mousePressEvent(event);
    const QPoint point = event->position().toPoint();
    const bool mene =
        event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier && ColonneSous(point) == 1;
    m_depart = mene ? LigneSous(point) : 0;
    m_ligne = m_depart;
    m_geste = m_depart > 0 ? Geste::Mener : Geste::Aucun;
}

void ListeAOrdonner::mouseReleaseEvent(QMouseEvent* event)
{
    VueDesLignes::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        m_geste = Geste::Aucun;
}

bool ListeAOrdonner::MenerJusque(int ligne)
{
    if (m_geste == Geste::Mener && ligne != m_ligne) {
        const int de = m_ligne;
        m_ligne = ligne;
        emit LigneMenee(de, ligne);
    }
    return m_geste != Geste::Aucun;
}

void ListeAOrdonner::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape || m_geste == Geste::Aucun) {
        VueDesLignes::keyPressEvent(event);
        return;
    }
    MenerJusque(m_depart);
    m_geste = Geste::Rendu;
}
