// What an empty frame offers: a new category, a file to open, the recent ones and the samples.
#pragma once

#include <QStringList>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QListWidget;
class QListWidgetItem;
class PresenceDesFichiers;
class QPushButton;

/// Lies over another widget, beside it in their parent, and follows it. (A QMdiArea tells assistive technologies of its
/// documents alone: what lay in it would not be there for them.) When it comes it takes the keys: there is nothing else
/// to do. Its texts are in the language in force.
class PanneauDAccueil : public QWidget
{
    Q_OBJECT

public:
    /// `dessous` has a parent, and lives as long.
    explicit PanneauDAccueil(QWidget& dessous);

    /// Gives the captions anew, after a change of language.
    void MettreTextes();
    /// The recent files, newest first; those that are not there any more are told apart, as soon as that is known.
    void MettreRecents(const QStringList& chemins);
    /// The samples, by their paths.
    void MettreExemples(const QStringList& chemins);
    /// Where the keyboard begins: the last file that was open, or the button that makes a category.
    QWidget& PremierControle() const;

signals:
    void NouvelleDemandee();
    void OuvrirDemande();
    void RecentChoisi(const QString& chemin);
    void ExempleChoisi(const QString& chemin);

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    QPushButton* FaireBouton(const char* nom, const QString& icone);
    void Choisir(const QListWidgetItem& ligne);
    QString CheminCourant() const;
    void MarquerAbsents(const QStringList& absents);

    QWidget& m_dessous;
    QPushButton* m_nouvelle;
    QPushButton* m_ouvrir;
    QLabel* m_titreRecents;
    QListWidget* m_recents;
    QLabel* m_titreExemples;
    QHBoxLayout* m_exemples;
    PresenceDesFichiers* m_presence;
    QStringList m_chemins; ///< of the recent files
};

/// The samples that are installed beside the program, or lie in the tree that it was built from.
QStringList ExemplesInstalles();
