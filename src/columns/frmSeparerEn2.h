// Splits a column of an open category in two, or duplicates one.
#pragma once

#include "columns/TravailEnDialogue.h"

#include <QDialog>

#include <functional>
#include <memory>

class QrtClass;

namespace Ui {
class frmSeparerEn2;
}

/// Accepted once there is a new column.
class frmSeparerEn2 : public QDialog
{
    Q_OBJECT

public:
    /// `document` outlives the dialog.
    explicit frmSeparerEn2(QrtClass& document, QWidget* parent = nullptr);
    ~frmSeparerEn2() override;

    QrtClass& myqrt;

    /// The dialog duplicates a column and splits none.
    void ServirADupliquer();

    void reject() override;

private:
    void Separer();
    void Dupliquer();
    /// Does the work; false when it could not be done.
    bool Faire(const std::function<void(Avancement&)>& travail);

    std::unique_ptr<Ui::frmSeparerEn2> m_ui;
    TravailEnDialogue m_travail;
};
