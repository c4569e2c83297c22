// What the lists of the import's windows show.
#pragma once

#include "DevinerCsv.h"
#include "ImportCsv.h"

#include <QAbstractTableModel>
#include <QStyledItemDelegate>

/// The columns of the file: a title that can be changed, and what becomes of it.
class ModeleColonnesCsv : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Rang { Titre, Usage };
    using QAbstractTableModel::QAbstractTableModel;

    void Mettre(const QList<ColonneCsv>& colonnes);
    const QList<ColonneCsv>& Colonnes() const { return m_colonnes; }
    /// Whether something would be imported.
    bool EstUtile() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role) override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    bool MettreUsage(qsizetype rang, UsageCsv usage);

    QList<ColonneCsv> m_colonnes;
};

/// Edits what becomes of a column by choosing from a list.
class DelegueUsageCsv : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editeur, const QModelIndex& index) const override;
    void setModelData(QWidget* editeur, QAbstractItemModel* modele, const QModelIndex& index) const override;
};

QString TexteDUsage(UsageCsv usage);

/// The first rows of the file as they will be read.
class ModeleApercuCsv : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void Mettre(const ApercuCsv& apercu, bool entete);
    void MettreColonnes(const QList<ColonneCsv>& colonnes);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;

private:
    LigneSignalee Signalee(const LigneCsv& ligne) const;

    ApercuCsv m_apercu;
    QList<ColonneCsv> m_colonnes;
    bool m_entete = false;
};

/// The rows that the user is to hear of, with what the table has of them.
class ModeleSignaleesCsv : public QAbstractTableModel
{
    Q_OBJECT

public:
    ModeleSignaleesCsv(const std::vector<LigneSignalee>& lignes, const zelvane::Table& table, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;

    /// All rows, their cells parted by tabs.
    QString Texte() const;

private:
    QString Cellule(qsizetype ligne, int colonne) const;

    const std::vector<LigneSignalee>& m_lignes;
    const zelvane::Table& m_table;
};
