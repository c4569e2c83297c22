#include "shell/frmPopup.h"

#include "extensions/langue/LangForm.h"
#include "shell/IconesDeMenu.h"
#include "shell/MDIForm1.h"
#include "ui_frmPopup.h"

using namespace Qt::StringLiterals;

frmPopup::frmPopup(MDIForm1& cadre)
    : QMainWindow(&cadre), m_cadre(cadre), m_items(*this, [this] { return m_cadre.Lieu(); }),
      m_ui(std::make_unique<Ui::frmPopup>()), m_precedent(InstallerPresentateur(this))
{
    m_ui->setupUi(this);
    DonnerIcones(*this);
    m_items.BrancherNommes();
    RelierOnglets();
    m_items.Accorder();
    LangForm(*this);
}

frmPopup::~frmPopup()
{
    InstallerPresentateur(m_precedent);
}

/// Each command takes the remembered tab's window to the front first.
void frmPopup::RelierOnglets()
{
    const auto surOnglet = [this]() -> std::optional<LieuDeCommande> {
        Form1* fenetre = m_cadre.AmenerOngletRetenu();
        return fenetre ? std::optional(fenetre->Lieu()) : std::nullopt;
    };
    for (QAction* item : m_ui->mMenuMdiTab->actions()) {
        if (const QString cle = item->property("commandeDOnglet").toString(); !cle.isEmpty())
            m_items.Brancher(*item, cle, surOnglet);
    }
}

void frmPopup::MontrerMenuClickDroit(bool avecSelection, const QPoint& endroit)
{
    m_items.Accorder();
    (avecSelection ? m_ui->MenuClickDroit : m_ui->MenuClickDroit3)->popup(endroit);
}

void frmPopup::MontrerMenuMdiTab(const QPoint& endroit)
{
    m_items.Accorder();
    m_ui->mMenuMdiTab->popup(endroit);
}

QString frmPopup::Choisir(const QString& menu, const QPoint& endroit)
{
    auto* surgissant = findChild<QMenu*>(menu);
    const QAction* choisi = surgissant ? surgissant->exec(endroit) : nullptr;
    return choisi ? choisi->objectName() : QString();
}
