#include "extensions/frmMotDePasse.h"

#include "extensions/LangForm.h"
#include "ui_frmMotDePasse.h"

frmMotDePasse::frmMotDePasse(const QString& titre, const QString& invite, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmMotDePasse>())
{
    m_ui->setupUi(this);
    LangForm(*this);
    setWindowTitle(titre);
    m_ui->Label1->setText(invite);
    m_ui->Text1->setFocus();
}

frmMotDePasse::~frmMotDePasse() = default;

QString frmMotDePasse::MotDePasse() const
{
    return result() == Accepted ? m_ui->Text1->text() : QString();
}
