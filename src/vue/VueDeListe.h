// The list of a dialog: rows in columns whose widths are kept as a table keeps them. It stays quick with a million
// rows.
#pragma once

#include "vue/mAjustColListView.h"

#include <QTableView>

#include <utility>
#include <vector>

class ColumnHeaders;

class VueDeListe : public QTableView, private MesuresDeColonnes
{
    Q_OBJECT

public:
    explicit VueDeListe(QWidget* parent = nullptr);

    /// Shows the rows of `modele`, whose columns are those of `colonnes`. Neither is owned, both outlive the view. To
    /// be called once.
    void Afficher(QAbstractItemModel& modele, ColumnHeaders& colonnes);

    /// The highlighted rows as runs: first and last row, from 1.
    std::vector<std::pair<int, int>> Surlignees() const;
    /// Tells that the rows were put in another order: `avant` is, for each row, the row that it was (from 1).
    /// Highlights and the focus go with their rows.
    void SuivreOrdre(const std::vector<int>& avant);

signals:
    /// A column's title was clicked (from 1).
    void EnteteCliquee(int colonne);

protected:
    /// Ctrl+R fits the columns, Ctrl+D scales them; the space bar checks or unchecks the row with the focus.
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void currentChanged(const QModelIndex& courante, const QModelIndex& quittee) override;
    void selectionChanged(const QItemSelection& choisies, const QItemSelection& laissees) override;

private:
    std::vector<float> LargeursDuContenu() const override;
    float LargeurDuTitre(const QString& titre) const override;
    void AppliquerLargeurs();
    int AutourDuTexte(int colonne) const;
    void AppliquerHauteur();
    void LargeurTiree(int section, int pixels);
    void BasculerCoche();
    void Surligner(const std::vector<std::pair<int, int>>& plages);

    ColumnHeaders* m_colonnes = nullptr;
    bool m_largeursEnCours = false;
};
