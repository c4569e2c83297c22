// The view of a document's table: a list of entries in columns that stays quick with a million of them. Only what is
// seen is asked for and drawn; Selected and SelectedItem of the table are the selection and the focus.
#pragma once

#include <QBasicTimer>
#include <QTableView>

#include <memory>
#include <vector>

class ModeleTable;
class MyLV;
class SaisieRapide;
class SelectionTable;
struct ChangementsTable;
struct PlageDeColonnes;

class VueTable : public QTableView
{
    Q_OBJECT

public:
    /// Keys that stand for a command of the window.
    enum class Touche {
        Editer,    ///< Enter, in a table with entries
        Voir,      ///< Shift and Enter, in a table with entries
        Supprimer, ///< Delete
        Ajouter,   ///< plus of the numeric keypad
    };

    explicit VueTable(QWidget* parent = nullptr);
    ~VueTable() override;

    /// Shows `table` (not owned), which outlives the view. To be called once, before the view is seen.
    void Afficher(MyLV& table);
    ModeleTable& Modele() const { return *m_modele; }

    /// 1-based entry and column under a point of the viewport; 0 for none.
    int LigneSous(const QPoint& point) const;
    int ColonneSous(const QPoint& point) const;
    /// Whether all of a cell's text (both from 1, both exist) can be read in its column.
    bool EstEntiere(int ligne, int colonne) const;
    /// Scrolls to an entry (from 1), also to one that was just added; a number that names none is passed over.
    void RendreVisible(int ligne);

    /// Pixels of a length in units of 1/1440 inch on this screen, and back.
    int PixelsDe(double unites) const;
    double UnitesDe(int pixels) const;

    void selectAll() override;
    /// Goes to the next entry whose first column begins with what was typed, case ignored.
    void keyboardSearch(const QString& saisie) override;
    /// Never moves sideways: an entry is seen when its row is.
    void scrollTo(const QModelIndex& index, ScrollHint ou = EnsureVisible) override;

signals:
    /// A column's title was clicked (from 1). Silent until the titles are made clickable.
    void EnteteCliquee(int colonne);
    /// The table or its selection changed, and the view shows it: time to show counts and pictures anew.
    void TableRafraichie();
    /// A key that stands for a command was pressed.
    void ToucheDeCommande(VueTable::Touche touche);
    void ToucheRelachee();
    void EntreeCliquee();
    void EntreeDoubleCliquee();
    /// The right button was released over the table, at this place of the screen.
    void ClicDroit(const QPoint& place);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void selectionChanged(const QItemSelection& choisies, const QItemSelection& laissees) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;

private:
    /// What a key or a click on an entry does to the selection.
    enum class Geste {
        Choisir,  ///< this one alone
        Etendre,  ///< from the anchor to here
        Ajouter,  ///< the same, and what was selected stays so
        Basculer, ///< this one, on or off
        Aller,    ///< the focus alone
    };
    static Geste GesteDeSouris(Qt::KeyboardModifiers touches);
    static Geste GesteDeClavier(Qt::KeyboardModifiers touches);
    void Faire(Geste geste, int ligne);
    int LigneCourante() const;
    int CibleDe(const QKeyEvent& event) const;
    bool TouchePourLaFenetre(const QKeyEvent& event);
    int LignesParPage() const;
    int DerniereVisible() const;
    void ToucheEspace(const QKeyEvent& event);
    bool TireDehors(const QMouseEvent& event);
    void Defiler();
    void TirerJusque(int ligne);

    void TableChangee(const ChangementsTable& changements);
    void AppliquerLargeurs();
    void AppliquerHauteur();
    void LargeurTiree(int section, int pixels);
    void DessinerGrille(QPainter& painter, const std::vector<PlageDeColonnes>& plages) const;

    ModeleTable* m_modele = nullptr;
    SelectionTable* m_selection = nullptr;
    std::unique_ptr<SaisieRapide> m_frappe;
    int m_ancre = 0;         ///< where a selection with Shift begins; 0 while there is none
    int m_ligneTiree = 0;    ///< entry under the pointer while the left button is held
    int m_ligneALaisser = 0; ///< pressed while selected: it alone stays so at release, unless the pointer drags
    Qt::KeyboardModifiers m_touchesEnTirant; ///< held when the pointer that drags was last seen
    QBasicTimer m_defilement;                ///< runs while it drags above or below the entries, which scroll by
    int m_sensDuDefilement = 0;              ///< -1 towards the first entry, 1 towards the last
    int m_pasDuDefilement = 0;               ///< pixels that the next tick scrolls by
    bool m_largeursEnCours = false;
};
