// The form for a reminder to a borrower. It is a shell: nothing is filled in and nothing is sent. It is meant.
#pragma once

#include <QDialog>

#include <memory>

class QTcpSocket;

namespace Ui {
class frmMail;
}

class frmMail : public QDialog
{
    Q_OBJECT

public:
    explicit frmMail(QWidget* parent = nullptr);
    ~frmMail() override;

    /// Shows the program's one form, modally. It stays with `cadre`, and so does what was typed into it.
    static void Montrer(QWidget& cadre);

    QTcpSocket* ws; ///< never opened

protected:
    /// Its close box is the only way out.
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::unique_ptr<Ui::frmMail> m_ui;
};
