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
    const char* genre = ""; ///< the name under which the text before the translation is kept with the control
    QString actuel;
    std::function<void(const QString&)> mettre;
};

constexpr auto Titre = "titreAvantLangue";
constexpr auto Caption = "captionAvantLangue";
constexpr auto Texte = "texteAvantLangue";
constexpr auto InfoBulle = "infoBulleAvantLangue";
constexpr auto Nom = "nomAvantLangue";
constexpr auto Description = "descriptionAvantLangue";

template<class Controle>
Propriete FairePropriete(const char* genre, Controle* controle, QString (Controle::*lire)() const,
                         void (Controle::*ecrire)(const QString&))
{
    return {genre, (controle->*lire)(), [=](const QString& texte) { (controle->*ecrire)(texte); }};
}

Propriete CaptionDe(QObject* controle)
{
    if (auto* bouton = qobject_cast<QAbstractButton*>(controle))
        return FairePropriete(Caption, bouton, &QAbstractButton::text, &QAbstractButton::setText);
    if (auto* etiquette = qobject_cast<QLabel*>(controle))
        return FairePropriete(Caption, etiquette, &QLabel::text, &QLabel::setText);
    if (auto* cadre = qobject_cast<QGroupBox*>(controle))
        return FairePropriete(Caption, cadre, &QGroupBox::title, &QGroupBox::setTitle);
    if (auto* menu = qobject_cast<QMenu*>(controle))
        return FairePropriete(Caption, menu, &QMenu::title, &QMenu::setTitle);
    if (auto* action = qobject_cast<QAction*>(controle))
        return FairePropriete(Caption, action, &QAction::text, &QAction::setText);
    return {};
}

Propriete TexteDe(QObject* controle)
{
    if (auto* ligne = qobject_cast<QLineEdit*>(controle))
        return FairePropriete(Texte, ligne, &QLineEdit::text, &QLineEdit::setText);
    if (auto* texte = qobject_cast<QPlainTextEdit*>(controle))
        return FairePropriete(Texte, texte, &QPlainTextEdit::toPlainText, &QPlainTextEdit::setPlainText);
    if (auto* texte = qobject_cast<QTextEdit*>(controle))
        return FairePropriete(Texte, texte, &QTextEdit::toPlainText, &QTextEdit::setPlainText);
    // A list without a part to type in shows one of its lines, which is none to replace.
    if (auto* liste = qobject_cast<QComboBox*>(controle); liste && liste->isEditable())
        return FairePropriete(Texte, liste, &QComboBox::currentText, &QComboBox::setEditText);
    return {};
}

Propriete InfoBulleDe(QObject* controle)
{
    auto* widget = qobject_cast<QWidget*>(controle);
    return widget ? FairePropriete(InfoBulle, widget, &QWidget::toolTip, &QWidget::setToolTip) : Propriete();
}

Propriete NomDe(QObject* controle)
{
    auto* widget = qobject_cast<QWidget*>(controle);
    return widget ? FairePropriete(Nom, widget, &QWidget::accessibleName, &QWidget::setAccessibleName) : Propriete();
}

Propriete DescriptionDe(QObject* controle)
{
    auto* widget = qobject_cast<QWidget*>(controle);
    return widget ? FairePropriete(Description, widget, &QWidget::accessibleDescription,
                                   &QWidget::setAccessibleDescription)
                  : Propriete();
}

/// Keeps the text that stood there before the translation `mis`, for ChangerLangueDe.
void Garder(QObject& objet, const char* genre, const QString& avant, const QString& mis)
{
    const QStringList gardes = objet.property(genre).toStringList();
    const bool traduit = gardes.value(1) == avant && !gardes.isEmpty();
    objet.setProperty(genre, QStringList{traduit ? gardes.first() : avant, mis});
}

/// The text before the translation, if the translation still stands there.
std::optional<QString> Garde(const QObject& objet, const char* genre, const QString& actuel)
{
    const QStringList gardes = objet.property(genre).toStringList();
    return gardes.value(1) == actuel && !gardes.isEmpty() ? std::optional(gardes.first()) : std::nullopt;
}

/// A control's accessible name follows a text that it repeats.
void Mettre(QObject* controle, const Propriete& propriete, const QString& texte)
{
    auto* widget = qobject_cast<QWidget*>(controle);
    const bool suivre = widget && widget->accessibleName() == propriete.actuel;
    propriete.mettre(texte);
    if (suivre)
        widget->setAccessibleName(texte);
}

