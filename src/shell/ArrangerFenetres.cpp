#include "shell/ArrangerFenetres.h"

#include <QFontMetrics>
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

/// Room for a title, the columns' titles, a few entries and the line below them.
QSize TailleUtile(const QMdiArea& zone)
{
    const QFontMetrics police = zone.fontMetrics();
    return {24 * police.averageCharWidth(), 9 * police.height()};
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
    // One window alone that leaves the maximised state may give the area's scroll bars up: measured after all have.
    for (QMdiSubWindow* fenetre : fenetres)
        fenetre->showNormal();
    const QList<QRect> places =
        PlacesEnMosaique(zone.viewport()->size(), static_cast<int>(fenetres.size()), sens, TailleUtile(zone));
    for (qsizetype i = 0; i < fenetres.size(); ++i)
        fenetres[i]->setGeometry(places[i]);
}

QList<QRect> PlacesEnMosaique(QSize place, int nombre, Mosaique sens, QSize auMoins)
{
    if (nombre < 1)
        return {};
    // Told for windows one above the other; the other mosaic is the same with the axes exchanged.
    const bool horizontale = sens == Mosaique::Horizontale;
    const QSize vue = horizontale ? place : place.transposed();
    const int hauteur = horizontale ? auMoins.height() : auMoins.width();
    const int parColonne = qBound(1, vue.height() / hauteur, nombre);
    const int colonnes = (nombre + parColonne - 1) / parColonne;
    // Edges are shared out, not sizes: no pixel is left over.
    const auto bord = [](int etendue, int rang, int parts) { return etendue * rang / parts; };

    QList<QRect> places;
    for (int colonne = 0; colonne < colonnes; ++colonne) {
        const int gauche = bord(vue.width(), colonne, colonnes);
        const int largeur = bord(vue.width(), colonne + 1, colonnes) - gauche;
        const int rangs = bord(nombre, colonne + 1, colonnes) - bord(nombre, colonne, colonnes);
        for (int rang = 0; rang < rangs; ++rang) {
            const int haut = bord(vue.height(), rang, rangs);
            const QRect ici(gauche, haut, largeur, bord(vue.height(), rang + 1, rangs) - haut);
            places.append(horizontale ? ici : QRect(ici.y(), ici.x(), ici.height(), ici.width()));
        }
    }
    return places;
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
