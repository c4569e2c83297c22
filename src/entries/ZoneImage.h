// The picture of an entry in the editor: a click on it, or the space bar, asks for another one.
#pragma once

#include "images/PanneauImage.h"

class ZoneImage : public PanneauImage
{
    Q_OBJECT

public:
    explicit ZoneImage(QWidget* parent = nullptr);

signals:
    void Clic();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
