// One of the frame's two tool bars. Its buttons are known by their keys. With the keyboard, arrows, Home and End go
// from button to button, Enter and the space bar press one.
#pragma once

#include "shell/Commandes.h"
#include "shell/Toolbars.h"

#include <QToolBar>

class QAbstractButton;
class QKeyEvent;

class BarreOutils : public QToolBar
{
    Q_OBJECT

public:
    explicit BarreOutils(QWidget* parent = nullptr);

    void Remplir(std::span<const BoutonDeBarre> boutons);
    /// Enables the buttons that can do something there, and presses those of a state that is on.
    void Accorder(const LieuDeCommande& lieu, const EtatDuLieu& etat);

    /// Gives the first button that can be pressed the keys. False where none can, or none is seen.
    bool PrendreLesTouches();

signals:
    void BoutonPresse(const QString& cle);
    /// Escape: the keys are to go elsewhere.
    void Quittee();

protected:
    /// The keys of the buttons.
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void Presser(const QAction& bouton);
    QList<QAbstractButton*> BoutonsUtiles() const;
    bool Touche(QAbstractButton& bouton, const QKeyEvent& touche);
};
