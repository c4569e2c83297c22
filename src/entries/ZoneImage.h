// The picture of an entry in the editor: a click on it, or the space bar, asks for another one. One can also be dropped
// here or pasted.
#pragma once

#include "images/ImageRecue.h"
#include "images/PanneauImage.h"

class ZoneImage : public PanneauImage
{
    Q_OBJECT

public:
    explicit ZoneImage(QWidget* parent = nullptr);

signals:
    void Clic();
    /// What was dropped or pasted, once that is over.
    void Recue(const ImageRecue& image);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void Coller();
    bool Accueillir(QDropEvent& event) const;
    void MarquerSurvol(bool survol);

    bool m_survol = false; ///< something that can be dropped here is over it
};
