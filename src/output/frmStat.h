// Shows what is lent of a category, to whom and since when.
#pragma once

#include <QDialog>

#include <memory>

class QrtClass;

namespace Ui {
class frmStat;
}

class frmStat : public QDialog
{
    Q_OBJECT

public:
    /// The report is made here, of the table as it is.
    explicit frmStat(const QrtClass& doc, QWidget* parent = nullptr);
    ~frmStat() override;

private:
    std::unique_ptr<Ui::frmStat> m_ui;
};
