// Closes the modal windows of a test that only wants to know which ones open.
#pragma once

#include <QApplication>
#include <QStringList>
#include <QTimer>
#include <QWidget>

/// While it lives, every modal window is closed as soon as it is seen; `fenetres` has their object names in order.
class FermeModales
{
public:
    FermeModales()
    {
        QObject::connect(&m_tic, &QTimer::timeout, &m_tic, [this] {
            QWidget* fenetre = QApplication::activeModalWidget();
            if (!fenetre || !fenetre->isVisible())
                return;
            fenetres.append(fenetre->objectName());
            fenetre->close();
        });
        m_tic.start(5);
    }

    QStringList fenetres;

private:
    QTimer m_tic;
};
