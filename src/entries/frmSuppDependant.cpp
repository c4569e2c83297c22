#include "entries/frmSuppDependant.h"

#include "extensions/langue/LangForm.h"
#include "kit/Icones.h"
#include "ui_frmSuppDependant.h"

using namespace Qt::StringLiterals;

frmSuppDependant::frmSuppDependant(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmSuppDependant>())
{
    m_ui->setupUi(this);
    m_ui->Annuler->setIcon(Icone(u"annuler"_s));
    connect(m_ui->Option1_0, &QRadioButton::toggled, this,
            [this](bool premiere) { OptionCourante = premiere ? 0 : 1; });
    connect(m_ui->btAjouter, &QPushButton::clicked, this, [this] {
        Choix = OptionCourante;
        accept();
    });
    connect(m_ui->Annuler, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);
}

frmSuppDependant::~frmSuppDependant() = default;

void frmSuppDependant::SetOptions(const QString& selectionnees, const QString& dependantes)
{
    m_ui->Option1_0->setText(selectionnees);
    m_ui->Option1_1->setText(dependantes);
}
