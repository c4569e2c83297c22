// The selection of a list view. LignesChoisies is the truth; what Qt keeps beside it is a reflection, for those who ask
// Qt (assistive technologies, tests), and is bounded: a selection in many pieces is never copied whole.
#pragma once

#include <QItemSelectionModel>

class LignesChoisies;

class SelectionDesLignes : public QItemSelectionModel
{
    Q_OBJECT

public:
    /// Runs of selected rows that are reflected at most, from the top.
    static constexpr int PlagesAuPlus = 256;

    /// Neither is owned; both outlive the selection.
    SelectionDesLignes(QAbstractItemModel& modele, LignesChoisies& choix, QObject* parent = nullptr);

    /// Selects from outside (assistive technologies): writes into the rows named, whole rows only.
    void select(const QItemSelection& selection, SelectionFlags commande) override;
    /// The model was reset: forgets the reflection, touches no row.
    void reset() override;

    /// Makes the reflection and the current row those of the rows.
    void Refleter();
    /// Gives the current row the focus, unless it was taken from there.
    void EcrireCourante();

private:
    QItemSelection PlagesChoisies() const;

    QAbstractItemModel& m_modele;
    LignesChoisies& m_choix;
    bool m_reflet = false;
};
