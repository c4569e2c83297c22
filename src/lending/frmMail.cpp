#include "lending/frmMail.h"

#include "ui_frmMail.h"

#include <QKeyEvent>
#include <QTcpSocket>

frmMail::frmMail(QWidget* parent) : QDialog(parent), ws(new QTcpSocket(this)), m_ui(std::make_unique<Ui::frmMail>())
{
    m_ui->setupUi(this);
    ws->setObjectName(QStringLiteral("ws"));
}

frmMail::~frmMail() = default;

void frmMail::Montrer(QWidget& cadre)
{
    auto* form = cadre.findChild<frmMail*>(QString(), Qt::FindDirectChildrenOnly);
    if (!form)
        form = new frmMail(&cadre);
    form->exec();
}

void frmMail::keyPressEvent(QKeyEvent* event)
{
    if (!event->matches(QKeySequence::Cancel))
        QDialog::keyPressEvent(event);
}
