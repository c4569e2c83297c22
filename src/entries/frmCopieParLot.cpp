#include "entries/frmCopieParLot.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "kit/ValideurDeLigne.h"
#include "ui_frmCopieParLot.h"

using namespace Qt::StringLiterals;

frmCopieParLot::frmCopieParLot(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmCopieParLot>())
{
    m_ui->setupUi(this);
    m_ui->btCopier->setIcon(Icone(u"ok"_s));
    m_ui->Annuler->setIcon(Icone(u"annuler"_s));
    m_ui->txtNbCopie->setValidator(new ValideurDeLigne(this));
    connect(m_ui->btCopier, &QPushButton::clicked, this, &frmCopieParLot::Copier);
    connect(m_ui->Annuler, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);
    m_ui->txtNbCopie->setAccessibleName(m_ui->Frame1->title().remove(u'&'));
    m_ui->txtNbCopie->setFocus();
}

frmCopieParLot::~frmCopieParLot() = default;

/// Without a number the user stays where one can be typed.
void frmCopieParLot::Copier()
{
    bool juste = false;
    NbCopies = m_ui->txtNbCopie->text().toShort(&juste);
    if (juste) {
        accept();
        return;
    }
    AfficherMsg(LangMsg(u"msgNombreDeCopies"_s, u"Entrez le nombre de copies, de 1 à 32767."_s), MsgOk, QString());
    m_ui->txtNbCopie->selectAll();
    m_ui->txtNbCopie->setFocus();
}
