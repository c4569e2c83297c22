#include "shell/BarreOutils.h"

#include "kit/Icones.h"

#include <QAction>

namespace {

constexpr auto EtatMontre = "etatMontre"; // of a button that shows a state: what Accorder told it

const RangDeCommande& RangDe(const QAction& bouton)
{
    return *Rang(bouton.data().toString());
}

} // namespace

BarreOutils::BarreOutils(QWidget* parent) : QToolBar(parent) {}

void BarreOutils::Remplir(std::span<const BoutonDeBarre> boutons)
{
    for (const BoutonDeBarre& modele : boutons) {
        const QString infoBulle = QString::fromUtf16(modele.infoBulle);
        QAction* bouton = addAction(Icone(QString::fromUtf16(modele.image)), infoBulle);
        bouton->setToolTip(infoBulle);
        bouton->setData(QString::fromUtf16(modele.cle));
        bouton->setCheckable(RangDe(*bouton).coche);
        // Assistive technologies press a button that stays down without a click.
        if (bouton->isCheckable())
            connect(bouton, &QAction::toggled, this, [this, bouton](bool enfonce) {
                if (enfonce != bouton->property(EtatMontre).toBool())
                    Presser(*bouton);
            });
        else
            connect(bouton, &QAction::triggered, this, [this, bouton] { Presser(*bouton); });
    }
}

void BarreOutils::Presser(const QAction& bouton)
{
    emit BoutonPresse(bouton.data().toString());
}

void BarreOutils::Accorder(const LieuDeCommande& lieu, const EtatDuLieu& etat)
{
    for (QAction* bouton : actions()) {
        const RangDeCommande& rang = RangDe(*bouton);
        bouton->setEnabled(EstPossible(rang, etat));
        if (rang.coche) {
            const ValeurBouton valeur = EtatBouton(rang.coche(lieu));
            bouton->setProperty(EtatMontre, valeur == BoutonEnfonce);
            bouton->setChecked(valeur == BoutonEnfonce);
        }
    }
}
