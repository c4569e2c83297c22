// A text shown to the user together with the key under which translations know it.
#pragma once

#include <QString>

/// What LangMsg returns and AfficherMsg takes. Converts to and from plain text; a plain text has no key. Texts that
/// are put together (a message, a line break, a path) keep the key of the message.
struct Message
{
    QString cle;    ///< "msg49", or empty for a text without a key
    QString texte;  ///< in the language in force
    int defaut = 0; ///< the answer that Enter gives (ReponseMsg); 0 for the first button's

    Message() = default;
    Message(const QString& texteSansCle) : texte(texteSansCle) {}
    Message(const char16_t* texteSansCle) : texte(QString::fromUtf16(texteSansCle)) {}
    Message(const QString& cleDuMessage, const QString& texteDuMessage) : cle(cleDuMessage), texte(texteDuMessage) {}

    operator const QString&() const { return texte; }

    friend Message operator+(const Message& message, const QString& suite)
    {
        return message.AvecTexte(message.texte + suite);
    }

    /// The same message with every `marque` ("%1") replaced by `valeur`.
    Message Remplacer(const QString& marque, const QString& valeur) const
    {
        QString remplace = texte;
        return AvecTexte(remplace.replace(marque, valeur));
    }

    /// The same message, to which Enter answers so: for questions whose first button takes something away for good.
    Message ParDefaut(int reponse) const
    {
        Message message = *this;
        message.defaut = reponse;
        return message;
    }

private:
    Message AvecTexte(const QString& autre) const
    {
        Message message = *this;
        message.texte = autre;
        return message;
    }
};
