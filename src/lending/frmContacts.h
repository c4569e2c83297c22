// The editor of the contact list. What is changed goes to the settings file when it is validated, and not before.
#pragma once

#include "catalogue/table/MyLV.h"
#include "lending/Contacts.h"

#include <QDialog>

#include <memory>

class frmContacts2;

namespace Ui {
class frmContacts;
}

class frmContacts : public QDialog
{
    Q_OBJECT

public:
    /// Reads the list of the settings file. What of it cannot be read is told.
    explicit frmContacts(QWidget* parent = nullptr);
    ~frmContacts() override;

    /// "send" lets the user choose whom to write to: the selected contact must then have an e-mail, and a double click
    /// validates. Otherwise empty.
    QString Tag;

private:
    void Remplir();
    void Brancher();
    int LigneChoisie() const;
    void Ajouter();
    void Editer();
    void Supprimer();
    void DoubleClic();
    bool ADestinataire();
    std::vector<Contact> Contacts() const;
    void Valider();

    std::unique_ptr<Ui::frmContacts> m_ui;
    QString m_fichier;
    ContactsLus m_lus;
    MyLV m_table; // the list as the user changes it
};