void Traduire(QObject* controle, const Propriete& propriete, const std::optional<QString>& texte)
{
    if (!texte)
        return;
    Mettre(controle, propriete, *texte);
    Garder(*controle, propriete.genre, propriete.actuel, *texte);
}

void MettreBouton(QAction& action, const QString& texte)
{
    if (action.text() == action.toolTip())
        action.setText(texte);
    action.setToolTip(texte);
}

void TraduireBoutons(const QToolBar& barre, const TextesDeForme& textes)
{
    int bouton = 0;
    const QList<QAction*> actions = barre.actions();
    for (QAction* action : actions) {
        ++bouton; // a separator is a button, too
        if (const auto texte = textes.InfoBulleBouton(barre.objectName(), bouton, action->toolTip())) {
            const QString avant = action->toolTip();
            MettreBouton(*action, *texte);
            Garder(*action, InfoBulle, avant, *texte);
        }
    }
}

/// What assistive technologies tell of a control beyond what all can see of it.
void TraduireAcces(QObject* controle, const TextesDeForme& textes)
{
    const Propriete acces = NomDe(controle);
    const QStringList vus{CaptionDe(controle).actuel, TexteDe(controle).actuel, InfoBulleDe(controle).actuel};
    if (!vus.contains(acces.actuel))
        Traduire(controle, acces, textes.NomAccessible(controle->objectName(), acces.actuel));
    const Propriete description = DescriptionDe(controle);
    Traduire(controle, description, textes.DescriptionAccessible(controle->objectName(), description.actuel));
}

void TraduireControle(QObject* controle, const TextesDeForme& textes)
{
    const QString nom = controle->objectName();
    const Propriete caption = CaptionDe(controle);
    Traduire(controle, caption, textes.Caption(nom, caption.actuel));
    const Propriete texte = TexteDe(controle);
    Traduire(controle, texte, textes.Texte(nom, texte.actuel));
    const Propriete infoBulle = InfoBulleDe(controle);
    Traduire(controle, infoBulle, textes.InfoBulle(nom, infoBulle.actuel));
    TraduireAcces(controle, textes);
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

void RetablirControle(QObject* controle)
{
    for (const Propriete& propriete :
         {CaptionDe(controle), TexteDe(controle), InfoBulleDe(controle), NomDe(controle), DescriptionDe(controle)}) {
        if (const auto avant = Garde(*controle, propriete.genre, propriete.actuel); avant && propriete.mettre)
            Mettre(controle, propriete, *avant);
    }
    if (const auto* barre = qobject_cast<const QToolBar*>(controle)) {
        const QList<QAction*> actions = barre->actions();
        for (QAction* action : actions) {
            if (const auto avant = Garde(*action, InfoBulle, action->toolTip()))
                MettreBouton(*action, *avant);
        }
    }
}

/// All controls of a form, in its own order.
void Parcourir(const QObject& parent, const std::function<void(QObject*)>& agir)
{
    for (QObject* enfant : parent.children()) {
        if (EstForme(enfant))
            continue;
        if (EstControle(enfant))
            agir(enfant);
        Parcourir(*enfant, agir);
    }
}

/// The title that a form was built with: later there may stand more in it, as behind a frame's own title that of the
/// document that fills it.
void GarderTitre(QWidget& form)
{
    if (!form.property(Titre).isValid())
        form.setProperty(Titre, QStringList{form.windowTitle(), QString()});
}

void RetablirTitre(QWidget& form)
{
    const QStringList gardes = form.property(Titre).toStringList();
    if (const QString mis = gardes.value(1); !mis.isEmpty() && form.windowTitle().startsWith(mis))
        form.setWindowTitle(gardes.first());
}

} // namespace

void LangForm(QWidget& form)
{
    GarderTitre(form);
    if (FichierLangue.isEmpty())
        return;
    const TextesDeForme textes(form.objectName());
    if (const auto titre = textes.Titre()) {
        form.setProperty(Titre, QStringList{form.property(Titre).toStringList().first(), *titre});
        form.setWindowTitle(*titre);
    }
    Parcourir(form, [&textes](QObject* controle) { TraduireControle(controle, textes); });
}

void ChangerLangueDe(QWidget& form)
{
    RetablirTitre(form);
    Parcourir(form, RetablirControle);
    LangForm(form);
}
