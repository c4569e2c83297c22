// Goes through windows that follow one another: a dialog that hides while another one is open, and comes back.
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

/// While it lives, hands each modal window that is named next to its step, one after the other. The test fails when a
/// window does not come in time, and when a step is left at the end.
class SuiteDeModales
{
public:
    struct Etape
    {
        QString fenetre; ///< object name
        std::function<void(QWidget&)> geste;
    };

    explicit SuiteDeModales(std::vector<Etape> etapes) : m_etapes(std::move(etapes))
    {
        m_depuis.start();
        Armer();
    }
    ~SuiteDeModales() { EXPECT_EQ(m_faites, m_etapes.size()) << "steps that were done"; }
    SuiteDeModales(const SuiteDeModales&) = delete;
    SuiteDeModales& operator=(const SuiteDeModales&) = delete;

private:
    static constexpr qint64 Limite = 20000; // ms

    /// One shot each: a timer does not fire again while what it called has opened a dialog.
    void Armer()
    {
        QTimer::singleShot(5, &m_ici, [this] { Regarder(); });
    }
    void Regarder()
    {
        Armer();
        QWidget* fenetre = QApplication::activeModalWidget();
        if (!fenetre || !fenetre->isVisible())
            return;
        if (m_faites < m_etapes.size() && fenetre->objectName() == m_etapes[m_faites].fenetre) {
            m_depuis.start();
            m_etapes[m_faites++].geste(*fenetre);
        } else if (m_depuis.elapsed() > Limite) {
            ADD_FAILURE() << fenetre->objectName().toStdString() << " stays open";
            fenetre->close();
        }
    }

    std::vector<Etape> m_etapes;
    size_t m_faites = 0;
    QObject m_ici;
    QElapsedTimer m_depuis;
};
