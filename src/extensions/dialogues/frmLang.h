// The choice of the program's language. A line that is chosen is tried out at once, on this dialog and on messages.
#pragma once

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class frmLang;
}

class frmLang : public QDialog
{
    Q_OBJECT

public:
    /// `langChange` puts the new language into the windows that are open.
    explicit frmLang(std::function<void()> langChange, QWidget* parent = nullptr);
    /// Without btOK the language that was in force before is again.
    ~frmLang() override;

private:
    void NommerListe();
    void Remplir();
    QString Choisie() const;
    void Essayer();
    void Valider();

    std::unique_ptr<Ui::frmLang> m_ui;
    std::function<void()> m_langChange;
    QString m_garde; ///< the FichierLangue that stays
};
