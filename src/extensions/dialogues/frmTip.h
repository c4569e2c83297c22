// The tip of the day. Not modal: the user tries the tip out while it is there.
#pragma once

#include <QDialog>
#include <QStringList>

#include <memory>

namespace Ui {
class frmTip;
}

class frmTip : public QDialog
{
    Q_OBJECT

public:
    /// Shows a tip of "astuces.txt" in the program's folder; that there is no such file is told ("msg92").
    explicit frmTip(QWidget* parent = nullptr);
    ~frmTip() override;

    /// The program's one window of tips, which deletes itself when it is closed. Brings the one there is to the front.
    static void Montrer(QWidget& parent);

    /// Reads the tips and shows one of them. False, and no other tips, when there is no such file.
    bool LoadTips(const QString& chemin);
    /// Shows the tip that was drawn last.
    void DisplayCurrentTip();

private:
    void TirerAuSort();

    std::unique_ptr<Ui::frmTip> m_ui;
    QStringList m_astuces;
    int m_courante = 1; ///< counts from 1
};
