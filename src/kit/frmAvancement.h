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
/// operation is done whole, or given up by its button, where it may be.
class frmAvancement : public QDialog
{
    Q_OBJECT

public:
    explicit frmAvancement(QWidget* parent = nullptr);
    ~frmAvancement() override;

    void Montrer(int fait, int total);
    /// Shows the button "Annuler"; Escape and the close box do the same as it.
    void PermettreAbandon();
    bool EstAbandonne() const { return m_abandonne; }
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    std::unique_ptr<Ui::frmAvancement> m_ui;
    bool m_abandonne = false;
};

enum class Abandon { Interdit, Permis };

/// Opens frmAvancement for an operation that takes longer than a moment, over the window in use, and lets events run
/// from then on. Before that no event runs. The window goes with this object.
class AvancementEnFenetre : public Avancement
{
public:
    /// What counts as a moment; tests have none.
    static inline std::chrono::milliseconds DelaiUsuel{400};
    explicit AvancementEnFenetre(std::chrono::milliseconds delai = DelaiUsuel, Abandon abandon = Abandon::Interdit);
    ~AvancementEnFenetre() override;
    bool EstAbandonne() const override { return m_fenetre && m_fenetre->EstAbandonne(); }

protected:
    void Dire(int fait, int total) override;

private:
    std::chrono::milliseconds m_delai;
    Abandon m_abandon;
    QElapsedTimer m_depuis;
    std::unique_ptr<frmAvancement> m_fenetre;
};
