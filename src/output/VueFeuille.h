// The sheet of the print dialog: the page in miniature, as large as there is room, with its heading, page number,
// picture and columns where they come out on paper.
#pragma once

#include "output/Feuille.h"

#include <QImage>
#include <QWidget>

class ColonnesDeFeuille;
class QLabel;

class VueFeuille : public QWidget
{
    Q_OBJECT

public:
    explicit VueFeuille(QWidget* parent = nullptr);

    QLabel* NomCat;
    QLabel* Page;
    QLabel* Icone;
    ColonnesDeFeuille* LV1;

    /// A null image clears it. It fills its square on the sheet, whatever its proportions.
    void MontrerImage(const QImage& image);
    const QImage& Image() const { return m_image; }

    /// The sheet as it stands.
    Feuille Disposition() const;

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Placer();
    QRectF EnPixels(const QRectF& mm) const;

    Feuille m_feuille;
    QImage m_image;
    QRectF m_papier; ///< in pixels
};
