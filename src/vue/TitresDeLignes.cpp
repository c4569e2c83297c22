#include "vue/TitresDeLignes.h"

#include "vue/TableDeLignes.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOption>

namespace {

constexpr int EcartIcone = 2; // pixels that styles leave behind the icon

} // namespace

TitresDeLignes::TitresDeLignes(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

/// Ends a title that is longer than its column with an ellipsis, as the values below it; Qt 6.4 cuts it off, whatever
/// the header's elide mode.
void TitresDeLignes::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    QStyleOptionHeader titre = *option;
    titre.rect = QRect(0, 0, sectionSize(section), height());
    int place = style()->subElementRect(QStyle::SE_HeaderLabel, &titre, this).width();
    if (!titre.icon.isNull())
        place -= style()->pixelMetric(QStyle::PM_SmallIconSize, &titre, this) + EcartIcone;
    option->text = fontMetrics().elidedText(option->text, Qt::ElideRight, place);
}

// ---- drawing

void TitresDeLignes::paintEvent(QPaintEvent* event)
{
    const QRect zone = event->rect();
    for (const PlageDeColonnes& plage : ColonnesVues(*this, zone.left(), zone.right())) {
        QPaintEvent partie = PartieDe(*event, plage);
        QHeaderView::paintEvent(&partie);
    }
    const int fin = length() - offset();
    if (count() > 0 && fin <= zone.right() && !isRightToLeft())
        DessinerLeReste(QRect(QPoint(fin, 0), QPoint(zone.right(), viewport()->height() - 1)));
}

/// Behind the last title, as the base does.
void TitresDeLignes::DessinerLeReste(const QRect& place)
{
    QStyleOption option;
    option.initFrom(this);
    option.state |= QStyle::State_Horizontal;
    option.rect = place;
    QPainter painter(viewport());
    style()->drawControl(QStyle::CE_HeaderEmptyArea, &option, &painter, this);
}

void TitresDeLignes::paintSection(QPainter* painter, const QRect& place, int section) const
{
    painter->save();
    QHeaderView::paintSection(painter, place, section);
    painter->restore();
    if (section != m_section || !hasFocus())
        return;
    const QColor trait = palette().color(QPalette::Highlight);
    constexpr int epaisseur = 2;
    painter->fillRect(QRect(place.left(), place.top(), place.width(), epaisseur), trait);
    painter->fillRect(QRect(place.left(), place.bottom() - epaisseur + 1, place.width(), epaisseur), trait);
    painter->fillRect(QRect(place.left(), place.top(), epaisseur, place.height()), trait);
    painter->fillRect(QRect(place.right() - epaisseur + 1, place.top(), epaisseur, place.height()), trait);
}

// ---- keys

int TitresDeLignes::Voisine(int section, int sens) const
{
    while (section >= 0 && section < count() && sectionSize(section) == 0)
        section += sens;
    return section < count() ? section : -1;
}

bool TitresDeLignes::PrendreLesTouches()
{
    if (!sectionsClickable() || Voisine(0, 1) < 0)
        return false;
    setFocus(Qt::BacktabFocusReason);
    return true;
}

void TitresDeLignes::AllerA(int section)
{
    if (section < 0)
        return;
    m_section = section;
    viewport()->update();
    emit TitreAtteint(section + 1);
}

void TitresDeLignes::focusInEvent(QFocusEvent* event)
{
    QHeaderView::focusInEvent(event);
    const bool gardee = m_section >= 0 && m_section < count() && sectionSize(m_section) > 0;
    AllerA(gardee ? m_section : Voisine(0, 1));
}

void TitresDeLignes::focusOutEvent(QFocusEvent* event)
{
    QHeaderView::focusOutEvent(event);
    viewport()->update();
}

bool TitresDeLignes::focusNextPrevChild(bool suivant)
{
    emit Quitte(suivant);
    return true;
}

void TitresDeLignes::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return AllerA(Voisine(m_section - 1, -1));
    case Qt::Key_Right:
        return AllerA(Voisine(m_section + 1, 1));
    case Qt::Key_Home:
        return AllerA(Voisine(0, 1));
    case Qt::Key_End:
        return AllerA(Voisine(count() - 1, -1));
    case Qt::Key_Down:
    case Qt::Key_Escape:
        emit Quitte(true);
        return;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A key that is held down turns the order over and over.
        if (!event->isAutoRepeat() && sectionsClickable())
            emit TitreChoisi(m_section + 1);
        return;
    default:
        // Kept: the list below would take them for its rows, and Delete would delete.
        event->accept();
    }
}
