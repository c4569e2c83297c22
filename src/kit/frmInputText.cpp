#include "kit/frmInputText.h"

#include "extensions/langue/LangForm.h"
#include "kit/Icones.h"
#include "kit/MotsLongs.h"
#include "kit/ValideurDeLigne.h"
#include "ui_frmInputText.h"

using namespace Qt::StringLiterals;

frmInputText::frmInputText(const QString& libelle, const QString& defaut, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmInputText>())
{
    m_ui->setupUi(this);
    m_ui->btOk->setIcon(Icone(u"ok"_s));
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    m_ui->Text1->setValidator(new ValideurDeLigne(this));
    connect(m_ui->btOk, &QPushButton::clicked, this, [this] {
        Valide = true;
        accept();
    });
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);

    QLabel& label = *m_ui->Label1;
    label.setText(CouperMotsLongs(libelle, label.fontMetrics(), label.minimumWidth()));
    m_ui->Text1->setAccessibleName(libelle);
    m_ui->Text1->setText(defaut);
    m_ui->Text1->selectAll();
    m_ui->Text1->setFocus();
}

frmInputText::~frmInputText() = default;

QString frmInputText::Texte() const
{
    return m_ui->Text1->text();
}
