#include "shell/BarreOutils.h"

#include "kit/Icones.h"

#include <QAbstractButton>
#include <QAction>
#include <QKeyEvent>

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
        widgetForAction(bouton)->installEventFilter(this);
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

// ---- keyboard

QList<QAbstractButton*> BarreOutils::BoutonsUtiles() const
{
    QList<QAbstractButton*> utiles;
    for (QAction* action : actions()) {
        auto* bouton = qobject_cast<QAbstractButton*>(widgetForAction(action));
        if (bouton && bouton->isEnabled() && bouton->isVisible())
            utiles.append(bouton);
    }
    return utiles;
}

bool BarreOutils::PrendreLesTouches()
{
    const QList<QAbstractButton*> utiles = BoutonsUtiles();
    if (!utiles.isEmpty())
        utiles.constFirst()->setFocus(Qt::ShortcutFocusReason);
    return !utiles.isEmpty();
}

bool BarreOutils::eventFilter(QObject* objet, QEvent* event)
{
    auto* bouton = qobject_cast<QAbstractButton*>(objet);
    if (bouton && event->type() == QEvent::KeyPress && Touche(*bouton, static_cast<const QKeyEvent&>(*event)))
        return true;
    return QToolBar::eventFilter(objet, event);
}

bool BarreOutils::Touche(QAbstractButton& bouton, const QKeyEvent& touche)
{
    const QList<QAbstractButton*> utiles = BoutonsUtiles();
    const qsizetype place = utiles.indexOf(&bouton);
    const auto aller = [&utiles](qsizetype ou) {
        utiles[qBound(qsizetype(0), ou, utiles.size() - 1)]->setFocus(Qt::OtherFocusReason);
        return true;
    };
    switch (touche.key()) {
    case Qt::Key_Left:
        return aller(place - 1);
    case Qt::Key_Right:
        return aller(place + 1);
    case Qt::Key_Home:
        return aller(0);
    case Qt::Key_End:
        return aller(utiles.size() - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!touche.isAutoRepeat())
            bouton.click();
        return true;
    case Qt::Key_Escape:
        emit Quittee();
        return true;
    default:
        return false;
    }
}
