#include "vue/DelegueDeListe.h"

#include "vue/LignesChoisies.h"

namespace {

constexpr qsizetype LongueurVisible = 2000; // characters; no column shows more

} // namespace

DelegueDeListe::DelegueDeListe(const LignesChoisies& choix, QObject* parent)
    : QStyledItemDelegate(parent), m_choix(choix)
{
}

QString DelegueDeListe::displayText(const QVariant& valeur, const QLocale&) const
{
    return PartieVisible(valeur.toString());
}

QString DelegueDeListe::PartieVisible(const QString& texte)
{
    return texte.left(LongueurVisible);
}

void DelegueDeListe::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // The view draws the focus, around the whole row; and what Qt knows of the selection is its first runs.
    option->state.setFlag(QStyle::State_HasFocus, false);
    option->state.setFlag(QStyle::State_Selected, m_choix.EstChoisie(index.row() + 1));
}
