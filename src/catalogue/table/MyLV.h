// The table of a category: columns, entries, order, selection. The only copy of a document's values.
//
// Positions count from 1. Cells are numbered like the columns less one: Text is the first column, SubItems(i) column
// i + 1. All values are text. A loaded entry is a slice of the file's bytes until it is edited; an edited one is one
// block of its own. Nothing here opens a file or a window.
//
// A table belongs to one thread.
#pragma once

#include "catalogue/table/MyLVCles.h"
#include "catalogue/table/MyLVStockage.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class MyLV;
class TriPassager;

/// A column. Owned by its table; a reference stays valid until the columns change.
class ColumnHeader
{
public:
    const QString& Text() const { return m_texte; }
    void SetText(const QString& texte);

    /// In units of 1/1440 inch.
    float Width() const { return m_largeur; }
    /// A negative or infinite width is refused: false, and the width stays.
    bool SetWidth(float largeur);

    /// The pre-recorded texts, opaque here.
    const QString& Tag() const { return m_marque; }
    void SetTag(const QString& marque);

    /// The sort marker: "up", "down" or empty.
    const QString& Icon() const { return m_icone; }
    void SetIcon(const QString& icone);

    const QString& Key() const { return m_cle; }
    void SetKey(const QString& cle);

    /// 1-based position.
    int Index() const;

private:
    friend class ColumnHeaders;
    explicit ColumnHeader(MyLV& table) : m_table(&table) {}

    MyLV* m_table;
    QString m_texte;
    QString m_marque;
    QString m_icone;
    QString m_cle;
    float m_largeur = 1440;
};

/// The columns of a table, from 1. Adding, removing or moving a column moves no cell of an entry.
class ColumnHeaders
{
public:
    explicit ColumnHeaders(MyLV& table) : m_table(table) {}
    ColumnHeaders(const ColumnHeaders&) = delete;
    ColumnHeaders& operator=(const ColumnHeaders&) = delete;

    int Count() const { return static_cast<int>(m_colonnes.size()); }
    /// A new column at `index` (0: at the end), one inch wide. An index outside 0 to Count + 1 is taken as 0.
    ColumnHeader& Add(int index = 0, const QString& texte = QString());
    /// False when there is no such column.
    bool Remove(int index);
    void Clear();
    bool Existe(int index) const { return index >= 1 && index <= Count(); }
    /// Column 1 to Count.
    ColumnHeader& operator()(int index) { return *m_colonnes[static_cast<size_t>(index - 1)]; }
    const ColumnHeader& operator()(int index) const { return *m_colonnes[static_cast<size_t>(index - 1)]; }

private:
    MyLV& m_table;
    std::vector<std::unique_ptr<ColumnHeader>> m_colonnes;
};

/// A handle on an entry, for reading: what a const table gives. Cheap to copy, valid until the entry is removed. A
/// default handle is nothing.
class ListItemLu
{
public:
    ListItemLu() = default;
    explicit operator bool() const { return m_table != nullptr; }
    friend bool operator==(const ListItemLu& a, const ListItemLu& b)
    {
        return a.m_table == b.m_table && (!a.m_table || a.m_rang == b.m_rang);
    }

    QString Text() const;
    /// The value of column i + 1; empty for a cell that was never written. i from 1 to the column count less 1.
    QString SubItems(int i) const;
    /// The cell behind SubItems(i); nothing when it was never written.
    std::optional<QString> ListSubItems(int i) const;

    /// The value of column `colonne` (from 1): Text for the first, SubItems otherwise.
    QString Valeur(int colonne) const;
    /// All values, one for each column of the table.
    QStringList Valeurs() const;

    QString Key() const;
    /// The image: a bare file name, or empty.
    QString Tag() const;
    /// "noico", "ico", "icoerror" or empty.
    QString SmallIcon() const;
    bool Selected() const;
    /// 1-based position.
    int Index() const;

private:
    friend class MyLV;
    friend class ListItem;
    friend class ListItems;
    ListItemLu(MyLV* table, uint32_t rang) : m_table(table), m_rang(rang) {}

    MyLV* m_table = nullptr;
    uint32_t m_rang = 0;
};

/// The same handle, for reading and writing.
class ListItem : public ListItemLu
{
public:
    ListItem() = default;

    void SetText(const QString& texte);
    /// False when i is outside its range.
    bool SetSubItems(int i, const QString& texte);
    /// The value of column `colonne` (from 1), for who writes the same text into many entries. False when there is no
    /// such column.
    bool EcrireUtf8(int colonne, QByteArrayView utf8);

