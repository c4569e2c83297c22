// Asks by which column of each of two categories they are to be compared.
#pragma once

#include <QDialog>

#include <memory>

class ColumnHeaders;

namespace Ui {
class frmCompare2;
}

class frmCompare2 : public QDialog
{
    Q_OBJECT

public:
    /// With the columns of both categories; the first of each is chosen.
    frmCompare2(const ColumnHeaders& a, const ColumnHeaders& b, QWidget* parent = nullptr);
    ~frmCompare2() override;

    bool Valide = false; ///< the user has accepted the columns

    /// The chosen columns, from 0.
    int ColonneA() const;
    int ColonneB() const;

private:
    void Valider();

    std::unique_ptr<Ui::frmCompare2> m_ui;
};
