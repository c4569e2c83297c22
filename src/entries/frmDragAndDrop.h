// Asks which column that comes in goes into which column of the category: the cells of the left are led up and down
// beside those of the right, which stand still.
#pragma once

#include "catalogue/table/MyLV.h"
#include "entries/Correspondance.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmDragAndDrop;
}

class frmDragAndDrop : public QDialog
{
    Q_OBJECT

public:
    explicit frmDragAndDrop(const Correspondance& rangs, QWidget* parent = nullptr);
    ~frmDragAndDrop() override;

    /// Whether it was left by its button.
    bool Valide = false;
    /// The rows as they stand now.
    Correspondance Rangs() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void OrdonnerTouches();
    void Remplir(const Correspondance& rangs);
    void Brancher();
    void Monter();
    void Descendre();
    void Mener(int de, int vers);
    void Choisir(int ligne);

    std::unique_ptr<Ui::frmDragAndDrop> m_ui;
    QStringList m_arrivees;
    MyLV m_table; // the rows: the sources as Text, the targets beside them
};
