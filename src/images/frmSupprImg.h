// Asks whether an image is to be deleted from the category, and shows it.
#pragma once

#include "images/Bibliotheque.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmSupprImg;
}

class frmSupprImg : public QDialog
{
    Q_OBJECT

public:
    /// `chemin`: full path of the image; one that cannot be loaded leaves the picture empty.
    explicit frmSupprImg(const QString& chemin, QWidget* parent = nullptr);
    ~frmSupprImg() override;

    /// The answer, a ReponseSupprImg. Closing the window keeps the image.
    int Resultat = SupprImgNon;

private:
    void Repondre(int reponse);

    std::unique_ptr<Ui::frmSupprImg> m_ui;
};
