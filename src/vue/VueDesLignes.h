// The list view of the program: rows in columns, titles that sort, and it stays quick with a million rows. Only what is
// seen is asked for and drawn.
//
// A dialog gives it a table, whose entries are the rows (Selected and SelectedItem are the selection and the focus), or
// rows of its own in a model. Rows and columns count from 1.
#pragma once

#include <QBasicTimer>
#include <QTableView>

#include <memory>
#include <utility>
#include <vector>

class ChoixDansListe;
class ColumnHeaders;
class LignesChoisies;
class ModeleTable;
class MyLV;
class SaisieRapide;
class SelectionDesLignes;
class TitresDeLignes;
struct ChangementsTable;
struct PlageDeColonnes;

class VueDesLignes : public QTableView
{
    Q_OBJECT

public:
    explicit VueDesLignes(QWidget* parent = nullptr);
    ~VueDesLignes() override;

    // One of the two, once, before the view is seen. Nothing is owned, all outlives the view.
    /// Shows the entries of `table`.
    void Afficher(MyLV& table);
    /// Shows the rows of `modele`, whose columns have the widths of `colonnes`. Where the first cell of a row can be
    /// checked, the space bar does it.
    void Afficher(QAbstractItemModel& modele, ColumnHeaders& colonnes);

    /// Of a view that shows a table.
    ModeleTable& Modele() const { return *m_modele; }
    bool MontreTable() const { return m_modele != nullptr; }
    const ColumnHeaders& Colonnes() const { return *m_colonnes; }

    /// Row and column under a point of the viewport; 0 for none.
    int LigneSous(const QPoint& point) const;
    int ColonneSous(const QPoint& point) const;
    /// Scrolls to a row, also to an entry that was just added; a number that names none is passed over.
    void RendreVisible(int ligne);

    /// Pixels of a length in units of 1/1440 inch on this screen, and back.
    int PixelsDe(double unites) const;
    double UnitesDe(int pixels) const;
    /// Pixels of a cell of a column beside its text: margins, an icon, a check box.
    int AutourDuTexte(int colonne) const;

    /// Fits the columns to what is in them and to their titles, these in the font of `fenetre`. The key Ctrl+R does it
    /// with the window's.
    void AjusterColonnes(const QWidget& fenetre);
    /// Scales the columns to the view's width, as the key Ctrl+D does. An empty list stays as it is.
    void RedimensionnerColonnes();

    /// The selected rows as runs: first and last row.
    std::vector<std::pair<int, int>> PlagesChoisies() const;
    /// For a view with rows of its own, which were put in another order: `avant` is, for each row, the row that it was.
    /// Selection and focus go with their rows.
    void SuivreOrdre(const std::vector<int>& avant);

    /// Whether selected rows can be dragged out of the list: see LignesEmportees. Not until this is called.
    void PermettreDEmporter() { m_emportable = true; }

    void selectAll() override;
    /// Goes to the next row whose first column begins with what was typed, case ignored.
    void keyboardSearch(const QString& saisie) override;
    /// Never moves sideways: a row is seen when it is seen in part.
    void scrollTo(const QModelIndex& index, ScrollHint ou = EnsureVisible) override;

signals:
    /// A column's title was clicked, or chosen with the keyboard: Shift+Tab leads there. Silent while titles are not
    /// clickable.
    void EnteteCliquee(int colonne);
    /// A selected row was pressed, and the pointer leaves with the left button held.
    void LignesEmportees();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool suivant) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& courante, const QModelIndex& quittee) override;
    void selectionChanged(const QItemSelection& choisies, const QItemSelection& laissees) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;

    /// The pointer has reached another row with the left button held. True where that is no matter of the selection,
    /// which else goes along.
    virtual bool MenerJusque(int ligne);
    /// The table changed, and the view shows it.
    virtual void TableChangee(const ChangementsTable& changements);

private:
    /// What a key or a click on a row does to the selection.
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
    int LignesParPage() const;
    int DerniereVisible() const;
    void BrancherTitres();
    void AllerAuTitre(int colonne);
    void DireTitre(int colonne);
    bool ToucheDeColonnes(const QKeyEvent& event);
    void ToucheEspace(const QKeyEvent& event);
    bool BasculerCoche();
    int ChercherDebut(const QString& debut, int apres) const;
    bool Emporte(const QMouseEvent& event);
    bool TireDehors(const QMouseEvent& event);
    void Defiler();
    void TirerJusque(int ligne);

    void Installer(QAbstractItemModel& modele);
    void MettreAJour();
    void AppliquerLargeurs();
    void AppliquerHauteur();
    void LargeurTiree(int section, int pixels);
    void DessinerGrille(QPainter& painter, const std::vector<PlageDeColonnes>& plages) const;

    ModeleTable* m_modele = nullptr;          // null with rows of the dialog's own
    ChoixDansListe* m_choixDeListe = nullptr; // null with a table
    std::unique_ptr<LignesChoisies> m_choix;
    SelectionDesLignes* m_selection = nullptr;
    ColumnHeaders* m_colonnes = nullptr;
    TitresDeLignes* m_titres;
    std::unique_ptr<SaisieRapide> m_frappe;
    int m_ancre = 0;         ///< where a selection with Shift begins; 0 while there is none
    int m_ligneTiree = 0;    ///< row under the pointer while the left button is held
    int m_ligneALaisser = 0; ///< pressed while selected: it alone stays so at release, unless the pointer drags
    bool m_emportable = false;
    bool m_emportees = false; ///< they are under way: the pointer selects nothing more until it is pressed anew
    QPoint m_appui;           ///< where the left button was pressed
    Qt::KeyboardModifiers m_touchesEnTirant; ///< held when the pointer that drags was last seen
    QBasicTimer m_defilement;                ///< runs while it drags above or below the rows, which scroll by
    int m_sensDuDefilement = 0;              ///< -1 towards the first row, 1 towards the last
    int m_pasDuDefilement = 0;               ///< pixels that the next tick scrolls by
    bool m_largeursEnCours = false;
};
