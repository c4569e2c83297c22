// The texts that the language in force has for one form and its controls.
//
// They stand in the section named as the form, one key a text: "Caption" for the form's title, and for each control its
// name, with "_Index" behind it in a control array, then "_C" (caption), "_T" (text), "_TT" (tool tip), "_A" (what
// assistive technologies call it) or "_AD" (how they describe it). The tool tip of button i of a tool bar, from 1, has
// the key "<name>_TT_<i>".
#pragma once

#include <QString>

#include <optional>

/// Answers with the text to set, or nothing where the text that stands there is to stay: the language has none, or
/// `actuel`, the control's text now, is empty. Every answer is one look-up in the file.
class TextesDeForme
{
public:
    /// `nom`: the form's name.
    explicit TextesDeForme(QString nom) : m_nom(std::move(nom)) {}

    std::optional<QString> Titre() const;

    // `controle`: the control's name, for a member of a control array "Name_Index".
    std::optional<QString> Caption(const QString& controle, const QString& actuel) const;
    std::optional<QString> Texte(const QString& controle, const QString& actuel) const;
    std::optional<QString> InfoBulle(const QString& controle, const QString& actuel) const;
    std::optional<QString> NomAccessible(const QString& controle, const QString& actuel) const;
    std::optional<QString> DescriptionAccessible(const QString& controle, const QString& actuel) const;
    /// `bouton` counts from 1.
    std::optional<QString> InfoBulleBouton(const QString& barre, int bouton, const QString& actuel) const;

private:
    std::optional<QString> Lire(const QString& cle) const;
    std::optional<QString> Remplacer(const QString& cle, const QString& actuel) const;

    QString m_nom;
};
