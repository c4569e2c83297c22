// The selection of a table view. Selected of the entries is the truth; what Qt keeps beside it is a reflection, for
// those who ask Qt (assistive technologies, tests), and is bounded: a selection in many pieces is never copied whole.
#pragma once

#include <QItemSelectionModel>

class ModeleTable;

class SelectionTable : public QItemSelectionModel
{
    Q_OBJECT

public:
    /// Runs of selected rows that are reflected at most, from the top.
    static constexpr int PlagesAuPlus = 256;

    explicit SelectionTable(ModeleTable& modele, QObject* parent = nullptr);

    /// Selects from outside (assistive technologies): writes Selected of the rows named, whole rows only.
    void select(const QItemSelection& selection, SelectionFlags commande) override;
    /// The model was reset: forgets the reflection, touches no entry.
    void reset() override;

    /// Makes the reflection and the current row those of the table.
    void Refleter();
    /// Writes the current row into SelectedItem, unless it was taken from there.
    void EcrireEntreeCourante();

private:
    QItemSelection PlagesChoisies() const;

    ModeleTable& m_modele;
    bool m_reflet = false;
};
