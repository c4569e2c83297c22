#include "lending/frmPreter.h"

#include "extensions/langue/LangForm.h"
#include "kit/Icones.h"
#include "kit/ValideurDeLigne.h"
#include "lending/MessagesDuPret.h"
#include "ui_frmPreter.h"

#include <QListView>
#include <QStringListModel>

using namespace Qt::StringLiterals;

frmPreter::frmPreter(const QString& zelvaneIni, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPreter>())
{
    m_ui->setupUi(this);
    m_ui->btMettreAJour->setIcon(Icone(u"ok"_s));
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    m_ui->noms->setCompleter(nullptr); // what is typed stands as it is typed
    m_ui->noms->setValidator(new ValideurDeLigne(this));
    m_ui->Text1->setValidator(new ValideurDeLigne(this));

    CreerFichierDesContacts(zelvaneIni);
    const ContactsLus lus = LireContacts(zelvaneIni);
    QStringList noms;
    noms.reserve(static_cast<qsizetype>(lus.contacts.size()));
    m_emails.reserve(static_cast<qsizetype>(lus.contacts.size()));
    for (const Contact& contact : lus.contacts) {
        noms.append(contact.nom);
        m_emails.insert(contact.nom, contact.email);
    }
    // One model and rows of one height: there may be a million of them.
    m_ui->noms->setModel(new QStringListModel(noms, m_ui->noms));
    if (auto* liste = qobject_cast<QListView*>(m_ui->noms->view()))
        liste->setUniformItemSizes(true);
    m_ui->noms->setCurrentIndex(-1);
    connect(m_ui->noms, &QComboBox::editTextChanged, this, &frmPreter::MontrerEmail);
    connect(m_ui->noms, &QComboBox::activated, this, &frmPreter::MontrerEmail);
    connect(m_ui->btMettreAJour, &QPushButton::clicked, this, &frmPreter::Valider);
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);
    m_ui->noms->lineEdit()->setAccessibleName(m_ui->Label1->text().remove(u'&'));
    m_ui->noms->setFocus();
    DireContactsManquants(lus);
}

frmPreter::~frmPreter() = default;

Contact frmPreter::Emprunteur() const
{
    return {m_ui->noms->currentText(), m_ui->Text1->text()};
}

/// A name that nobody has leaves the field empty.
void frmPreter::MontrerEmail()
{
    m_ui->Text1->setText(m_emails.value(m_ui->noms->currentText()));
}

void frmPreter::Valider()
{
    if (m_ui->noms->currentText().isEmpty()) {
        DireNomManquant();
        m_ui->noms->setFocus();
        return;
    }
    accepted = true;
    accept();
}
