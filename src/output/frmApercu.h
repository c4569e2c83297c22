// Shows composed pages as they will come out: page by page, at any size.
#pragma once

#include "output/PeindrePages.h"

#include <QDialog>

#include <memory>

class VuePage;

namespace Ui {
class frmApercu;
}

class frmApercu : public QDialog
{
    Q_OBJECT

public:
    /// The pages are not owned and outlive this.
    frmApercu(const PagesComposees& pages, const QImage& image, QWidget* parent = nullptr);
    ~frmApercu() override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void AllerA(int page);
    void Grossir(int pas);
    void Ajuster();

    std::unique_ptr<Ui::frmApercu> m_ui;
    PeintreDePages m_pages;
    VuePage* m_page;
};
