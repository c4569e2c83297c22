// The program's frame: it holds the document windows.
#pragma once

#include "catalogue/Cadre.h"

#include <QMainWindow>

#include <memory>

class QMdiSubWindow;

namespace Ui {
class MDIForm1;
}

class MDIForm1 : public QMainWindow, public Cadre
{
    Q_OBJECT

public:
    explicit MDIForm1(QWidget* parent = nullptr);
    ~MDIForm1() override;

    std::vector<FenetreDocument*> Documents() const override;
    FenetreDocument* FenetreActive() const override;
    FenetreDocument& NouvelleFenetre() override;
    void AmenerDevant(FenetreDocument& fenetre) override;

protected:
    /// Closes the document windows first; one that stays keeps the frame.
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ColorierFond();
    QMdiSubWindow* CadreDe(const FenetreDocument& fenetre) const;

    std::unique_ptr<Ui::MDIForm1> m_ui;
};
