// Asks, in a category with a dependant column, whether a command acts on the selected entries or on all that depend on
// them. It speaks of deleting until its caller gives it other captions.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>

namespace Ui {
class frmSuppDependant;
}

class frmSuppDependant : public QDialog
{
    Q_OBJECT

public:
    explicit frmSuppDependant(QWidget* parent = nullptr);
    ~frmSuppDependant() override;

    /// Captions of the two options, for another command.
    void SetOptions(const QString& selectionnees, const QString& dependantes);

    int16_t Choix = 2;          ///< 0: the selected entries, 1: their dependants too, 2: cancelled
    int16_t OptionCourante = 0; ///< the option that is on

private:
    std::unique_ptr<Ui::frmSuppDependant> m_ui;
};
