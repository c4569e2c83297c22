// The view of a document's table: the program's list view, and what only a document's window has: keys and clicks that
// stand for its commands.
#pragma once

#include "vue/VueDesLignes.h"

#include <functional>

class QMimeData;

class VueTable : public VueDesLignes
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

    /// Its titles are not clickable until someone listens.
    explicit VueTable(QWidget* parent = nullptr);

    /// Whether all of a cell's text (both from 1, both exist) can be read in its column.
    bool EstEntiere(int ligne, int colonne) const;

    /// What stands in grey in the middle of a table without entries; asked for as it is drawn. Empty for nothing.
    std::function<QString()> Invitation;

    /// SourceDrag while entries are dragged out of this view, which takes none of them back then; else empty.
    QString Tag;
    static QString SourceDrag() { return QStringLiteral("SourceDrag"); }
    /// Whether something dragged is a text for a table, and neither files nor what must not be copied. None is, while a
    /// dialog is open.
    static bool PorteUnTexte(const QDropEvent& event);

signals:
    /// The table or its selection changed, and the view shows it: time to show counts and pictures anew.
    void TableRafraichie();
    /// A key that stands for a command was pressed.
    void ToucheDeCommande(VueTable::Touche touche);
    void ToucheRelachee();
    void EntreeCliquee();
    void EntreeDoubleCliquee();
    /// The right button was released over the table, at this place of the screen.
    void ClicDroit(const QPoint& place);
    /// A text was dropped on the table. Whoever dropped it waits for the end of this.
    void TexteDepose(const QString& texte);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void TableChangee(const ChangementsTable& changements) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    bool TouchePourLaFenetre(const QKeyEvent& event);
    bool Accueillir(QDropEvent& event) const;
    bool EstVide() const;

    bool m_vide = false; ///< whether the table had no entries when it was drawn last
};