    /// Writes all cells, from the first, and the image, at once; cells behind them are none any more.
    void EcrireCellules(std::span<const stockage::Cellule> cellules, const stockage::Cellule& image);
    /// Writes one value a column, from the first, at once.
    void EcrireValeurs(const QStringList& valeurs);
    /// Writes the values that are given, from the first column, and the image if one is given, at once; the others
    /// stay.
    void Modifier(const std::vector<std::optional<QString>>& valeurs, const std::optional<QString>& image);

    /// False when another entry has the key; it stays then.
    bool SetKey(const QString& cle);
    void SetTag(const QString& marque);
    void SetSmallIcon(const QString& icone);
    void SetSelected(bool choisie);

private:
    friend class MyLV;
    friend class ListItems;
    using ListItemLu::ListItemLu;
};

/// The entries of a table in display order, from 1, and by key.
class ListItems
{
public:
    explicit ListItems(MyLV& table) : m_table(table) {}
    ListItems(const ListItems&) = delete;
    ListItems& operator=(const ListItems&) = delete;

    int Count() const;
    /// A new entry at `index` (0: at the end). Nothing when another entry has the key, or the index is outside 0 to
    /// Count + 1. In a table with Sorted on the entry finds its place when the operation ends: see AjoutsDansTable.
    ListItem Add(int index, const QString& cle, const QString& texte);
    /// False when there is no such entry.
    bool Remove(int index);
    bool Remove(const QString& cle);
    /// Removes many entries in one pass; positions that name nothing are passed over.
    void Retirer(const std::vector<int>& positions);
    void Clear();
    bool Existe(int index) const { return index >= 1 && index <= Count(); }
    /// Entry 1 to Count; nothing outside.
    ListItem operator()(int index);
    ListItemLu operator()(int index) const;
    /// The entry with the key; nothing when there is none.
    ListItem operator()(const QString& cle);
    ListItemLu operator()(const QString& cle) const;

private:
    std::optional<uint32_t> Rang(int index) const;

    MyLV& m_table;
};

/// What changed in a table since its observer last asked. Several changes are told as one.
struct ChangementsTable
{
    bool colonnes = false;  ///< titles, widths, markers, number of columns
    bool lignes = false;    ///< entries added, removed or in another order
    bool valeurs = false;   ///< cells, images or markers of the entries premiere to derniere
    bool selection = false; ///< Selected of the entries premiere to derniere, or SelectedItem
    bool aspect = false;    ///< GridLines, View
    int premiere = 0;       ///< 1-based; 0 when neither values nor the selection changed
    int derniere = 0;
};

/// Told once when a table changes for the first time since it took its changes: a loop over a million entries sends one
/// notice. It takes the changes when it is ready to draw; what others take is no matter. It stops to observe before it
/// goes, and before the table goes.
class ObservateurTable
{
public:
    virtual ~ObservateurTable() = default;
    virtual void TableModifiee() = 0;

private:
    friend class MyLV;
    ChangementsTable m_changements;
    bool m_averti = false;
};

class MyLV
{
public:
    MyLV();
    ~MyLV();
    MyLV(const MyLV&) = delete;
    MyLV& operator=(const MyLV&) = delete;

    ::ColumnHeaders ColumnHeaders{*this};
    ::ListItems ListItems{*this};

    /// Setting Sorted to true, SortKey or SortOrder puts the entries of a sorted table in order: French collation,
    /// case ignored, accents told apart, punctuation counted, stable also when descending. A SortKey that names no
    /// column orders nothing. Writing a value moves no entry.
    bool Sorted() const { return m_trie; }
    void SetSorted(bool trie);
    /// 0-based column; a negative one is refused.
    int SortKey() const { return m_cleDeTri; }
    bool SetSortKey(int cle);
    /// 0 ascending, 1 descending; others are refused.
    int SortOrder() const { return m_sensDeTri; }
    bool SetSortOrder(int sens);

    /// To be told by who has moved, added or removed columns with their values: the sort stays on its column, and no
    /// entry moves; it ends with its column. `nouveau` gives the number that a column has now, from 0; -1 when it is
    /// gone.
    void SuivreColonnes(const std::function<int(int)>& nouveau);

    int View() const { return m_modeDAffichage; }
    /// 0 to 3; others are refused. A document's is 3: one line an entry.
    bool SetView(int mode);
    bool GridLines() const { return m_grille; }
    void SetGridLines(bool grille);
    /// Of the list that shows it, in units of 1/1440 inch, which sees to it; 0 until one does.
    double Width() const { return m_largeur; }
    void SetWidth(double largeur) { m_largeur = largeur; }

    /// The entry with the focus: the first one until another gets it; nothing in an empty table only.
    ListItem SelectedItem();
    ListItemLu SelectedItem() const;
    void SetSelectedItem(const ListItem& entree);

    /// Number of entries with Selected, and the position of the first of them (0: none).
    int NombreDeSelectionnees() const;
    int PremiereSelection() const;
    /// Sets Selected of the entries premiere to derniere.
    void Selectionner(int premiere, int derniere, bool choisies);
    bool EstSelectionnee(int index) const;

