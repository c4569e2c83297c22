// The settings of the program, on four panes. They are written by btOK, the font at once.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmOptions;
}

class frmOptions : public QDialog
{
    Q_OBJECT

public:
    explicit frmOptions(QWidget* parent = nullptr);
    ~frmOptions() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void DecorerBoutons();
    void LireReglages();
    void EcrireReglages();
    void NommerOnglets();
    void Relier();
    void OngletSuivant(int pas);
    void MontrerPage();
    void AccorderSauvegarde();
    void MontrerPolice();
    void ChangerPolice();
    void Parcourir();
    void Associer();

    std::unique_ptr<Ui::frmOptions> m_ui;
};
