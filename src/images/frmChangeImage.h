// Lets the user choose one of the category's images, add one, delete one, or have none.
#pragma once

#include <QDialog>

#include <memory>
#include <optional>

class Vignettes;

namespace Ui {
class frmChangeImage;
}

class frmChangeImage : public QDialog
{
    Q_OBJECT

public:
    explicit frmChangeImage(QWidget* parent = nullptr);
    ~frmChangeImage() override;

    QString Dossier;  ///< the category's folder with its trailing separator; set before Remplir
    QString Resultat; ///< the name of the image chosen; "#" for no image; empty for no change

    /// Lists the folder's images and shows the picture of `nomActuel`, if it is one of them. None is selected.
    void Remplir(const QString& nomActuel);

    /// Closes without a change, however it is closed.
    void reject() override;

private:
    void Fermer(const QString& resultat);
    QString NomChoisi() const;
    void MontrerChoisi();
    void SupprimerChoisi();
    void Ajouter();

    std::unique_ptr<Ui::frmChangeImage> m_ui;
    Vignettes* m_vignettes;
};
