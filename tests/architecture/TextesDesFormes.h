// Reads from the sources the texts that a language translates in forms, under the keys by which LangForm asks for them.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <map>

/// A text of a form as it stands in the sources.
struct TexteDeForme
{
    QString francais;
    QString groupe; ///< captions of one group are seen together: those of a dialog, or of one menu; else empty
};

/// The texts of each form (its section), by their keys.
using TextesDesFormes = std::map<QString, std::map<QString, TexteDeForme>>;

/// What a form's .ui file holds. Texts that no language has are left out: those without a letter, those marked notr,
/// and titles of menus that are never seen, which repeat the menu's name.
void LireUi(const QByteArray& ui, TextesDesFormes& formes);

/// The captions of the menus of the document window: `menus` and `commandes` are the two sources with the tables.
void LireMenus(const QString& menus, const QString& commandes, TextesDesFormes& formes);

/// The tool tips of the buttons of the tool bars; `barres` is the source with the table.
void LireBarres(const QString& barres, TextesDesFormes& formes);

/// All of them, below the folder of the sources. A form whose code does not call LangForm has none.
TextesDesFormes TextesDuDossier(const QString& sources);

/// One line for each mnemonic that two captions of one group share. `texte` gives the text in the language in question.
QStringList MnemoniquesDoubles(const TextesDesFormes& formes,
                               const std::function<QString(const QString& section, const QString& cle)>& texte);
