// The start-up window: a round picture that goes by itself.
#pragma once

#include <QDialog>

#include <memory>

class QTimer;

namespace Ui {
class frmPresent2;
}

class frmPresent2 : public QDialog
{
    Q_OBJECT

public:
    explicit frmPresent2(QWidget* parent = nullptr);
    ~frmPresent2() override;

    /// Cuts the window to the circle between 8 and 370 pixels, at 96 pixels an inch.
    void oval();

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Timer1_Timer();

    std::unique_ptr<Ui::frmPresent2> m_ui;
    QTimer* m_timer1;
    int m_compteur = 0;
    QRect m_cercle;
};
