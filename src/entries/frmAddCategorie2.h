// The dialog of a new category: the titles of its columns, and which of them is the dependant one.
#pragma once

#include "entries/ColonnesDeCategorie.h"

#include <QDialog>

#include <memory>

class QKeyEvent;
struct ModeleDeCategorie;

namespace Ui {
class frmAddCategorie2;
}

/// Accepted when the user validated columns that a category can have. Makes no document: see NouveauQrt.
class frmAddCategorie2 : public QDialog
{
    Q_OBJECT

public:
    explicit frmAddCategorie2(QWidget* parent = nullptr);
    ~frmAddCategorie2() override;

    /// What the user defined.
    ColonnesDeCategorie Colonnes;

protected:
    /// Keys of the title's field: Enter goes on to the next column, Up and Down to the neighbours.
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void BrancherBoutons();
    void BrancherTouches();
    void RemplirModeles();

    void Montrer();
    void MontrerTitre(int position);
    void AccorderBoutons();

    void Text1Change(const QString& titre);
    void Ajouter();
    void Supprimer();
    void Deplacer(void (ColonnesDeCategorie::*deplacement)());
    void PrendreModele(const ModeleDeCategorie& modele);
    void Valider();
    bool ToucheDuTitre(const QKeyEvent& touche);
    void ColonneSuivante();
    void AllerAuTitre();

    std::unique_ptr<Ui::frmAddCategorie2> m_ui;
};
