// Merges two columns of an open category into the first of them.
#pragma once

#include "columns/TravailEnDialogue.h"

#include <QDialog>

#include <memory>

class QrtClass;

namespace Ui {
class frmFusionner;
}

/// Accepted once the columns are merged.
class frmFusionner : public QDialog
{
    Q_OBJECT

public:
    /// `document` outlives the dialog.
    explicit frmFusionner(QrtClass& document, QWidget* parent = nullptr);
    ~frmFusionner() override;

    QrtClass& myqrt;

    void reject() override;

private:
    void Fusionner();

    std::unique_ptr<Ui::frmFusionner> m_ui;
    TravailEnDialogue m_travail;
};
