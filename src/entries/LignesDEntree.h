// The rows of the editor: one a column, with the column's title, the value and the column's pre-recorded texts. Rows
// count from 0 here.
//
// A row stays selected whatever is clicked, or what is typed next would go nowhere.
#pragma once

#include <QTreeWidget>

class LignesDEntree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit LignesDEntree(QWidget* parent = nullptr);

    int Nombre() const { return topLevelItemCount(); }
    void Ajouter(const QString& titre, const QString& valeur, const QString& textes);

    // Empty for a row that there is none of.
    QString Titre(int ligne) const;
    QString Valeur(int ligne) const;
    QString Textes(int ligne) const;
    void MettreValeur(int ligne, const QString& valeur);
    void MettreTextes(int ligne, const QString& textes);

    /// The selected row; -1 for none.
    int Choisie() const;
    /// Selects a row alone and brings it into view.
    void Choisir(int ligne);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
};
