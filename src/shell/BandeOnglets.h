// The strip of tabs over the document windows, TabStrip1. A tab is known by its key, the Tag of its window.
#pragma once

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
    void Selectionner(const QString& cle);
    /// Does what a click on a tab does, from 1.
    void Presser(int numero);

    /// Key and caption of a tab, from 1; empty for a number that there is no tab of.
    QString Cle(int numero) const;
    QString Titre(int numero) const;

signals:
    /// Escape: the keys are to go elsewhere.
    void Quittee();
    /// A tab was chosen with the mouse or the keyboard, or the strip chose one itself when tabs came and went.
    void OngletChoisi();
    /// The right button was released over the strip, on a tab or beside.
    void MenuDemande(const QPoint& endroit);

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

    int m_survole = -1;   ///< index of the tab that something is held over; -1 for none
    QTimer m_survolement; ///< runs until that tab is chosen
};
