// The message box: a text and one to three buttons.
#pragma once

#include <QDialog>

#include <memory>

class QKeyEvent;

namespace Ui {
class frmMsg;
}

class frmMsg : public QDialog
{
    Q_OBJECT

public:
    /// `genre` as for AfficherMsg: which buttons there are, and what each returns.
    frmMsg(const QString& texte, int genre, const QString& titre, QWidget* parent = nullptr);
    ~frmMsg() override;

    /// Makes the button that returns `reponse` the one that Enter presses; the first button is, until then. A number
    /// that no button returns changes nothing.
    void ChoisirDefaut(int reponse);

    // What the buttons return.
    int RetourYes = 0;
    int RetourNo = 0;
    int RetourCancel = 0;
    /// What was answered. Stays as it is here when the box is closed without a button, with Escape too.
    int Resultat = 2;

protected:
    // A key that is held down and repeats answers nothing.
    bool eventFilter(QObject* objet, QEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ChoisirBoutons(int genre);
    void DonnerTouches();
    void AjusterTaille(int plusLongMot);
    void Repondre(int reponse);

    std::unique_ptr<Ui::frmMsg> m_ui;
};
