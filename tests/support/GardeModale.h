// Answers the next modal window of a test, and lets none hang it.
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

class QWidget;

/// While it lives, hands the next modal window that opens to `geste`, once. The test fails when none opens, and when
/// one is still open after the time limit; that one is closed then. `sauf`: a window that is open already and goes on
/// to be the modal one for a moment.
class GardeModale
{
public:
    explicit GardeModale(std::function<void(QWidget&)> geste, int limiteEnMs = 5000, const QWidget* sauf = nullptr);
    ~GardeModale();
    GardeModale(const GardeModale&) = delete;
    GardeModale& operator=(const GardeModale&) = delete;

private:
    void Regarder();

    std::function<void(QWidget&)> m_geste;
    const QWidget* m_sauf;
    QTimer m_tic;
    QElapsedTimer m_depuis;
    int m_limite;
    bool m_fait = false;
};
