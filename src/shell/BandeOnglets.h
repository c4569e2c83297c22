// The strip of tabs over the document windows, TabStrip1. A tab is known by its key, the Tag of its window.
#pragma once

#include <QSet>
#include <QTabBar>
#include <QTimer>

class BandeOnglets : public QTabBar
{
    Q_OBJECT

public:
    explicit BandeOnglets(QWidget* parent = nullptr);

    /// The 1-based number, as text, of the tab over which a mouse button was last released; empty before.
    QString Tag;

    void Ajouter(const QString& cle, const QString& titre);
    void Retirer(const QString& cle);
    void MettreTitre(const QString& cle, const QString& titre);
    /// The path that a tab shows as its tip, its caption for none; and whether it is marked as one with unsaved
    /// changes.
    void MettreEtat(const QString& cle, const QString& chemin, bool modifie);
    void Selectionner(const QString& cle);
    /// Does what a click on a tab does, from 1.
    void Presser(int numero);

    /// Key and caption of a tab, from 1; empty for a number that there is no tab of.
    QString Cle(int numero) const;
    QString Titre(int numero) const;
    bool EstMarque(int numero) const;

signals:
    /// Escape: the keys are to go elsewhere.
    void Quittee();
    /// A tab was chosen with the mouse or the keyboard, or the strip chose one itself when tabs came and went.
    void OngletChoisi();
    /// The right button was released over the strip, on a tab or beside.
    void MenuDemande(const QPoint& endroit);
    /// The middle button was pressed and released on this tab, from 1.
    void FermetureDemandee(int numero);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    /// Names stay readable: a very long one is shortened, and with many tabs the strip scrolls before it squeezes them.
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;

private:
    /// The index in the strip, from 0; -1 without such a tab.
    int IndexDe(const QString& cle) const;
    void Survoler(int index);

    QSet<QString> m_marques; ///< keys of the tabs that are marked
    int m_presse = -1;       ///< index of the tab on which the middle button is held; -1 for none
    int m_survole = -1;      ///< index of the tab that something is held over; -1 for none
    QTimer m_survolement;    ///< runs until that tab is chosen
};
