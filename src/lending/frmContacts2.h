// Asks for the name and the e-mail of one contact.
#pragma once

#include <QDialog>

#include <memory>

class MyLV;

namespace Ui {
class frmContacts2;
}

class frmContacts2 : public QDialog
{
    Q_OBJECT

public:
    /// For a new contact of `table`, whose columns are name and e-mail.
    explicit frmContacts2(MyLV& table, QWidget* parent = nullptr);
    ~frmContacts2() override;

    /// For the contact in this row instead.
    void Editer(int ligne);

    /// The row that is edited, as text; "0" for a new one.
    QString Tag;

private:
    void Valider();
    int LigneDuNom(const QString& nom) const;

    MyLV& m_table;
    std::unique_ptr<Ui::frmContacts2> m_ui;
};
