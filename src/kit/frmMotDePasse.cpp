#include "kit/frmMotDePasse.h"

#include "extensions/langue/LangForm.h"
#include "kit/Icones.h"
#include "kit/MotsLongs.h"
#include "ui_frmMotDePasse.h"

using namespace Qt::StringLiterals;

frmMotDePasse::frmMotDePasse(const QString& titre, const QString& invite, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmMotDePasse>())
{
    m_ui->setupUi(this);
    m_ui->btOk->setIcon(Icone(u"ok"_s));
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    LangForm(*this);
    setWindowTitle(titre);
    QLabel& label = *m_ui->Label1;
    label.setText(CouperMotsLongs(invite, label.fontMetrics(), label.minimumWidth()));
    m_ui->Text1->setFocus();
}

frmMotDePasse::~frmMotDePasse() = default;

QString frmMotDePasse::MotDePasse() const
{
    return result() == Accepted ? m_ui->Text1->text() : QString();
}
