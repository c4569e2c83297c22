// The choice of a font with its colour, for the table.
#pragma once

#include "vue/PoliceDeTable.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPolice;
}

class frmPolice : public QDialog
{
    Q_OBJECT

public:
    explicit frmPolice(const ReglagesDePolice& depart, QWidget* parent = nullptr);
    ~frmPolice() override;

    /// What stands there. What was not touched is as it was at first, also where it could not be shown.
    const ReglagesDePolice& Choix() const { return m_choix; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void Remplir();
    void Relier();
    void MontrerExemple();
    void ChoisirCouleur();

    std::unique_ptr<Ui::frmPolice> m_ui;
    ReglagesDePolice m_choix;
};

/// Lets the user choose, over `parent`; `depart` when he cancels.
ReglagesDePolice ChoisirPolice(const ReglagesDePolice& depart, QWidget& parent);
