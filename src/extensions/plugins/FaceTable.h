// The table as a plug-in sees it: objects that need nothing but Qt Core, under the names that MyLV has.
//
// Members are called by name from libraries built outside the tree: names and arguments stay as they are. Texts are
// made safe for the catalogue's file; an index that names nothing gives null, an empty text or false. All of it goes
// with the document's face, and is deaf once the document has gone.
#pragma once

#include "catalogue/table/MyLV.h"

#include <QObject>
#include <QVariant>

#include <functional>
#include <memory>

class FaceColumnHeaders;
class FaceListItems;

/// The table behind all faces of one document; null once it has gone.
class TableVue
{
public:
    explicit TableVue(MyLV& table) : m_table(&table), m_vie(table.Vie()) {}
    explicit operator bool() const { return !m_vie.expired(); }
    MyLV* operator->() const { return m_table; }
    MyLV& operator*() const { return *m_table; }

    /// The marker that goes with an image.
    std::function<QString(const QString& image)> icone = [](const QString&) { return QString(); };
    /// What a deletion by the user does beside removing the entries: to the images that no entry has any more.
    std::function<void(const QStringList& images)> supprimees = [](const QStringList&) {};

private:
    MyLV* m_table;
    std::weak_ptr<const void> m_vie;
};

/// One column, by its position.
class FaceColumnHeader : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE SetText)
    Q_PROPERTY(double Width READ Width WRITE SetWidth)
    Q_PROPERTY(QString Tag READ Tag WRITE SetTag)
    Q_PROPERTY(int Index READ Index)
    Q_PROPERTY(QString Icon READ Icon WRITE SetIcon)
    Q_PROPERTY(QString Key READ Key WRITE SetKey)

public:
    FaceColumnHeader(const TableVue& table, int index, QObject* parent)
        : QObject(parent), m_table(table), m_index(index)
    {
    }

    QString Text() const;
    void SetText(const QString& texte);
    double Width() const;
    void SetWidth(double largeur);
    QString Tag() const;
    void SetTag(const QString& marque);
    int Index() const { return m_index; }
    QString Icon() const;
    void SetIcon(const QString& icone);
    QString Key() const;
    void SetKey(const QString& cle);

private:
    ColumnHeader* Colonne() const;

    const TableVue& m_table;
    int m_index;
};

class FaceColumnHeaders : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int Count READ Count)

public:
    FaceColumnHeaders(const TableVue& table, QObject* parent) : QObject(parent), m_table(table) {}

    int Count() const;
    Q_INVOKABLE QObject* Item(int index);
    /// A column at `index` (0: at the end).
    Q_INVOKABLE QObject* Add(int index, const QString& texte);
    Q_INVOKABLE bool Remove(int index);
    Q_INVOKABLE void Clear();

private:
    const TableVue& m_table;
};

/// One entry; null to its end once it was removed.
class FaceListItem : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE SetText)
    Q_PROPERTY(QString Key READ Key WRITE SetKey)
    Q_PROPERTY(QString Tag READ Tag WRITE SetTag)
    Q_PROPERTY(QString SmallIcon READ SmallIcon)
    Q_PROPERTY(bool Selected READ Selected WRITE SetSelected)
    Q_PROPERTY(int Index READ Index)

public:
    FaceListItem(const TableVue& table, const ListItem& entree, QObject* parent)
        : QObject(parent), m_table(table), m_entree(entree)
    {
    }

    QString Text() const;
    void SetText(const QString& texte);
    Q_INVOKABLE QString SubItems(int i) const;
    Q_INVOKABLE bool SetSubItems(int i, const QString& texte);
    /// Nothing for a cell that was never written.
    Q_INVOKABLE QVariant ListSubItems(int i) const;
    QString Key() const;
    void SetKey(const QString& cle);
    QString Tag() const;
    void SetTag(const QString& marque);
    QString SmallIcon() const;
    bool Selected() const;
    void SetSelected(bool choisie);
    int Index() const;

    const ListItem& Entree() const { return m_entree; }
    void Oublier() { m_entree = ListItem(); }

