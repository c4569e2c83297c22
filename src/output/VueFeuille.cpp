#include "output/VueFeuille.h"

#include "output/ColonnesDeFeuille.h"
#include "output/PeindrePages.h"
#include "output/PoliceSurPapier.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double Bordure = 8; // pixels around the paper
constexpr double MmParPoint = 25.4 / 72;
constexpr QSize TailleVoulue(420, 580);

QFont EnPetit(const PoliceDePage& police, double pixelsParMm)
{
    QFont font = PoliceSurPapier(police);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(police.taille * MmParPoint * pixelsParMm))));
    return font;
}

} // namespace

VueFeuille::VueFeuille(QWidget* parent)
    : QWidget(parent), NomCat(new QLabel(this)), Page(new QLabel(this)), Icone(new QLabel(this)),
      LV1(new ColonnesDeFeuille(this))
{
    NomCat->setObjectName(u"NomCat"_s);
    Page->setObjectName(u"Page"_s);
    Icone->setObjectName(u"Icone"_s);
    LV1->setObjectName(u"LV1"_s);
    // Paper is white in every theme.
    QPalette encre = palette();
    encre.setColor(QPalette::Window, Qt::white);
    encre.setColor(QPalette::WindowText, Qt::black);
    for (QLabel* label : {NomCat, Page}) {
        label->setPalette(encre);
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
    Page->setText(u"1"_s);
    Icone->setScaledContents(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(TailleVoulue / 2);
}

QSize VueFeuille::sizeHint() const
{
    return TailleVoulue;
}

void VueFeuille::MontrerImage(const QImage& image)
{
    m_image = image;
    Icone->setPixmap(QPixmap::fromImage(image));
}

Feuille VueFeuille::Disposition() const
{
    Feuille feuille = m_feuille;
    feuille.NomCat.texte = NomCat->text();
    feuille.colonnes = LV1->Colonnes();
    return feuille;
}

QRectF VueFeuille::EnPixels(const QRectF& mm) const
{
    const double echelle = m_papier.width() / m_feuille.largeur;
    return {m_papier.x() + mm.x() * echelle, m_papier.y() + mm.y() * echelle, mm.width() * echelle,
            mm.height() * echelle};
}

/// The heading and the columns may go on to the edge of the paper: there they do.
void VueFeuille::Placer()
{
    const Feuille& f = m_feuille;
    const double echelle =
        std::max(0.1, std::min((width() - 2 * Bordure) / f.largeur, (height() - 2 * Bordure) / f.hauteur));
    const QSizeF papier(f.largeur * echelle, f.hauteur * echelle);
    m_papier = QRectF(QPointF((width() - papier.width()) / 2, (height() - papier.height()) / 2), papier);

    Icone->setGeometry(EnPixels(f.Icone).toRect());
    NomCat->setFont(EnPetit(f.NomCat.police, echelle));
    const double largeurDuTitre = f.Page.gauche - f.NomCat.gauche - 0.5;
    NomCat->setGeometry(
        EnPixels({f.NomCat.gauche, f.NomCat.haut, largeurDuTitre, f.hautDeLV1 - f.NomCat.haut}).toRect());
    Page->setFont(EnPetit(f.Page.police, echelle));
    Page->setGeometry(
        EnPixels({f.Page.gauche, f.Page.haut, f.largeur - f.Page.gauche, f.hautDeLV1 - f.Page.haut}).toRect());
    LV1->setFont(EnPetit(f.policeDeLV1, echelle));
    LV1->MettreEchelle(echelle);
    LV1->setGeometry(EnPixels({f.gaucheDeLV1, f.hautDeLV1, f.largeur - f.gaucheDeLV1, f.hauteurDeLV1}).toRect());
}

void VueFeuille::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Placer();
    update();
}

void VueFeuille::paintEvent(QPaintEvent*)
{
    QPainter peintre(this);
    DessinerPapier(peintre, m_papier);
}
