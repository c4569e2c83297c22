// The entries that a deletion would take, as Qt's views read them: the first column carries the check marks. It copies
// nothing. Rows and columns count from 0 here, from 1 in the list.
#pragma once

#include "entries/ListeASupprimer.h"

#include <QAbstractTableModel>

class ModeleASupprimer : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Neither is owned, both outlive the model. Of `colonnes` the titles are shown.
    ModeleASupprimer(ListeASupprimer& liste, const ColumnHeaders& colonnes, QObject* parent = nullptr);

    // What changes the list, and tells the views.
    void Remplir(bool avecDependantes);
    void Cocher(int premiere, int derniere, bool cochees); ///< rows from 1
    void Inverser();
    std::vector<int> Trier(int colonne); ///< from 1
    void Supprimer(QrtClass& doc, const std::function<void(const QString& fichier)>& supprimerImage);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;

signals:
    /// Rows or check marks are others now.
    void CochesChangees();

private:
    void LignesChangees(int premiere, int derniere);

    ListeASupprimer& m_liste;
    const ColumnHeaders& m_colonnes;
};
