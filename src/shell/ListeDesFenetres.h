// The open documents at the end of the menu of windows, to go from one to the other.
#pragma once

#include <QObject>

class Form1;
class MDIForm1;
class QAction;
class QMenu;

class ListeDesFenetres : public QObject
{
    Q_OBJECT

public:
    /// Keeps the list of `menu` up to date each time that it is shown; it lives as long as the menu.
    ListeDesFenetres(QMenu& menu, MDIForm1& cadre);

private:
    void Refaire();
    void Ajouter(int numero, Form1& fenetre);

    QMenu& m_menu;
    MDIForm1& m_cadre;
    QList<QAction*> m_items;
};
