#include "lending/frmContacts.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "lending/MessagesDuPret.h"
#include "lending/frmContacts2.h"
#include "ui_frmContacts.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

constexpr float LargeurNom = 2000; // units of 1/1440 inch
constexpr float LargeurEmail = 3000;

} // namespace

frmContacts::frmContacts(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmContacts>()), m_fichier(FichierZelvaneIni())
{
    m_ui->setupUi(this);
    m_ui->btAddContact->setIcon(Icone(u"addentree"_s));
    m_ui->btEditContact->setIcon(Icone(u"editentree"_s));
    m_ui->btSupprContact->setIcon(Icone(u"delentree"_s));
    m_ui->btOK->setIcon(Icone(u"ok"_s));
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    m_table.ColumnHeaders.Add(0, LangMsg(u"msgContactNom"_s, u"Nom"_s)).SetWidth(LargeurNom);
    m_table.ColumnHeaders.Add(0, LangMsg(u"msgContactEmail"_s, u"Email"_s)).SetWidth(LargeurEmail);
    Remplir();
    m_ui->ListView1->Afficher(m_table);
    m_ui->ListView1->horizontalHeader()->setSectionsClickable(false); // the list keeps the order of the file
    Brancher();
    LangForm(*this);
    DireContactsManquants(m_lus);
}

frmContacts::~frmContacts()
{
    // The view looks at the table to its last moment.
    delete m_ui->ListView1;
}

void frmContacts::Remplir()
{
    m_lus = LireContacts(m_fichier);
    for (const Contact& contact : m_lus.contacts)
        m_table.ListItems.Add(0, QString(), contact.nom).SetSubItems(1, contact.email);
}

void frmContacts::Brancher()
{
    const auto brancher = [this](const QPushButton* bouton, auto action) {
        connect(bouton, &QPushButton::clicked, this, action);
    };
    brancher(m_ui->btAddContact, &frmContacts::Ajouter);
    brancher(m_ui->btEditContact, &frmContacts::Editer);
    brancher(m_ui->btSupprContact, &frmContacts::Supprimer);
    brancher(m_ui->btOK, &frmContacts::Valider);
    brancher(m_ui->btAnnuler, &QDialog::reject);
    connect(m_ui->ListView1, &QAbstractItemView::doubleClicked, this, &frmContacts::DoubleClic);
}

/// The last one that is selected; 0 for none.
int frmContacts::LigneChoisie() const
{
    int ligne = m_table.ListItems.Count();
    while (ligne > 0 && !m_table.EstSelectionnee(ligne))
        --ligne;
    return ligne;
}

void frmContacts::Ajouter()
{
    frmContacts2 form(m_table, this);
    form.exec();
}

void frmContacts::Editer()
{
    const int ligne = LigneChoisie();
    if (ligne == 0)
        return;
    frmContacts2 form(m_table, this);
    form.Editer(ligne);
    form.exec();
}

void frmContacts::Supprimer()
{
    const int ligne = LigneChoisie();
    if (ligne == 0)
        return;
    const Message question = LangMsg(u"msgContactSupprimer"_s, u"Voulez-vous supprimer le contact selectionné?"_s);
    if (AfficherMsg(question, MsgOuiNonAnnuler, QString()) == RepOui)
        m_table.ListItems.Remove(ligne);
}

void frmContacts::DoubleClic()
{
    if (Tag == u"send")
        Valider();
    else
        Editer();
}

/// Whether there is somebody to write to, and where. The user may give the e-mail that is missing.
bool frmContacts::ADestinataire()
{
    const int ligne = LigneChoisie();
    if (ligne == 0) {
        AfficherMsg(
            LangMsg(u"msgContactAChoisir"_s, u"Veuillez selectionner le contact à qui vous voulez envoyer un email"_s),
            MsgOk, QString());
        return false;
    }
    const auto aUneAdresse = [&] { return !m_table.ListItems(ligne).SubItems(1).isEmpty(); };
    if (aUneAdresse())
        return true;
    const Message question =
        LangMsg(u"msgContactSansEmail"_s,
                u"L'e-mail de votre contact n'a pas été defini,\nVoulez vous le definir maintenant ?"_s);
    if (AfficherMsg(question, MsgOuiNonAnnuler, QString()) != RepOui)
        return false;
    Editer();
    if (aUneAdresse())
        return true;
    AfficherMsg(LangMsg(u"msgContactEncoreSansEmail"_s, u"Vous n'avez toujours pas defini l'email de votre contact."_s),
                MsgOk, LangMsg(u"msgContactAttente"_s, u"Action en attente !"_s));
    return false;
}

std::vector<Contact> frmContacts::Contacts() const
{
    std::vector<Contact> contacts;
    contacts.reserve(static_cast<size_t>(m_table.ListItems.Count()));
    for (int i = 1; i <= m_table.ListItems.Count(); ++i) {
        const ListItemLu ligne = m_table.ListItems(i);
        contacts.push_back({ligne.Text(), ligne.SubItems(1)});
    }
    return contacts;
}

void frmContacts::Valider()
{
    if (Tag == u"send" && !ADestinataire())
        return;
    // Another window or program may have added somebody since.
    const ContactsLus la = LireContacts(m_fichier);
    if ((la.aPerdre || la != m_lus) && !AccepterPerteDeContacts())
        return;
    if (EcrireContacts(m_fichier, Contacts()))
        accept();
    else
        DireContactsNonEcrits(m_fichier);
}
