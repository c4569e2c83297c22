// The search in one category: a text to find, and the list of the entries that hold it, where they can be looked at and
// edited.
#pragma once

#include "search/Recherche.h"

#include <QBasicTimer>
#include <QDialog>
#include <QElapsedTimer>

#include <functional>
#include <memory>
#include <vector>

class Categorie;
class FenetreDocument;
class QLabel;
class QProgressBar;
class ResultatsDeRecherche;

namespace Ui {
class frmRecherche;
}

class frmRecherche : public QDialog
{
    Q_OBJECT

public:
    explicit frmRecherche(QWidget* parent = nullptr);
    ~frmRecherche() override;

    /// The document to search, in the text that was saved of it last. Once, before Lancer; outlives the form.
    void SetDocument(FenetreDocument& fenetre);
    /// Runs modal until the user closes it. It hides while an entry is looked at or edited.
    void Lancer();

    Categorie* QrtCourant = nullptr;     ///< what SetDocument told
    bool ToutesColonnes = true;          ///< every column is searched, the line as a whole
    std::vector<bool> ColonnesRecherche; ///< which columns are, from 0

protected:
    bool eventFilter(QObject* objet, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void FaireLigneDEtat();
    void Brancher();
    void ChoisirColonnes();
    void Chercher();
    void Continuer();
    void Finir();
    void Arreter();
    void MontrerAvancement();
    void MontrerResultats();
    void DireCompte(const QString& texte);
    bool ToucheDeListe(const QKeyEvent& touche);
    void MontrerInfobulle(const QPoint& place) const;
    void Voir();
    void Editer();
    void Exporter();
    void Imprimer();
    /// Hides the dialog, does `acte` and shows it again.
    void Cacher(std::function<void()> acte);
    void AjusterTextes();
    void TenirLaTaille();

    std::unique_ptr<Ui::frmRecherche> m_ui;
    QLabel* m_panneau = nullptr; ///< of StatusBar1, and so is the next one
    QProgressBar* m_avancement = nullptr;
    FenetreDocument* m_fenetre = nullptr;
    std::unique_ptr<ResultatsDeRecherche> m_resultats;
    std::function<void()> m_acte; ///< what to do once the dialog is hidden
    QString m_titre;              ///< of Frame1, whole
    QString m_compte;             ///< what StatusBar1 tells, whole

    std::unique_ptr<Recherche> m_recherche; ///< while one runs
    QString m_texte;                        ///< what it looks for
    QBasicTimer m_battement;
    QElapsedTimer m_depuis;
};
