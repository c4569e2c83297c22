#include "search/frmCompare2.h"

#include "base/AfficherMsg.h"
#include "catalogue/table/MyLV.h"
#include "extensions/langue/LangForm.h"
#include "kit/Icones.h"
#include "ui_frmCompare2.h"

#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace {

/// As lines of a model: a file may announce a million columns, and each line of the list's own would be an object.
void Remplir(QComboBox& liste, const ColumnHeaders& colonnes)
{
    QStringList titres;
    for (int i = 1; i <= colonnes.Count(); ++i)
        titres.append(colonnes(i).Text());
    liste.setModel(new QStringListModel(titres, &liste));
    liste.setCurrentIndex(0);
}

} // namespace

frmCompare2::frmCompare2(const ColumnHeaders& a, const ColumnHeaders& b, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmCompare2>())
{
    m_ui->setupUi(this);
    m_ui->btComparer->setIcon(Icone(u"ok"_s));
    m_ui->Annuler->setIcon(Icone(u"annuler"_s));
    LangForm(*this);
    Remplir(*m_ui->Colonne_0, a);
    Remplir(*m_ui->Colonne_1, b);
    connect(m_ui->btComparer, &QPushButton::clicked, this, &frmCompare2::Valider);
    connect(m_ui->Annuler, &QPushButton::clicked, this, &QDialog::reject);
}

frmCompare2::~frmCompare2() = default;

int frmCompare2::ColonneA() const
{
    return m_ui->Colonne_0->currentIndex();
}

int frmCompare2::ColonneB() const
{
    return m_ui->Colonne_1->currentIndex();
}

/// A column without a title cannot be chosen: it is meant.
void frmCompare2::Valider()
{
    if (m_ui->Colonne_0->currentText().isEmpty() || m_ui->Colonne_1->currentText().isEmpty()) {
        AfficherMsg(Message(u"Il faut selectionner deux Colonnes"_s), MsgOk, QString());
        return;
    }
    Valide = true;
    accept();
}
