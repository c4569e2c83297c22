#include "shell/ArrangerFenetres.h"

#include <QMdiSubWindow>

namespace {

constexpr int Cascade = 6; // windows, before the first place comes again
constexpr int PasDeCascade = 28;
constexpr double PartDeLaZone = 0.9; // at most, for a window of a cascade
constexpr double PartEnCascade = 0.7;

QList<QMdiSubWindow*> Fenetres(const QMdiArea& zone, bool reduites,
                               QMdiArea::WindowOrder ordre = QMdiArea::CreationOrder)
{
    QList<QMdiSubWindow*> fenetres = zone.subWindowList(ordre);
    fenetres.removeIf([&](const QMdiSubWindow* f) { return f->isHidden() || f->isMinimized() != reduites; });
    return fenetres;
}

} // namespace

QRect PlaceEnCascade(const QMdiArea& zone, int rang, QSize taille)
{
    const int pas = rang % Cascade * PasDeCascade;
    return QRect(QPoint(pas, pas), taille.boundedTo(zone.size() * PartDeLaZone));
}

void DisposerEnCascade(const QMdiArea& zone)
{
    QMdiSubWindow* active = zone.currentSubWindow();
    const QList<QMdiSubWindow*> fenetres = Fenetres(zone, false, QMdiArea::StackingOrder);
    for (int rang = 0; rang < fenetres.size(); ++rang) {
        fenetres[rang]->showNormal();
        fenetres[rang]->setGeometry(PlaceEnCascade(zone, rang, zone.size() * PartEnCascade));
        fenetres[rang]->raise();
    }
    if (active)
        active->setFocus();
}

void DisposerEnMosaique(const QMdiArea& zone, Mosaique sens)
{
    const QList<QMdiSubWindow*> fenetres = Fenetres(zone, false);
    const int nombre = static_cast<int>(fenetres.size());
    // One window alone that leaves the maximised state may give the area's scroll bars up: measured after all have.
    for (QMdiSubWindow* fenetre : fenetres)
        fenetre->showNormal();
    const QSize place = zone.viewport()->size();
    for (int i = 0; i < nombre; ++i) {
        // Edges are shared out, not sizes: no pixel is left over.
        const auto bord = [&](int etendue, int rang) { return etendue * rang / nombre; };
        QMdiSubWindow* fenetre = fenetres[i];
        if (sens == Mosaique::Horizontale) {
            const int haut = bord(place.height(), i);
            fenetre->setGeometry(0, haut, place.width(), bord(place.height(), i + 1) - haut);
        } else {
            const int gauche = bord(place.width(), i);
            fenetre->setGeometry(gauche, 0, bord(place.width(), i + 1) - gauche, place.height());
        }
    }
}

void ArrangerIcones(const QMdiArea& zone)
{
    const QSize place = zone.viewport()->size();
    int x = 0, bas = place.height(), hauteurDuRang = 0;
    for (QMdiSubWindow* fenetre : Fenetres(zone, true)) {
        if (x > 0 && x + fenetre->width() > place.width()) {
            x = 0;
            bas -= hauteurDuRang;
            hauteurDuRang = 0;
        }
        fenetre->move(x, bas - fenetre->height());
        x += fenetre->width();
        hauteurDuRang = qMax(hauteurDuRang, fenetre->height());
    }
}
