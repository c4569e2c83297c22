#include "output/frmStat.h"

#include "extensions/langue/LangForm.h"
#include "kit/Icones.h"
#include "output/Statistiques.h"
#include "ui_frmStat.h"

#include <QFontDatabase>

using namespace Qt::StringLiterals;

frmStat::frmStat(const QrtClass& doc, QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmStat>())
{
    m_ui->setupUi(this);
    m_ui->Command1->setIcon(Icone(u"ok"_s));
    connect(m_ui->Command1, &QPushButton::clicked, this, &QDialog::accept);
    LangForm(*this);
    m_ui->Text1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    // The field knows one kind of line end.
    m_ui->Text1->setPlainText(RapportDesPrets(doc).remove(u'\r'));
}

frmStat::~frmStat() = default;
