// The tip over a document's table: the whole text of the cell under the pointer, for cells that are cut off only.
#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

class QLabel;
class VueTable;

class Infobulle : public QObject
{
    Q_OBJECT

public:
    /// Shows its text in `myToolTipText`, a label that lies over the view. Neither is owned; both outlive the tip.
    Infobulle(VueTable& vue, QLabel& myToolTipText, QObject* parent = nullptr);

    /// Ticks while tips are wanted: every 500 ms.
    QTimer& ToolTipTimer() { return m_minuteur; }

protected:
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void Battre();
    void PointeurEn(const QPoint& position);
    void Oublier();
    void Placer(const QRect& cellule);

    VueTable& m_vue;
    QLabel& m_texte;
    QTimer m_minuteur;
    QPoint m_pointeur; ///< last position of the pointer over the table
    bool m_dessus = false;
};
