#include "extensions/dialogues/frmTip.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "extensions/dialogues/Astuces.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "platform/Plateforme.h"
#include "ui_frmTip.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int CoteImage = 32;
constexpr int LignesAuMoins = 4; // of a tip, before it is scrolled

void Semer()
{
    plateforme().hasard->Semer(static_cast<uint32_t>(plateforme().horloge->Maintenant().toMSecsSinceEpoch()));
}

} // namespace

frmTip::frmTip(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmTip>())
{
    m_ui->setupUi(this);
    m_ui->Image1->setPixmap(Icone(u"information"_s).pixmap(CoteImage));
    m_ui->cmdNextTip->setIcon(Icone(u"right"_s));
    m_ui->cmdOK->setIcon(Icone(u"annuler"_s));
    QFont grande = m_ui->Label1->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.25);
    grande.setBold(true);
    m_ui->Label1->setFont(grande);
    m_ui->Defilement->setMinimumHeight(LignesAuMoins * fontMetrics().lineSpacing());
    m_ui->cmdOK->setFocus();

    // The setting says the opposite of its name: 1 keeps the tips away.
    const auto cocher = [this] { m_ui->chkLoadTipsAtStartup->setChecked(!LireOption(Options::ShowTipsAtStartup)); };
    cocher();
    SuivreOption(Options::ShowTipsAtStartup, *this, cocher);
    connect(m_ui->chkLoadTipsAtStartup, &QCheckBox::clicked, this,
            [](bool cochee) { EcrireOption(Options::ShowTipsAtStartup, !cochee); });
    connect(m_ui->cmdNextTip, &QPushButton::clicked, this, &frmTip::TirerAuSort);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QDialog::close);
    LangForm(*this);

    Semer();
    const QString nom = u"astuces.txt"_s;
    if (!LoadTips(DossierProgramme() + nom))
        AfficherMsg(LangMsg(u"msg92"_s, u"Le fichier '%1' n'a pas été trouvé? \n"
                                        "Verrifiez qu'il est placé dans le même repertoire que l'application."_s)
                        .Remplacer(u"%1"_s, nom),
                    MsgOk, QString());
}

frmTip::~frmTip() = default;

void frmTip::Montrer(QWidget& parent)
{
    auto* form = parent.findChild<frmTip*>();
    if (!form) {
        form = new frmTip(&parent);
        form->setAttribute(Qt::WA_DeleteOnClose);
    }
    form->show();
    form->raise();
    form->activateWindow();
}

bool frmTip::LoadTips(const QString& chemin)
{
    const std::optional<QStringList> astuces = LireAstuces(chemin);
    if (!astuces)
        return false;
    m_astuces = *astuces;
    Semer();
    TirerAuSort();
    return true;
}

void frmTip::DisplayCurrentTip()
{
    if (!m_astuces.isEmpty())
        m_ui->lblTipText->setText(m_astuces.at(m_courante - 1));
}

void frmTip::TirerAuSort()
{
    m_courante = TirerAstuce(m_astuces.size(), *plateforme().hasard);
    DisplayCurrentTip();
}
