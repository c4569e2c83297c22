// Shows the entries that a deletion would take, each with a check mark, and deletes those that the user leaves checked.
#pragma once

#include "entries/ListeASupprimer.h"

#include <QDialog>

#include <memory>

class ModeleASupprimer;

namespace Ui {
class frmSuppr;
}

class frmSuppr : public QDialog
{
    Q_OBJECT

public:
    explicit frmSuppr(QWidget* parent = nullptr);
    ~frmSuppr() override;

    /// Runs the dialog on the selected entries of `doc`; to be called once. Returns Supprime. Keys are not renumbered.
    bool Lancer(QrtClass& doc);

    bool Supprime = false; ///< the user has deleted, be it that no entry was checked

private:
    void Brancher();
    void RemplirListe();
    void CocherSurlignees(bool cochees);
    void MontrerMenu(const QPoint& place);
    void Supprimer();

    std::unique_ptr<Ui::frmSuppr> m_ui;
    QrtClass* m_doc = nullptr;
    MyLV m_colonnes; // without entries: titles and widths of the list
    std::unique_ptr<ListeASupprimer> m_liste;
    std::unique_ptr<ModeleASupprimer> m_modele;
};
