// The keys of the editor.
#include "entries/frmEditEntree.h"
#include "ui_frmEditEntree.h"

#include <QKeyEvent>

namespace {

/// The digit of a key from 1 to 9, else 0. The keys of the upper row count by their place, too: on French keyboards
/// they give a digit with Shift only.
int ChiffreDe(const QKeyEvent& touche)
{
    constexpr quint32 PremiereDuRang = 10; // of the keys "1" to "9" under X11 and Wayland
    if (touche.key() >= Qt::Key_1 && touche.key() <= Qt::Key_9)
        return touche.key() - Qt::Key_0;
    const quint32 place = touche.nativeScanCode();
    return place >= PremiereDuRang && place < PremiereDuRang + 9 ? static_cast<int>(place - PremiereDuRang) + 1 : 0;
}

Qt::KeyboardModifiers Modificateurs(const QKeyEvent& touche)
{
    return touche.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

bool EstEntree(const QKeyEvent& touche)
{
    return touche.key() == Qt::Key_Return || touche.key() == Qt::Key_Enter;
}

} // namespace

bool frmEditEntree::eventFilter(QObject* objet, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (objet == m_ui->Combo1)
            return ToucheDuChamp(static_cast<const QKeyEvent&>(*event));
        if (objet == m_ui->LV && ToucheDeListe(static_cast<const QKeyEvent&>(*event)))
            return true;
        if ((objet == m_ui->btplus || objet == m_ui->btmoins) && EstEntree(static_cast<const QKeyEvent&>(*event))) {
            // Enter presses the button that has the focus, not the one that closes the form.
            static_cast<QToolButton*>(objet)->click();
            return true;
        }
        break;
    case QEvent::KeyRelease:
        if (objet == m_ui->LV && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Delete)
            m_ui->Combo1->Remplacer(QString());
        break;
    case QEvent::MouseButtonRelease:
        if (objet == m_ui->LV->viewport())
            DonnerFocusAuChamp();
        break;
    default:
        break;
    }
    return QDialog::eventFilter(objet, event);
}

bool frmEditEntree::ToucheDuChamp(const QKeyEvent& touche)
{
    const int cle = touche.key();
    if (m_ui->LV->Choisie() < 0) {
        // Nothing typed here would reach a row. The keys that leave the field stay what they are.
        if (cle == Qt::Key_Tab || cle == Qt::Key_Backtab || cle == Qt::Key_Escape)
            return false;
        m_ui->Combo1->Montrer(QString());
        return true;
    }
    if (EstEntree(touche)) {
        // A key held down runs through no rows, and does not press the button at their end.
        if (!touche.isAutoRepeat())
            ToucheEntree(Modificateurs(touche));
        return true;
    }
    if (Modificateurs(touche) != Qt::ControlModifier)
        return false;
    if (cle == Qt::Key_N || cle == Qt::Key_B) {
        Aller(cle == Qt::Key_N ? Sens::Suivante : Sens::Precedente);
        return true;
    }
    const int chiffre = ChiffreDe(touche);
    if (chiffre > 0)
        PrendreTexte(chiffre);
    return chiffre > 0;
}

void frmEditEntree::ToucheEntree(Qt::KeyboardModifiers modificateurs)
{
    const int ligne = m_ui->LV->Choisie();
    if (modificateurs == Qt::ControlModifier)
        Ajouter();
    else if (modificateurs == Qt::ShiftModifier && ligne > 0)
        m_ui->LV->Choisir(ligne - 1);
    else if (modificateurs == Qt::NoModifier && ligne + 1 < NombreDeLignes())
        m_ui->LV->Choisir(ligne + 1);
    else if (modificateurs == Qt::NoModifier) {
        m_ui->LV->clearSelection();
        m_ui->btAjouter->setFocus();
    }
}

/// Takes text `numero` (from 1) of the list, when there is one.
void frmEditEntree::PrendreTexte(int numero)
{
    const QStringList textes = m_ui->Combo1->Liste();
    if (numero <= textes.size())
        m_ui->Combo1->Remplacer(textes.at(numero - 1));
}

bool frmEditEntree::ToucheDeListe(const QKeyEvent& touche)
{
    const bool ouvre = (EstEntree(touche) || touche.key() == Qt::Key_F2) && Modificateurs(touche) == Qt::NoModifier;
    if (ouvre)
        DonnerFocusAuChamp();
    return ouvre;
}
