// Asks how a table is to be printed: the sheet, on which the columns are arranged, and the printer.
#pragma once

#include "output/Feuille.h"
#include "output/OptionsDImpression.h"

#include <QDialog>
#include <QImage>

#include <memory>
#include <vector>

class QTableWidgetItem;

namespace Ui {
class frmPrint;
}

class frmPrint : public QDialog
{
    Q_OBJECT

public:
    /// `dossier`: where "print.ini" lies. Tells how columns are left out, unless the user has had that switched off.
    explicit frmPrint(const QString& dossier, QWidget* parent = nullptr);
    ~frmPrint() override;

    const QString DossierImpression;
    QString TitreImpression; ///< for "%titre%" of the heading
    QString TexteEntete;     ///< the heading's template
    QString NombreEntrees;   ///< for "%nb%"
    QString NomCategorie;    ///< for "%nomcat%"
    /// Print options were changed.
    bool OptionsModifiees = false;
    /// "<>" once the dialog was closed by its print button.
    QString Tag;

    /// Makes the heading anew.
    void ActualiseNomCat();
    /// In the place of those there are. Widths are in millimetres of the sheet.
    void MontrerColonnes(const std::vector<Feuille::Colonne>& colonnes);
    /// How many entries the table has.
    void MontrerRangees(int nombre);
    void MontrerImage(const QImage& image);

    Feuille Disposition() const;
    const QImage& Image() const;
    bool SelectionSeule() const;
    /// The text of the list of printers; empty when none is chosen.
    QString Imprimante() const;
    /// The last line of the list is chosen, which prints into a file.
    bool VersUnFichier() const;

signals:
    /// The user wants to see the pages.
    void ApercuDemande();

private:
    void RemplirImprimantes();
    void Imprimer();
    void Annuler();
    void ChoisirEntrees(bool selectionSeule);
    void ModifierOptions();
    void LargeurTiree(int colonne);
    void LargeurSaisie(const QTableWidgetItem& cellule);
    void AjusterALaPage();
    void MontrerLargeur(int colonne);
    void MontrerLargeurs();
    void MontrerTotal();

    std::unique_ptr<Ui::frmPrint> m_ui;
    OptionsDImpression m_options;
};
