#include "extensions/TableDeLignes.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QTableView>

void FaireTableDeLignes(QTableView& table)
{
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

void EcouterTitres(QTableView& table, const std::function<void(int)>& clic)
{
    QHeaderView* titres = table.horizontalHeader();
    QObject::connect(titres, &QHeaderView::sectionClicked, &table, [clic](int section) { clic(section + 1); });
    QObject::connect(titres, &QHeaderView::sectionDoubleClicked, &table, [titres, clic](int section) {
        if (titres->sectionsClickable())
            clic(section + 1);
    });
}
