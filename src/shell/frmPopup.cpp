#include "shell/frmPopup.h"

#include "base/Fenetres.h"
#include "entries/mClipBoard.h"
#include "extensions/langue/LangForm.h"
#include "shell/IconesDeMenu.h"
#include "shell/MDIForm1.h"
#include "shell/Relier.h"
#include "shell/Toolbars.h"
#include "ui_frmPopup.h"

using namespace Qt::StringLiterals;

namespace {

void Copier(FenetreDocument& fenetre)
{
    CopierSelection(*fenetre.myqrt.MyLV, fenetre.myqrt.TmpFolder);
}

void Coller(FenetreDocument& fenetre)
{
    // Without a condition, and it is meant: a paste that brings nothing leaves nothing to save.
    fenetre.myqrt.IlFautSauver = CollerEntrees(*fenetre.myqrt.MyLV, fenetre.myqrt.TmpFolder, 1);
}

/// The number of an item among its menu's, from 1; separators do not count.
int NumeroDe(const QMenu& menu, const QAction* choisi)
{
    int numero = 0;
    for (const QAction* item : menu.actions()) {
        numero += item->isSeparator() ? 0 : 1;
        if (item == choisi)
            return numero;
    }
    return 0;
}

} // namespace

frmPopup::frmPopup(MDIForm1& cadre)
    : QMainWindow(&cadre), m_cadre(cadre), m_ui(std::make_unique<Ui::frmPopup>()),
      m_precedent(InstallerPresentateur(this))
{
    m_ui->setupUi(this);
    DonnerIcones(*this);
    RelierCommandes();
    RelierOnglets();
    LangForm(*this);
}

frmPopup::~frmPopup()
{
    InstallerPresentateur(m_precedent);
}

/// The items that name their command in the form's file: see Toolbars for the commands.
void frmPopup::RelierCommandes()
{
    for (QAction* item : findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
        const QString cle = item->property("commande").toString();
        if (cle.isEmpty())
            continue;
        item->setEnabled(CommandeDisponible(cle));
        Relier(*item, this, [this, cle] { Executer(cle); });
    }
}

void frmPopup::Executer(const QString& cle)
{
    const bool copier = cle == u"copier";
    if (!copier && cle != u"coller")
        Commande(m_cadre, cle);
    else if (FenetreDocument* active = m_cadre.FenetreActive())
        (copier ? Copier : Coller)(*active);
}

/// Each command takes the remembered tab's window to the front first.
void frmPopup::RelierOnglets()
{
    const auto surOnglet = [this](QAction* item, auto commande) {
        Relier(*item, this, [this, commande] {
            if (FenetreDocument* fenetre = m_cadre.AmenerOngletRetenu())
                commande(*fenetre);
        });
    };
    surOnglet(m_ui->mRestaurer, [](FenetreDocument&) {});
    surOnglet(m_ui->mEnregistrer, [this](FenetreDocument& fenetre) { EnregistrerEtTitrer(m_cadre, fenetre, false); });
    surOnglet(m_ui->mEnregistrerSous,
              [this](FenetreDocument& fenetre) { EnregistrerEtTitrer(m_cadre, fenetre, true); });
    surOnglet(m_ui->mFemer, [](FenetreDocument& fenetre) { fenetre.Decharger(); });
    Relier(*m_ui->mFermerTout, this, [] { ToutFermer(); });
}

void frmPopup::MontrerMenuClickDroit(bool avecSelection, const QPoint& endroit)
{
    // The picture pops up the menu of a selection without one too.
    const FenetreDocument* active = m_cadre.FenetreActive();
    m_ui->mEditerEntree->setEnabled(active && active->myqrt.SelItemsCount() > 0);
    (avecSelection ? m_ui->MenuClickDroit : m_ui->MenuClickDroit3)->popup(endroit);
}

void frmPopup::MontrerMenuMdiTab(const QPoint& endroit)
{
    m_ui->mFermerTout->setEnabled(m_cadre.Documents().size() > 1);
    m_ui->mMenuMdiTab->popup(endroit);
}

int frmPopup::Choisir(const QString& menu, const QPoint& endroit)
{
    auto* surgissant = findChild<QMenu*>(menu);
    return surgissant ? NumeroDe(*surgissant, surgissant->exec(endroit)) : 0;
}
