#include "extensions/TableDeLignes.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QStyleOption>
#include <QTableView>

namespace {

/// Ends a title that is longer than its column with an ellipsis, as the values below it; Qt 6.4 cuts it off, whatever
/// the header's elide mode.
class TitresDeLignes : public QHeaderView
{
public:
    explicit TitresDeLignes(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override
    {
        QHeaderView::initStyleOptionForIndex(option, section);
        QStyleOptionHeader titre = *option;
        titre.rect = QRect(0, 0, sectionSize(section), height());
        int place = style()->subElementRect(QStyle::SE_HeaderLabel, &titre, this).width();
        if (!titre.icon.isNull())
            place -= style()->pixelMetric(QStyle::PM_SmallIconSize, &titre, this) + EcartIcone;
        option->text = fontMetrics().elidedText(option->text, Qt::ElideRight, place);
    }

private:
    static constexpr int EcartIcone = 2; // pixels that styles leave behind the icon
};

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

void EcouterTitres(QTableView& table, const std::function<void(int)>& clic)
{
    QHeaderView* titres = table.horizontalHeader();
    QObject::connect(titres, &QHeaderView::sectionClicked, &table, [clic](int section) { clic(section + 1); });
    QObject::connect(titres, &QHeaderView::sectionDoubleClicked, &table, [titres, clic](int section) {
        if (titres->sectionsClickable())
            clic(section + 1);
    });
}
