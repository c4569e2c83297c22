#include "images/DelegueVignettes.h"

#include "images/Vignettes.h"

namespace {
constexpr int Marge = 4;
}

DelegueVignettes::DelegueVignettes(Vignettes& vignettes, QObject* parent)
    : QStyledItemDelegate(parent), m_vignettes(vignettes)
{
}

QSize DelegueVignettes::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int texte = option.fontMetrics.horizontalAdvance(index.data().toString());
    return {m_vignettes.Cote() + texte + 4 * Marge, m_vignettes.Cote() + 2 * Marge};
}

void DelegueVignettes::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = QSize(m_vignettes.Cote(), m_vignettes.Cote());
    option->decorationAlignment = Qt::AlignCenter;
    option->icon = QIcon(m_vignettes.Donner(index.data().toString()));
}
