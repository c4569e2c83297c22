#include "shell/BarreOutils.h"

#include "kit/Icones.h"

#include <QAction>

#include <algorithm>

BarreOutils::BarreOutils(QWidget* parent) : QToolBar(parent)
{
    connect(this, &QToolBar::actionTriggered, this,
            [this](const QAction* bouton) { emit BoutonPresse(bouton->data().toString()); });
}

void BarreOutils::Remplir(std::span<const BoutonDeBarre> boutons)
{
    for (const BoutonDeBarre& modele : boutons) {
        const QString infoBulle = QString::fromUtf16(modele.infoBulle);
        QAction* bouton = addAction(Icone(QString::fromUtf16(modele.image)), infoBulle);
        bouton->setToolTip(infoBulle);
        bouton->setData(QString::fromUtf16(modele.cle));
    }
    SuivreDocument(false);
}

void BarreOutils::MontrerEtat(const QString& cle, ValeurBouton valeur)
{
    if (QAction* bouton = Bouton(cle)) {
        bouton->setCheckable(true);
        bouton->setChecked(valeur == BoutonEnfonce);
    }
}

void BarreOutils::SuivreDocument(bool ouvert)
{
    for (QAction* bouton : actions()) {
        const QString cle = bouton->data().toString();
        bouton->setEnabled(CommandeDisponible(cle) && (ouvert || !VeutUnDocument(cle)));
        if (!ouvert)
            bouton->setChecked(false);
    }
}

QAction* BarreOutils::Bouton(const QString& cle) const
{
    const QList<QAction*> boutons = actions();
    const auto trouve =
        std::ranges::find(boutons, cle, [](const QAction* bouton) { return bouton->data().toString(); });
    return trouve == boutons.end() ? nullptr : *trouve;
}
