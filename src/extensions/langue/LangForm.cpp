#include "extensions/langue/LangForm.h"

#include "extensions/langue/TextesDeForme.h"
#include "extensions/langue/modLang.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QToolBar>

#include <functional>

namespace {

/// What a control shows, as far as there is one text of that kind.
struct Propriete
{
    QString actuel;
    std::function<void(const QString&)> mettre;
};

template<class Controle>
Propriete FairePropriete(Controle* controle, QString (Controle::*lire)() const,
                         void (Controle::*ecrire)(const QString&))
{
    return {(controle->*lire)(), [=](const QString& texte) { (controle->*ecrire)(texte); }};
}

Propriete CaptionDe(QObject* controle)
{
    if (auto* bouton = qobject_cast<QAbstractButton*>(controle))
        return FairePropriete(bouton, &QAbstractButton::text, &QAbstractButton::setText);
    if (auto* etiquette = qobject_cast<QLabel*>(controle))
        return FairePropriete(etiquette, &QLabel::text, &QLabel::setText);
    if (auto* cadre = qobject_cast<QGroupBox*>(controle))
        return FairePropriete(cadre, &QGroupBox::title, &QGroupBox::setTitle);
    if (auto* menu = qobject_cast<QMenu*>(controle))
        return FairePropriete(menu, &QMenu::title, &QMenu::setTitle);
    if (auto* action = qobject_cast<QAction*>(controle))
        return FairePropriete(action, &QAction::text, &QAction::setText);
    return {};
}

Propriete TexteDe(QObject* controle)
{
    if (auto* ligne = qobject_cast<QLineEdit*>(controle))
        return FairePropriete(ligne, &QLineEdit::text, &QLineEdit::setText);
    if (auto* texte = qobject_cast<QPlainTextEdit*>(controle))
        return FairePropriete(texte, &QPlainTextEdit::toPlainText, &QPlainTextEdit::setPlainText);
    if (auto* texte = qobject_cast<QTextEdit*>(controle))
        return FairePropriete(texte, &QTextEdit::toPlainText, &QTextEdit::setPlainText);
    // A list without a part to type in shows one of its lines, which is none to replace.
    if (auto* liste = qobject_cast<QComboBox*>(controle); liste && liste->isEditable())
        return FairePropriete(liste, &QComboBox::currentText, &QComboBox::setEditText);
    return {};
}

Propriete InfoBulleDe(QObject* controle)
{
    auto* widget = qobject_cast<QWidget*>(controle);
    return widget ? FairePropriete(widget, &QWidget::toolTip, &QWidget::setToolTip) : Propriete();
}

void Mettre(QObject* controle, const Propriete& propriete, const std::optional<QString>& texte)
{
    if (!texte)
        return;
    auto* widget = qobject_cast<QWidget*>(controle);
    const bool suivre = widget && widget->accessibleName() == propriete.actuel;
    propriete.mettre(*texte);
    if (suivre)
        widget->setAccessibleName(*texte);
}

void TraduireBoutons(const QToolBar& barre, const TextesDeForme& textes)
{
    int bouton = 0;
    const QList<QAction*> actions = barre.actions();
    for (QAction* action : actions) {
        ++bouton; // a separator is a button, too
        if (const auto texte = textes.InfoBulleBouton(barre.objectName(), bouton, action->toolTip())) {
            if (action->text() == action->toolTip())
                action->setText(*texte);
            action->setToolTip(*texte);
        }
    }
}

void TraduireControle(QObject* controle, const TextesDeForme& textes)
{
    const QString nom = controle->objectName();
    const Propriete caption = CaptionDe(controle);
    Mettre(controle, caption, textes.Caption(nom, caption.actuel));
    const Propriete texte = TexteDe(controle);
    Mettre(controle, texte, textes.Texte(nom, texte.actuel));
    const Propriete infoBulle = InfoBulleDe(controle);
    Mettre(controle, infoBulle, textes.InfoBulle(nom, infoBulle.actuel));
    if (const auto* barre = qobject_cast<const QToolBar*>(controle))
        TraduireBoutons(*barre, textes);
}

bool EstForme(const QObject* objet)
{
    return qobject_cast<const QDialog*>(objet) || qobject_cast<const QMainWindow*>(objet) ||
           qobject_cast<const QMdiSubWindow*>(objet);
}

/// The parts that Qt makes by itself have no name, or one that begins with "qt_".
bool EstControle(const QObject* objet)
{
    const QString nom = objet->objectName();
    return !nom.isEmpty() && !nom.startsWith(QLatin1String("qt_"));
}

void TraduireEnfants(const QObject& parent, const TextesDeForme& textes)
{
    for (QObject* enfant : parent.children()) {
        if (EstForme(enfant))
            continue;
        if (EstControle(enfant))
            TraduireControle(enfant, textes);
        TraduireEnfants(*enfant, textes);
    }
}

} // namespace

void LangForm(QWidget& form)
{
    if (FichierLangue.isEmpty())
        return;
    const TextesDeForme textes(form.objectName());
    if (const auto titre = textes.Titre())
        form.setWindowTitle(*titre);
    TraduireEnfants(form, textes);
}
