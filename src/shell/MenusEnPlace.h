// The frame's menu bar: it shows the menus of the active document, and the frame's own while there is none.
#pragma once

#include <QList>
#include <QObject>

class QAction;
class QMdiArea;
class QMenuBar;

class MenusEnPlace : public QObject
{
    Q_OBJECT

public:
    /// `barre` holds the frame's own menus now. A document brings its menus in the menu bar of its window, which stays
    /// hidden itself. Neither argument is owned; both outlive the object.
    MenusEnPlace(QMenuBar& barre, QMdiArea& fenetres, QObject* parent = nullptr);

private:
    void Changer();

    QMenuBar& m_barre;
    QMdiArea& m_fenetres;
    QList<QAction*> m_duCadre;
};
