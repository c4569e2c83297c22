// Changes the columns of an open category: each action takes effect at once.
#pragma once

#include "columns/EditerColonnes.h"
#include "columns/TravailEnDialogue.h"

#include <QDialog>

#include <memory>

class QPushButton;

namespace Ui {
class frmEditerColonnes;
}

/// Left by its button alone: Escape and the close button of the window press it.
class frmEditerColonnes : public QDialog
{
    Q_OBJECT

public:
    /// `document` outlives the dialog.
    explicit frmEditerColonnes(QrtClass& document, QWidget* parent = nullptr);
    ~frmEditerColonnes() override;

    QrtClass& myqrt;

    /// Fills the lists from the document.
    void lstRefresh();

    void reject() override;

protected:
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void Brancher();
    void BrancherDefauts();
    void BrancherTouches();
    void ParDefaut(QPushButton& bouton);

    void Ajouter();
    void Supprimer();
    void Renommer();
    void Deplacer(Sens sens);
    void ChangerDependante();

    std::unique_ptr<Ui::frmEditerColonnes> m_ui;
    TravailEnDialogue m_travail;
};
