// Something dragged over the windows of a test, as another program would.
#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

/// A text on its way, or what a test puts in its place. One is under way at a time.
class Glissement
{
public:
    explicit Glissement(const QString& texte) { donnees.setText(texte); }

    /// Comes to a point of `ou`, and tells whether it could be dropped there.
    bool Entrer(QWidget& ou, const QPoint& point)
    {
        QDragEnterEvent entree(point, actions, &donnees, Qt::LeftButton, touches);
        QApplication::sendEvent(&ou, &entree);
        return entree.isAccepted() && Bouger(ou, point);
    }
    bool Bouger(QWidget& ou, const QPoint& point)
    {
        QDragMoveEvent mouvement(point, actions, &donnees, Qt::LeftButton, touches);
        mouvement.setAccepted(false);
        QApplication::sendEvent(&ou, &mouvement);
        action = mouvement.dropAction();
        return mouvement.isAccepted();
    }
    void Sortir(QWidget& ou)
    {
        QDragLeaveEvent sortie;
        QApplication::sendEvent(&ou, &sortie);
    }
    /// Is let go where it was moved to last; a desktop asks only where that was agreed to.
    bool Lacher(QWidget& ou, const QPoint& point)
    {
        QDropEvent depot(point, actions, &donnees, Qt::LeftButton, touches);
        depot.setAccepted(false);
        QApplication::sendEvent(&ou, &depot);
        action = depot.dropAction();
        return depot.isAccepted();
    }
    /// All of it. False where it was refused.
    bool Deposer(QWidget& ou, const QPoint& point)
    {
        if (Entrer(ou, point))
            return Lacher(ou, point);
        Sortir(ou);
        return false;
    }

    QMimeData donnees;
    Qt::DropActions actions = Qt::CopyAction;
    Qt::KeyboardModifiers touches;
    Qt::DropAction action = Qt::IgnoreAction; ///< the last answer
};
