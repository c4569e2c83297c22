// Asks who borrows. The names of the contact list can be chosen, and a new one typed.
#pragma once

#include "lending/Contacts.h"

#include <QDialog>
#include <QHash>

#include <memory>

namespace Ui {
class frmPreter;
}

class frmPreter : public QDialog
{
    Q_OBJECT

public:
    /// Reads the list of the settings file, which is made where there is none. What of it cannot be read is told.
    explicit frmPreter(const QString& zelvaneIni, QWidget* parent = nullptr);
    ~frmPreter() override;

    bool accepted = false; ///< set by btMettreAJour alone
    Contact Emprunteur() const;

private:
    void MontrerEmail();
    void Valider();

    std::unique_ptr<Ui::frmPreter> m_ui;
    QHash<QString, QString> m_emails; ///< by name; of two with the same name that of the later one
};