    /// Gives every entry the key "k" and its position. See RecalculerCles.
    void RenumeroterCles();

    /// Memory held for the entries, in bytes.
    size_t Memoire() const;

    /// From here on the observer (not owned) is told of changes, beside others; who only reads may observe.
    void Observer(ObservateurTable& observateur) const;
    void NePlusObserver(ObservateurTable& observateur) const;
    /// What changed since the observer's last call, or since it began.
    static ChangementsTable PrendreChangements(ObservateurTable& observateur);
    /// Grows with every change of what a catalogue file holds of the table; the selection is nothing of it.
    uint64_t Generation() const { return m_generation; }
    /// Expires with the table: for who keeps a pointer to it while events are let through.
    std::weak_ptr<const void> Vie() const { return m_vie; }

    /// The bulk door of the reader and of the search: takes the file's bytes and one slice an entry, in that order,
    /// with keys "k1" to "kN" unless others are given; entries there were are gone. Then orders a sorted table.
    void Remplir(stockage::Source&& source, stockage::Lignes&& lignes);
    /// The bulk door of the writer and of scans: the entry's storage at position `index`.
    stockage::EntreeStockee StockageDe(int index) const;
    const stockage::Source& TexteSource() const { return m_source; }
    stockage::Codage CodageSource() const { return m_source.codage; }
    int ColonnesSource() const { return m_source.colonnes; }

private:
    friend class ColumnHeader;
    friend class ColumnHeaders;
    friend class ListItem;
    friend class ListItemLu;
    friend class ListItems;
    friend class AjoutsDansTable;
    friend class RefonteDeTable;
    friend class TriPassager;
    stockage::EntreeStockee StockageDuRang(uint32_t rang, stockage::Place place = {}) const;
    stockage::Cellule Cellule(uint32_t rang, int cellule) const;
    void Reecrire(uint32_t rang, const stockage::Rangee& rangee);
    void PoserBloc(uint32_t rang, char* bloc);
    void EcrireCellule(uint32_t rang, int cellule, QByteArrayView utf8);
    void LibererBloc(uint32_t rang);
    uint32_t NouveauRang();
    void ViderEntrees();

    int Position(uint32_t rang) const;
    void OrdreChange();
    void OterDeLOrdre(uint32_t rang);

    bool DonnerCle(uint32_t rang, const QString& cle, uint32_t enPosition);
    void RenumeroterPasAPas();

    bool OrdrePossible() const;
    void Ordonner();
    void PlacerAjouts();

    void Change(bool ChangementsTable::*quoi);
    void ChangeLigne(uint32_t rang, bool ChangementsTable::*quoi);
    void ChangePlage(int premiere, int derniere, bool ChangementsTable::*quoi);

    stockage::Source m_source;
    // One element an entry that was ever made, addressed by rank; removed ones are marked and used again.
    std::vector<uint64_t> m_refs;
    std::vector<uint32_t> m_longueurs;
    std::vector<uint8_t> m_drapeaux;
    std::vector<uint32_t> m_libres;
    // Display order: ranks by position.
    std::vector<uint32_t> m_ordre;
    mutable std::vector<uint32_t> m_positions;
    mutable bool m_positionsValides = false;
    ClesDeTable m_cles;
    size_t m_octetsEnBlocs = 0;
    // Where in their slices the entries asked for last were read: cells beside those are asked for next. By rank, each
    // in the one place that it may have; empty in narrow tables.
    struct PlaceGardee
    {
        uint32_t rang = 0;
        stockage::Place place;
    };
    mutable std::vector<PlaceGardee> m_places;

    std::vector<uint32_t> m_aPlacer;
    int m_ajoutsOuverts = 0;

    bool m_trie = false;
    double m_largeur = 0;
    bool m_grille = false;
    int m_cleDeTri = 0;
    int m_sensDeTri = 0;
    std::vector<TriPassager*> m_trisPassagers; // the latest first
    int m_modeDAffichage = 3;
    ListItem m_focus;

    mutable std::vector<ObservateurTable*> m_observateurs;
    uint64_t m_generation = 0;
    std::shared_ptr<const void> m_vie = std::make_shared<char>();
};

/// Brackets an operation that adds entries: those added while it lives go to their places in a sorted table when the
/// outermost one ends, by the values that they have then.
class AjoutsDansTable
{
public:
    explicit AjoutsDansTable(MyLV& table);
    ~AjoutsDansTable();
    AjoutsDansTable(const AjoutsDansTable&) = delete;
    AjoutsDansTable& operator=(const AjoutsDansTable&) = delete;

private:
    MyLV& m_table;
};

/// Renumbers: the entry in position n gets the key "k" followed by n.
void RecalculerCles(MyLV& table);
