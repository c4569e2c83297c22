// One of the frame's two tool bars. Its buttons are known by their keys.
#pragma once

#include "shell/Toolbars.h"

#include <QToolBar>

class BarreOutils : public QToolBar
{
    Q_OBJECT

public:
    explicit BarreOutils(QWidget* parent = nullptr);

    void Remplir(std::span<const BoutonDeBarre> boutons);
    /// Shows the button `cle` pressed or not; it stays so until it is told otherwise.
    void MontrerEtat(const QString& cle, ValeurBouton valeur);
    /// Enables the buttons that can do something, with a document open or without; without, none is pressed.
    void SuivreDocument(bool ouvert);

signals:
    void BoutonPresse(const QString& cle);

private:
    QAction* Bouton(const QString& cle) const;
};
