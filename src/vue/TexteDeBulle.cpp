#include "vue/TexteDeBulle.h"

#include <QPainter>
#include <QTextLayout>
#include <QtMath>

namespace {

/// Breaks the text into lines of so many pixels; returns their height.
double Composer(QTextLayout& texte, int largeur)
{
    QTextOption coupure;
    coupure.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    texte.setTextOption(coupure);
    double hauteur = 0;
    texte.beginLayout();
    for (QTextLine ligne = texte.createLine(); ligne.isValid(); ligne = texte.createLine()) {
        ligne.setLineWidth(largeur);
        ligne.setPosition(QPointF(0, hauteur));
        hauteur += ligne.height();
    }
    texte.endLayout();
    return hauteur;
}

} // namespace

int TexteDeBulle::heightForWidth(int largeur) const
{
    const int autour = 2 * (frameWidth() + margin());
    QTextLayout texte(text(), font());
    return qCeil(Composer(texte, qMax(largeur - autour, 1))) + autour;
}

void TexteDeBulle::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawFrame(&painter);
    const int bord = frameWidth() + margin();
    QTextLayout texte(text(), font());
    Composer(texte, qMax(width() - 2 * bord, 1));
    painter.setPen(palette().color(foregroundRole()));
    texte.draw(&painter, QPointF(bord, bord));
}
