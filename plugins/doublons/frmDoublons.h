// The dialog: which columns, how equal; the groups that were found, with a mark at what is to be deleted.
#pragma once

#include "ChercherDoublons.h"
#include "Suivi.h"

#include <QDialog>
#include <QElapsedTimer>

#include <memory>

class ModeleDeGroupes;
class VueDeGroupes;
class QComboBox;
class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStackedWidget;

/// The document as the dialog works on it.
class DocumentATrier : public Source
{
public:
    virtual QStringList Titres() const = 0;
    /// The column that tells what is lent; 0 for none.
    virtual int ColonnePret() const = 0;
    /// Deletes entries by the program's rules.
    virtual void Supprimer(const QList<int>& lignes) = 0;
};

/// While it searches the window stays alive; Escape and the close box break the search off and leave it open.
class frmDoublons : public QDialog, private Suivi
{
    Q_OBJECT

public:
    /// `document` is not owned and outlives the dialog.
    explicit frmDoublons(DocumentATrier& document, QWidget* parent = nullptr);
    ~frmDoublons() override;

    void reject() override;

private:
    bool Avancer(double fait, double total) override;
    QWidget* FaireQuestions();
    QWidget* FaireSuite();
    QWidget* FaireCoches();
    QWidget* FaireFin();
    void Brancher();
    Demande DemandeDuChoix() const;
    void Chercher();
    void Montrer(Groupes groupes);
    void Supprimer();
    bool Confirmer(const Groupes& groupes);
    void MettreAJour();
    void Occuper(bool occupe);

    DocumentATrier& m_document;
    ModeleDeGroupes* m_modele = nullptr;
    VueDeGroupes* m_arbre = nullptr;
    QWidget* m_questions = nullptr;
    QListWidget* m_colonnes = nullptr;
    QRadioButton* m_presque = nullptr;
    QComboBox* m_vides = nullptr;
    QPushButton* m_chercher = nullptr;
    QStackedWidget* m_suite = nullptr;
    QLabel* m_resultat = nullptr;
    QProgressBar* m_barre = nullptr;
    QPushButton* m_annuler = nullptr;
    QPushButton* m_saufPremier = nullptr;
    QPushButton* m_saufComplet = nullptr;
    QPushButton* m_decocher = nullptr;
    QLabel* m_compte = nullptr;
    QPushButton* m_supprimer = nullptr;
    QPushButton* m_fermer = nullptr;
    QElapsedTimer m_depuis;
    bool m_occupe = false;
    bool m_abandon = false;
};
