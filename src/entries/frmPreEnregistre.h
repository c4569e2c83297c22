// Edits the pre-recorded texts of all columns of a category, and carries them from one category to another over the
// clipboard. The dialog works on copies.
#pragma once

#include "entries/TextesPreenregistres.h"

#include <QDialog>

#include <memory>

class ModeleDeTextes;

namespace Ui {
class frmPreEnregistre;
}

class frmPreEnregistre : public QDialog
{
    Q_OBJECT

public:
    /// One tab for each of `colonnes`.
    explicit frmPreEnregistre(ListesDeColonnes colonnes, QWidget* parent = nullptr);
    ~frmPreEnregistre() override;

    bool Valide = false; ///< set by btOK alone
    /// The columns with their lists as they stand now.
    const ListesDeColonnes& Colonnes() const { return m_colonnes; }

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void RemplirOnglets();
    void PreparerOutils();
    QString* ListeCourante();
    std::vector<int> LignesChoisies() const;
    /// The texts of these lines in quotation marks; no more of them than can be looked through.
    QString EnMots(const std::vector<int>& lignes) const;

    /// Shows the list of the tab in front anew. A list without texts says so, and nothing can be selected in it.
    void RedrawList();
    void Ajouter();
    void Supprimer();
    void Copier();
    void Coller();

    ListesDeColonnes m_colonnes;
    std::unique_ptr<Ui::frmPreEnregistre> m_ui;
    ModeleDeTextes* m_modele;
};
