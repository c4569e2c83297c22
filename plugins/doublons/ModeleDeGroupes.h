// The groups as a tree: below each group its entries, with a check mark, the number of their row and their values. The
// view gets some of them, and more as it goes on: one group may have a million.
#pragma once

#include "Groupes.h"

#include <QAbstractItemModel>
#include <QCache>
#include <QStringList>

#include <functional>

class ModeleDeGroupes : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// The cells of a row of the table.
    using LireLigne = std::function<QStringList(int ligne)>;
    ModeleDeGroupes(const QStringList& titres, LireLigne lire, QObject* parent = nullptr);

    /// Shows other groups.
    void Montrer(Groupes groupes);
    const Groupes& LesGroupes() const { return m_groupes; }
    void CocherSauf(Groupes::Gardee gardee);
    void ToutDecocher();
    /// Follows the table, from which the checked entries were removed.
    void RetirerCochees();
    /// Checks an entry, or takes its mark away; a group has none.
    void Basculer(const QModelIndex& index);
    /// Whether there are more groups, or more entries of a group, than the view has; and hands over some of them. Not
    /// by the names that the base has for this: a tree asks for more of all that is open each time it lays itself out.
    bool AEncore(const QModelIndex& parent) const;
    void Etendre(const QModelIndex& parent);

    QModelIndex index(int ligne, int colonne, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role) override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    static constexpr int Tranche = 200;    ///< groups, or entries of one group, that are added at once
    static constexpr int LettresMax = 300; ///< of a cell that are shown

signals:
    void CochesChangees();

private:
    static bool EstGroupe(const QModelIndex& index) { return index.internalId() == 0; }
    static int GroupeDe(const QModelIndex& index) { return static_cast<int>(index.internalId()) - 1; }
    QString TexteDuGroupe(int groupe, int colonne) const;
    QString TexteDeLEntree(const QModelIndex& index) const;
    QString Cellule(int ligne, int colonne) const;
    void ToutAChange();

    QStringList m_titres;
    LireLigne m_lire;
    Groupes m_groupes;
    int m_montres = 0;           // groups
    std::vector<int> m_montrees; // entries of each group
    mutable QCache<int, QStringList> m_lues{500};
};
