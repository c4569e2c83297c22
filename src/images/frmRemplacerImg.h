// Asks whether an image of the category is to be replaced by another one, and shows both.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmRemplacerImg;
}

class frmRemplacerImg : public QDialog
{
    Q_OBJECT

public:
    /// Full paths: `gauche` is the category's image, `droite` the new one. A picture that cannot be loaded stays empty.
    frmRemplacerImg(const QString& gauche, const QString& droite, QWidget* parent = nullptr);
    ~frmRemplacerImg() override;

    /// The user said yes.
    bool Resultat = false;

private:
    std::unique_ptr<Ui::frmRemplacerImg> m_ui;
};
