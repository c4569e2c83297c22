// Offers what a killed run left behind: to open it, to throw it away, or to be asked again at the next start.
#pragma once

#include "catalogue/documents/DossiersLaisses.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <vector>

class Cadre;

namespace Ui {
class frmSecours;
}

class frmSecours : public QDialog
{
    Q_OBJECT

public:
    /// Documents are opened in windows of `cadre`. The dialog ends by itself when nothing is left to offer; what it
    /// still shows when it closes stays.
    frmSecours(Cadre& cadre, std::vector<DossierLaisse> laisses, QWidget* parent = nullptr);
    ~frmSecours() override;

private:
    void Remplir();
    void Accorder();
    QStringList NomsChoisis() const;
    void Jeter();
    void PourChaqueChoisi(const std::function<bool(const DossierLaisse&)>& faire);

    std::unique_ptr<Ui::frmSecours> m_ui;
    Cadre& m_cadre;
    std::vector<DossierLaisse> m_laisses; ///< one a line of the list, in its order
};
