#include "vue/SelectionDesLignes.h"

#include "vue/LignesChoisies.h"

#include <QScopedValueRollback>

SelectionDesLignes::SelectionDesLignes(QAbstractItemModel& modele, LignesChoisies& choix, QObject* parent)
    : QItemSelectionModel(&modele, parent), m_modele(modele), m_choix(choix)
{
    connect(this, &QItemSelectionModel::currentChanged, this, &SelectionDesLignes::EcrireCourante);
}

void SelectionDesLignes::select(const QItemSelection& selection, SelectionFlags commande)
{
    if (m_reflet) {
        QItemSelectionModel::select(selection, commande);
        return;
    }
    if (commande & Clear)
        m_choix.Choisir(1, m_choix.Count(), false);
    for (const QItemSelectionRange& plage : selection) {
        const int premiere = plage.top() + 1;
        const int derniere = qMin(plage.bottom() + 1, m_choix.Count());
        if (commande & Toggle) {
            for (int ligne = premiere; ligne <= derniere; ++ligne)
                m_choix.Choisir(ligne, ligne, !m_choix.EstChoisie(ligne));
        } else if (commande & (Select | Deselect)) {
            m_choix.Choisir(premiere, derniere, bool(commande & Select));
        }
    }
}

void SelectionDesLignes::reset()
{
    const QScopedValueRollback garde(m_reflet, true);
    QItemSelectionModel::reset();
}

void SelectionDesLignes::Refleter()
{
    const QScopedValueRollback garde(m_reflet, true);
    const QItemSelection plages = PlagesChoisies();
    if (selection() != plages)
        QItemSelectionModel::select(plages, ClearAndSelect);
    const int ligne = m_choix.Courante();
    const int colonne = qMax(currentIndex().column(), 0);
    const QModelIndex courant = ligne > 0 ? m_modele.index(ligne - 1, colonne) : QModelIndex();
    if (courant != currentIndex())
        setCurrentIndex(courant, NoUpdate);
}

void SelectionDesLignes::EcrireCourante()
{
    if (!m_reflet && currentIndex().isValid())
        m_choix.SetCourante(currentIndex().row() + 1);
}

QItemSelection SelectionDesLignes::PlagesChoisies() const
{
    const int colonnes = m_modele.columnCount();
    const int lignes = qMin(m_modele.rowCount(), m_choix.Count());
    int reste = m_choix.NombreDeChoisies();
    QItemSelection plages;
    for (int ligne = m_choix.PremiereChoisie(); ligne >= 1 && ligne <= lignes && reste > 0; ++ligne) {
        if (!m_choix.EstChoisie(ligne))
            continue;
        const int debut = ligne;
        ligne = qMin(m_choix.FinDePlage(ligne), lignes);
        reste -= ligne - debut + 1;
        if (colonnes > 0)
            plages.append(QItemSelectionRange(m_modele.index(debut - 1, 0), m_modele.index(ligne - 1, colonnes - 1)));
        if (plages.size() == PlagesAuPlus)
            break;
    }
    return plages;
}
