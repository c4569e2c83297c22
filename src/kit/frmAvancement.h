// The window that shows how far a long operation has come.
#pragma once

#include "base/Avancement.h"

#include <QDialog>
#include <QElapsedTimer>

#include <chrono>
#include <memory>

namespace Ui {
class frmAvancement;
}

/// Modal, so that nothing else of the program can be used or closed meanwhile, and without a way to close it: an
/// operation is done whole.
class frmAvancement : public QDialog
{
    Q_OBJECT

public:
    explicit frmAvancement(QWidget* parent = nullptr);
    ~frmAvancement() override;

    void Montrer(int fait, int total);
    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    std::unique_ptr<Ui::frmAvancement> m_ui;
};

/// Opens frmAvancement for an operation that takes longer than a moment, over the window in use, and lets events run
/// from then on. Before that no event runs. The window goes with this object.
class AvancementEnFenetre : public Avancement
{
public:
    explicit AvancementEnFenetre(std::chrono::milliseconds delai = std::chrono::milliseconds(400));
    ~AvancementEnFenetre() override;

protected:
    void Dire(int fait, int total) override;

private:
    std::chrono::milliseconds m_delai;
    QElapsedTimer m_depuis;
    std::unique_ptr<frmAvancement> m_fenetre;
};
