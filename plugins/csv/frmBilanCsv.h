// The window that tells what an import could not take as it was, and asks what becomes of rows with defects.
#pragma once

#include "ModelesCsv.h"

#include <QDialog>

class QRadioButton;

class frmBilanCsv : public QDialog
{
    Q_OBJECT

public:
    /// Both are to live as long as this window.
    frmBilanCsv(const BilanCsv& bilan, const zelvane::Table& table, QWidget* parent = nullptr);

    /// The user wants rows with defects to go.
    bool SansDefectueuses() const;

    /// One line for each thing to tell.
    static QStringList Lignes(const BilanCsv& bilan);

private:
    void Composer(const BilanCsv& bilan);
    QWidget* ComposerListe();
    QWidget* ComposerChoix();

    ModeleSignaleesCsv m_modele;
    QRadioButton* m_laisser = nullptr;
};

/// The window that shows how far an import has come. Annuler, Escape and the close box give it up.
class frmAvancementCsv : public QDialog
{
    Q_OBJECT

public:
    explicit frmAvancementCsv(QWidget* parent = nullptr);

    /// `fait` of 1000 parts are done. Lets events run; from the moment on that the user has waited for, it is shown.
    void Montrer(int fait);
    bool EstAbandonne() const { return m_abandonne; }
    void reject() override { m_abandonne = true; }

private:
    class QProgressBar* m_barre;
    bool m_abandonne = false;
};
