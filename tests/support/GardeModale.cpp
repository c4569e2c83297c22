#include "support/GardeModale.h"

#include <QApplication>
#include <QWidget>

#include <gtest/gtest.h>

GardeModale::GardeModale(std::function<void(QWidget&)> geste, int limiteEnMs, const QWidget* sauf)
    : m_geste(std::move(geste)), m_sauf(sauf), m_limite(limiteEnMs)
{
    m_depuis.start();
    QObject::connect(&m_tic, &QTimer::timeout, &m_tic, [this] { Regarder(); });
    m_tic.start(5);
}

GardeModale::~GardeModale()
{
    EXPECT_TRUE(m_fait) << "no modal window opened";
}

void GardeModale::Regarder()
{
    QWidget* fenetre = QApplication::activeModalWidget();
    if (!fenetre || fenetre == m_sauf || !fenetre->isVisible())
        return;
    // Shortcuts reach an active window only; it becomes one a moment after it is seen.
    if (!m_fait && (fenetre->isActiveWindow() || m_depuis.hasExpired(m_limite / 2))) {
        m_fait = true;
        m_geste(*fenetre);
    } else if (m_fait && m_depuis.hasExpired(m_limite)) {
        ADD_FAILURE() << "a modal window that nobody closed: " << fenetre->objectName().toStdString();
        fenetre->close();
    }
}
