#include "shell/frmPopup.h"

#include "base/Const_Vrac.h"
#include "catalogue/Sauver.h"
#include "shell/MDIForm1.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

void EnregistrerEtTitrer(MDIForm1& cadre, FenetreDocument& fenetre, bool sous)
{
    Enregistrer(fenetre.myqrt, sous, true);
    cadre.MettreTitreOnglet(fenetre, NomDeFichier(fenetre.myqrt.CheminReel()));
    if (auto* menus = dynamic_cast<MenuRecents*>(&fenetre))
        MajMenuRecents(*menus);
    MajMenuRecents(cadre);
}

} // namespace

frmPopup::frmPopup(MDIForm1& cadre) : QWidget(&cadre), m_cadre(cadre), m_menuMdiTab(new QMenu(this))
{
    setObjectName(u"frmPopup"_s);
    hide();
    m_menuMdiTab->setObjectName(u"mMenuMdiTab"_s);

    // Each command takes the remembered tab's window to the front first.
    const auto surOnglet = [this](QAction* item, auto commande) {
        connect(item, &QAction::triggered, this, [this, commande] {
            if (FenetreDocument* fenetre = m_cadre.AmenerOngletRetenu())
                commande(*fenetre);
        });
    };
    surOnglet(Ajouter(u"mRestaurer"_s, u"Restaurer"_s), [](FenetreDocument&) {});
    surOnglet(Ajouter(u"mEnregistrer"_s, u"Enregistrer"_s),
              [this](FenetreDocument& fenetre) { EnregistrerEtTitrer(m_cadre, fenetre, false); });
    surOnglet(Ajouter(u"mEnregistrerSous"_s, u"Enregistrer Sous"_s),
              [this](FenetreDocument& fenetre) { EnregistrerEtTitrer(m_cadre, fenetre, true); });
    surOnglet(Ajouter(u"mFemer"_s, u"Fermer"_s), [](FenetreDocument& fenetre) { fenetre.Decharger(); });
    m_fermerTout = Ajouter(u"mFermerTout"_s, u"Fermer Tout"_s);
    connect(m_fermerTout, &QAction::triggered, this, [] { ToutFermer(); });
}

void frmPopup::MontrerMenuMdiTab(const QPoint& endroit)
{
    m_fermerTout->setEnabled(m_cadre.Documents().size() > 1);
    m_menuMdiTab->popup(endroit);
}

QAction* frmPopup::Ajouter(const QString& nom, const QString& caption)
{
    QAction* item = m_menuMdiTab->addAction(caption);
    item->setObjectName(nom);
    return item;
}
