// The one door for messages and questions. What shows them is a presenter: the window frmMsg in the program, standard
// error in the command-line tool, a queue of prepared answers in tests.
#pragma once

#include "base/Message.h"

#include <QString>

#include <optional>

/// Buttons of a message box.
enum GenreMsg { MsgOk = 0, MsgOkAnnuler = 1, MsgOuiNonAnnuler = 3, MsgOuiNon = 4 };

/// Answers of a message box.
enum ReponseMsg { RepOk = 1, RepAnnuler = 2, RepOui = 6, RepNon = 7 };

/// Shows what the routines say. Lives as long as it is installed; called on the user-interface thread.
class PresentateurMessages
{
public:
    virtual ~PresentateurMessages() = default;

    /// Shows a message box and returns the answer. Closing the box without a button is RepAnnuler.
    virtual int Afficher(const Message& message, int genre, const QString& titre) = 0;

    /// Asks for a password. Empty: none was given. See ExtraireArchive for the text that goes with it.
    virtual QString DemanderMotDePasse(const QString& titre, const QString& invite) = 0;

    /// Asks for a line of text; `defaut` stands there at first, and is the answer when the user gives none. Who cannot
    /// ask answers with it.
    virtual QString SaisirTexte(const QString& libelle, const QString& defaut);
};

/// Installs the presenter (not owned) and returns the one before. Without any, every message is answered RepAnnuler,
/// every password is empty and every line of text is the one proposed.
PresentateurMessages* InstallerPresentateur(PresentateurMessages* presentateur);

/// Shows `message` modally and returns the button's number. `genre`: 0 one button (answer 1), 1 two buttons (1, 2),
/// 4 yes and no (6, 7), any other, in use 3, yes, no and cancel (6, 7, 2). An empty title is allowed. Enter presses the
/// first button unless the message names another answer (Message::ParDefaut).
int AfficherMsg(const Message& message, int genre, const QString& titre);

/// Asks the presenter for a password; empty when the user gives none.
QString DemanderMotDePasse(const QString& titre, const QString& invite);

/// Asks the presenter for a line of text. What the user validated, the empty text too; `defaut` when he cancels.
QString SaisirTexte(const QString& libelle, const QString& defaut);
