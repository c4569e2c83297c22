#include "vue/SelectionTable.h"

#include "vue/ModeleTable.h"

#include <QScopedValueRollback>

SelectionTable::SelectionTable(ModeleTable& modele, QObject* parent)
    : QItemSelectionModel(&modele, parent), m_modele(modele)
{
    connect(this, &QItemSelectionModel::currentChanged, this, &SelectionTable::EcrireEntreeCourante);
}

void SelectionTable::select(const QItemSelection& selection, SelectionFlags commande)
{
    if (m_reflet) {
        QItemSelectionModel::select(selection, commande);
        return;
    }
    MyLV& table = m_modele.Table();
    if (commande & Clear)
        table.Selectionner(1, table.ListItems.Count(), false);
    for (const QItemSelectionRange& plage : selection) {
        const int premiere = plage.top() + 1;
        const int derniere = qMin(plage.bottom() + 1, table.ListItems.Count());
        if (commande & Toggle) {
            for (int ligne = premiere; ligne <= derniere; ++ligne)
                table.Selectionner(ligne, ligne, !table.EstSelectionnee(ligne));
        } else if (commande & (Select | Deselect)) {
            table.Selectionner(premiere, derniere, bool(commande & Select));
        }
    }
}

void SelectionTable::reset()
{
    const QScopedValueRollback garde(m_reflet, true);
    QItemSelectionModel::reset();
}

void SelectionTable::Refleter()
{
    const QScopedValueRollback garde(m_reflet, true);
    const QItemSelection plages = PlagesChoisies();
    if (selection() != plages)
        QItemSelectionModel::select(plages, ClearAndSelect);
    const ListItem entree = m_modele.Table().SelectedItem();
    const int colonne = qMax(currentIndex().column(), 0);
    const QModelIndex courant = entree ? m_modele.index(entree.Index() - 1, colonne) : QModelIndex();
    if (courant != currentIndex())
        setCurrentIndex(courant, NoUpdate);
}

void SelectionTable::EcrireEntreeCourante()
{
    if (!m_reflet && !m_modele.Rafraichit() && currentIndex().isValid())
        m_modele.Table().SetSelectedItem(m_modele.Table().ListItems(currentIndex().row() + 1));
}

QItemSelection SelectionTable::PlagesChoisies() const
{
    const MyLV& table = m_modele.Table();
    const int lignes = qMin(m_modele.rowCount(), table.ListItems.Count());
    int reste = table.NombreDeSelectionnees();
    QItemSelection plages;
    for (int ligne = table.PremiereSelection(); ligne >= 1 && ligne <= lignes && reste > 0; ++ligne) {
        if (!table.EstSelectionnee(ligne))
            continue;
        const int debut = ligne;
        while (ligne < lignes && table.EstSelectionnee(ligne + 1))
            ++ligne;
        reste -= ligne - debut + 1;
        if (m_modele.columnCount() > 0)
            plages.append(QItemSelectionRange(m_modele.index(debut - 1, 0),
                                              m_modele.index(ligne - 1, m_modele.columnCount() - 1)));
        if (plages.size() == PlagesAuPlus)
            break;
    }
    return plages;
}
