#include "vue/TableDeLignes.h"

#include "vue/TitresDeLignes.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPaintEvent>
#include <QPainter>
#include <QTableView>

namespace {

constexpr int LargeurEnTout = 1 << 30; // pixels; a view's places are ints

} // namespace

void FaireTableDeLignes(QTableView& table)
{
    table.setHorizontalHeader(new TitresDeLignes(&table));
    table.setSelectionBehavior(QTableView::SelectRows);
    table.setSelectionMode(QTableView::ExtendedSelection);
    table.setEditTriggers(QTableView::NoEditTriggers);
    table.setTabKeyNavigation(false);
    table.setWordWrap(false);
    table.setShowGrid(false);
    table.setCornerButtonEnabled(false);
    table.setHorizontalScrollMode(QTableView::ScrollPerPixel);
    table.setVerticalScrollMode(QTableView::ScrollPerPixel);

    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setMinimumSectionSize(1);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setMinimumSectionSize(0);
}

void DetacherTitres(QTableView& table)
{
    for (QHeaderView* entete : {table.horizontalHeader(), table.verticalHeader()})
        entete->setSelectionModel(new QItemSelectionModel(table.model(), entete));
}

void MettreLargeurs(QTableView& table, int nombre, const std::function<int(int)>& pixels)
{
    QHeaderView& titres = *table.horizontalHeader();
    const int auPlus = LargeurEnTout / qMax(nombre, 1);
    // While titles are drawn, each that changes its width is looked up on the screen, and for that the places of all of
    // them are counted anew.
    const bool dessines = titres.updatesEnabled();
    titres.setUpdatesEnabled(false);
    for (int colonne = 1; colonne <= nombre; ++colonne)
        titres.resizeSection(colonne - 1, qMin(pixels(colonne), auPlus));
    titres.setUpdatesEnabled(dessines);
}

std::vector<PlageDeColonnes> ColonnesVues(const QHeaderView& titres, int gauche, int droite)
{
    std::vector<PlageDeColonnes> plages;
    if (titres.isRightToLeft())
        return {{1, titres.count(), gauche, droite}};
    // Only the ends of the way have no section: behind the last column, and left of it where none has a width.
    const int premiere = titres.logicalIndexAt(gauche);
    const int derniere = titres.logicalIndexAt(droite);
    bool suite = false;
    for (int i = premiere; premiere >= 0 && i <= (derniere < 0 ? titres.count() - 1 : derniere); ++i) {
        const int largeur = titres.sectionSize(i);
        if (largeur > 0) {
            const int debut = titres.sectionViewportPosition(i);
            if (!suite)
                plages.push_back({i + 1, i + 1, qMax(debut, gauche), 0});
            plages.back().derniere = i + 1;
            plages.back().droite = qMin(debut + largeur - 1, droite);
        }
        suite = largeur > 0;
    }
    return plages;
}

QPaintEvent PartieDe(const QPaintEvent& event, const PlageDeColonnes& plage)
{
    const QRect zone = event.rect();
    const QRect partie(QPoint(plage.gauche, zone.top()), QPoint(plage.droite, zone.bottom()));
    return QPaintEvent(event.region() & partie);
}

void DessinerFocus(QPainter& painter, const QTableView& table, int ligne, bool choisie)
{
    const QHeaderView& titres = *table.horizontalHeader();
    const QRect rangee(table.columnViewportPosition(0), table.rowViewportPosition(ligne - 1), titres.length(),
                       table.rowHeight(ligne - 1));
    const QColor trait = table.palette().color(choisie ? QPalette::HighlightedText : QPalette::Highlight);
    painter.fillRect(rangee.left(), rangee.top(), rangee.width(), 1, trait);
    painter.fillRect(rangee.left(), rangee.bottom(), rangee.width(), 1, trait);
    painter.fillRect(rangee.left(), rangee.top(), 1, rangee.height(), trait);
    painter.fillRect(rangee.right(), rangee.top(), 1, rangee.height(), trait);
}

void EcouterTitres(QTableView& table, const std::function<void(int)>& clic)
{
    QHeaderView* titres = table.horizontalHeader();
    QObject::connect(titres, &QHeaderView::sectionClicked, &table, [clic](int section) { clic(section + 1); });
    QObject::connect(titres, &QHeaderView::sectionDoubleClicked, &table, [titres, clic](int section) {
        if (titres->sectionsClickable())
            clic(section + 1);
    });
}
