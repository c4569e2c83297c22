// Lets the user tick columns: those that an export writes, or, under other words, those that a search looks at.
#pragma once

#include <QDialog>

#include <memory>
#include <vector>

namespace Ui {
class frmExport;
}

class frmExport : public QDialog
{
    Q_OBJECT

public:
    explicit frmExport(QWidget* parent = nullptr);
    ~frmExport() override;

    /// The dialog chooses columns for something else than an export: under its own title, question and button, without
    /// the options of an export.
    void ServirDeChoix(const QString& titre, const QString& question, const QString& bouton);

    void AjouterColonne(const QString& titre, bool cochee);
    /// One element a column, in the order in which they were added.
    std::vector<bool> Cochees() const;

    bool SelectionUniquement() const;
    bool VoirLeResultat() const;
    bool Numeroter() const;

    bool Valide = false; ///< the user chose, at least one column

private:
    void Valider();
    void MontrerMenu(const QPoint& place);

    std::unique_ptr<Ui::frmExport> m_ui;
};
