// The entry viewer: one entry at a time, read-only, its image beside its fields, with buttons to walk through a table
// in its order.
#pragma once

#include <QDialog>

#include <memory>

class MyLV;

namespace Ui {
class frmView;
}

class frmView : public QDialog
{
    Q_OBJECT

public:
    explicit frmView(QWidget* parent = nullptr);
    ~frmView() override;

    ::MyLV* MyLV = nullptr; ///< not owned; set before the form is shown
    QString Dossier;        ///< the folder of the images, with its trailing separator
    int Numero = 0;         ///< the entry on show, from 1 to the number of entries

    /// Shows the entry Numero. Also done whenever the form comes to the front.
    void Redraw();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    int Nombre() const;
    void AllerA(int numero);
    bool AllerParTouche(const QKeyEvent& touche);
    void Rouler(int huitiemes);
    void MontrerTitre(const QString& titre);
    void AjusterTitre();
    void MontrerFiche(const QString& fiche);
    void PermettreBoutons();

    std::unique_ptr<Ui::frmView> m_ui;
    QString m_titre;
    QString m_fiche;
    int m_roulement = 0; ///< what the wheel turned since it last walked, in eighths of a degree
};
