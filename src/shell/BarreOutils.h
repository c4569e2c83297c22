// One of the frame's two tool bars. Its buttons are known by their keys.
#pragma once

#include "shell/Commandes.h"
#include "shell/Toolbars.h"

#include <QToolBar>

class BarreOutils : public QToolBar
{
    Q_OBJECT

public:
    explicit BarreOutils(QWidget* parent = nullptr);

    void Remplir(std::span<const BoutonDeBarre> boutons);
    /// Enables the buttons that can do something there, and presses those of a state that is on.
    void Accorder(const LieuDeCommande& lieu, const EtatDuLieu& etat);

signals:
    void BoutonPresse(const QString& cle);

private:
    void Presser(const QAction& bouton);
};
