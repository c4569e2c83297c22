// Asks how many copies of each entry on the clipboard are to be added.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>

namespace Ui {
class frmCopieParLot;
}

class frmCopieParLot : public QDialog
{
    Q_OBJECT

public:
    explicit frmCopieParLot(QWidget* parent = nullptr);
    ~frmCopieParLot() override;

    /// The number typed; 0 when there is none.
    int16_t NbCopies = 0;

private:
    void Copier();

    std::unique_ptr<Ui::frmCopieParLot> m_ui;
};
