// A text shown to the user together with the key under which translations know it.
#pragma once

#include <QString>

/// What LangMsg returns and AfficherMsg takes. Converts to and from plain text; a plain text has no key. Texts that
/// are put together (a message, a line break, a path) keep the key of the message.
struct Message
{
    QString cle;   ///< "msg49", or empty for a text without a key
    QString texte; ///< in the language in force

    Message() = default;
    Message(const QString& texteSansCle) : texte(texteSansCle) {}
    Message(const char16_t* texteSansCle) : texte(QString::fromUtf16(texteSansCle)) {}
    Message(const QString& cleDuMessage, const QString& texteDuMessage) : cle(cleDuMessage), texte(texteDuMessage) {}

    operator const QString&() const { return texte; }

    friend Message operator+(const Message& message, const QString& suite)
    {
        return Message(message.cle, message.texte + suite);
    }

    /// The same message with every `marque` ("%1") replaced by `valeur`.
    Message Remplacer(const QString& marque, const QString& valeur) const
    {
        QString remplace = texte;
        return Message(cle, remplace.replace(marque, valeur));
    }
};
