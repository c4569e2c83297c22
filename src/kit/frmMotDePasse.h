// Asks for a password, without showing what is typed.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmMotDePasse;
}

class frmMotDePasse : public QDialog
{
    Q_OBJECT

public:
    frmMotDePasse(const QString& titre, const QString& invite, QWidget* parent = nullptr);
    ~frmMotDePasse() override;

    /// What was typed; empty when the question was cancelled.
    QString MotDePasse() const;

private:
    std::unique_ptr<Ui::frmMotDePasse> m_ui;
};
