#include "output/frmExport.h"

#include "base/AfficherMsg.h"
#include "base/MenuSurgissant.h"
#include "base/SurUneLigne.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "ui_frmExport.h"

#include <algorithm>

using namespace Qt::StringLiterals;

frmExport::frmExport(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmExport>())
{
    m_ui->setupUi(this);
    m_ui->Annuler->setIcon(Icone(u"annuler"_s));
    connect(m_ui->btExporter, &QPushButton::clicked, this, &frmExport::Valider);
    connect(m_ui->Annuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->List1, &QWidget::customContextMenuRequested, this, &frmExport::MontrerMenu);
    LangForm(*this);
}

frmExport::~frmExport() = default;

void frmExport::ServirDeChoix(const QString& titre, const QString& question, const QString& bouton)
{
    setWindowTitle(titre);
    m_ui->Label1->setText(question);
    m_ui->List1->setAccessibleName(question);
    m_ui->btExporter->setText(bouton);
    for (QCheckBox* option : {m_ui->Check1, m_ui->Check2, m_ui->Check3})
        option->hide();
}

void frmExport::AjouterColonne(const QString& titre, bool cochee)
{
    auto* ligne = new QListWidgetItem(SurUneLigne(titre), m_ui->List1);
    ligne->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren);
    ligne->setCheckState(cochee ? Qt::Checked : Qt::Unchecked);
    if (m_ui->List1->currentRow() < 0)
        m_ui->List1->setCurrentRow(0);
}

std::vector<bool> frmExport::Cochees() const
{
    std::vector<bool> cochees;
    cochees.reserve(static_cast<size_t>(m_ui->List1->count()));
    for (int i = 0; i < m_ui->List1->count(); ++i)
        cochees.push_back(m_ui->List1->item(i)->checkState() == Qt::Checked);
    return cochees;
}

bool frmExport::SelectionUniquement() const
{
    return m_ui->Check1->isChecked();
}

bool frmExport::VoirLeResultat() const
{
    return m_ui->Check2->isChecked();
}

bool frmExport::Numeroter() const
{
    return m_ui->Check3->isChecked();
}

void frmExport::Valider()
{
    const std::vector<bool> cochees = Cochees();
    if (std::find(cochees.begin(), cochees.end(), true) == cochees.end()) {
        AfficherMsg(LangMsg(u"msg34"_s, u"il faut selectionner au moins une colonne"_s), MsgOk, QString());
        m_ui->List1->setFocus();
        return;
    }
    Valide = true;
    accept();
}

void frmExport::MontrerMenu(const QPoint& place)
{
    const QString choix = ChoisirDansMenu(u"MenuExporte"_s, m_ui->List1->viewport()->mapToGlobal(place));
    if (choix.isEmpty())
        return;
    for (int i = 0; i < m_ui->List1->count(); ++i) {
        QListWidgetItem& ligne = *m_ui->List1->item(i);
        const bool inverser = choix == u"mSelectInvert" && ligne.checkState() == Qt::Unchecked;
        ligne.setCheckState(choix == u"mSeclectAll" || inverser ? Qt::Checked : Qt::Unchecked);
    }
}
