// Reads the message keys of a source tree, with the French texts that stand beside them.
#pragma once

#include <QString>
#include <QStringList>

#include <map>

/// What sources say of their messages.
struct MessagesDesSources
{
    std::map<QString, QStringList> textes; ///< of each key, each text once, in order; escapes as they are written
    QStringList clesSeules;                ///< keys that are handed on with a text that is no literal
};

/// Adds the messages of one source text. A key is a literal that begins with "msg"; its text is the literal, in one
/// piece or in several, that follows after a comma. Comments count for nothing.
void LireMessages(const QString& source, MessagesDesSources& messages);

/// Literals of one source text that users may get to see although no language has them: those of several words or with
/// accents, and any word that a caption, a hint, a title or a message is set to. Texts beside a key are none of them.
QStringList TextesSansCle(const QString& source);
