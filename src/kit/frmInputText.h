// Asks for one line of text.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmInputText;
}

class frmInputText : public QDialog
{
    Q_OBJECT

public:
    /// `libelle` is what the user is asked, `defaut` the text that stands there at first.
    frmInputText(const QString& libelle, const QString& defaut, QWidget* parent = nullptr);
    ~frmInputText() override;

    bool Valide = false; ///< set by btOk alone
    /// The text that stands there.
    QString Texte() const;

private:
    std::unique_ptr<Ui::frmInputText> m_ui;
};
