// The table of a document as Qt's views read it. It copies nothing: every question goes to MyLV. Rows and columns
// count from 0 here, from 1 in MyLV.
#pragma once

#include "catalogue/table/MyLV.h"

#include <QAbstractTableModel>
#include <QIcon>

class ModeleTable : public QAbstractTableModel, private ObservateurTable
{
    Q_OBJECT

public:
    /// Observes `table` (not owned), which outlives the model.
    explicit ModeleTable(MyLV& table, QObject* parent = nullptr);
    ~ModeleTable() override;

    MyLV& Table() const { return m_table; }

    /// Tells the views what changed in the table since the last time. Runs by itself, once, when the event loop is
    /// reached after a change; to be called before the views are asked about entries that were just added or moved.
    void Rafraichir();
    /// True while the views are told: what moves in them then is no act of the user.
    bool Rafraichit() const { return m_rafraichit; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;

    /// The marker of a row or of a column: "noico", "ico", "icoerror", "up", "down"; null for any other name.
    const QIcon& Marque(const QString& nom) const;

signals:
    /// What Rafraichir has told the views, for what is no matter of rows and cells.
    void Rafraichi(const ChangementsTable& changements);

private:
    void TableModifiee() override;
    void CompterLesLignes();
    void ValeursChangees(int premiere, int derniere);

    MyLV& m_table;
    // What the views were told last. The table may be ahead of it.
    int m_lignes = 0;
    int m_colonnes = 0;
    bool m_enAttente = false;
    bool m_rafraichit = false;
    QHash<QString, QIcon> m_marques;
};
