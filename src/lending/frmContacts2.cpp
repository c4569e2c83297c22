#include "lending/frmContacts2.h"

#include "base/AfficherMsg.h"
#include "catalogue/table/MyLV.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "kit/ValideurDeLigne.h"
#include "ui_frmContacts2.h"

using namespace Qt::StringLiterals;

frmContacts2::frmContacts2(MyLV& table, QWidget* parent)
    : QDialog(parent), Tag(u"0"_s), m_table(table), m_ui(std::make_unique<Ui::frmContacts2>())
{
    m_ui->setupUi(this);
    m_ui->btAjouter->setIcon(Icone(u"ok"_s));
    m_ui->Annuler->setIcon(Icone(u"annuler"_s));
    for (QLineEdit* champ : {m_ui->Text2, m_ui->Text1})
        champ->setValidator(new ValideurDeLigne(this));
    connect(m_ui->btAjouter, &QPushButton::clicked, this, &frmContacts2::Valider);
    connect(m_ui->Annuler, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);
    // In no language but this one. It is meant.
    setWindowTitle(u"Ajouter un Contact"_s);
    m_ui->Text2->setFocus();
}

frmContacts2::~frmContacts2() = default;

void frmContacts2::Editer(int ligne)
{
    Tag = QString::number(ligne);
    setWindowTitle(u"Editer un Contact"_s);
    m_ui->Label1->setText(LangMsg(u"msgContactNomAChanger"_s, u"Tapez le &nom de votre contact"_s));
    m_ui->Text2->setText(m_table.ListItems(ligne).Text());
    m_ui->Text1->setText(m_table.ListItems(ligne).SubItems(1));
}

/// The last row that has the name; 0 for none.
int frmContacts2::LigneDuNom(const QString& nom) const
{
    int ligne = m_table.ListItems.Count();
    while (ligne > 0 && m_table.ListItems(ligne).Text() != nom)
        --ligne;
    return ligne;
}

void frmContacts2::Valider()
{
    const QString nom = m_ui->Text2->text();
    const int editee = Tag.toInt();
    const int homonyme = LigneDuNom(nom);
    QString refus;
    if (nom.isEmpty())
        refus = u"Veuillez taper un nom"_s;
    else if (homonyme != 0 && homonyme != editee)
        refus = u"Le nom existe déjà dans la liste, veuillez taper un autre nom"_s;
    if (!refus.isEmpty()) {
        AfficherMsg(Message(refus), MsgOk, QString());
        m_ui->Text2->setFocus();
        return;
    }
    ListItem ligne = editee == 0 ? m_table.ListItems.Add(0, QString(), nom) : m_table.ListItems(editee);
    ligne.SetText(nom);
    ligne.SetSubItems(1, m_ui->Text1->text());
    accept();
}