private:
    bool EstLa() const { return m_table && m_entree; }

    const TableVue& m_table;
    ListItem m_entree;
};

class FaceListItems : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int Count READ Count)

public:
    FaceListItems(const TableVue& table, QObject* parent) : QObject(parent), m_table(table) {}

    int Count() const;
    Q_INVOKABLE QObject* Item(int index);
    Q_INVOKABLE QObject* Item(const QString& cle);
    /// An entry at `index` (0: at the end), with the key of a new entry where `cle` is empty.
    Q_INVOKABLE QObject* Add(int index, const QString& cle, const QString& texte);
    Q_INVOKABLE bool Remove(int index);
    Q_INVOKABLE bool Remove(const QString& cle);
    Q_INVOKABLE void Clear();

    QObject* Face(const ListItem& entree);
    /// Removes the entries in these positions.
    void Retirer(const QList<int>& positions);

private:
    const TableVue& m_table;
};

class FaceTable : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject* ColumnHeaders READ ColumnHeaders CONSTANT)
    Q_PROPERTY(QObject* ListItems READ ListItems CONSTANT)
    Q_PROPERTY(bool Sorted READ Sorted WRITE SetSorted)
    Q_PROPERTY(int SortKey READ SortKey WRITE SetSortKey)
    Q_PROPERTY(int SortOrder READ SortOrder WRITE SetSortOrder)
    Q_PROPERTY(int View READ View)
    Q_PROPERTY(bool GridLines READ GridLines WRITE SetGridLines)
    Q_PROPERTY(QObject* SelectedItem READ SelectedItem WRITE SetSelectedItem)
    Q_PROPERTY(int ColonnesCount READ ColonnesCount)
    Q_PROPERTY(int LignesCount READ LignesCount)
    Q_PROPERTY(QStringList Titres READ Titres)

public:
    FaceTable(const TableVue& table, QObject* parent);

    QObject* ColumnHeaders() const;
    QObject* ListItems() const;
    bool Sorted() const { return m_table && m_table->Sorted(); }
    void SetSorted(bool trie);
    int SortKey() const { return m_table ? m_table->SortKey() : 0; }
    void SetSortKey(int cle);
    int SortOrder() const { return m_table ? m_table->SortOrder() : 0; }
    void SetSortOrder(int sens);
    int View() const { return m_table ? m_table->View() : 0; }
    bool GridLines() const { return m_table && m_table->GridLines(); }
    void SetGridLines(bool grille);
    QObject* SelectedItem();
    void SetSelectedItem(QObject* entree);

    // ---- many at once: see zelvane::Table in ZelvanePlugin.h

    int ColonnesCount() const;
    int LignesCount() const;
    QStringList Titres() const;
    Q_INVOKABLE bool AjouterColonnes(const QStringList& titres);
    Q_INVOKABLE bool AjouterLignes(const QStringList& cellules);
    Q_INVOKABLE QStringList LireLignes(int premiere, int nombre) const;
    Q_INVOKABLE bool EcrireLignes(int premiere, const QStringList& cellules);
    Q_INVOKABLE QStringList LireImages(int premiere, int nombre) const;
    Q_INVOKABLE bool EcrireImages(int premiere, const QStringList& images);
    Q_INVOKABLE void RetirerLignes(const QList<int>& positions);
    Q_INVOKABLE QStringList LireColonnes(const QList<int>& colonnes, int premiere, int nombre) const;
    Q_INVOKABLE int SupprimerLignes(const QList<int>& positions);

private:
    /// How many of `nombre` rows from `premiere` on there are.
    int Reste(int premiere, int nombre) const;

    TableVue m_table;
    FaceColumnHeaders* m_colonnes;
    FaceListItems* m_entrees;
};
