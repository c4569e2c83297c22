#include "VueDeGroupes.h"

#include "ModeleDeGroupes.h"

#include <QKeyEvent>
#include <QScrollBar>

VueDeGroupes::VueDeGroupes(QWidget* parent) : QTreeView(parent)
{
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_bientot.setSingleShot(true);
    m_bientot.setInterval(0);
    connect(&m_bientot, &QTimer::timeout, this, &VueDeGroupes::Completer);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { m_bientot.start(); });
    connect(this, &QTreeView::expanded, this, [this] { m_bientot.start(); });
}

void VueDeGroupes::reset()
{
    QTreeView::reset();
    if (model())
        OuvrirGroupes(0, model()->rowCount() - 1);
    m_bientot.start();
}

void VueDeGroupes::OuvrirGroupes(int premier, int dernier)
{
    for (int groupe = premier; groupe <= dernier; ++groupe)
        expand(model()->index(groupe, 0));
}

void VueDeGroupes::rowsInserted(const QModelIndex& parent, int premiere, int derniere)
{
    QTreeView::rowsInserted(parent, premiere, derniere);
    if (!parent.isValid())
        OuvrirGroupes(premiere, derniere);
    m_bientot.start();
}

void VueDeGroupes::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    m_bientot.start();
}

/// The space bar works in every column of an entry.
void VueDeGroupes::keyPressEvent(QKeyEvent* event)
{
    auto* modele = qobject_cast<ModeleDeGroupes*>(model());
    if (modele && event->key() == Qt::Key_Space && currentIndex().parent().isValid())
        modele->Basculer(currentIndex());
    else
        QTreeView::keyPressEvent(event);
}

/// Of each group whose last entries here are seen, or soon will be.
void VueDeGroupes::Completer()
{
    constexpr int Marge = 100;
    auto* modele = qobject_cast<ModeleDeGroupes*>(model());
    if (!modele)
        return;
    QList<QPersistentModelIndex> aEtendre;
    QModelIndex ici = indexAt(QPoint(1, 1));
    while (ici.isValid() && visualRect(ici).top() <= viewport()->height()) {
        for (const QModelIndex& ensemble : {ici.parent(), ici.parent().parent()}) {
            const int ligne = ensemble == ici.parent() ? ici.row() : ici.parent().row();
            if (ligne + Marge >= modele->rowCount(ensemble) && modele->AEncore(ensemble) &&
                !aEtendre.contains(QPersistentModelIndex(ensemble)))
                aEtendre.append(ensemble);
        }
        ici = indexBelow(ici);
    }
    for (const QPersistentModelIndex& ensemble : aEtendre)
        modele->Etendre(ensemble);
}
